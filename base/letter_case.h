#pragma once

#include "base/text.h"

namespace tillora {

/// The lower-case form of a letter that has one of one UTF-16 unit, in whatever alphabet; any other
/// character, halves of surrogate pairs included, is returned as it is. The same on every machine
/// and locale.
char16_t lowerCase(char16_t c);

/// Every character in lower case.
Text lowerCase(TextView text);

/// Whether two texts differ at most in the case of their letters. Small forms of one capital are
/// the same letter: the two sigmas of Greek, the long s and the common one.
bool sameLetters(TextView a, TextView b);

}  // namespace tillora
