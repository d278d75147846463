#include "component/options.h"

#include <utility>

#include "component/frmOptions.h"

namespace tillora {
namespace {

/// Marks that a dialog of the component is open on this thread.
class OpenDialog {
 public:
  OpenDialog() {
    if (isOpen) {
      throw Error(error::alreadyShown, u"An options dialog is already open.");
    }
    isOpen = true;
  }
  ~OpenDialog() { isOpen = false; }
  OpenDialog(const OpenDialog&) = delete;
  OpenDialog& operator=(const OpenDialog&) = delete;

 private:
  static thread_local bool isOpen;
};

thread_local bool OpenDialog::isOpen = false;

}  // namespace

Options::Options(Platform platform) : platform_(std::move(platform)) {}

bool Options::ShowOptions() {
  const OpenDialog open;
  const ui::ScreenSession session(platform_.screen);
  frmOptions dialog(platform_);
  dialog.changed = [this](std::int32_t& mask) { OptionsChanged.raise(mask); };
  dialog.FirstUse = FirstUse;
  dialog.LVFileExtension = LVFileExtension;
  dialog.setHost({DBJetObject, AppObject, MsgSndObject, ResourceObject, SettingsObject});
  // The host may set another one in a call of the load: that is for the next dialog.
  const std::int16_t tab = SelectedTab;
  try {
    if (tab > 0) {
      dialog.load();
      dialog.tabOptions.setSelected(tab);
    }
    dialog.showModal();
  } catch (...) {
    // A committed change counts, whatever failed afterwards.
    if (dialog.ChangedDataFile) changedDataFile_ = true;
    throw;
  }
  changedDataFile_ = dialog.ChangedDataFile;
  return true;
}

}  // namespace tillora
