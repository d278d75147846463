#pragma once

#include "base/numbers.h"
#include "base/text.h"

namespace tillora {

/// A number as text by a format of the platform's formatting functions:
///
///     0        a digit, zero where the number has none         #   a digit where there is one
///     .        decimal separator, the first one only           ,   thousands, behind a digit
///     %        times 100, once, with the percent sign          \x  the character x itself
///     "text"   the text itself                                 ;   sections:
///     positive;negative;zero
///
/// Any other character stands for itself. A missing or empty section is replaced by the first one.
/// Rounds half away from zero, on the 15 digits that a double holds exactly. "#0.00\%" of 5 is
/// 5.00%.
///
/// The names Standard (#,##0.00), Fixed (0.00), Percent (0.00%), Currency (by the locale) and
/// General Number stand for formats and are case-insensitive. General Number, and an empty format,
/// show all digits of the number, with an exponent from 1E+15 and below 0.0001.
///
/// @param value finite
Text formatNumber(double value, TextView format, const NumberLocale& locale);

}  // namespace tillora
