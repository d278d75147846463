#pragma once

#include "component/contract/options_tab.h"
#include "ui/buttons.h"

namespace tillora {

/// Whether the host program starts when the user logs on to Windows. The choice lives in the
/// registry of the machine, not in the record of options.
class StartUpEntry final : public OptionsTab {
 public:
  explicit StartUpEntry(OptionsDialog& dialog);
  void load();
  /// What a save does first: the choice into the registry.
  void apply(const Text& title);

  ui::CheckBox chkShortcut;
};

}  // namespace tillora
