#pragma once

#include "base/numbers.h"

namespace tillora::testing {

/// What a locale is where nothing else is said.
inline const NumberLocale kAustralia;
inline const NumberLocale kGermany{u",", u".", u"\u20ac"};

}  // namespace tillora::testing
