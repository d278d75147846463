#include "ui/win32/metrics.h"

#include <algorithm>
#include <cstdlib>

#include "com/module.h"
#include "ui/win32/visual_styles.h"
#include "ui/win32/window_text.h"

namespace tillora::ui::win32 {

namespace {

int screenDpi() {
  const MemoryDc dc(CreateCompatibleDC(nullptr));
  const int measured = GetDeviceCaps(dc.get(), LOGPIXELSX);
  return measured > 0 ? measured : USER_DEFAULT_SCREEN_DPI;
}

}  // namespace

Metrics::Metrics() : Metrics(screenDpi()) {}

Metrics::Metrics(int dpi) : dc_(CreateCompatibleDC(nullptr)), dpi_(dpi) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
  font_.reset(CreateFontIndirectW(&metrics.lfMessageFont));
  metrics.lfMessageFont.lfWeight = FW_BOLD;
  bold_.reset(CreateFontIndirectW(&metrics.lfMessageFont));

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

int Metrics::textWidth(TextView text) const {
  return (pixelWidth(text) * kTwipsPerInch + dpi_ - 1) / dpi_;
}

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

Rect Metrics::tabClientArea(const TabStrip& tabs) const {
  const RECT bounds = toPixels(tabs.bounds());
  const TabInsets* known = nullptr;
  for (const TabInsets& insets : tabInsets_) {
    if (insets.tabs == tabs.tabs() && EqualRect(&insets.bounds, &bounds)) known = &insets;
  }
  if (!known) {
    const VisualStyles styles;
    const Window strip(CreateWindowExW(
        0, WC_TABCONTROLW, L"", kTabStripStyle, 0, 0, bounds.right - bounds.left,
        bounds.bottom - bounds.top, HWND_MESSAGE, nullptr, tillora::win32::thisModule(), nullptr));
    SendMessageW(strip.get(), WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), FALSE);
    addTabs(strip.get(), tabs.tabs());
    RECT display = bounds;
    SendMessageW(strip.get(), TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&display));
    tabInsets_.push_back({tabs.tabs(), bounds, display});
    known = &tabInsets_.back();
  }
  const RECT& display = known->display;
  return {toTwips(display.left), toTwips(display.top), toTwips(display.right - display.left),
          toTwips(display.bottom - display.top)};
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
