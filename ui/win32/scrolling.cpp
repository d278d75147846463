#include "ui/win32/scrolling.h"

namespace tillora::ui::win32 {
namespace {

constexpr int kLinesOfAPush = 2;

void showBar(HWND window, int bar, int content, int seen, int position) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  info.nMax = content - 1;
  info.nPage = static_cast<UINT>(seen);
  info.nPos = position;
  SetScrollInfo(window, bar, &info, TRUE);
}

int dragged(HWND window, int bar) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_TRACKPOS;
  GetScrollInfo(window, bar, &info);
  return info.nTrackPos;
}

// All in twips.
struct Bar {
  int position;
  int seen;
  int line;
  int dragged;
};

int positionAfter(int request, const Bar& bar) {
  switch (request) {
    case SB_LINEUP:
      return bar.position - bar.line;
    case SB_LINEDOWN:
      return bar.position + bar.line;
    case SB_PAGEUP:
      return bar.position - bar.seen;
    case SB_PAGEDOWN:
      return bar.position + bar.seen;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      return bar.dragged;
    default:
      return bar.position;
  }
}

}  // namespace

void showScrolling(HWND window, const Container& container, const Metrics& metrics) {
  const Container::Scrolling& now = container.scrolling();
  constexpr LONG_PTR kBars = WS_VSCROLL | WS_HSCROLL;
  const bool hasBars = (GetWindowLongPtrW(window, GWL_STYLE) & kBars) != 0;
  if (!hasBars && !now.across() && !now.down()) return;
  showBar(window, SB_VERT, metrics.toPixels(now.content.height), metrics.toPixels(now.seen.height),
          metrics.toPixels(now.position.y));
  showBar(window, SB_HORZ, metrics.toPixels(now.content.width), metrics.toPixels(now.seen.width),
          metrics.toPixels(now.position.x));
}

std::optional<LRESULT> scroll(Container& container, const Metrics& metrics, HWND window,
                              UINT message, WPARAM wParam, LPARAM lParam) {
  const Container::Scrolling& now = container.scrolling();
  Point position = now.position;
  const int line = metrics.lineHeight() * kLinesOfAPush;
  const bool isOwnBar = lParam == 0;  // an up-down sends it too
  if (message == WM_VSCROLL && isOwnBar) {
    position.y = positionAfter(LOWORD(wParam), {position.y, now.seen.height, line,
                                                metrics.toTwips(dragged(window, SB_VERT))});
  } else if (message == WM_HSCROLL && isOwnBar) {
    position.x = positionAfter(LOWORD(wParam), {position.x, now.seen.width, line,
                                                metrics.toTwips(dragged(window, SB_HORZ))});
  } else if (message == WM_MOUSEWHEEL && now.down()) {
    position.y -= MulDiv(GET_WHEEL_DELTA_WPARAM(wParam), line, WHEEL_DELTA);
  } else {
    return std::nullopt;
  }
  container.scrollTo(position);
  return 0;
}

}  // namespace tillora::ui::win32
