#include "identity/frmWebSite.h"

#include "base/text_rules.h"
#include "ui/layout.h"

namespace tillora {
namespace {

constexpr int kUrlCharacters = 60;

}  // namespace

frmWebSite::frmWebSite(const Platform& platform, Messages& messages)
    : EditDialog(platform.screen, Text()), platform_(platform), messages_(messages) {
  rows().row({fill(lblWebSite.add(instruction))});
  rows().row({fill(lblWebSite.add(descriptionLabel, u"&Description"))});
  rows().row({fill(txtWebSite.add(description))});
  rows().row({fill(lblWebSite.add(urlLabel, u"&URL"))});
  rows().row(
      {fill(txtWebSite.add(url), ui::characters(kUrlCharacters)),
       cmdWebSite.add(browse, u"&Browse...").setToolTip(u"Browse for a URL Information file")});
  rows().row({fill(chkInactive.setCaption(u"This Web site is Inactive"))});
  okAndCancel(cmdWebSite.add(ok, u"&OK"), u"Accept all changes then close this window",
              cmdWebSite.add(cancel, u"&Cancel"), u"Cancel all changes and close this window");

  txtWebSite.on(&ui::TextBox::change, [this](int) { Changed = true; });
  chkInactive.click = [this] { Inactive = chkInactive.value(); };
  cmdWebSite[ok].click = [this] { accept(); };
  cmdWebSite[cancel].click = [this] { cancelAndClose(); };
  cmdWebSite[browse].click = [this] { browseShortcut(); };
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
