#include "support/modJetSQLFixup.h"

#include <gtest/gtest.h>

namespace tillora {
namespace {

TEST(QuoteJetLiteral, OnlyWrapsATextWithoutSpecialCharacters) {
  EXPECT_EQ(QuoteJetLiteral(u"Sales"), u"'Sales'");
  EXPECT_EQ(QuoteJetLiteral(u"a \"b\" [c] & d"), u"'a \"b\" [c] & d'");
}

TEST(QuoteJetLiteral, AnEmptyTextIsTwoQuotes) { EXPECT_EQ(QuoteJetLiteral(u""), u"''"); }

TEST(QuoteJetLiteral, WritesQuoteBarAndSemicolonAsTheirCodes) {
  EXPECT_EQ(QuoteJetLiteral(u"O'Neil"), u"'O' & Chr$(39) & 'Neil'");
  EXPECT_EQ(QuoteJetLiteral(u"a;b|c'd"),
            u"'a' & Chr$(59) & 'b' & Chr$(124) & 'c' & Chr$(39) & 'd'");
  EXPECT_EQ(QuoteJetLiteral(u"'"), u"'' & Chr$(39) & ''");
  EXPECT_EQ(QuoteJetLiteral(u"||"), u"'' & Chr$(124) & '' & Chr$(124) & ''");
}

TEST(QuoteJetLiteral, KeepsTextThatLooksLikeItsOwnReplacement) {
  EXPECT_EQ(QuoteJetLiteral(u"Chr$(39)"), u"'Chr$(39)'");
}

TEST(ReplaceText, ReplacesEveryOccurrence) {
  EXPECT_EQ(ReplaceText(u"a-b-c", u"-", u"+"), u"a+b+c");
  EXPECT_EQ(ReplaceText(u"aaaa", u"aa", u"b"), u"bb");
  EXPECT_EQ(ReplaceText(u"abc", u"x", u"y"), u"abc");
  EXPECT_EQ(ReplaceText(u"abc", u"abc", u""), u"");
}

TEST(ReplaceText, DoesNotReplaceWhatItPutIn) {
  EXPECT_EQ(ReplaceText(u"a'b", u"'", u"''"), u"a''b");
  EXPECT_EQ(ReplaceText(u"aXbX", u"X", u"XX"), u"aXXbXX");
}

TEST(ReplaceText, ANullSourceStaysNull) {
  EXPECT_EQ(ReplaceText(std::nullopt, u"a", u"b"), std::nullopt);
}

TEST(ReplaceText, AnEmptyFindOccursNowhere) {
  EXPECT_EQ(ReplaceText(u"abc", u"", u"x"), u"abc");
  EXPECT_EQ(ReplaceText(u"", u"", u"x"), u"");
}

TEST(ReplaceText, ComparesByCodeOrWithoutRegardToCase) {
  EXPECT_EQ(ReplaceText(u"Abc aBC", u"abc", u"x", Compare::binary), u"Abc aBC");
  EXPECT_EQ(ReplaceText(u"Abc aBC", u"abc", u"x", Compare::text), u"x x");
  EXPECT_EQ(ReplaceText(u"\u00c9t\u00e9", u"\u00e9", u"e", Compare::text), u"ete");
}

TEST(JetBoolean, IsTheWordTrueOrFalse) {
  EXPECT_EQ(jetBoolean(true), u"True");
  EXPECT_EQ(jetBoolean(false), u"False");
}

}  // namespace
}  // namespace tillora
