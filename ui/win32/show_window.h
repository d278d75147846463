#pragma once

#include <windows.h>

namespace tillora::ui::win32 {

/// Like ShowWindow, but leaves erasing to the painting that follows. ShowWindow erases the window
/// and all in it first, in a walk of its own. In the order of windows it comes after `after`.
inline void showWindow(HWND window, HWND after = HWND_TOP, UINT flags = 0) {
  SetWindowPos(window, after, 0, 0, 0, 0,
               SWP_SHOWWINDOW | SWP_NOMOVE | SWP_NOSIZE | SWP_DEFERERASE | flags);
}

}  // namespace tillora::ui::win32
