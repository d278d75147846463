#pragma once

#include <string>

#include "base/text.h"

namespace tillora::win32 {

/// A text in a code page of the system. `lossless` becomes False if the page lacks a character.
std::string toCodePage(unsigned codePage, const Text& text, bool& lossless);
Text fromCodePage(unsigned codePage, const std::string& text);

}  // namespace tillora::win32
