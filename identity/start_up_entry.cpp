#include "identity/start_up_entry.h"

#include "support/modRunAtWindowsStartup.h"
#include "ui/layout.h"

namespace tillora {

StartUpEntry::StartUpEntry(OptionsDialog& dialog) : OptionsTab(dialog) {
  dialog.page(TabPage::general).rows().row({fill(chkShortcut)});
}

void StartUpEntry::load() {
  const Text title = dialog_.app().title();
  chkShortcut.setCaption(u"Start " + title + u" when Windows starts up");
  chkShortcut.setValue(IsRunAtStartup(dialog_.platform().registry, title));
}

void StartUpEntry::apply(const Text& title) {
  const Text folder = dialog_.app().path();
  SetRunAtStartup(dialog_.platform().registry, title, folder + u"\\" + title + u".exe",
                  !chkShortcut.value());
}

}  // namespace tillora
