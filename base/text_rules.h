#pragma once

#include "base/text.h"

namespace tillora {

inline constexpr TextView kLineBreak = u"\r\n";

/// The text without the blanks (U+0020 only) at its ends.
Text trimBlanks(TextView text);

/// The text before the last blank: "Tillora" of "Tillora Administrator"; empty for a single word.
Text beforeLastBlank(TextView text);

}  // namespace tillora
