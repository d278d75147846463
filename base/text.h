#pragma once

#include <string>
#include <string_view>

namespace tillora {

/// Text as the platform has it: UTF-16 code units. Converted to other encodings at the edges only.
using Text = std::u16string;
using TextView = std::u16string_view;

/// For platform functions that take the first NUL for the end: a blank in place of each, so that
/// what comes after it is not lost.
Text nulsAsBlanks(Text text);

/// UTF-8 for logs, files and test failures; a lone surrogate becomes U+FFFD.
std::string toUtf8(TextView text);

}  // namespace tillora
