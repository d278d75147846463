#pragma once

#include <array>
#include <string>
#include <vector>

#include "base/text.h"
#include "ui/geometry.h"
#include "ui/tab_strip.h"
#include "ui/win32/handles.h"

namespace tillora::ui::win32 {

/// Fonts of forms and the conversion between twips and pixels.
class Metrics {
 public:
  /// For a screen with this many pixels per inch, and this font, or a size smaller where that is
  /// drawn as wide as it is measured and this is not.
  Metrics(int dpi, LOGFONTW font);

  HFONT font() const { return font_.get(); }
  HFONT boldFont() const { return bold_.get(); }
  /// Pixels per inch.
  int dpi() const { return dpi_; }

  int toPixels(int twips) const { return MulDiv(twips, dpi_, kTwipsPerInch); }
  POINT toPixels(Point twips) const { return {toPixels(twips.x), toPixels(twips.y)}; }
  /// Edges are rounded, not sizes, so that controls that meet in twips meet in pixels.
  RECT toPixels(const Rect& twips) const;
  int toTwips(int pixels) const { return MulDiv(pixels, kTwipsPerInch, dpi_); }
  /// Twips that are at least so many pixels wherever they lie.
  int roomFor(int pixels) const { return (pixels * kTwipsPerInch + dpi_ - 1) / dpi_; }

  Size twipsPerPixel() const;
  /// Twips, rounded up to whole pixels; ampersands count as characters.
  int textWidth(TextView text) const;
  int lineHeight() const { return roomFor(linePixels_); }
  int linePixels() const { return linePixels_; }
  /// Twips; the caption's access key is not underlined, but its ampersand does not count.
  int wrappedHeight(TextView caption, int width) const;
  Size scrollBars() const;
  int tabRowWidth(const std::vector<Text>& tabs) const;
  Margins tabMargins(const std::vector<Text>& tabs, int width) const;

 private:
  static constexpr int kTwipsPerInch = 1440;
  /// A strip with these tabs in one row, pixels.
  struct TabRow {
    std::vector<Text> tabs;
    int width;
    Margins around;
  };

  int pixelWidth(TextView text) const;
  const TabRow& tabRow(const std::vector<Text>& tabs) const;

  Font font_;
  Font bold_;
  MemoryDc dc_;
  int dpi_;
  int linePixels_ = 0;
  /// Widths of the Latin letters, pixels: a text of these alone is as wide as their sum.
  std::array<int, 0x250> widths_{};
  mutable std::vector<TabRow> tabRows_;
};

/// What measures depend on.
struct Look {
  int dpi = 0;
  LOGFONTW font{};
  std::wstring theme;  ///< names of its file, colours and size; empty without visual styles

  bool operator==(const Look& other) const;
};

/// Pixels per inch that the platform lays windows out for.
int screenDpi();
/// The platform's font for messages and dialogs.
LOGFONTW messageFont();
std::wstring themeName();

/// How labels draw their text.
inline constexpr UINT kWrappedText = DT_WORDBREAK | DT_EXPANDTABS;

/// The text of a tab and the style of the strip, the same for showing the strip and for measuring
/// it.
void addTabs(HWND strip, const std::vector<Text>& tabs);
inline constexpr DWORD kTabStripStyle = WS_CHILD | WS_CLIPSIBLINGS | TCS_MULTILINE;

}  // namespace tillora::ui::win32
