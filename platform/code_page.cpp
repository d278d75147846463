#include "platform/code_page.h"

#include <windows.h>

#include "com/wide_text.h"

namespace tillora::win32 {

std::string toCodePage(unsigned codePage, const Text& text, bool& lossless) {
  // UTF-8 holds every character, and the conversion to it fails if asked to report lost ones.
  const bool holdsAll = codePage == CP_UTF8;
  BOOL replaced = FALSE;
  const auto convert = [&](char* buffer, int size) {
    return WideCharToMultiByte(codePage, holdsAll ? 0 : WC_NO_BEST_FIT_CHARS, wide(text),
                               static_cast<int>(text.size()), buffer, size, nullptr,
                               holdsAll ? nullptr : &replaced);
  };
  std::string converted(static_cast<std::size_t>(convert(nullptr, 0)), '\0');
  convert(converted.data(), static_cast<int>(converted.size()));
  lossless = replaced == FALSE;
  return converted;
}

Text fromCodePage(unsigned codePage, const std::string& text) {
  const auto convert = [&](wchar_t* buffer, int size) {
    return MultiByteToWideChar(codePage, 0, text.data(), static_cast<int>(text.size()), buffer,
                               size);
  };
  Text converted(static_cast<std::size_t>(convert(nullptr, 0)), u'\0');
  convert(reinterpret_cast<wchar_t*>(converted.data()), static_cast<int>(converted.size()));
  return converted;
}

}  // namespace tillora::win32
