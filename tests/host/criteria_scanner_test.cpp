#include "host/criteria_scanner.h"

#include <gtest/gtest.h>

#include "host/shop_error.h"

namespace tillora::host {
namespace {

/// What the refusal of a text says before it repeats the text; empty if it is not refused.
template <class Take>
Text refusal(TextView text, Take take) {
  CriteriaScanner scanner(text);
  try {
    take(scanner);
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), shop_error::criteriaSyntax);
    return error.description().substr(0, error.description().find(u" (criteria: "));
  }
  return u"";
}

Text refusalOfName(TextView text) {
  return refusal(text, [](CriteriaScanner& scanner) { scanner.name(); });
}

TEST(CriteriaScanner, ANameWithoutBracketsIsOfLettersDigitsAndUnderscores) {
  for (const char16_t first : {u'A', u'Z', u'a', u'z', u'_'}) {
    const Text name = first + Text(u"AZaz_09");
    EXPECT_EQ(CriteriaScanner(name).name(), name);
    for (const char16_t end : {u'@', u'[', u'`', u'{', u'/', u':', u' ', u'\u00E9'}) {
      const Text text = name + end;
      EXPECT_EQ(CriteriaScanner(text).name(), name) << int{end};
    }
  }
  for (const char16_t first : {u'@', u'`', u'{', u'0', u'9', u'\u00E9'}) {
    EXPECT_EQ(refusalOfName(Text{first}),
              u"Syntax error in criteria at character 1: a field name expected");
  }
}

TEST(CriteriaScanner, AKeywordIsNotANameButMayBeginOne) {
  EXPECT_EQ(refusalOfName(u" and"),
            u"Syntax error in criteria at character 2: a field name expected");
  EXPECT_EQ(CriteriaScanner(u"Android").name(), u"Android");
  EXPECT_EQ(CriteriaScanner(u"AND1").name(), u"AND1");
  EXPECT_EQ(CriteriaScanner(u"AND_").name(), u"AND_");
}

TEST(CriteriaScanner, ANameInBracketsIsWhatStandsBetween) {
  CriteriaScanner scanner(u" [a 'b] =");
  EXPECT_EQ(scanner.name(), u"a 'b");
  EXPECT_TRUE(scanner.take(u'='));
  EXPECT_TRUE(scanner.atEnd());
  EXPECT_EQ(refusalOfName(u" [a"), u"Syntax error in criteria at character 2: ] expected");
}

TEST(CriteriaScanner, AWordIsTakenInAnyCaseWhereItEnds) {
  for (const TextView text : {u"true", u"TRUE", u"True=", u"True'", u" \tTrue "}) {
    EXPECT_TRUE(CriteriaScanner(text).takeWord(u"True")) << toUtf8(text);
  }
  for (const TextView text : {u"Tru", u"Trues", u"True1", u"True_", u"True$", u""}) {
    EXPECT_FALSE(CriteriaScanner(text).takeWord(u"True")) << toUtf8(text);
  }
  CriteriaScanner scanner(u"chr$39");
  EXPECT_TRUE(scanner.takeWord(u"Chr$"));
  EXPECT_EQ(scanner.takeNumber(), 39);
}

TEST(CriteriaScanner, ATakeThatFindsNothingTakesNothing) {
  CriteriaScanner scanner(u"-x");
  EXPECT_FALSE(scanner.takeNumber());
  EXPECT_FALSE(scanner.takeQuoted());
  EXPECT_FALSE(scanner.take(u'x'));
  EXPECT_FALSE(scanner.takeWord(u"x"));
  EXPECT_TRUE(scanner.take(u'-'));
  EXPECT_FALSE(scanner.atEnd());
  EXPECT_TRUE(scanner.takeWord(u"x"));
  EXPECT_TRUE(scanner.atEnd());
  EXPECT_FALSE(scanner.take(u'\0'));
}

TEST(CriteriaScanner, ANumberMayHaveASignAndNotTooManyDigits) {
  const auto number = [](TextView text) { return CriteriaScanner(text).takeNumber(); };
  EXPECT_EQ(number(u"0"), 0);
  EXPECT_EQ(number(u" 9"), 9);
  EXPECT_EQ(number(u"+10"), 10);
  EXPECT_EQ(number(u"- 19"), -19);
  EXPECT_EQ(number(u"1/"), 1);
  EXPECT_EQ(number(u"1:"), 1);
  EXPECT_EQ(number(u"9223372036854775799"), 9223372036854775799);
  EXPECT_EQ(refusal(u"9223372036854775800", [](CriteriaScanner& all) { all.takeNumber(); }),
            u"Syntax error in criteria at character 19: a smaller number expected");
}

TEST(CriteriaScanner, QuotesEndAtTheNextQuoteAndHoldNeitherBarsNorSemicolons) {
  CriteriaScanner scanner(u" 'a b''c'");
  EXPECT_EQ(scanner.takeQuoted(), u"a b");
  EXPECT_EQ(scanner.takeQuoted(), u"c");
  EXPECT_TRUE(scanner.atEnd());
  EXPECT_EQ(CriteriaScanner(u"''").takeQuoted(), u"");
  const auto quoted = [](CriteriaScanner& all) { all.takeQuoted(); };
  EXPECT_EQ(refusal(u" 'ab", quoted),
            u"Syntax error in criteria at character 2: a closing quote expected");
  EXPECT_EQ(refusal(u" 'a;b'", quoted),
            u"Syntax error in criteria at character 4: Chr$ for this character expected");
  EXPECT_EQ(refusal(u"'|'", quoted),
            u"Syntax error in criteria at character 2: Chr$ for this character expected");
}

TEST(CriteriaScanner, ARefusalRepeatsTheWholeText) {
  try {
    CriteriaScanner(u"[a").name();
    ADD_FAILURE() << "no Error was raised";
  } catch (const Error& error) {
    EXPECT_EQ(error.source(), u"TilloraHost.JetDatabase");
    EXPECT_EQ(error.description(),
              u"Syntax error in criteria at character 1: ] expected (criteria: [a).");
  }
}

}  // namespace
}  // namespace tillora::host
