#include "support/money.h"

#include <cstddef>
#include <limits>
#include <string_view>

#include "support/number_format.h"

namespace tillora {
namespace {

constexpr int kDecimals = 4;
constexpr std::uint64_t kLargest = std::numeric_limits<std::int64_t>::max();

// Whether digits that are cut off round the number before them up.
bool roundsUp(std::string_view cutOff, bool odd) {
  if (cutOff.empty() || cutOff.front() != '5') return !cutOff.empty() && cutOff.front() > '5';
  return odd || cutOff.find_first_not_of('0', 1) != std::string_view::npos;
}

}  // namespace

std::optional<Money> toMoney(TextView text, const NumberLocale& locale) {
  const std::optional<Decimal> number = toDecimal(text, locale);
  if (!number) return std::nullopt;
  if (number->isZero()) return Money{};

  std::string_view digits = number->digits;
  digits.remove_prefix(digits.find_first_not_of('0'));
  const std::int64_t kept = static_cast<std::int64_t>(digits.size()) + number->exponent + kDecimals;
  if (kept < 0) return Money{};
  std::uint64_t amount = 0;
  for (std::int64_t i = 0; i < kept; ++i) {
    const auto at = static_cast<std::size_t>(i);
    const auto digit = static_cast<std::uint64_t>(at < digits.size() ? digits[at] - '0' : 0);
    if (amount > (kLargest - digit) / 10) return std::nullopt;
    amount = amount * 10 + digit;
  }
  if (kept < static_cast<std::int64_t>(digits.size()) &&
      roundsUp(digits.substr(static_cast<std::size_t>(kept)), amount % 2 != 0)) {
    if (amount == kLargest) return std::nullopt;
    ++amount;
  }
  const auto value = static_cast<std::int64_t>(amount);
  return Money{number->negative ? -value : value};
}

Text formatMoney(Money amount, TextView format, const NumberLocale& locale) {
  return formatNumber(static_cast<double>(amount.tenThousandths) / 10'000, format, locale);
}

}  // namespace tillora
