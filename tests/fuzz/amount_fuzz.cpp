// Any amount and any text as an amount: what is shown reads as what it shows.
#include "base/money.h"
#include "tests/fuzz/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tillora;
  const NumberLocale locale;
  fuzz::Input input(data, size);
  // Within the fifteen digits that a format shows.
  const Money amount{input.take<std::int64_t>() % 1'000'000'000'000'000};
  fuzz::require(toMoney(formatMoney(amount, u"0.0000", locale), locale) == amount,
                "a shown amount reads as itself");
  const Text text = input.text();
  const auto read = toMoney(text, locale);
  fuzz::require(!read || isNumeric(text, locale), "an amount is a number");
  formatMoney(amount, text, locale);
  return 0;
}
