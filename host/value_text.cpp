#include "host/value_text.h"

#include <array>
#include <charconv>
#include <cstdint>

namespace tillora::host {

std::string amountText(Money amount) {
  constexpr std::int64_t kUnit = 10000;
  const bool negative = amount.tenThousandths < 0;
  // The magnitude of the most negative amount fits only without a sign.
  const auto magnitude = negative ? 0 - static_cast<std::uint64_t>(amount.tenThousandths)
                                  : static_cast<std::uint64_t>(amount.tenThousandths);
  const std::string fraction = std::to_string(magnitude % kUnit);
  return (negative ? "-" : "") + std::to_string(magnitude / kUnit) + '.' +
         std::string(4 - fraction.size(), '0') + fraction;
}

std::string singleText(float number) {
  std::array<char, 32> text;
  const auto written =
      std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::general, 9);
  return {text.data(), written.ptr};
}

}  // namespace tillora::host
