#pragma once

#include <windows.h>

#include <algorithm>
#include <string>

#include "base/text.h"

namespace tillora::ui::win32 {

/// The text as a window is to show it: a blank in place of each NUL, which would end it.
inline std::wstring forWindow(TextView text) {
  std::wstring copy(text.begin(), text.end());
  std::ranges::replace(copy, L'\0', L' ');
  return copy;
}

/// The text of a window, of any length.
inline std::wstring windowText(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
  const int copied = GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
  text.resize(static_cast<std::size_t>(copied));
  return text;
}

}  // namespace tillora::ui::win32
