#pragma once

#include <windows.h>

#include "base/numbers.h"

namespace tillora::win32 {

/// How the user's regional settings currently write numbers.
NumberLocale userNumberLocale();

/// How a locale writes them.
NumberLocale numberLocale(LCID locale);

}  // namespace tillora::win32
