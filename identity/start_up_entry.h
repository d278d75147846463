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
  /// Writes the choice to the registry; a save does this first.
  void apply(const Text& title);

  ui::CheckBox chkShortcut;
};

}  // namespace tillora
