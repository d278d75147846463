#pragma once

#include <exception>
#include <memory>
#include <vector>

#include "ui/form.h"
#include "ui/win32/form_window.h"
#include "ui/win32/visual_styles.h"

namespace tillora::ui::win32 {

class Screen;

/// One form shown modally: during its lifetime every other window of the thread that was there
/// before is disabled, hidden ones included. However it ends, windows, focus and pointer are left
/// as they were before.
class ModalRun {
 public:
  ModalRun(Screen& screen, Form& form);
  ModalRun(const ModalRun&) = delete;
  ModalRun& operator=(const ModalRun&) = delete;
  ~ModalRun();

  /// Makes the form's window and shows it; throws what a handler threw meanwhile.
  void show();
  /// Returns when the form is no longer shown; throws what a handler threw.
  void wait();

  Form& form() const { return form_; }
  FormWindow* formWindow() const { return formWindow_.get(); }
  /// Null before it is made, and once it is gone.
  HWND window() const { return formWindow_ && !gone_ ? formWindow_->window() : nullptr; }
  /// Shown, and nothing has failed.
  bool isRunning() const { return form_.isShown() && !failure_; }
  void dispatch(MSG& message) const;
  /// Hides the form; wait() throws the first failure.
  void fail(std::exception_ptr failure) noexcept;
  /// Call when the form is no longer shown: removes its window and enables the others of the
  /// thread.
  void leaveScreen();
  /// The form's window is being destroyed from outside, usually with its owner: ends the form.
  void windowGone();
  bool isWindowGone() const { return gone_; }

 private:
  void sayIdle() const;
  void disable(std::vector<HWND> others);
  void throwFailure() const;

  Screen& screen_;
  Form& form_;
  VisualStyles styles_;
  HWND owner_;
  HWND formerFocus_;
  std::vector<HWND> disabled_;
  std::unique_ptr<FormWindow> formWindow_;
  std::exception_ptr failure_;
  bool gone_ = false;
};

}  // namespace tillora::ui::win32
