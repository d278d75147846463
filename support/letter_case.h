#pragma once

#include "ui/text.h"

namespace tillora {

/// The lower-case form of a letter of the Latin, Greek or Cyrillic alphabets that has one of one
/// UTF-16 unit; any other character is returned as it is. The same on every machine and locale.
char16_t lowerCase(char16_t c);

/// Every character in lower case.
Text lowerCase(TextView text);

}  // namespace tillora
