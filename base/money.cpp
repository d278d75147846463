#include "base/money.h"

#include "base/number_format.h"

namespace tillora {
namespace {

constexpr int kDecimals = 4;

}  // namespace

std::optional<Money> toMoney(TextView text, const NumberLocale& locale) {
  const std::optional<Decimal> number = toDecimal(text, locale);
  const auto amount = number ? toFixedPoint(*number, kDecimals) : std::nullopt;
  return amount ? std::optional(Money{*amount}) : std::nullopt;
}

Text formatMoney(Money amount, TextView format, const NumberLocale& locale) {
  return formatNumber(static_cast<double>(amount.tenThousandths) / 10'000, format, locale);
}

}  // namespace tillora
