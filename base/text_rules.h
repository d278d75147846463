#pragma once

#include "base/text.h"

namespace tillora {

inline constexpr TextView kLineBreak = u"\r\n";

/// Without the blanks (U+0020 only) before and after it.
Text trimBlanks(TextView text);

/// What stands before the last blank: "Tillora" of "Tillora Administrator", nothing of one word.
Text beforeLastBlank(TextView text);

}  // namespace tillora
