#include "ui/win32/tab_body.h"

#include <vssym32.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <span>

#include "ui/win32/raster.h"

namespace tillora::ui::win32 {
namespace {

constexpr int kWidth = 8;
constexpr std::uint32_t kColourBits = 0x00FFFFFF;

Theme tabTheme(HWND window) { return Theme(OpenThemeData(window, L"TAB")); }

/// A strip from the middle of a tab's page of this size, as the theme paints it.
void paintBody(HTHEME theme, const Raster& raster, const RECT& page) {
  const MemoryDc dc(CreateCompatibleDC(nullptr));
  const Selection selected(dc.get(), raster.bitmap());
  SetViewportOrgEx(dc.get(), -(page.right - kWidth) / 2, 0, nullptr);
  FillRect(dc.get(), &page, GetSysColorBrush(COLOR_BTNFACE));
  DrawThemeBackground(theme, dc.get(), TABP_BODY, 0, &page, nullptr);
  GdiFlush();
}

COLORREF centreOf(std::span<const std::uint32_t> pixels) {
  const std::uint32_t centre = pixels[pixels.size() / 2] & kColourBits;
  return RGB(centre >> 16 & 0xFF, centre >> 8 & 0xFF, centre & 0xFF);
}

double brightness(COLORREF colour) {
  const auto linear = [](BYTE part) { return std::pow(part / 255.0, 2.2); };
  return 0.2126 * linear(GetRValue(colour)) + 0.7152 * linear(GetGValue(colour)) +
         0.0722 * linear(GetBValue(colour));
}

// The measure of the accessibility guidelines.
bool isReadableOn(COLORREF ground) {
  constexpr double kLeastContrast = 4.5;
  const double text = brightness(GetSysColor(COLOR_BTNTEXT)) + 0.05;
  const double behind = brightness(ground) + 0.05;
  return std::max(text, behind) / std::min(text, behind) >= kLeastContrast;
}

}  // namespace

// Themes vary the page from top to bottom at most, so a narrow strip is enough; if it is all one
// colour the brush is plain.
Brush tabBody(HWND page) {
  const Theme theme = tabTheme(page);
  RECT area{};
  GetClientRect(page, &area);
  if (!theme) return {};
  const Raster raster(kWidth, area.bottom);
  if (!raster.bitmap()) return {};
  paintBody(theme.get(), raster, area);
  const std::span<const std::uint32_t> pixels = raster.pixels();
  const COLORREF centre = centreOf(pixels);
  if (!isReadableOn(centre)) return {};
  const bool plain = std::ranges::all_of(pixels, [&](std::uint32_t pixel) {
    return (pixel & kColourBits) == (pixels[pixels.size() / 2] & kColourBits);
  });
  return Brush(plain ? CreateSolidBrush(centre) : CreatePatternBrush(raster.bitmap()));
}

bool isThemeReadable(HWND window) {
  const Theme theme = tabTheme(window);
  if (!theme) return true;
  constexpr int kHeight = 64;
  const Raster raster(kWidth, kHeight);
  if (!raster.bitmap()) return true;
  paintBody(theme.get(), raster, {0, 0, kHeight, kHeight});
  return isReadableOn(centreOf(raster.pixels()));
}

}  // namespace tillora::ui::win32
