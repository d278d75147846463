// What Windows sends to a form's window and to the frames in it.
#include <utility>

#include "ui/win32/dialog_window.h"
#include "ui/win32/screen.h"

namespace tillora::ui::win32 {
namespace {

BOOL CALLBACK forwardColourChange(HWND window, LPARAM /*unused*/) {
  SendMessageW(window, WM_SYSCOLORCHANGE, 0, 0);
  return TRUE;
}

}  // namespace

void DialogWindow::fail(std::exception_ptr failure) noexcept { screen_.fail(std::move(failure)); }

std::optional<LRESULT> DialogWindow::route(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      if (ControlView* view = viewAt(reinterpret_cast<HWND>(lParam))) {
        if (form_.isShown()) view->command(HIWORD(wParam));
        return 0;
      }
      return std::nullopt;
    case WM_NOTIFY: {
      auto& header = *reinterpret_cast<NMHDR*>(lParam);
      ControlView* view = viewAt(header.hwndFrom);
      if (!view) return std::nullopt;
      return view->notify(header);
    }
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN: {
      ControlView* view = viewAt(reinterpret_cast<HWND>(lParam));
      if (!view) return std::nullopt;
      return reinterpret_cast<LRESULT>(view->colours(reinterpret_cast<HDC>(wParam)));
    }
    default:
      return std::nullopt;
  }
}

std::optional<LRESULT> DialogWindow::message(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CLOSE:
      if (form_.isShown()) form_.userClose();
      return 0;
    case WM_COMMAND:
      // Without a window it comes from accessibility tools and automation.
      if (lParam == 0 && LOWORD(wParam) == IDCANCEL && form_.isShown()) form_.userClose();
      return route(message, wParam, lParam).value_or(0);
    case WM_ACTIVATE:
      if (LOWORD(wParam) != WA_INACTIVE) applyFocus();
      return 0;
    case WM_SETFOCUS:
      applyFocus();
      return 0;
    case kReconcileFocus:
      reconcileFocus();
      return 0;
    case WM_SYSCOLORCHANGE:
      // Only top-level windows are told; common controls want to know too.
      EnumChildWindows(window_, &forwardColourChange, 0);
      return std::nullopt;
    case WM_HELP:
      if (form_.isShown()) form_.help.raise();
      return TRUE;
    case WM_SETCURSOR:
      return showPointer() ? std::optional<LRESULT>(TRUE) : std::nullopt;
    default:
      return route(message, wParam, lParam);
  }
}

INT_PTR CALLBACK DialogWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    SetWindowLongPtrW(window, DWLP_USER, lParam);
    return FALSE;
  }
  auto* dialog = reinterpret_cast<DialogWindow*>(GetWindowLongPtrW(window, DWLP_USER));
  if (!dialog || !dialog->window_) return FALSE;
  bool handled = true;
  const LRESULT result = dialog->walled([&]() -> LRESULT {
    const std::optional<LRESULT> answer = dialog->message(message, wParam, lParam);
    handled = answer.has_value();
    return answer.value_or(0);
  });
  // Colour requests are answered by the return value itself.
  if (message == WM_CTLCOLOREDIT || message == WM_CTLCOLORSTATIC || message == WM_CTLCOLORBTN) {
    return handled ? result : FALSE;
  }
  if (handled) SetWindowLongPtrW(window, DWLP_MSGRESULT, result);
  return handled;
}

}  // namespace tillora::ui::win32
