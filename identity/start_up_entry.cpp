#include "identity/start_up_entry.h"

#include "support/modRunAtWindowsStartup.h"
#include "ui/layout.h"

namespace tillora {

StartUpEntry::StartUpEntry(OptionsDialog& dialog) : OptionsTab(dialog) {
  dialog.page(TabPage::general).rows().row({fill(chkShortcut)});
}

void StartUpEntry::load(OptionsRecord& /*record*/) {
  const Text title = requireObject(dialog_.host().app, u"AppObject").title();
  chkShortcut.setCaption(u"Start " + title + u" when Windows starts up");
  chkShortcut.setValue(IsRunAtStartup(dialog_.platform().registry, title));
}

void StartUpEntry::apply(const Text& title) {
  const Text folder = requireObject(dialog_.host().app, u"AppObject").path();
  SetRunAtStartup(dialog_.platform().registry, title, folder + u"\\" + title + u".exe",
                  !chkShortcut.value());
}

}  // namespace tillora
