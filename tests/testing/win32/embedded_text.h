#pragma once

#include <windows.h>

#include <algorithm>
#include <string>

namespace tillora::testing {

/// A text file that is part of the test program (RCDATA), its lines ending with LF.
inline std::string embeddedText(WORD number) {
  const HRSRC found = FindResourceW(nullptr, MAKEINTRESOURCEW(number), RT_RCDATA);
  if (found == nullptr) return "";
  const auto* const text = static_cast<const char*>(LockResource(LoadResource(nullptr, found)));
  std::string copy(text, SizeofResource(nullptr, found));
  std::erase(copy, '\r');
  return copy;
}

}  // namespace tillora::testing
