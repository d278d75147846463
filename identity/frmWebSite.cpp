#include "identity/frmWebSite.h"

#include "base/text_rules.h"
#include "ui/layout.h"

namespace tillora {
frmWebSite::frmWebSite(const Platform& platform, Messages& messages)
    : EditDialog(platform.screen, Text()),
      chkInactive(makeFields()),
      platform_(platform),
      messages_(messages) {
  makeButtons();
  layOut();
  txtWebSite.on(&ui::TextBox::change, [this](int) { Changed = true; });
  chkInactive.click = [this] { Inactive = chkInactive.value(); };
  cmdWebSite[ok].click = [this] { accept(); };
  cmdWebSite[cancel].click = [this] { cancelAndClose(); };
  cmdWebSite[browse].click = [this] { browseShortcut(); };
}

ui::CheckBox& frmWebSite::makeFields() {
  lblWebSite.set(instruction, add<ui::Label>());
  lblWebSite.set(descriptionLabel, add<ui::Label>(u"&Description"));
  txtWebSite.set(description, add<ui::TextBox>());
  lblWebSite.set(urlLabel, add<ui::Label>(u"&URL"));
  txtWebSite.set(url, add<ui::TextBox>());
  cmdWebSite.set(browse, add<ui::CommandButton>(u"&Browse..."))
      .setToolTip(u"Browse for a URL Information file");
  return add<ui::CheckBox>(u"This Web site is Inactive");
}

void frmWebSite::makeButtons() {
  auto& okButton = cmdWebSite.set(ok, add<ui::CommandButton>(u"&OK"));
  okButton.setToolTip(u"Accept all changes then close this window");
  okButton.setDefault(true);
  auto& cancelButton = cmdWebSite.set(cancel, add<ui::CommandButton>(u"&Cancel"));
  cancelButton.setToolTip(u"Cancel all changes and close this window");
  cancelButton.setCancel();
}

void frmWebSite::layOut() {
  setClientSize({7500, 2850});
  ui::Rows::buttonRow(*this, {&cmdWebSite[ok], &cmdWebSite[cancel]});
  ui::Rows rows = ui::Rows::onPage(*this);
  rows.row({{lblWebSite[instruction], ui::Cell::kFill}});
  rows.row({{lblWebSite[descriptionLabel], ui::Cell::kFill}});
  rows.row({{txtWebSite[description], ui::Cell::kFill}});
  rows.row({{lblWebSite[urlLabel], ui::Cell::kFill}});
  rows.row({{txtWebSite[url], ui::Cell::kFill}, {cmdWebSite[browse]}});
  rows.row({{chkInactive, ui::Cell::kFill}});
}

void frmWebSite::onLoad() {
  setCaption(EditMode ? u"Edit Web Site Information" : u"Enter Web Site Information");
  lblWebSite[instruction].setCaption(EditMode ? u"Edit the description and URL for the Web site."
                                              : u"Enter the description and URL for the Web site.");
  txtWebSite[description].setText(Description);
  txtWebSite[url].setText(URL);
  chkInactive.setValue(Inactive);
  Changed = false;
}

void frmWebSite::accept() {
  if (txtWebSite[description].text().empty() || txtWebSite[url].text().empty()) {
    messages_.warn(u"You must enter values for both the description and the URL for the website.",
                   u"Web site details missing");
    return;
  }
  Description = txtWebSite[description].text();
  URL = txtWebSite[url].text();
  acceptAndClose();
}

void frmWebSite::browseShortcut() {
  const auto file =
      platform_.fileDialogs.open({.title = u"Select the Internet Explorer shortcut file.",
                                  .filter = u"Internet Explorer shortcut (*.URL)",
                                  .pattern = u"*.URL",
                                  .keepsShortcuts = true});
  if (!file) return;
  const Text found = platform_.files.profileValue(*file, u"InternetShortcut", u"URL");
  if (found.empty()) {
    Text text = u"The file '" + *file;
    text.append(u"' is not a valid Internet Explorer shortcut file.").append(kLineBreak);
    text.append(kLineBreak).append(u"Please select a valid file.");
    messages_.warn(text, u"Not a valid Internet Explorer shortcut file");
    return;
  }
  txtWebSite[url].setText(found);
}

}  // namespace tillora
