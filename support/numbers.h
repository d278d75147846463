#pragma once

#include <optional>

#include "ui/text.h"

namespace tillora {

/// How the user's regional settings write numbers.
struct NumberLocale {
  Text decimalSeparator = u".";
  Text thousandsSeparator = u",";
  Text currencySymbol = u"$";
};

/// One of 0 to 9.
bool isDigit(char16_t c);

/// Control characters other than Backspace: copy, paste, cut, undo, Enter, Esc. They are commands
/// of the edit control, which key filters let pass and which move no focus.
bool isCommandCharacter(char16_t c);

/// The number that a text says by the platform's own text-to-number conversion: blanks around it, a
/// sign before or after it, parentheses, a currency symbol, thousands separators, a decimal
/// separator and an exponent. None for any other text, for hexadecimal and octal forms, and beyond
/// the range of a double.
std::optional<double> toNumber(TextView text, const NumberLocale& locale);

inline bool isNumeric(TextView text, const NumberLocale& locale) {
  return toNumber(text, locale).has_value();
}

}  // namespace tillora
