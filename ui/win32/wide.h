#pragma once

#include <windows.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "ui/text.h"

namespace tillora::ui::win32 {

/// The same UTF-16 units, as Windows functions take them: a blank in place of each NUL, which would
/// be taken for the end.
inline std::wstring wide(TextView text) {
  std::wstring copy(text.begin(), text.end());
  std::ranges::replace(copy, L'\0', L' ');
  return copy;
}
inline Text narrow(std::wstring_view text) { return {text.begin(), text.end()}; }

/// The text of a window, of any length.
inline std::wstring windowText(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
  const int copied = GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
  text.resize(static_cast<std::size_t>(copied));
  return text;
}

}  // namespace tillora::ui::win32
