#include "ui/letter_case.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace tillora {
namespace {

/// Every step-th character from `first` to `last` is a capital.
struct Capitals {
  char16_t first;
  char16_t last;
  char16_t lowerOfFirst;
  std::uint16_t step;
};

constexpr Capitals kCapitals[] = {
#include "ui/letter_case_ranges.inc"
};

}  // namespace

char16_t lowerCase(char16_t c) {
  if (c < 0x80) return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + (u'a' - u'A')) : c;
  const auto* const range = std::ranges::lower_bound(kCapitals, c, {}, &Capitals::last);
  if (range == std::end(kCapitals) || c < range->first) return c;
  const int distance = c - range->first;
  return distance % range->step == 0 ? static_cast<char16_t>(range->lowerOfFirst + distance) : c;
}

Text lowerCase(TextView text) {
  Text lower(text);
  std::ranges::transform(lower, lower.begin(), [](char16_t c) { return lowerCase(c); });
  return lower;
}

}  // namespace tillora
