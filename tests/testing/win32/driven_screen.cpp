#include "tests/testing/win32/driven_screen.h"

#include <algorithm>

namespace tillora::testing {

using ui::win32::ModalRun;

namespace {

/// Has a run on top of the others during its lifetime.
class OnTop {
 public:
  OnTop(std::vector<ModalRun*>& runs, ModalRun& run) : runs_(runs) { runs_.push_back(&run); }
  OnTop(const OnTop&) = delete;
  OnTop& operator=(const OnTop&) = delete;
  ~OnTop() { runs_.pop_back(); }

 private:
  std::vector<ModalRun*>& runs_;
};

}  // namespace

void DrivenScreen::runModal(ui::Form& form) {
  if (!canShow()) {
    Screen::runModal(form);
    return;
  }
  ModalRun run(*this, form);
  const OnTop onTop(runs_, run);
  run.show();
  if (modalShown) {
    pumpUntilIdle();
    if (run.isRunning()) modalShown(form);
  }
  run.wait();
}

void DrivenScreen::pumpUntilIdle() {
  const ModalRun* top = runs_.empty() ? nullptr : runs_.back();
  MSG message{};
  while ((!top || top->isRunning()) && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    if (top) {
      top->dispatch(message);
    } else {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }
}

HWND DrivenScreen::windowOf(const ui::Control& control) const {
  const auto run = std::ranges::find_if(
      runs_, [&](const ModalRun* shown) { return &shown->form() == &control.form(); });
  return run != runs_.end() && (*run)->formWindow() ? (*run)->formWindow()->windowOf(control)
                                                    : nullptr;
}

}  // namespace tillora::testing
