#include "tests/testing/win32/windows_desk.h"

#include <utility>

#include "com/module.h"

namespace tillora::testing {

WindowsDesk::WindowsDesk()
    : host_(CreateWindowExW(0, L"STATIC", L"Host of the tests", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                            40, 40, 900, 700, nullptr, nullptr, win32::thisModule(), nullptr)) {
  SetForegroundWindow(host_.get());
  screen_.modalShown = [this](ui::Form& form) { shown(form); };
  screen_.pumpUntilIdle();
}

void WindowsDesk::shown(ui::Form& form) {
  SetForegroundWindow(screen_.topWindow());
  // A dialog over another that is gone before the display has given it the focus would take the
  // focus of the whole program with it.
  screen_.pumpUntilIdle();
  user_.settle();
  if (steps_.empty()) {
    ++unexpected_;
  } else {
    const auto step = std::move(steps_.front());
    steps_.pop_front();
    step(form);
  }
  user_.closeWindow(form);
  form.hide();  // even a form that would not close ends with its step
}

std::unique_ptr<Desk> makeDesk() { return std::make_unique<WindowsDesk>(); }

}  // namespace tillora::testing
