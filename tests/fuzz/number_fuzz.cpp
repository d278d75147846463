// Any text as a number: every way to read it agrees.
#include <cmath>

#include "base/numbers.h"
#include "base/whole_numbers.h"
#include "tests/fuzz/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tillora;
  const NumberLocale locale;
  fuzz::Input input(data, size);
  const int decimals = input.take<std::uint8_t>() % 20;
  const Text text = input.text();
  const auto decimal = toDecimal(text, locale);
  const auto number = toNumber(text, locale);
  fuzz::require(decimal || !number, "a number has digits");
  fuzz::require(isNumeric(text, locale) == number.has_value(), "isNumeric tells what is one");
  if (number) fuzz::require(std::isfinite(*number), "a number is finite");
  if (!decimal) return 0;
  const auto fixed = toFixedPoint(*decimal, decimals);
  if (fixed && number && std::abs(*number) < 1e15 && decimals == 0) {
    fuzz::require(std::abs(static_cast<double>(*fixed) - *number) <= 0.5000001, "rounded");
  }
  const auto whole = toWholeNumber(text, locale);
  fuzz::require(whole.has_value() == number.has_value() || !number, "a number is read as a whole");
  return 0;
}
