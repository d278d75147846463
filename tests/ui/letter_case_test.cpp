#include "ui/letter_case.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace tillora::testing {
namespace {

TEST(LetterCase, LowersTheLettersOfEveryAlphabet) {
  const std::vector<std::pair<Text, Text>> words = {
      {u"AZ", u"az"},
      {u"\u00C0\u00D6\u00D8\u00DE", u"\u00E0\u00F6\u00F8\u00FE"},
      {u"\u0100\u0139\u0178\u017D", u"\u0101\u013A\u00FF\u017E"},
      // Azerbaijani, Vietnamese, African
      {u"\u018F\u01A0\u01AF\u0181\u01BC", u"\u0259\u01A1\u01B0\u0253\u01BD"},
      // letters that have a form for titles between capital and small one
      {u"\u01C4\u01C5\u01CA\u01CB\u01F1\u01F2", u"\u01C6\u01C6\u01CC\u01CC\u01F3\u01F3"},
      {u"\u01F4\u01F6\u023A\u0241\u024E", u"\u01F5\u0195\u2C65\u0242\u024F"},
      // Greek, Coptic, Greek with breathings
      {u"\u0386\u0391\u03A9\u03AB", u"\u03AC\u03B1\u03C9\u03CB"},
      {u"\u03D8\u03E2\u03EE", u"\u03D9\u03E3\u03EF"},
      {u"\u1F08\u1F49\u1FBA\u1FFC", u"\u1F00\u1F41\u1F70\u1FF3"},
      // Cyrillic, Armenian, Georgian, Cherokee
      {u"\u0401\u0416\u042F\u04C0\u052E", u"\u0451\u0436\u044F\u04CF\u052F"},
      {u"\u0531\u0556", u"\u0561\u0586"},
      {u"\u10A0\u1C90", u"\u2D00\u10D0"},
      {u"\u13A0\u13F5", u"\uAB70\u13FD"},
      // Kelvin, Angstrom, Roman numerals, circled and full-width letters
      {u"\u212A\u212B\u2160\u216F\u24B6\u24CF", u"k\u00E5\u2170\u217F\u24D0\u24E9"},
      {u"\uFF21\uFF3A", u"\uFF41\uFF5A"}};
  for (const auto& [capitals, small] : words) {
    EXPECT_EQ(lowerCase(capitals), small) << toUtf8(capitals);
    EXPECT_EQ(lowerCase(small), small) << toUtf8(small);
  }
}

TEST(LetterCase, TheDottedCapitalIBecomesAnI) { EXPECT_EQ(lowerCase(u'\u0130'), u'i'); }

TEST(LetterCase, LeavesEverythingElseAlone) {
  const Text others =
      u"@[`{09 &\u00D7\u00DF\u0131\u0138\u0149\u017F\u03A2\u03C2\u0557\u05D0\u0661\u4E2D\u2180"
      u"\uFF20\uFF3B\uFFFF";
  EXPECT_EQ(lowerCase(others), others);
  const Text deseret = u"\U00010400";  // a pair of two units
  EXPECT_EQ(lowerCase(deseret), deseret);
  EXPECT_EQ(lowerCase(u'\0'), u'\0');
}

TEST(LetterCase, WhatIsLoweredIsLow) {
  int capitals = 0;
  for (int c = 0; c <= 0xFFFF; ++c) {
    const char16_t low = lowerCase(static_cast<char16_t>(c));
    EXPECT_EQ(lowerCase(low), low) << c;
    if (low != c) ++capitals;
  }
  EXPECT_EQ(capitals, 1173);
}

}  // namespace
}  // namespace tillora::testing
