#pragma once

#include "base/numbers.h"

namespace tillora::testing {

/// The locale of tests that name no other.
inline const NumberLocale kAustralia;
inline const NumberLocale kGermany{u",", u".", u"\u20ac"};

}  // namespace tillora::testing
