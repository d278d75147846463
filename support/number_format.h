#pragma once

#include "support/numbers.h"
#include "ui/text.h"

namespace tillora {

/// A number as text by a format of the platform's formatting functions:
///
///     0        a digit, zero where the number has none         #   a digit where there is one
///     .        decimal separator                               ,   thousands, between digits
///     %        times 100, with the percent sign                \x  the character x itself
///     "text"   the text itself                                 ;   sections:
///     positive;negative;zero
///
/// and any other character as it is; the name of a format (Currency, Fixed) is none. Rounds half
/// away from zero, on the 15 digits that a double holds exactly. "#0.00\%" of 5 is 5.00%.
Text formatNumber(double value, TextView format, const NumberLocale& locale);

}  // namespace tillora
