#pragma once

#include "ui/win32/handles.h"

namespace tillora::ui::win32 {

// What the platform paints in the theme's colours, painted in the system's: for themes that make
// texts unreadable. The controls keep the theme otherwise.

void paintGroupBoxPlain(HWND box);
/// Over what the strip has painted.
void paintTabsPlain(HWND strip);
/// Answers NM_CUSTOMDRAW of a list's header.
LRESULT paintHeaderPlain(const NMCUSTOMDRAW& drawing);

}  // namespace tillora::ui::win32
