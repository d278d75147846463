#pragma once

#include "ui/win32/handles.h"

namespace tillora::ui::win32 {

/// What the theme paints behind a tab's page, as a brush for the page's window. Null without a
/// theme and where the present text colour could not be read on it.
Brush tabBody(HWND page);

/// False if the present text colour could not be read on what the theme of the window paints: a
/// theme may be light while the colour scheme is dark.
bool isThemeReadable(HWND window);

}  // namespace tillora::ui::win32
