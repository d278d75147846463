#include <gtest/gtest.h>

#include <windows.h>

#include "base/letter_case.h"

namespace tillora::testing {
namespace {

wchar_t platformCase(wchar_t letter, DWORD which) {
  wchar_t mapped = letter;
  LCMapStringEx(LOCALE_NAME_INVARIANT, which, &letter, 1, &mapped, 1, nullptr, nullptr, 0);
  return mapped;
}

// The platform leaves a letter alone if it could not convert it back: the Kelvin sign, whose small
// letter is that of K, or the dotted capital I.
TEST(PlatformLetterCase, AgreesWithThePlatformWhereverItKnowsTheLetter) {
  int compared = 0;
  for (int c = 1; c <= 0xFFFF; ++c) {
    const auto letter = static_cast<wchar_t>(c);
    const wchar_t theirs = platformCase(letter, LCMAP_LOWERCASE);
    const auto ours = static_cast<wchar_t>(lowerCase(static_cast<char16_t>(c)));
    if (theirs != letter) {
      ++compared;
      EXPECT_EQ(ours, theirs) << c;
    } else if (ours != letter) {
      EXPECT_NE(platformCase(ours, LCMAP_UPPERCASE), letter) << c;
    }
  }
  EXPECT_GT(compared, 900);
}

}  // namespace
}  // namespace tillora::testing
