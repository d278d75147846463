#include "ui/win32/win32_screen.h"

#include <utility>

#include "ui/form.h"
#include "ui/win32/dialog_window.h"
#include "ui/win32/modal_run.h"
#include "ui/win32/wide.h"

namespace tillora::ui::win32 {

Win32Screen::Win32Screen() {
  INITCOMMONCONTROLSEX wanted{sizeof wanted, ICC_LISTVIEW_CLASSES | ICC_TAB_CLASSES |
                                                 ICC_UPDOWN_CLASS | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&wanted);
}

Win32Screen::~Win32Screen() = default;

void Win32Screen::runModal(Form& form) { ModalRun(*this, form).run(); }

void Win32Screen::setPointer(Pointer pointer) {
  pointer_ = pointer;
  SetCursor(LoadCursorW(nullptr, pointer == Pointer::hourglass ? IDC_WAIT : IDC_ARROW));
}

int Win32Screen::compareForList(TextView a, TextView b) const {
  const std::wstring first = wide(a);
  const std::wstring second = wide(b);
  return CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, first.data(),
                        static_cast<int>(first.size()), second.data(),
                        static_cast<int>(second.size())) -
         CSTR_EQUAL;
}

void Win32Screen::beep() { MessageBeep(MB_OK); }

HWND Win32Screen::topWindow() const { return runs_.empty() ? nullptr : runs_.back()->window(); }

HWND Win32Screen::windowOf(const Control& control) const {
  for (const ModalRun* run : runs_) {
    if (&run->form() == &control.form() && run->dialog()) return run->dialog()->windowOf(control);
  }
  return nullptr;
}

void Win32Screen::pumpUntilIdle() {
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

void Win32Screen::fail(std::exception_ptr failure) noexcept {
  if (!runs_.empty()) runs_.back()->fail(std::move(failure));
}

}  // namespace tillora::ui::win32
