#pragma once

#include <array>
#include <vector>

#include "base/text.h"
#include "ui/geometry.h"
#include "ui/tab_strip.h"
#include "ui/win32/handles.h"

namespace tillora::ui::win32 {

/// Fonts of forms and the conversion between twips and pixels, for the screen as it is at
/// construction.
class Metrics {
 public:
  Metrics();
  /// For a screen with this many pixels per inch.
  explicit Metrics(int dpi);

  HFONT font() const { return font_.get(); }
  HFONT boldFont() const { return bold_.get(); }
  /// Pixels per inch.
  int dpi() const { return dpi_; }

  int toPixels(int twips) const { return MulDiv(twips, dpi_, kTwipsPerInch); }
  POINT toPixels(Point twips) const { return {toPixels(twips.x), toPixels(twips.y)}; }
  /// Edges are rounded, not sizes, so that controls that meet in twips meet in pixels.
  RECT toPixels(const Rect& twips) const;
  int toTwips(int pixels) const { return MulDiv(pixels, kTwipsPerInch, dpi_); }

  Size twipsPerPixel() const;
  /// Twips, rounded up to whole pixels; access-key ampersands do not count.
  int textWidth(TextView text) const;
  int lineHeight() const { return toTwips(linePixels_); }
  int linePixels() const { return linePixels_; }
  Rect tabClientArea(const TabStrip& tabs) const;

 private:
  static constexpr int kTwipsPerInch = 1440;
  /// What a strip loses on each side to its tabs and borders.
  struct TabInsets {
    std::vector<Text> tabs;
    RECT bounds;
    RECT display;
  };

  int pixelWidth(TextView text) const;

  Font font_;
  Font bold_;
  MemoryDc dc_;
  int dpi_;
  int linePixels_ = 0;
  /// Widths of the Latin letters, pixels: a text of these alone is as wide as their sum.
  std::array<int, 0x250> widths_{};
  mutable std::vector<TabInsets> tabInsets_;
};

/// The text of a tab and the style of the strip, the same for showing the strip and for measuring
/// it.
void addTabs(HWND strip, const std::vector<Text>& tabs);
inline constexpr DWORD kTabStripStyle = WS_CHILD | WS_CLIPSIBLINGS | TCS_MULTILINE;

}  // namespace tillora::ui::win32
