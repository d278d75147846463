#pragma once

#include <cstdint>
#include <optional>

#include "base/numbers.h"
#include "base/text.h"

namespace tillora {

/// An amount of money: a count of ten-thousandths, as the platform's CY.
struct Money {
  std::int64_t tenThousandths = 0;
  friend auto operator<=>(const Money&, const Money&) = default;
};

/// The amount that a text says, read as toNumber() reads it, exactly; more than four decimals are
/// rounded, halfway to the even ten-thousandth. None for any other text and beyond the range of CY.
std::optional<Money> toMoney(TextView text, const NumberLocale& locale);

/// An amount as text by a format as in formatNumber().
Text formatMoney(Money amount, TextView format, const NumberLocale& locale);

}  // namespace tillora
