#pragma once

#include "ui/text.h"

namespace tillora {

/// The lower-case form of a letter that has one of one UTF-16 unit, in whatever alphabet; any other
/// character, halves of surrogate pairs included, is returned as it is. The same on every machine
/// and locale.
char16_t lowerCase(char16_t c);

/// Every character in lower case.
Text lowerCase(TextView text);

}  // namespace tillora
