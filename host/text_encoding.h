#pragma once

#include <string_view>

#include "base/text.h"

namespace tillora::host {

/// Text of UTF-8; each byte that belongs to no character becomes U+FFFD.
Text fromUtf8(std::string_view bytes);

/// Compares as field and option names are compared: the case of A to Z does not matter.
bool sameName(TextView left, TextView right);

}  // namespace tillora::host
