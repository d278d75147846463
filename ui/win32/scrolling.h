#pragma once

#include <optional>

#include "ui/container.h"
#include "ui/win32/metrics.h"

namespace tillora::ui::win32 {

/// Shows the scroll bars that the container's window needs now.
void showScrolling(HWND window, const Container& container, const Metrics& metrics);
/// Scrolls at a scroll bar or the mouse wheel; nothing for other messages.
std::optional<LRESULT> scroll(Container& container, const Metrics& metrics, HWND window,
                              UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace tillora::ui::win32
