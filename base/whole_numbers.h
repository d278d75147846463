#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>

#include "base/numbers.h"

namespace tillora {

/// Key filter of boxes for whole numbers: digits, Backspace and commands pass, any other character
/// is discarded.
void keepDigitKey(char16_t& key);

/// The number that a text stands for, read by the rules of toNumber(), rounded to a whole one
/// (halfway between two to the even one) and limited to 64 bits. None for any other text.
std::optional<std::int64_t> toWholeNumber(TextView text, const NumberLocale& locale);

/// The number, or the nearest one that the type holds.
template <class Integer>
constexpr Integer limitedTo(std::int64_t number) {
  using Limits = std::numeric_limits<Integer>;
  return static_cast<Integer>(std::clamp<std::int64_t>(number, Limits::min(), Limits::max()));
}

}  // namespace tillora
