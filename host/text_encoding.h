#pragma once

#include <string_view>

#include "base/text.h"

namespace tillora::host {

/// Decodes UTF-8; each invalid byte becomes U+FFFD.
Text fromUtf8(std::string_view bytes);

/// Compares names of fields and options: the case of A to Z does not matter.
bool sameName(TextView left, TextView right);

}  // namespace tillora::host
