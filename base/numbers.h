#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/text.h"

namespace tillora {

/// How the user's regional settings write numbers and amounts of money.
struct NumberLocale {
  Text decimalSeparator = u".";
  Text thousandsSeparator = u",";
  Text currencySymbol = u"$";
  /// What the format named Currency stands for (number_format.h), and the separators it is written
  /// with.
  Text currencyFormat = u'"' + currencySymbol + u"\"#,##0.00";
  Text currencyDecimalSeparator = decimalSeparator;
  Text currencyThousandsSeparator = thousandsSeparator;
};

/// One of 0 to 9.
bool isDigit(char16_t c);

/// One of the characters that the platform's text-to-number conversion treats as a blank, including
/// no-break spaces and line breaks.
bool isNumberBlank(char16_t c);

/// The text without such characters before and after it.
TextView withoutNumberBlanks(TextView text);

/// The character that the Backspace key types.
inline constexpr char16_t kBackspaceCharacter = 8;

/// Control characters other than Backspace: copy, paste, cut, undo, Enter, Esc. They are commands
/// of the edit control: key filters let them pass, and they move no focus.
bool isCommandCharacter(char16_t c);

/// A number exactly as it was written: its digits as a whole number, times 10 to the exponent.
struct Decimal {
  bool negative = false;
  std::string digits;  ///< at least one, 0 to 9; zeros may lead
  std::int64_t exponent = 0;

  bool isZero() const { return digits.find_first_not_of('0') == std::string::npos; }
};

/// Reads a number by the rules of the platform's own text-to-number conversion: blanks around it, a
/// sign before or after it, parentheses, a currency symbol, thousands separators (a blank may be
/// typed for a no-break space), a decimal separator and, without a currency symbol, an exponent.
/// None for any other text, for hexadecimal and octal forms, and for texts with two signs or two
/// currency symbols.
std::optional<Decimal> toDecimal(TextView text, const NumberLocale& locale);

/// The number as a double; none if it is too large, 0 if it is too small.
std::optional<double> toDouble(const Decimal& number);

/// The number in units of this decimal place: 1.015 to two decimals is 102. Exact; halfway between
/// two units it is the even one. None beyond 64 bits.
std::optional<std::int64_t> toFixedPoint(const Decimal& number, int decimals);

/// The text read by toDecimal(), as a double.
std::optional<double> toNumber(TextView text, const NumberLocale& locale);

inline bool isNumeric(TextView text, const NumberLocale& locale) {
  return toNumber(text, locale).has_value();
}

/// A whole number in decimal digits, with a minus sign below zero.
Text decimalText(std::int64_t number);

/// A magnitude rounded to a number of significant digits, d.ddd times ten to the exponent. The C++
/// library's own conversion would take up a seventh of the component.
struct Scientific {
  std::string digits;  ///< without the separator
  int exponent;
};
/// @param magnitude not negative, finite
/// @param significant 1 to 17
Scientific toScientific(double magnitude, int significant);

/// The nearest whole number; halfway between two, the even one.
double roundHalfEven(double value);

/// The shortest number that reads as the single does: 2.55 for 2.55F, whose exact value is
/// 2.5499999523.
/// @param value finite
Decimal asWritten(float value);

}  // namespace tillora
