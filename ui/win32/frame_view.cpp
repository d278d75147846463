#include "ui/win32/frame_view.h"

#include <oleacc.h>
#include <vssym32.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <span>

#include "ui/win32/form_window.h"
#include "ui/win32/frame_class.h"
#include "ui/win32/raster.h"
#include "ui/win32/scrolling.h"

namespace tillora::ui::win32 {
namespace {

bool holdsTabs(const Container& container) {
  for (const auto& child : container.children()) {
    if (child->kind() == Kind::tabStrip) return true;
  }
  return false;
}

double brightness(COLORREF colour) {
  const auto linear = [](BYTE part) { return std::pow(part / 255.0, 2.2); };
  return 0.2126 * linear(GetRValue(colour)) + 0.7152 * linear(GetGValue(colour)) +
         0.0722 * linear(GetBValue(colour));
}

// A theme's page may be white while a dark colour scheme makes the texts on it white, too. The
// measure is the one of the accessibility guidelines.
bool isReadableOn(COLORREF ground) {
  constexpr double kLeastContrast = 4.5;
  const double text = brightness(GetSysColor(COLOR_BTNTEXT)) + 0.05;
  const double behind = brightness(ground) + 0.05;
  return std::max(text, behind) / std::min(text, behind) >= kLeastContrast;
}

}  // namespace

void FrameView::create(HWND parent) {
  if (isGroupBox()) {
    createWindow(parent, {WC_BUTTONW, BS_GROUPBOX | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT});
  } else {
    createWindow(parent, {FrameClass::kName, WS_CLIPCHILDREN, WS_EX_CONTROLPARENT});
    if (isPage()) paintTabBody();
  }
  formWindow().createChildren(control(), window());
  showScrolling(window(), control(), formWindow().metrics());
}

LONG FrameView::role() const { return isGroupBox() ? 0 : ROLE_SYSTEM_PROPERTYPAGE; }

void FrameView::show(Property what) {
  ControlView::show(what);
  if (what == Property::scrolling) {
    showScrolling(window(), control(), formWindow().metrics());
  } else if (what == Property::bounds && isPage()) {
    paintTabBody();
  }
}

bool FrameView::isPage() const {
  return control().border() == Frame::Border::none && holdsTabs(*control().parent());
}

// What the theme paints behind a tab's page, as a brush, so that the page and the controls on it,
// which fill their own background, match the strip around them. Themes vary it from top to bottom
// at most, so a narrow strip from the middle is enough; if it is all one colour the brush is
// plain.
void FrameView::paintTabBody() {
  const Theme theme(OpenThemeData(window(), L"TAB"));
  if (!theme) {
    tabBody_.reset();
    return;
  }
  RECT area{};
  GetClientRect(window(), &area);
  constexpr int kWidth = 8;
  const Raster raster(kWidth, area.bottom);
  if (!raster.bitmap()) return;
  const std::span<const std::uint32_t> pixels = raster.pixels();
  {
    const MemoryDc dc(CreateCompatibleDC(nullptr));
    const Selection selected(dc.get(), raster.bitmap());
    const int middle = (area.right - kWidth) / 2;
    SetViewportOrgEx(dc.get(), -middle, 0, nullptr);
    FillRect(dc.get(), &area, GetSysColorBrush(COLOR_BTNFACE));
    DrawThemeBackground(theme.get(), dc.get(), TABP_BODY, 0, &area, nullptr);
    GdiFlush();
  }
  constexpr std::uint32_t kColourBits = 0x00FFFFFF;
  const std::uint32_t centre = pixels[pixels.size() / 2] & kColourBits;
  tabBody_.reset();
  if (!isReadableOn(RGB(centre >> 16 & 0xFF, centre >> 8 & 0xFF, centre & 0xFF))) return;
  const bool plain = std::ranges::all_of(
      pixels, [&](std::uint32_t pixel) { return (pixel & kColourBits) == centre; });
  tabBody_.reset(plain
                     ? CreateSolidBrush(RGB(centre >> 16 & 0xFF, centre >> 8 & 0xFF, centre & 0xFF))
                     : CreatePatternBrush(raster.bitmap()));
}

LRESULT FrameView::message(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_ERASEBKGND:
    case WM_PRINTCLIENT: {
      const auto dc = reinterpret_cast<HDC>(wParam);
      RECT area{};
      GetClientRect(window(), &area);
      FillRect(dc, &area, formWindow().background(window(), dc));
      if (message == WM_PRINTCLIENT && isGroupBox()) break;
      return TRUE;
    }
    case WM_VSCROLL:
    case WM_HSCROLL:
    case WM_MOUSEWHEEL:
      if (const auto answer =
              scroll(control(), formWindow().metrics(), window(), message, wParam, lParam)) {
        return *answer;
      }
      break;
    case WM_THEMECHANGED:
    case WM_SYSCOLORCHANGE:
      if (isPage()) paintTabBody();
      InvalidateRect(window(), nullptr, TRUE);
      break;
    case WM_COMMAND:
    case WM_NOTIFY:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
      if (const auto answer = formWindow().route(message, wParam, lParam)) return *answer;
      break;
    default:
      break;
  }
  return ControlView::message(message, wParam, lParam);
}

}  // namespace tillora::ui::win32
