#pragma once

#include <windows.h>

#include <string>

#include "tests/testing/win32/kept_annotations.h"

namespace tillora::testing {

/// What a screen reader finds in a window through the platform's accessibility: a line for each
/// window that is seen, in their order and indented by their depth, with role, name, states and
/// keyboard shortcut, and with its place in its group for an option button. The tabs of a tab strip
/// and the rows of a list follow, as their windows give them to anybody who asks.
///
/// A platform that knows only some of its classes answers "client" for the others. Role and states
/// are then those of the window's class and style.
std::string readAloud(HWND window, const KeptAnnotations& annotations);

}  // namespace tillora::testing
