#include "ui/win32/modal_run.h"

#include <utility>

#include "ui/win32/screen.h"

namespace tillora::ui::win32 {
namespace {

BOOL CALLBACK firstUsable(HWND window, LPARAM found) {
  if (!IsWindowVisible(window) || !IsWindowEnabled(window) || GetWindow(window, GW_OWNER)) {
    return TRUE;
  }
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

// The active window of the thread or, while another program is active, its main window.
HWND hostWindow() {
  HWND host = GetActiveWindow();
  if (!host) EnumThreadWindows(GetCurrentThreadId(), &firstUsable, reinterpret_cast<LPARAM>(&host));
  return host ? GetAncestor(host, GA_ROOT) : nullptr;
}

BOOL CALLBACK collectEnabled(HWND window, LPARAM found) {
  if (IsWindowVisible(window) && IsWindowEnabled(window)) {
    reinterpret_cast<std::vector<HWND>*>(found)->push_back(window);
  }
  return TRUE;
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
  // The owner comes first: were the dialog hidden while it is active, another program could be
  // brought to the front.
  const bool wasActive = GetActiveWindow() == window();
  if (wasActive && owner_) SetActiveWindow(owner_);
  ShowWindow(window(), SW_HIDE);
  const bool ownersOwn = formerFocus_ && owner_ && IsChild(owner_, formerFocus_);
  if (wasActive && ownersOwn && screen_.runs_.front() == this) SetFocus(formerFocus_);
}

void ModalRun::run() {
  dialog_ = std::make_unique<DialogWindow>(screen_, form_, owner_);
  throwFailure();
  form_.attach(dialog_.get());
  disableOthers();
  ShowWindow(dialog_->window(), SW_SHOW);
  form_.shown();
  if (screen_.modalShown) {
    screen_.pumpUntilIdle();
    if (isRunning()) screen_.modalShown(form_);
  }
  wait();
  throwFailure();
}

void ModalRun::disableOthers() {
  EnumThreadWindows(GetCurrentThreadId(), &collectEnabled, reinterpret_cast<LPARAM>(&disabled_));
  std::erase(disabled_, dialog_->window());
  for (const HWND window : disabled_) EnableWindow(window, FALSE);
}

void ModalRun::dispatch(MSG& message) const {
  if (dialog_->preTranslate(message)) return;
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

void ModalRun::wait() {
  MSG message{};
  while (isRunning()) {
    const BOOL got = GetMessageW(&message, nullptr, 0, 0);
    if (got < 0) throwLastError("GetMessageW");
    if (got == 0) {
      // The program is ending: so does the form, whatever it would rather do.
      PostQuitMessage(static_cast<int>(message.wParam));
      form_.unload();
      form_.hide();
      return;
    }
    dispatch(message);
  }
}

void ModalRun::fail(std::exception_ptr failure) noexcept {
  if (failure_) return;
  failure_ = std::move(failure);
  // A host may go on letting messages pass in the call that it is in: nothing more can be done in
  // the dialog.
  form_.hide();
}

void ModalRun::throwFailure() const {
  if (failure_) std::rethrow_exception(failure_);
}

}  // namespace tillora::ui::win32
