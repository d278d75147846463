#include "identity/frmPasswordSet.h"

#include "base/letter_case.h"
#include "support/modSelectAllText.h"
#include "ui/layout.h"

namespace tillora {
namespace {

constexpr ui::Length kPictureSide = ui::twips(480);
constexpr std::size_t kShortestPassword = 4;
constexpr int kLongestPassword = 16;

bool isTooShort(const ui::TextBox& box) {
  return !box.text().empty() && box.text().size() < kShortestPassword;
}

}  // namespace

frmPasswordSet::frmPasswordSet(ui::Screen& screen, Messages& messages)
    : Dialog(screen, Text()), messages_(messages) {
  const auto columns = rows().columns({kPictureSide, ui::kRest});
  columns[0]->block(imgPassword, kPictureSide);
  columns[1]->field({lblPassword.add(oldPassword, u"O&ld password"), fill(box(oldPassword))});
  columns[1]->field({lblPassword.add(newPassword, u"&New password"), fill(box(newPassword))});
  columns[1]->field(
      {lblPassword.add(confirmPassword, u"Con&firm password"), fill(box(confirmPassword))});
  okAndCancel(cmdCommand.add(ok, u"&OK"), u"Accept the entered password and close this window",
              cmdCommand.add(cancel, u"&Cancel"), u"Discard changes and close this window");

  txtPassword.on(&ui::TextBox::validate, [this](int i, bool& refuse) { validate(i, refuse); });
  cmdCommand[ok].click = [this] { accept(); };
  cmdCommand[cancel].click = [this] { unload(); };
}

ui::TextBox& frmPasswordSet::box(Box index) {
  return txtPassword.add(index).setMaxLength(kLongestPassword).setPasswordCharacter(u'*');
}

void frmPasswordSet::onLoad() {
  // A first password needs only the other two boxes.
  const bool hasPassword = !Password.empty();
  ui::TextBox& old = txtPassword[oldPassword];
  old.setLocked(!hasPassword);
  old.setTabStop(hasPassword);
}

void frmPasswordSet::validate(int index, bool& cancel) {
  if (!isTooShort(txtPassword[index])) return;
  messages_.warn(
      u"Password must be no less than 4 characters and no more than 16 characters.\r\n\r\n"
      u"Please re-enter the password.",
      u"Password not valid");
  selectAllText(txtPassword[index]);
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
