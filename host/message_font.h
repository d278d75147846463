#pragma once

#include <windows.h>

namespace tillora::host {

/// The font that the user has chosen for messages.
class MessageFont {
 public:
  MessageFont() {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof(metrics);
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
    font_ = CreateFontIndirectW(&metrics.lfMessageFont);
  }
  MessageFont(const MessageFont&) = delete;
  MessageFont& operator=(const MessageFont&) = delete;
  ~MessageFont() { DeleteObject(font_); }

  HFONT handle() const { return font_; }
  void applyTo(HWND control) const {
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font_), TRUE);
  }

 private:
  HFONT font_;
};

}  // namespace tillora::host
