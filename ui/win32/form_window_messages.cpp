// What Windows sends to a form's window and to the frames in it.
#include <utility>

#include "ui/win32/form_window.h"
#include "ui/win32/modal_run.h"
#include "ui/win32/screen.h"
#include "ui/win32/scrolling.h"
#include "ui/win32/tab_body.h"
#include "ui/win32/thread_windows.h"

namespace tillora::ui::win32 {
namespace {

BOOL CALLBACK forwardColourChange(HWND window, LPARAM /*unused*/) noexcept {
  SendMessageW(window, WM_SYSCOLORCHANGE, 0, 0);
  return TRUE;
}

}  // namespace

void FormWindow::fail(std::exception_ptr failure) noexcept { screen_.fail(std::move(failure)); }

bool FormWindow::isThemeReadable() const {
  if (!themeReadable_) themeReadable_ = win32::isThemeReadable(window_);
  return *themeReadable_;
}

bool FormWindow::takesInput() const {
  return form_.isShown() && !form_.isBusy() && screen_.topWindow() == window_;
}

bool FormWindow::holdsOff(UINT message) const {
  switch (message) {
    case WM_KEYDOWN:
    case WM_CHAR:
    case WM_SYSCHAR:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK:
    case WM_MOUSEWHEEL:
    case WM_CONTEXTMENU:
      return !takesInput();
    default:
      return false;
  }
}

// Closing a form under another would leave the upper one behind, so the close goes to the form on
// top.
void FormWindow::close() {
  if (!form_.isShown()) return;
  const HWND top = screen_.topWindow();
  const HWND over = top != window_ ? top : IsWindowEnabled(window_) ? nullptr : windowOver(window_);
  if (over) {
    PostMessageW(over, WM_CLOSE, 0, 0);
  } else {
    form_.userClose();
  }
}

std::optional<LRESULT> FormWindow::route(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      if (ControlView* view = viewAt(reinterpret_cast<HWND>(lParam))) {
        view->command(HIWORD(wParam));
        return 0;
      }
      return std::nullopt;
    case WM_NOTIFY: {
      auto& header = *reinterpret_cast<NMHDR*>(lParam);
      ControlView* view = viewAt(header.hwndFrom);
      if (!view) return std::nullopt;
      return view->notify(header);
    }
    case WM_DRAWITEM: {
      const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
      ControlView* view = viewAt(item.hwndItem);
      if (!view) return std::nullopt;
      view->draw(item);
      return TRUE;
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

std::optional<LRESULT> FormWindow::message(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SYSCOMMAND:
      if ((wParam & 0xFFF0) != SC_CLOSE) return std::nullopt;
      close();  // the platform itself does nothing if the window is disabled
      return 0;
    case WM_CLOSE:
      close();
      return 0;
    case WM_COMMAND:
      // Without a window it comes from accessibility tools and automation.
      if (lParam == 0 && LOWORD(wParam) == IDCANCEL) close();
      return route(message, wParam, lParam).value_or(0);
    case DM_GETDEFID:
      return shownDefault_ ? MAKELRESULT(GetDlgCtrlID(windowOf(*shownDefault_)), DC_HASDEFID) : 0;
    case WM_ACTIVATE:
      if (LOWORD(wParam) != WA_INACTIVE) applyFocus();
      return 0;
    case WM_NCACTIVATE:
      if (wParam || form_.isShown()) return std::nullopt;
      // A caption that is about to leave the screen need not be painted as an inactive one.
      return DefWindowProcW(window_, message, wParam, -1);
    case WM_SETFOCUS:
      applyFocus();
      return 0;
    case kReconcileFocus:
      reconcileFocus();
      return 0;
    case WM_SETTINGCHANGE:
    case WM_THEMECHANGED:
      themeReadable_.reset();
      screen_.followSettings();
      return std::nullopt;
    case WM_SYSCOLORCHANGE:
      themeReadable_.reset();
      // Only top-level windows are notified; common controls need to know too.
      EnumChildWindows(window_, &forwardColourChange, 0);
      return std::nullopt;
    case WM_GETMINMAXINFO:
      reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {least_.cx, least_.cy};
      return 0;
    case WM_SIZE:
      if (form_.view()) followWindow();
      return 0;
    case WM_VSCROLL:
    case WM_HSCROLL:
    case WM_MOUSEWHEEL:
      return scroll(form_, metrics(), window_, message, wParam, lParam);
    case WM_HELP:
      if (takesInput()) form_.userHelp();
      return TRUE;
    case WM_ENTERIDLE:
      // While a form over this one is idle, so is the host.
      SendMessageW(GetWindow(window_, GW_OWNER), message, wParam, lParam);
      return 0;
    case WM_ENDSESSION:
      if (wParam) screen_.sessionEnds();
      return 0;
    case WM_DESTROY:
      if (ModalRun* run = screen_.runOf(form_)) run->windowGone();
      return std::nullopt;
    case WM_NCDESTROY:
      window_ = toolTips_ = nullptr;
      return std::nullopt;
    case WM_SETCURSOR:
      return showPointer() ? std::optional<LRESULT>(TRUE) : std::nullopt;
    default:
      return route(message, wParam, lParam);
  }
}

INT_PTR CALLBACK FormWindow::procedure(HWND window, UINT message, WPARAM wParam,
                                       LPARAM lParam) noexcept {
  if (message == WM_INITDIALOG) {
    SetWindowLongPtrW(window, DWLP_USER, lParam);
    return FALSE;
  }
  auto* formWindow = reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, DWLP_USER));
  if (!formWindow || !formWindow->window_) return FALSE;
  bool handled = true;
  const LRESULT result = formWindow->walled([&]() -> LRESULT {
    const std::optional<LRESULT> answer = formWindow->message(message, wParam, lParam);
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
