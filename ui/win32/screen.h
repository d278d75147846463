#pragma once

#include <exception>
#include <optional>
#include <span>
#include <vector>

#include "ui/screen.h"
#include "ui/win32/dpi_context.h"
#include "ui/win32/metrics.h"

namespace tillora::ui::win32 {

class FormWindow;
class ModalRun;

/// The desktop of the calling thread. Forms are shown in real windows, owned by the window that is
/// active on the thread. All use is from that one thread.
class Screen : public ui::Screen {
 public:
  Screen();
  ~Screen() override;

  void runModal(Form& form) override;
  bool canShow() const override;
  Pointer pointer() const override { return pointer_; }
  void setPointer(Pointer pointer) override;
  Size twipsPerPixel() const override { return metrics().twipsPerPixel(); }
  int textWidth(TextView text) const override { return metrics().textWidth(text); }
  int lineHeight() const override { return metrics().lineHeight(); }
  int wrappedHeight(TextView caption, int width) const override {
    return metrics().wrappedHeight(caption, width);
  }
  Size scrollBars() const override { return metrics().scrollBars(); }
  int tabRowWidth(const std::vector<Text>& tabs) const override {
    return metrics().tabRowWidth(tabs);
  }
  Margins tabMargins(const std::vector<Text>& tabs, int width) const override {
    return metrics().tabMargins(tabs, width);
  }
  std::vector<std::size_t> listOrder(std::span<const TextView> texts) const override;
  void beep() override;

  /// For forms, instead of the platform's message font.
  void setFont(const LOGFONTW& font) { font_ = font; }
  /// Taken anew if font, resolution or theme were others in the session before.
  const Metrics& metrics() const;
  /// The window of the form that is on top, the owner for message boxes and file dialogs; null
  /// if no form is shown, or its window is gone.
  HWND topWindow() const;
  /// Colours, theme or fonts of the platform have changed: shows all forms with the new ones.
  void followSettings();
  /// The user's session ends: destroys the forms' windows and all that they own.
  void sessionEnds() const;

 private:
  friend class FormWindow;
  friend class ModalRun;
  /// Keeps a failure inside a window procedure for the modal run on top, which ends by throwing it.
  void fail(std::exception_ptr failure) noexcept;
  /// The run of a form; null while it has none.
  ModalRun* runOf(const Form& form) const;
  Look look() const;
  void beginSession() override;
  void endSession() noexcept override;

  std::optional<SystemScaling> scaling_;
  std::optional<LOGFONTW> font_;
  mutable std::optional<Metrics> metrics_;
  mutable Look measured_;  ///< for which metrics_ holds
  Pointer pointer_ = Pointer::standard;
  std::vector<ModalRun*> runs_;
};

}  // namespace tillora::ui::win32
