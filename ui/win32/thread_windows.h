#pragma once

#include <windows.h>

#include <vector>

namespace tillora::ui::win32 {

/// The top-level windows of the calling thread, hidden ones included, the topmost first.
std::vector<HWND> threadWindows();

/// The window that blocks `window`: a visible, enabled one in front of it that it owns, directly or
/// not, such as a message box; null for none.
HWND windowOver(HWND window);

}  // namespace tillora::ui::win32
