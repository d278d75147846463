#include "identity/frmPasswordSet.h"

#include <array>

#include "base/letter_case.h"
#include "ui/layout.h"

namespace tillora {
namespace {

using ui::Cell;

constexpr int kPictureSide = 480;
constexpr std::size_t kShortestPassword = 4;
constexpr int kLongestPassword = 16;

bool isTooShort(const ui::TextBox& box) {
  return !box.text().empty() && box.text().size() < kShortestPassword;
}

}  // namespace

frmPasswordSet::frmPasswordSet(ui::Screen& screen, Messages& messages)
    : Dialog(screen, Text()),
      imgPassword(add<ui::Picture>(ui::PictureId::key)),
      txtPassword(makeBoxes()),
      messages_(messages) {
  auto& okButton = cmdCommand.set(ok, add<ui::CommandButton>(u"&OK"));
  okButton.setToolTip(u"Accept the entered password and close this window");
  okButton.setDefault(true);
  auto& cancelButton = cmdCommand.set(cancel, add<ui::CommandButton>(u"&Cancel"));
  cancelButton.setToolTip(u"Discard changes and close this window");
  cancelButton.setCancel();
  layOut();
  txtPassword.on(&ui::TextBox::validate, [this](int i, bool& refuse) { validate(i, refuse); });
  okButton.click = [this] { accept(); };
  cancelButton.click = [this] { unload(); };
}

ui::ControlArray<ui::TextBox> frmPasswordSet::makeBoxes() {
  constexpr std::array kCaptions = {u"O&ld password", u"&New password", u"Con&firm password"};
  ui::ControlArray<ui::TextBox> boxes;
  for (int i = oldPassword; i <= confirmPassword; ++i) {
    lblPassword.set(i, add<ui::Label>(kCaptions[static_cast<std::size_t>(i)]));
    boxes.set(i, add<ui::TextBox>()).setMaxLength(kLongestPassword).setPasswordCharacter(u'*');
  }
  return boxes;
}

void frmPasswordSet::layOut() {
  setClientSize({5400, 1980});
  ui::Rows::buttonRow(*this, {&cmdCommand[ok], &cmdCommand[cancel]});
  auto columns = ui::Rows::onPage(*this).columns({kPictureSide, Cell::kFill});
  columns[0].block(imgPassword, kPictureSide);
  ui::Rows& rows = columns[1];
  const auto& label = lblPassword;
  rows.labelColumn({&label[oldPassword], &label[newPassword], &label[confirmPassword]});
  for (const auto& [index, box] : txtPassword) rows.field(label[index], {{*box, Cell::kFill}});
}

void frmPasswordSet::onLoad() {
  // A first password is set with the other two boxes only.
  const bool hasPassword = !Password.empty();
  ui::TextBox& old = txtPassword[oldPassword];
  old.setLocked(!hasPassword);
  old.setTabStop(hasPassword);
  old.setBackColour(hasPassword ? ui::kWindowBackground : ui::kButtonFace);
}

void frmPasswordSet::validate(int index, bool& cancel) {
  if (!isTooShort(txtPassword[index])) return;
  messages_.warn(
      u"Password must be no less than 4 characters and no more than 16 characters.\r\n\r\n"
      u"Please re-enter the password.",
      u"Password not valid");
  cancel = true;
}

void frmPasswordSet::accept() {
  Password = SecretText(lowerCase(Password.text()));
  for (const auto& [index, box] : txtPassword) box->setText(lowerCase(box->text()));
  for (const auto& [index, box] : txtPassword) {
    bool refused = false;
    validate(index, refused);
    if (!refused) continue;
    box->setFocus();
    return;
  }
  if (!sameLetters(txtPassword[oldPassword].text(), Password.text())) {
    askAgain(
        u"The Old Password you entered is incorrect.\r\n\r\n"
        u"Please re-enter the Old Password.",
        u"Old Password incorrect", {oldPassword});
    return;
  }
  if (!sameLetters(txtPassword[newPassword].text(), txtPassword[confirmPassword].text())) {
    askAgain(
        u"The  New and Confirmed Passwords you entered do not match.\r\n\r\n"
        u"Please re-enter the Passwords.",
        u"Passwords do not match", {newPassword, confirmPassword});
    return;
  }
  Password = SecretText(txtPassword[newPassword].text());
  unload();
}

void frmPasswordSet::askAgain(TextView text, TextView title, std::initializer_list<int> boxes) {
  messages_.warn(text, title);
  for (const int index : boxes) txtPassword[index].setText(Text());
  txtPassword[*boxes.begin()].setFocus();
}

}  // namespace tillora
