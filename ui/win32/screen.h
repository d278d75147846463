#pragma once

#include <exception>
#include <functional>
#include <span>
#include <vector>

#include "ui/screen.h"
#include "ui/win32/metrics.h"

namespace tillora::ui::win32 {

class DialogWindow;
class ModalRun;

/// The desktop of the calling thread. Forms are shown in real windows, owned by the window that is
/// active on the thread. All use is from that one thread.
class Screen final : public ui::Screen {
 public:
  Screen();
  ~Screen() override;

  void runModal(Form& form) override;
  Pointer pointer() const override { return pointer_; }
  void setPointer(Pointer pointer) override;
  Size twipsPerPixel() const override { return metrics_.twipsPerPixel(); }
  int textWidth(TextView text) const override { return metrics_.textWidth(text); }
  int lineHeight() const override { return metrics_.lineHeight(); }
  Rect tabClientArea(const TabStrip& tabs) const override { return metrics_.tabClientArea(tabs); }
  std::vector<std::size_t> listOrder(std::span<const TextView> texts) const override;
  void beep() override;

  const Metrics& metrics() const { return metrics_; }
  /// The window of the form that is on top, the owner for message boxes and file dialogs; null
  /// where no form is shown.
  HWND topWindow() const;
  /// The window of a control of a form that is shown; null while it has none.
  HWND windowOf(const Control& control) const;

  /// Called, if set, once a modal form is shown and nothing is left to do for its windows.
  std::function<void(Form&)> modalShown;
  /// Deals with all messages that are waiting, as the modal run does. It stops early when the form
  /// on top ends.
  void pumpUntilIdle();

 private:
  friend class DialogWindow;
  friend class ModalRun;
  /// Keeps a failure inside a window procedure for the modal run on top, which ends by throwing it.
  void fail(std::exception_ptr failure) noexcept;
  /// This form was hidden.
  void hidden(const Form& form);

  Metrics metrics_;
  Pointer pointer_ = Pointer::standard;
  std::vector<ModalRun*> runs_;
};

}  // namespace tillora::ui::win32
