#include "base/letter_case.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <utility>

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
#include "base/letter_case_ranges.inc"
};

// Small letters whose capital has another, more common small letter.
constexpr std::pair<char16_t, char16_t> kVariants[] = {
    {0x00B5, 0x03BC}, {0x0131, 0x0069}, {0x017F, 0x0073}, {0x0345, 0x03B9}, {0x03C2, 0x03C3},
    {0x03D0, 0x03B2}, {0x03D1, 0x03B8}, {0x03D5, 0x03C6}, {0x03D6, 0x03C0}, {0x03F0, 0x03BA},
    {0x03F1, 0x03C1}, {0x03F5, 0x03B5}, {0x1C80, 0x0432}, {0x1C81, 0x0434}, {0x1C82, 0x043E},
    {0x1C83, 0x0441}, {0x1C84, 0x0442}, {0x1C85, 0x0442}, {0x1C86, 0x044A}, {0x1C87, 0x0463},
    {0x1C88, 0xA64B}, {0x1E9B, 0x1E61}, {0x1FBE, 0x03B9}};

char16_t usualSmallLetter(char16_t c) {
  const char16_t small = lowerCase(c);
  const auto* const variant =
      std::ranges::find(kVariants, small, &std::pair<char16_t, char16_t>::first);
  return variant == std::end(kVariants) ? small : variant->second;
}

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

bool sameLetters(TextView a, TextView b) {
  return std::ranges::equal(a, b, {}, usualSmallLetter, usualSmallLetter);
}

}  // namespace tillora
