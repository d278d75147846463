// The platform's focus and the form's, and user input on its way to the form.
#include "ui/buttons.h"
#include "ui/win32/form_window.h"
#include "ui/win32/held_keys.h"

namespace tillora::ui::win32 {
namespace {

// Modifiers by themselves, and keys that only carry a character or feed an input method.
bool isNoStroke(WPARAM key) {
  return key == VK_SHIFT || key == VK_CONTROL || key == VK_MENU || key == VK_CAPITAL ||
         key == VK_PACKET || key == VK_PROCESSKEY;
}

}  // namespace

void FormWindow::focusMoved() {
  applyFocus();
  showDefaultButton();
}

// Only while the dialog is active: giving the focus to a window of an inactive one would bring the
// program to the front.
void FormWindow::applyFocus() {
  if (!form_.isShown() || !IsWindowVisible(window_) || GetActiveWindow() != window_) return;
  const Control* active = form_.activeControl();
  HWND wanted = active ? windowOf(*active) : nullptr;
  if (!wanted) wanted = window_;
  const HWND now = GetFocus();
  if (now != wanted && (wanted == window_ || !IsChild(wanted, now))) SetFocus(wanted);
}

void FormWindow::focusLanded(Control& control) {
  if (form_.isShown() && &control != form_.activeControl()) {
    PostMessageW(window_, kReconcileFocus, 0, 0);
  }
}

void FormWindow::reconcileFocus() {
  if (!form_.isShown()) return;
  const ControlView* landed = viewAround(GetFocus());
  if (landed && &landed->control() != form_.activeControl()) {
    if (Control* active = form_.activeControl()) {
      if (ControlView* view = viewOf(*active)) view->readBack();
    }
    form_.userDoes([&] { form_.setFocus(landed->control()); });
  }
  applyFocus();
}

void FormWindow::showDefaultButton() {
  const CommandButton* wanted = form_.enterButton();
  if (wanted && !viewOf(*wanted)) wanted = nullptr;
  if (wanted == shownDefault_) return;
  if (shownDefault_) SendMessageW(windowOf(*shownDefault_), BM_SETSTYLE, BS_PUSHBUTTON, TRUE);
  if (wanted) SendMessageW(windowOf(*wanted), BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
  shownDefault_ = wanted;
}

bool FormWindow::preTranslate(MSG& message) {
  if (message.hwnd != window_ && !IsChild(window_, message.hwnd)) return false;
  if (!form_.isShown()) return false;
  bool used = true;  // even if the form fails
  walled([&] {
    switch (message.message) {
      case WM_KEYDOWN:
      case WM_SYSKEYDOWN:
        used = keyDown(message);
        break;
      case WM_CHAR:
        used = character(message);
        break;
      case WM_SYSCHAR:
        readBackActive();
        used = form_.userAccessKey(static_cast<char16_t>(message.wParam));
        break;
      case WM_LBUTTONDOWN:
      case WM_LBUTTONDBLCLK:
      case WM_RBUTTONDOWN:
      case WM_MBUTTONDOWN:
        used = mouseDown(message);
        break;
      default:
        used = false;
        return;
    }
    applyFocus();
  });
  return used;
}

void FormWindow::readBackActive() {
  const Control* active = form_.activeControl();
  if (ControlView* view = active ? viewOf(*active) : nullptr) view->readBack();
}

bool FormWindow::keyDown(const MSG& message) {
  const WPARAM key = message.wParam;
  const Modifiers modifiers = heldModifiers();
  showKeyboardCues(key, modifiers.alt);
  if (isNoStroke(key)) return false;
  const ControlView* view = viewAround(message.hwnd);
  if (view && view->wantsKey(key)) return false;
  readBackActive();
  // The platform's other keys for the next and the previous tab.
  const bool pages = modifiers == Modifiers{.ctrl = true} && (key == VK_PRIOR || key == VK_NEXT);
  if (pages && form_.userKeyDown(Key::tab, {.shift = key == VK_PRIOR, .ctrl = true})) return true;
  return form_.userKeyDown(static_cast<Key>(key), modifiers);
}

bool FormWindow::character(MSG& message) {
  ControlView* view = viewAround(message.hwnd);
  readBackActive();
  auto typed = static_cast<char16_t>(message.wParam);
  if (view && &view->control() != form_.activeControl()) {
    // The key's own handler moved the focus on: the character still belongs where it was typed.
    typed = form_.userCharacter(&view->control(), typed);
  } else {
    typed = form_.userCharacter(typed);
  }
  if (typed == 0) return true;
  message.wParam = typed;
  return view && view->typed(typed);
}

bool FormWindow::mouseDown(const MSG& message) {
  const ControlView* view = viewAround(message.hwnd);
  if (!view) return false;
  readBackActive();
  Control& control = view->control();
  const bool had = control.hasFocus();
  if (!form_.userMouseDown(control)) return true;
  return !had && control.hasFocus() && view->clickOnlyFocuses();
}

void FormWindow::showKeyboardCues(WPARAM key, bool alt) {
  UINT hidden = 0;
  if (key == VK_TAB || (key >= VK_LEFT && key <= VK_DOWN)) hidden = UISF_HIDEFOCUS;
  if (alt || key == VK_F10) hidden = UISF_HIDEFOCUS | UISF_HIDEACCEL;
  const auto state = static_cast<UINT>(SendMessageW(window_, WM_QUERYUISTATE, 0, 0));
  if ((state & hidden) == 0) return;
  SendMessageW(window_, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, hidden), 0);
}

}  // namespace tillora::ui::win32
