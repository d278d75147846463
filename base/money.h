#pragma once

#include <cstdint>
#include <optional>

#include "base/numbers.h"
#include "base/text.h"

namespace tillora {

/// An amount of money, counted in ten-thousandths like the platform's CY.
struct Money {
  std::int64_t tenThousandths = 0;
  friend auto operator<=>(const Money&, const Money&) = default;
};

/// The amount that a text stands for, read exactly by the rules of toNumber(); more than four
/// decimals are rounded, halfway to the even ten-thousandth. None for any other text and outside
/// the range of CY.
std::optional<Money> toMoney(TextView text, const NumberLocale& locale);

/// The amount as text, in a format of formatNumber().
Text formatMoney(Money amount, TextView format, const NumberLocale& locale);

}  // namespace tillora
