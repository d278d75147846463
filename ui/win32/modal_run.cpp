#include "ui/win32/modal_run.h"

#include <algorithm>
#include <utility>

#include "ui/win32/screen.h"
#include "ui/win32/show_window.h"
#include "ui/win32/thread_windows.h"

namespace tillora::ui::win32 {
namespace {

bool isMainWindow(HWND window) {
  return IsWindowVisible(window) && IsWindowEnabled(window) && !GetWindow(window, GW_OWNER);
}

// The active window of the thread or, while another program is active, its main window.
HWND hostWindow() {
  if (const HWND active = GetActiveWindow()) return GetAncestor(active, GA_ROOT);
  const std::vector<HWND> windows = threadWindows();
  const auto found = std::ranges::find_if(windows, &isMainWindow);
  return found == windows.end() ? nullptr : *found;
}

// Windows of an input method serve whatever has the focus.
bool isOfInputMethod(HWND window) {
  wchar_t name[8] = L"";
  GetClassNameW(window, name, static_cast<int>(std::size(name)));
  return lstrcmpiW(name, L"IME") == 0 || (GetClassLongPtrW(window, GCL_STYLE) & CS_IME) != 0;
}

}  // namespace

ModalRun::ModalRun(Screen& screen, Form& form)
    : screen_(screen),
      form_(form),
      owner_(screen.topWindow() ? screen.topWindow() : hostWindow()),
      formerFocus_(GetFocus()) {
  screen_.runs_.push_back(this);
}

ModalRun::~ModalRun() {
  form_.attach(nullptr);
  if (failure_ || std::uncaught_exceptions() > 0) screen_.setPointer(Pointer::standard);
  leaveScreen();
  screen_.runs_.pop_back();
}

void ModalRun::leaveScreen() {
  for (const HWND window : std::exchange(disabled_, {})) EnableWindow(window, TRUE);
  if (!window() || !IsWindowVisible(window())) return;
  // Activates the owner first: hiding the active dialog could bring another program to the front.
  const bool wasActive = GetActiveWindow() == window();
  if (wasActive && owner_) SetActiveWindow(owner_);
  ShowWindow(window(), SW_HIDE);
  const bool ownersOwn = formerFocus_ && owner_ && IsChild(owner_, formerFocus_);
  if (wasActive && ownersOwn && screen_.runs_.front() == this) SetFocus(formerFocus_);
}

void ModalRun::show() {
  // Those of the dialog (drop-down lists, tool tips) come later.
  std::vector<HWND> others = threadWindows();
  formWindow_ = std::make_unique<FormWindow>(screen_, form_, owner_);
  throwFailure();
  form_.attach(formWindow_.get());
  disable(std::move(others));
  showWindow(formWindow_->window());
  form_.shown();
}

void ModalRun::disable(std::vector<HWND> others) {
  std::erase_if(others,
                [](HWND other) { return !IsWindowEnabled(other) || isOfInputMethod(other); });
  disabled_ = std::move(others);
  for (const HWND other : disabled_) EnableWindow(other, FALSE);
}

void ModalRun::dispatch(MSG& message) const {
  if (CallMsgFilterW(&message, MSGF_DIALOGBOX)) return;
  if (formWindow_->preTranslate(message)) return;
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

void ModalRun::wait() {
  bool saidIdle = false;
  while (isRunning()) {
    MSG message{};
    if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      saidIdle = false;
      if (message.message == WM_QUIT) {
        // The program is ending, and the form ends with it unconditionally.
        PostQuitMessage(static_cast<int>(message.wParam));
        form_.end();
      } else {
        dispatch(message);
      }
    } else if (!saidIdle) {
      saidIdle = true;
      sayIdle();
    } else {
      WaitMessage();
    }
  }
  throwFailure();
}

// Like the platform's own dialogs, for hosts that do work when idle.
void ModalRun::sayIdle() const {
  if (!owner_) return;
  SendMessageW(owner_, WM_ENTERIDLE, MSGF_DIALOGBOX, reinterpret_cast<LPARAM>(window()));
}

void ModalRun::windowGone() {
  const HWND front = GetForegroundWindow();
  const bool wasInFront =
      !front || GetWindowThreadProcessId(front, nullptr) == GetCurrentThreadId();
  gone_ = true;
  form_.attach(nullptr);
  leaveScreen();
  if (wasInFront && owner_ && IsWindowVisible(owner_)) SetActiveWindow(owner_);
  form_.end();
  // Wakes whatever waits for messages over the form.
  PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
}

void ModalRun::fail(std::exception_ptr failure) noexcept {
  if (failure_) return;
  failure_ = std::move(failure);
  // A host may go on letting messages pass in the call that it is in, but the dialog takes no more
  // input.
  form_.hide();
}

void ModalRun::throwFailure() const {
  if (failure_) std::rethrow_exception(failure_);
}

}  // namespace tillora::ui::win32
