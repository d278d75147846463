#include "component/save_options.h"

#include "component/frmOptions.h"
#include "ui/busy_pointer.h"

namespace tillora {

bool SaveOptions(frmOptions& dialog) {
  OptionChanges changes;
  {
    const ui::BusyPointer busy(dialog.screen());
    const Text title = dialog.app().title();

    applyBeforeValidations(dialog.tabs(), title);
    if (!validateTabs(dialog.tabs(), title)) return false;

    {
      const auto record = dialog.database().optionsRecord();
      saveTabs(dialog.tabs(), *record, changes);
      record->commit();
      if (changes.dataFile()) dialog.ChangedDataFile = true;
    }
    requireObject(dialog.host().messageSender, u"MsgSndObject").send(dialog.platform().clock.now());
    dialog.cmdCommand[frmOptions::apply].setEnabled(false);
  }
  std::int32_t mask = changes.mask();
  dialog.changed.raise(mask);
  return true;
}

}  // namespace tillora
