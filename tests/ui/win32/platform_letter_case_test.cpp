#include <gtest/gtest.h>

#include <windows.h>

#include "ui/letter_case.h"

namespace tillora::testing {
namespace {

bool isCapitalForThePlatform(wchar_t letter) {
  WORD types = 0;
  GetStringTypeW(CT_CTYPE1, &letter, 1, &types);
  return (types & C1_UPPER) != 0;
}

wchar_t platformLowerCase(wchar_t letter) {
  wchar_t lower = letter;
  LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_LOWERCASE, &letter, 1, &lower, 1, nullptr, nullptr, 0);
  return lower;
}

// Platforms know the letters of their time, and some leave the dotted capital I to the languages
// that have it.
TEST(PlatformLetterCase, OursIsThatOfThePlatformWhereverItKnowsTheLetter) {
  int compared = 0;
  for (int c = 1; c <= 0xFFFF; ++c) {
    if (c == 0x0130) continue;
    const auto letter = static_cast<wchar_t>(c);
    const wchar_t theirs = platformLowerCase(letter);
    if (theirs == letter && !isCapitalForThePlatform(letter)) continue;
    ++compared;
    EXPECT_EQ(lowerCase(static_cast<char16_t>(c)), static_cast<char16_t>(theirs)) << c;
  }
  EXPECT_GT(compared, 900);
}

}  // namespace
}  // namespace tillora::testing
