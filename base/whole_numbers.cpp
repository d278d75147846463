#include "base/whole_numbers.h"

namespace tillora {

void keepDigitKey(char16_t& key) {
  if (!isDigit(key) && key != kBackspaceCharacter && !isCommandCharacter(key)) key = 0;
}

std::optional<std::int64_t> toWholeNumber(TextView text, const NumberLocale& locale) {
  const std::optional<double> number = toNumber(text, locale);
  if (!number) return std::nullopt;
  constexpr double kBeyond = 9223372036854775808.0;  // 2^63, the first double that does not fit
  if (*number >= kBeyond) return std::numeric_limits<std::int64_t>::max();
  if (*number < -kBeyond) return std::numeric_limits<std::int64_t>::min();
  return static_cast<std::int64_t>(roundHalfEven(*number));
}

}  // namespace tillora
