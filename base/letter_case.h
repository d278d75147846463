#pragma once

#include "base/text.h"

namespace tillora {

/// The lower-case form of a letter of any alphabet that has one in a single UTF-16 unit; any other
/// character, including half a surrogate pair, is returned as it is. The same on every machine and
/// in every locale.
char16_t lowerCase(char16_t c);

/// Every character in lower case.
Text lowerCase(TextView text);

/// Whether two texts are equal without regard to case. All small forms of one capital are equal:
/// the two sigmas of Greek, the long s and the common one.
bool sameLetters(TextView a, TextView b);

}  // namespace tillora
