#include "base/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

namespace tillora {
namespace {

// Larger than any exponent that matters; sums of it do not overflow.
constexpr std::int64_t kLargestExponent = 1'000'000'000;

constexpr char16_t kNoBreakSpace = 0xA0;

/// Takes a number apart from left to right.
class NumberReader {
 public:
  NumberReader(TextView text, const NumberLocale& locale) : rest_(text), locale_(locale) {}

  std::optional<Decimal> read() {
    while (readAffix(u'(', parenthesis_)) {
    }
    if (!readDigits()) return std::nullopt;
    readExponent();
    closing_ = !parenthesis_;
    while (readAffix(u')', closing_)) {
    }
    if (!rest_.empty() || !closing_) return std::nullopt;
    number_.negative = negative_ || parenthesis_;
    return std::move(number_);
  }

 private:
  bool skip(TextView what) {
    if (what.empty() || !rest_.starts_with(what)) return false;
    rest_.remove_prefix(what.size());
    return true;
  }

  // A blank, or one of the signs, symbols and brackets that may appear once around the digits.
  bool readAffix(char16_t bracket, bool& bracketSeen) {
    if (rest_.empty()) return false;
    const char16_t c = rest_.front();
    if (isNumberBlank(c)) {
      rest_.remove_prefix(1);
    } else if ((c == u'+' || c == u'-') && !signed_) {
      signed_ = true;
      negative_ = c == u'-';
      rest_.remove_prefix(1);
    } else if (c == bracket && !bracketSeen) {
      bracketSeen = true;
      rest_.remove_prefix(1);
    } else if (!currency_ && skip(locale_.currencySymbol)) {
      currency_ = true;
    } else {
      return false;
    }
    return true;
  }

  bool readDigits() {
    takeDigits(locale_.thousandsSeparator);
    const std::size_t whole = number_.digits.size();
    if (skip(locale_.decimalSeparator)) takeDigits({});
    number_.exponent = -static_cast<std::int64_t>(number_.digits.size() - whole);
    return !number_.digits.empty();
  }

  void takeDigits(TextView separator) {
    while (!rest_.empty()) {
      if (isDigit(rest_.front())) {
        number_.digits += static_cast<char>(rest_.front());
        rest_.remove_prefix(1);
      } else if (number_.digits.empty() || !skipThousands(separator)) {
        break;
      }
    }
  }

  // Some locales separate thousands with a no-break space, which no keyboard has.
  bool skipThousands(TextView separator) {
    return skip(separator) || (separator == TextView(&kNoBreakSpace, 1) && skip(u" "));
  }

  // A currency amount has no exponent.
  void readExponent() {
    if (currency_ || rest_.empty() || (rest_.front() != u'e' && rest_.front() != u'E')) return;
    TextView exponent = rest_.substr(1);
    const bool negative = exponent.starts_with(u'-');
    if (negative || exponent.starts_with(u'+')) exponent.remove_prefix(1);
    if (exponent.empty() || !isDigit(exponent.front())) return;
    std::int64_t value = 0;
    while (!exponent.empty() && isDigit(exponent.front())) {
      value = std::min(value * 10 + (exponent.front() - u'0'), kLargestExponent);
      exponent.remove_prefix(1);
    }
    number_.exponent += negative ? -value : value;
    rest_ = exponent;
  }

  TextView rest_;
  const NumberLocale& locale_;
  Decimal number_;
  bool signed_ = false;
  bool negative_ = false;
  bool currency_ = false;
  bool parenthesis_ = false;
  bool closing_ = false;
};

// Whether the digits that are cut off round the remaining number up.
bool roundsUp(std::string_view cutOff, bool odd) {
  if (cutOff.empty() || cutOff.front() != '5') return !cutOff.empty() && cutOff.front() > '5';
  return odd || cutOff.find_first_not_of('0', 1) != std::string_view::npos;
}

std::string plainText(const Decimal& number) {
  return number.digits + 'e' + std::to_string(number.exponent);
}

// Tells a number too small for a double from one that is too large.
bool isBelowOne(const Decimal& number) {
  const std::size_t leading = std::min(number.digits.find_first_not_of('0'), number.digits.size());
  const auto significant = static_cast<std::int64_t>(number.digits.size() - leading);
  return significant + number.exponent <= 0 || significant == 0;
}

}  // namespace

bool isNumberBlank(char16_t c) {
  constexpr TextView kOthers = u" \u0085\u00a0\u1680\u2028\u2029\u202f\u205f\u3000";
  return (c >= 0x09 && c <= 0x0D) || (c >= 0x2000 && c <= 0x200A) ||
         kOthers.find(c) != TextView::npos;
}

TextView withoutNumberBlanks(TextView text) {
  while (!text.empty() && isNumberBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isNumberBlank(text.back())) text.remove_suffix(1);
  return text;
}

bool isDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

bool isCommandCharacter(char16_t c) { return c < 0x20 && c != kBackspaceCharacter; }

std::optional<Decimal> toDecimal(TextView text, const NumberLocale& locale) {
  return NumberReader(text, locale).read();
}

std::optional<double> toDouble(const Decimal& number) {
  const std::string plain = plainText(number);
  double value = 0;
  const auto failure = std::from_chars(plain.data(), plain.data() + plain.size(), value).ec;
  if (failure != std::errc{}) return isBelowOne(number) ? std::optional(0.0) : std::nullopt;
  return number.negative ? -value : value;
}

std::optional<std::int64_t> toFixedPoint(const Decimal& number, int decimals) {
  if (number.isZero()) return 0;
  std::string_view digits = number.digits;
  digits.remove_prefix(digits.find_first_not_of('0'));
  const std::int64_t kept = static_cast<std::int64_t>(digits.size()) + number.exponent + decimals;
  if (kept < 0) return 0;
  constexpr std::uint64_t kLargest = std::numeric_limits<std::int64_t>::max();
  std::uint64_t count = 0;
  for (std::int64_t i = 0; i < kept; ++i) {
    const auto at = static_cast<std::size_t>(i);
    const auto digit = static_cast<std::uint64_t>(at < digits.size() ? digits[at] - '0' : 0);
    if (count > (kLargest - digit) / 10) return std::nullopt;
    count = count * 10 + digit;
  }
  if (kept < static_cast<std::int64_t>(digits.size()) &&
      roundsUp(digits.substr(static_cast<std::size_t>(kept)), count % 2 != 0)) {
    if (count == kLargest) return std::nullopt;
    ++count;
  }
  const auto value = static_cast<std::int64_t>(count);
  return number.negative ? -value : value;
}

std::optional<double> toNumber(TextView text, const NumberLocale& locale) {
  const std::optional<Decimal> number = toDecimal(text, locale);
  return number ? toDouble(*number) : std::nullopt;
}

Text decimalText(std::int64_t number) {
  const std::string digits = std::to_string(number);
  return {digits.begin(), digits.end()};
}

double roundHalfEven(double value) {
  const double below = std::floor(value);
  const double fraction = value - below;
  const bool up = fraction > 0.5 || (fraction == 0.5 && std::fmod(below, 2) != 0);
  return up ? below + 1 : below;
}

Scientific toScientific(double magnitude, int significant) {
  // The host may have set a decimal separator for the C library: take only the digits.
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), "%.*e", significant - 1, magnitude);
  const std::string_view written = text.data();
  const std::size_t exponentAt = written.find('e');
  Scientific number{{}, std::atoi(text.data() + exponentAt + 1)};
  for (const char c : written.substr(0, exponentAt)) {
    if (c >= '0' && c <= '9') number.digits += c;
  }
  return number;
}

Decimal asWritten(float value) {
  constexpr int kMostDigits = std::numeric_limits<float>::max_digits10;
  Decimal written;
  for (int digits = 1; digits <= kMostDigits; ++digits) {
    const Scientific shorter = toScientific(std::fabs(value), digits);
    written.digits = shorter.digits;
    written.exponent = shorter.exponent - (digits - 1);
    const std::string text = plainText(written);
    float single = 0;
    std::from_chars(text.data(), text.data() + text.size(), single);
    if (single == std::fabs(value)) break;
  }
  written.negative = std::signbit(value);
  return written;
}

}  // namespace tillora
