#include "base/letter_case.h"

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

TEST(LetterCase, LowerCaseStaysAsItIs) {
  int capitals = 0;
  for (int c = 0; c <= 0xFFFF; ++c) {
    const char16_t low = lowerCase(static_cast<char16_t>(c));
    EXPECT_EQ(lowerCase(low), low) << c;
    if (low != c) ++capitals;
  }
  EXPECT_EQ(capitals, 1173);
}

TEST(LetterCase, SmallFormsOfOneCapitalAreTheSameLetter) {
  const Text variants =
      u"\u00B5\u0131\u017F\u0345\u03C2\u03D0\u03D1\u03D5\u03D6\u03F0\u03F1\u03F5"
      u"\u1C80\u1C81\u1C82\u1C83\u1C84\u1C85\u1C86\u1C87\u1C88\u1E9B\u1FBE";
  const Text capitals =
      u"\u039CIS\u0399\u03A3\u0392\u0398\u03A6\u03A0\u039A\u03A1\u0395"
      u"\u0412\u0414\u041E\u0421\u0422\u0422\u042A\u0462\uA64A\u1E60\u0399";
  ASSERT_EQ(variants.size(), capitals.size());
  for (std::size_t i = 0; i < variants.size(); ++i) {
    EXPECT_TRUE(sameLetters(variants.substr(i, 1), capitals.substr(i, 1))) << i;
  }
  EXPECT_TRUE(sameLetters(u"\u039F\u0394\u039F\u03A3", u"\u03BF\u03B4\u03BF\u03C2"));
  EXPECT_TRUE(sameLetters(u"\u03C2", u"\u03C3"));
  EXPECT_TRUE(sameLetters(u"", u""));
  EXPECT_FALSE(sameLetters(u"a", u"ab"));
  EXPECT_FALSE(sameLetters(u"ab", u"a"));
  EXPECT_FALSE(sameLetters(u"\u03B1", u"a"));
  EXPECT_FALSE(sameLetters(u"\u00DF", u"ss"));
}

TEST(LetterCase, ALetterEqualsItselfAndItsLowerCase) {
  for (int c = 0; c <= 0xFFFF; ++c) {
    const Text letter(1, static_cast<char16_t>(c));
    EXPECT_TRUE(sameLetters(letter, lowerCase(letter))) << c;
    EXPECT_TRUE(sameLetters(letter, letter)) << c;
  }
}

}  // namespace
}  // namespace tillora::testing
