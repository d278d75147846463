#include "host/value_text.h"

#include <cstdint>
#include <iomanip>
#include <sstream>

namespace tillora::host {

std::string amountText(Money amount) {
  constexpr std::int64_t kUnit = 10000;
  const bool negative = amount.tenThousandths < 0;
  // The magnitude of the most negative amount fits only without a sign.
  const auto magnitude = negative ? 0 - static_cast<std::uint64_t>(amount.tenThousandths)
                                  : static_cast<std::uint64_t>(amount.tenThousandths);
  std::ostringstream out;
  out << (negative ? "-" : "") << magnitude / kUnit << '.' << std::setw(4) << std::setfill('0')
      << magnitude % kUnit;
  return out.str();
}

std::string singleText(float number) {
  std::ostringstream out;
  out << std::setprecision(9) << number;
  return out.str();
}

}  // namespace tillora::host
