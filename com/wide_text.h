#pragma once

#include <windows.h>

#include <cstring>

#include "base/text.h"

namespace tillora::win32 {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

/// The same text for a Windows function. Valid as long as `text` is unchanged.
inline const wchar_t* wide(const Text& text) {
  return reinterpret_cast<const wchar_t*>(text.c_str());
}
inline const wchar_t* wide(const char16_t* text) { return reinterpret_cast<const wchar_t*>(text); }

/// A copy of `length` characters; NULs inside survive.
inline Text fromWide(const wchar_t* text, std::size_t length) {
  Text copy(length, u'\0');
  if (length != 0) std::memcpy(copy.data(), text, length * sizeof(wchar_t));
  return copy;
}
/// A copy up to the first NUL; empty for a null pointer.
inline Text fromWide(const wchar_t* text) {
  return text == nullptr ? Text{} : fromWide(text, std::wcslen(text));
}

}  // namespace tillora::win32
