#include "tests/testing/win32/windows_desk.h"

#include <utility>

#include "ui/win32/module.h"

namespace tillora::testing {

WindowsDesk::WindowsDesk()
    : host_(CreateWindowExW(0, L"STATIC", L"Host of the tests", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                            40, 40, 900, 700, nullptr, nullptr, ui::win32::thisModule(), nullptr)) {
  SetForegroundWindow(host_.get());
  screen_.modalShown = [this](ui::Form& form) { shown(form); };
  screen_.pumpUntilIdle();
}

void WindowsDesk::shown(ui::Form& form) {
  SetForegroundWindow(screen_.topWindow());
  screen_.pumpUntilIdle();
  const char* how = getenv("DESK_WAIT");
  if (how && *how == 's') {
    if (++shown_ > 1) Sleep(20);
  } else if (!how)
    settle();
  screen_.pumpUntilIdle();
  if (steps_.empty()) {
    ++unexpected_;
  } else {
    const auto step = std::move(steps_.front());
    steps_.pop_front();
    step(form);
  }
  user_.closeWindow(form);
  form.hide();  // one that would not close ends with its step all the same
}

void WindowsDesk::settle() {
  POINT pointer{};
  GetCursorPos(&pointer);
  SetCursorPos(pointer.x ^ 1, pointer.y);
  screen_.pumpUntilIdle();
}

std::unique_ptr<Desk> makeDesk() { return std::make_unique<WindowsDesk>(); }

}  // namespace tillora::testing
