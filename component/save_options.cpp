#include "component/save_options.h"

#include "component/frmOptions.h"
#include "ui/busy_pointer.h"

namespace tillora {

bool SaveOptions(frmOptions& dialog) {
  OptionChanges changes;
  {
    const ui::BusyPointer busy(dialog.screen());
    const HostObjects& host = dialog.host();

    const Text title = requireObject(host.app, u"AppObject").title();

    applyBeforeValidations(dialog.tabs(), title);
    if (!validateTabs(dialog.tabs(), title)) return false;

    {
      const auto record = requireObject(host.database, u"DBJetObject").optionsRecord();
      saveTabs(dialog.tabs(), *record, changes);
      record->commit();
      if (changes.dataFile()) dialog.ChangedDataFile = true;
    }
    requireObject(host.messageSender, u"MsgSndObject").send(dialog.platform().clock.now());
    dialog.cmdCommand[frmOptions::apply].setEnabled(false);
  }
  std::int32_t mask = changes.mask();
  dialog.changed.raise(mask);
  return true;
}

}  // namespace tillora
