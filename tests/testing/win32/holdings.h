#pragma once

#include <windows.h>

#include <ostream>
#include <set>

namespace tillora::testing {

/// What a program holds of the platform: windows of this thread, hidden ones included; GDI objects
/// and handles of the process, 0 handles if the platform does not count them.
struct Holdings {
  Holdings();

  /// Whether `later` shows a leak of one object or handle per dialog. A platform's own stock of
  /// device contexts and handles grows and shrinks by a few.
  bool leaked(const Holdings& later, DWORD dialogs) const;

  std::set<HWND> windows;
  DWORD gdi;
  DWORD handles = 0;
};

std::ostream& operator<<(std::ostream& out, const Holdings& held);

/// The top-level windows of this thread, hidden ones included.
std::set<HWND> windowsOfThread();

/// How many windows lie in this one, at any depth.
int childWindows(HWND window);

}  // namespace tillora::testing
