#pragma once

#include <functional>
#include <vector>

#include "ui/win32/modal_run.h"
#include "ui/win32/screen.h"

namespace tillora::testing {

/// The desktop with a user: a function of the test's own thread acts in each form that is shown.
class DrivenScreen final : public ui::win32::Screen {
 public:
  /// Called, if set, once a modal form is shown and nothing is left to do for its windows.
  std::function<void(ui::Form&)> modalShown;

  void runModal(ui::Form& form) override;
  /// Processes all messages that are waiting, as the modal run does. It stops early when the form
  /// on top ends.
  void pumpUntilIdle();
  /// The window of a control of a form that is shown; null while it has none.
  HWND windowOf(const ui::Control& control) const;

 private:
  std::vector<ui::win32::ModalRun*> runs_;
};

}  // namespace tillora::testing
