#include "ui/win32/label_views.h"

#include <oleacc.h>

#include <algorithm>
#include <vector>

#include "ui/container.h"
#include "ui/win32/form_window.h"
#include "ui/win32/pictures.h"
#include "ui/win32/window_text.h"

namespace tillora::ui::win32 {
namespace {

// The light shadows behind disabled labels are left out then.
bool isHighContrast() {
  HIGHCONTRASTW settings{};
  settings.cbSize = sizeof settings;
  return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof settings, &settings, 0) &&
         (settings.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

}  // namespace

void LabelView::create(HWND parent) { createWindow(parent, {WC_STATICW, SS_LEFT}); }

// The text is painted from the caption; the window's own is for screen readers.
Text LabelView::windowText() const {
  return control().decorative() ? Text() : ControlView::windowText();
}

void LabelView::show(Property what) {
  // The order of windows stays: a label goes before what it labels.
  if (what != Property::stacking) ControlView::show(what);
  RECT area{};
  GetWindowRect(window(), &area);
  const HWND parent = GetParent(window());
  MapWindowPoints(HWND_DESKTOP, parent, reinterpret_cast<POINT*>(&area), 2);
  RedrawWindow(parent, &area, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void LabelView::paintText(HDC dc, RECT area) const {
  const Label& label = control();
  UINT format = kWrappedText;
  if (label.alignment() == Alignment::right) format |= DT_RIGHT;
  if (label.alignment() == Alignment::centre) format |= DT_CENTER;
  if ((send(WM_QUERYUISTATE) & UISF_HIDEACCEL) != 0) format |= DT_HIDEPREFIX;
  const Metrics& metrics = formWindow().metrics();
  const Selection font(dc, label.bold() ? metrics.boldFont() : metrics.font());
  SetTextColor(dc, label.effectivelyEnabled() ? toColorRef(label.foreColour())
                                              : GetSysColor(COLOR_GRAYTEXT));
  const std::wstring text = forWindow(withPlainAmpersandsDoubled(label.caption()));
  DrawTextW(dc, text.data(), static_cast<int>(text.size()), &area, format);
}

void LabelView::paint(HDC dc) {
  RECT own{};
  GetClientRect(window(), &own);
  FillRect(dc, &own, formWindow().background(window(), dc));

  struct Layer {
    const LabelView* label;
    RECT area;
  };
  std::vector<Layer> layers;
  const RECT place = pixelBounds();
  for (const auto& sibling : control().parent()->children()) {
    if (sibling->kind() != Kind::label || !sibling->visible()) continue;
    const auto* label = static_cast<const LabelView*>(formWindow().viewOf(*sibling));
    if (!label) continue;
    RECT area = label->pixelBounds();
    OffsetRect(&area, -place.left, -place.top);
    RECT shared{};
    if (IntersectRect(&shared, &area, &own)) layers.push_back({label, area});
  }
  std::ranges::stable_sort(layers, {},
                           [](const Layer& layer) { return layer.label->control().stacking(); });
  for (const Layer& layer : layers) {
    if (!isHighContrast() || !layer.label->control().decorative()) {
      layer.label->paintText(dc, layer.area);
    }
  }
}

LRESULT LabelView::message(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_ERASEBKGND:
      return TRUE;
    case WM_PAINT: {
      const Painting painting(window());
      paint(painting.dc());
      return 0;
    }
    case WM_PRINTCLIENT:
      paint(reinterpret_cast<HDC>(wParam));
      return 0;
    case WM_SETTEXT: {
      // The static control would paint its text at once, bypassing WM_PAINT.
      SetWindowLongPtrW(window(), GWL_STYLE,
                        GetWindowLongPtrW(window(), GWL_STYLE) & ~LONG_PTR{WS_VISIBLE});
      const LRESULT result = ControlView::message(message, wParam, lParam);
      if (control().visible()) {
        SetWindowLongPtrW(window(), GWL_STYLE,
                          GetWindowLongPtrW(window(), GWL_STYLE) | LONG_PTR{WS_VISIBLE});
      }
      InvalidateRect(window(), nullptr, TRUE);
      return result;
    }
    case WM_ENABLE:
      InvalidateRect(window(), nullptr, TRUE);
      return 0;
    default:
      return ControlView::message(message, wParam, lParam);
  }
}

void PictureView::create(HWND parent) { createWindow(parent, {WC_STATICW, SS_LEFT}); }

LONG PictureView::role() const { return ROLE_SYSTEM_GRAPHIC; }

LRESULT PictureView::message(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_ERASEBKGND) return TRUE;
  if (message != WM_PAINT) return ControlView::message(message, wParam, lParam);
  const Painting painting(window());
  RECT area{};
  GetClientRect(window(), &area);
  FillRect(painting.dc(), &area, formWindow().background(window(), painting.dc()));
  const int side = std::min(area.right, area.bottom);
  if (!icon_) icon_ = makeIcon(control().picture(), side);
  DrawIconEx(painting.dc(), (area.right - side) / 2, (area.bottom - side) / 2, icon_.get(), side,
             side, 0, nullptr, DI_NORMAL);
  return 0;
}

}  // namespace tillora::ui::win32
