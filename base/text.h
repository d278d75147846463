#pragma once

#include <string>
#include <string_view>

namespace tillora {

/// Text as the platform stores it: UTF-16 code units. Converted to other encodings at the edges
/// only.
using Text = std::u16string;
using TextView = std::u16string_view;

/// Replaces each NUL by a blank, for platform functions that would cut the text off there.
Text nulsAsBlanks(Text text);

/// UTF-8 for logs, files and test failures; a lone surrogate becomes U+FFFD.
std::string toUtf8(TextView text);

}  // namespace tillora
