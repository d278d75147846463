// Any number in any format.
#include <cmath>

#include "base/number_format.h"
#include "tests/fuzz/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tillora;
  NumberLocale locale;
  fuzz::Input input(data, size);
  const auto value = input.take<double>();
  if (!std::isfinite(value)) return 0;
  const Text format = input.text();
  formatNumber(value, format, locale);
  locale.currencyFormat = format;
  formatNumber(value, u"Currency", locale);
  const Text general = formatNumber(value, u"", locale);
  const auto read = toNumber(general, locale);
  fuzz::require(!read || std::abs(*read - value) <= std::abs(value) * 1e-14,
                "a shown number reads as itself");
  return 0;
}
