#include "ui/win32/metrics.h"

#include <uxtheme.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "com/module.h"
#include "ui/win32/raster.h"
#include "ui/win32/visual_styles.h"
#include "ui/win32/window_text.h"

namespace tillora::ui::win32 {

namespace {

// A strip of which nothing is seen.
class MeasuredTabs {
 public:
  MeasuredTabs(int width, const std::vector<Text>& tabs, HFONT font)
      : strip_(CreateWindowExW(0, WC_TABCONTROLW, L"", kTabStripStyle, 0, 0, width, width,
                               HWND_MESSAGE, nullptr, tillora::win32::thisModule(), nullptr)),
        last_(static_cast<int>(tabs.size()) - 1) {
    SendMessageW(strip_.get(), WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    addTabs(strip_.get(), tabs);
  }

  int width() const {
    constexpr int kBesideTabs = 6;
    RECT last{};
    SendMessageW(strip_.get(), TCM_GETITEMRECT, static_cast<WPARAM>(last_),
                 reinterpret_cast<LPARAM>(&last));
    return last.right + kBesideTabs;
  }
  Margins around() const {
    RECT whole{};
    GetClientRect(strip_.get(), &whole);
    RECT inside = whole;
    SendMessageW(strip_.get(), TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&inside));
    return {inside.left, inside.top, whole.right - inside.right, whole.bottom - inside.bottom};
  }

 private:
  VisualStyles styles_;
  Window strip_;
  int last_;
};

constexpr int kWideEnough = 10000;  // pixels, for all tabs in one row

bool isDrawnWiderThanMeasured(const LOGFONTW& font) {
  constexpr wchar_t kLetters[] = L"abcdefghijklmnopqrstuvwxyz";
  constexpr int kCount = ARRAYSIZE(kLetters) - 1;
  constexpr int kSmoothing = 2;  // pixels that smoothed edges may add
  const MemoryDc dc(CreateCompatibleDC(nullptr));
  const Font wanted(CreateFontIndirectW(&font));
  const Selection selected(dc.get(), wanted.get());
  SIZE size{};
  GetTextExtentPoint32W(dc.get(), kLetters, kCount, &size);
  // Only what lies beyond the measure is drawn.
  const Raster beyond(size.cy, size.cy);
  const Selection drawn(dc.get(), beyond.bitmap());
  SetTextColor(dc.get(), RGB(255, 255, 255));
  SetBkMode(dc.get(), TRANSPARENT);
  TextOutW(dc.get(), -(size.cx + kSmoothing), 0, kLetters, kCount);
  GdiFlush();
  return std::ranges::any_of(beyond.pixels(), [](std::uint32_t pixel) { return pixel != 0; });
}

// Wine draws Tahoma of some sizes with bitmaps that are wider than it measures, and cuts off what
// it draws into its own measure: captions of group boxes, list headers, lines of a wrapped text.
LOGFONTW drawnAsMeasured(const LOGFONTW& font) {
  LOGFONTW smaller = font;
  smaller.lfHeight += font.lfHeight < 0 ? 1 : -1;
  return isDrawnWiderThanMeasured(font) && !isDrawnWiderThanMeasured(smaller) ? smaller : font;
}

}  // namespace

Metrics::Metrics(int dpi, LOGFONTW font) : dc_(CreateCompatibleDC(nullptr)), dpi_(dpi) {
  font = drawnAsMeasured(font);
  font_.reset(CreateFontIndirectW(&font));
  font.lfWeight = FW_BOLD;
  bold_.reset(CreateFontIndirectW(&font));

  const Selection selected(dc_.get(), font_.get());
  TEXTMETRICW text{};
  GetTextMetricsW(dc_.get(), &text);
  linePixels_ = text.tmHeight;
  GetCharWidth32W(dc_.get(), 0, static_cast<UINT>(widths_.size()) - 1, widths_.data());
}

RECT Metrics::toPixels(const Rect& twips) const {
  return {toPixels(twips.left), toPixels(twips.top), toPixels(twips.right()),
          toPixels(twips.bottom())};
}

Size Metrics::twipsPerPixel() const { return {kTwipsPerInch / dpi_, kTwipsPerInch / dpi_}; }

int Metrics::textWidth(TextView text) const { return roomFor(pixelWidth(text)); }

int Metrics::pixelWidth(TextView text) const {
  int width = 0;
  const auto isKnown = [&](char16_t c) {
    if (c >= widths_.size()) return false;
    width += widths_[c];
    return true;
  };
  if (std::ranges::all_of(text, isKnown)) return width;
  const Selection selected(dc_.get(), font_.get());
  SIZE size{};
  GetTextExtentPoint32W(dc_.get(), reinterpret_cast<const wchar_t*>(text.data()),
                        static_cast<int>(text.size()), &size);
  return size.cx;
}

int Metrics::wrappedHeight(TextView caption, int width) const {
  const Selection selected(dc_.get(), font_.get());
  const std::wstring text = forWindow(withPlainAmpersandsDoubled(caption));
  RECT area{0, 0, toPixels(width), 0};
  DrawTextW(dc_.get(), text.data(), static_cast<int>(text.size()), &area,
            DT_CALCRECT | kWrappedText);
  return roomFor(area.bottom);
}

Size Metrics::scrollBars() const {
  return {roomFor(GetSystemMetrics(SM_CXVSCROLL)), roomFor(GetSystemMetrics(SM_CYHSCROLL))};
}

int Metrics::tabRowWidth(const std::vector<Text>& tabs) const {
  return roomFor(tabRow(tabs).width);
}

Margins Metrics::tabMargins(const std::vector<Text>& tabs, int width) const {
  const int pixels = toPixels(width);
  const Margins around = pixels >= tabRow(tabs).width ? tabRow(tabs).around
                                                      : MeasuredTabs(pixels, tabs, font()).around();
  return {roomFor(around.left), roomFor(around.top), roomFor(around.right), roomFor(around.bottom)};
}

const Metrics::TabRow& Metrics::tabRow(const std::vector<Text>& tabs) const {
  const auto known = std::ranges::find(tabRows_, tabs, &TabRow::tabs);
  if (known != tabRows_.end()) return *known;
  const MeasuredTabs strip(kWideEnough, tabs, font());
  return tabRows_.emplace_back(TabRow{tabs, strip.width(), strip.around()});
}

int screenDpi() {
  const MemoryDc dc(CreateCompatibleDC(nullptr));
  const int measured = GetDeviceCaps(dc.get(), LOGPIXELSX);
  return measured > 0 ? measured : USER_DEFAULT_SCREEN_DPI;
}

LOGFONTW messageFont() {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
  return metrics.lfMessageFont;
}

std::wstring themeName() {
  wchar_t file[MAX_PATH] = L"";
  wchar_t colours[MAX_PATH] = L"";
  wchar_t size[MAX_PATH] = L"";
  const HRESULT known = GetCurrentThemeName(file, MAX_PATH, colours, MAX_PATH, size, MAX_PATH);
  return SUCCEEDED(known) ? std::wstring(file) + L'|' + colours + L'|' + size : std::wstring();
}

bool Look::operator==(const Look& other) const {
  return dpi == other.dpi && std::memcmp(&font, &other.font, sizeof font) == 0 &&
         theme == other.theme;
}

void addTabs(HWND strip, const std::vector<Text>& tabs) {
  // Each tab is as wide as its caption, so that one row holds them all.
  SendMessageW(strip, TCM_SETMINTABWIDTH, 0, 0);
  int position = 0;
  for (const Text& tab : tabs) {
    std::wstring caption = forWindow(tab);
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = caption.data();
    SendMessageW(strip, TCM_INSERTITEMW, static_cast<WPARAM>(position++),
                 reinterpret_cast<LPARAM>(&item));
  }
}

}  // namespace tillora::ui::win32
