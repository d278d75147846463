#include "ui/win32/plain_look.h"

#include <array>
#include <string>

namespace tillora::ui::win32 {
namespace {

constexpr UINT kOneLine = DT_SINGLELINE | DT_VCENTER;

HFONT fontOf(HWND window) {
  return reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0));
}

std::wstring textOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
  GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
  return text;
}

UINT accessKeysOf(HWND window) {
  return (SendMessageW(window, WM_QUERYUISTATE, 0, 0) & UISF_HIDEACCEL) != 0 ? DT_HIDEPREFIX : 0;
}

void drawText(HDC dc, const wchar_t* text, RECT area, UINT format) {
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, GetSysColor(COLOR_BTNTEXT));
  DrawTextW(dc, text, -1, &area, format);
}

void fillPlain(HDC dc, const RECT& area) { FillRect(dc, &area, GetSysColorBrush(COLOR_BTNFACE)); }

}  // namespace

void paintGroupBoxPlain(HWND box) {
  const Painting painting(box);
  const Selection font(painting.dc(), fontOf(box));
  const std::wstring caption = textOf(box);
  RECT area{};
  GetClientRect(box, &area);
  TEXTMETRICW metrics{};
  GetTextMetricsW(painting.dc(), &metrics);
  RECT text = area;
  text.bottom = metrics.tmHeight;
  area.top = metrics.tmHeight / 2;
  DrawEdge(painting.dc(), &area, EDGE_ETCHED, BF_RECT);
  if (caption.empty()) return;
  DrawTextW(painting.dc(), caption.c_str(), -1, &text, DT_CALCRECT | kOneLine);
  OffsetRect(&text, 3 * metrics.tmAveCharWidth / 2, 0);
  InflateRect(&text, metrics.tmAveCharWidth / 3, 0);
  fillPlain(painting.dc(), text);
  drawText(painting.dc(), caption.c_str(), text, DT_CENTER | kOneLine | accessKeysOf(box));
}

void paintTabsPlain(HWND strip) {
  const WindowDc window(strip);  // it has no borders
  const HDC dc = window.get();
  const Selection font(dc, fontOf(strip));
  const auto count = static_cast<int>(SendMessageW(strip, TCM_GETITEMCOUNT, 0, 0));
  for (int i = 0; i < count; ++i) {
    std::array<wchar_t, 64> caption{};
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = caption.data();
    item.cchTextMax = static_cast<int>(caption.size());
    SendMessageW(strip, TCM_GETITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
    RECT area{};
    SendMessageW(strip, TCM_GETITEMRECT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&area));
    InflateRect(&area, -GetSystemMetrics(SM_CXEDGE), -GetSystemMetrics(SM_CYEDGE));
    fillPlain(dc, area);
    drawText(dc, caption.data(), area, DT_CENTER | kOneLine | accessKeysOf(strip));
    const bool chosen = SendMessageW(strip, TCM_GETCURSEL, 0, 0) == i;
    if (chosen && GetFocus() == strip) DrawFocusRect(dc, &area);
  }
}

LRESULT paintHeaderPlain(const NMCUSTOMDRAW& drawing) {
  if (drawing.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  if (drawing.dwDrawStage != CDDS_ITEMPREPAINT) return CDRF_DODEFAULT;
  std::array<wchar_t, 64> caption{};
  HDITEMW item{};
  item.mask = HDI_TEXT;
  item.pszText = caption.data();
  item.cchTextMax = static_cast<int>(caption.size());
  SendMessageW(drawing.hdr.hwndFrom, HDM_GETITEMW, drawing.dwItemSpec,
               reinterpret_cast<LPARAM>(&item));
  RECT area = drawing.rc;
  fillPlain(drawing.hdc, area);
  DrawEdge(drawing.hdc, &area, EDGE_RAISED, BF_RECT | BF_SOFT);
  InflateRect(&area, -3 * GetSystemMetrics(SM_CXEDGE), 0);
  drawText(drawing.hdc, caption.data(), area, DT_NOPREFIX | DT_END_ELLIPSIS | kOneLine);
  return CDRF_SKIPDEFAULT;
}

}  // namespace tillora::ui::win32
