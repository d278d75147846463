#include "ui/win32/frame_view.h"

#include <oleacc.h>

#include "ui/win32/form_window.h"
#include "ui/win32/frame_class.h"
#include "ui/win32/plain_look.h"
#include "ui/win32/scrolling.h"
#include "ui/win32/tab_body.h"

namespace tillora::ui::win32 {
namespace {

bool holdsTabs(const Container& container) {
  for (const auto& child : container.children()) {
    if (child->kind() == Kind::tabStrip) return true;
  }
  return false;
}

}  // namespace

void FrameView::create(HWND parent) {
  if (isGroupBox()) {
    createWindow(parent, {WC_BUTTONW, BS_GROUPBOX | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT});
  } else {
    createWindow(parent, {FrameClass::kName, WS_CLIPCHILDREN, WS_EX_CONTROLPARENT});
    if (isPage()) tabBody_ = tabBody(window());
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
    tabBody_ = tabBody(window());
  }
}

// Themed controls in a group box ask it to paint what lies behind them, where none of its lines and
// no part of its caption is.
bool FrameView::isWithin(const RECT& box, HDC dc) const {
  constexpr int kWidestLine = 4;  // pixels
  RECT asked{};
  GetClipBox(dc, &asked);
  return asked.left >= box.left + kWidestLine && asked.right <= box.right - kWidestLine &&
         asked.top >= box.top + formWindow().metrics().linePixels() &&
         asked.bottom <= box.bottom - kWidestLine;
}

bool FrameView::isPage() const {
  return control().border() == Frame::Border::none && holdsTabs(*control().parent());
}

LRESULT FrameView::message(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_ERASEBKGND:
    case WM_PRINTCLIENT: {
      const auto dc = reinterpret_cast<HDC>(wParam);
      RECT area{};
      GetClientRect(window(), &area);
      FillRect(dc, &area, formWindow().background(window(), dc));
      if (message == WM_PRINTCLIENT && isGroupBox() && !isWithin(area, dc)) break;
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
    case WM_PAINT:
      if (isGroupBox() && !formWindow().isThemeReadable()) {
        paintGroupBoxPlain(window());
        return 0;
      }
      break;
    case WM_THEMECHANGED:
    case WM_SYSCOLORCHANGE:
      if (isPage()) tabBody_ = tabBody(window());
      InvalidateRect(window(), nullptr, TRUE);
      break;
    case WM_COMMAND:
    case WM_NOTIFY:
    case WM_DRAWITEM:
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
