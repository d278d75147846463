#pragma once

#include "support/numbers.h"

namespace tillora::win32 {

/// How the user's regional settings write numbers at present.
NumberLocale userNumberLocale();

}  // namespace tillora::win32
