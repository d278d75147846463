#include "base/number_format.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "tests/testing/number_locales.h"

namespace tillora {
namespace {

using testing::kAustralia;
using testing::kGermany;

Text format(double value, TextView format) { return formatNumber(value, format, kAustralia); }

TEST(FormatNumber, WritesDigitsAndDecimals) {
  EXPECT_EQ(format(5, u"#0.00"), u"5.00");
  EXPECT_EQ(format(0, u"#0.00"), u"0.00");
  EXPECT_EQ(format(0.5, u"#0.00"), u"0.50");
  EXPECT_EQ(format(0.5, u"#.00"), u".50");
  EXPECT_EQ(format(1234.5, u"#0.00"), u"1234.50");
  EXPECT_EQ(format(7, u"00"), u"07");
  EXPECT_EQ(format(123, u"00"), u"123");
  EXPECT_EQ(format(7, u"000000"), u"000007");
}

TEST(FormatNumber, LeavesOutOptionalDigits) {
  EXPECT_EQ(format(1.5, u"0.##"), u"1.5");
  EXPECT_EQ(format(1, u"0.##"), u"1.");
  EXPECT_EQ(format(1.256, u"0.0#"), u"1.26");
  EXPECT_EQ(format(0, u"#"), u"");
}

TEST(FormatNumber, RoundsHalfAwayFromZero) {
  EXPECT_EQ(format(2.345, u"0.00"), u"2.35");
  EXPECT_EQ(format(-2.345, u"0.00"), u"-2.35");
  EXPECT_EQ(format(0.005, u"0.00"), u"0.01");
  EXPECT_EQ(format(9.995, u"0.00"), u"10.00");
  EXPECT_EQ(format(99.5, u"0"), u"100");
  EXPECT_EQ(format(0.4999, u"0"), u"0");
}

TEST(FormatNumber, WritesTheSignBeforeTheWholeText) {
  EXPECT_EQ(format(-5, u"$#,##0.00"), u"-$5.00");
  EXPECT_EQ(format(-5, u"kr\\. 0"), u"-kr. 5");
}

TEST(FormatNumber, WritesNoSignWhenNoDigitButZeroIsShown) {
  EXPECT_EQ(format(-0.001, u"0.00"), u"0.00");
  EXPECT_EQ(format(-0.4, u"#"), u"");
  EXPECT_EQ(format(-0.0, u"0.0"), u"0.0");
  EXPECT_EQ(format(-5, u"none"), u"none");
  EXPECT_EQ(format(-0.006, u"0.00"), u"-0.01");
}

TEST(FormatNumber, GroupsThousands) {
  EXPECT_EQ(format(1234567.891, u"#,##0.00"), u"1,234,567.89");
  EXPECT_EQ(format(999, u"#,##0"), u"999");
  EXPECT_EQ(format(1000, u"#,##0"), u"1,000");
  EXPECT_EQ(format(1234567, u"0,"), u"1,234,567");
  EXPECT_EQ(format(1234567, u"0.0,0"), u"1,234,567.00");
  EXPECT_EQ(format(7, u"0,000,000"), u"0,000,007");
}

TEST(FormatNumber, ShowsACommaThatNoDigitPrecedes) {
  EXPECT_EQ(format(1234, u",0"), u",1234");
  EXPECT_EQ(format(1234, u",#,##0"), u",1,234");
  EXPECT_EQ(formatNumber(1234, u",0", kGermany), u",1234");
}

TEST(FormatNumber, OnlyTheFirstPointIsTheDecimalSeparator) {
  EXPECT_EQ(format(1234.5, u"#,##0.00 kr."), u"1,234.50 kr.");
  EXPECT_EQ(formatNumber(1234.5, u"#,##0.00 kr.", kGermany), u"1.234,50 kr.");
  EXPECT_EQ(format(-0.05, u"0.00 kr."), u"-0.05 kr.");
  EXPECT_EQ(format(12.34, u"0.0.0"), u"12.3.4");
  EXPECT_EQ(formatNumber(12.34, u"0.0.0", kGermany), u"12,3.4");
  EXPECT_EQ(format(5, u"0.."), u"5..");
  EXPECT_EQ(format(5, u"0\\.0.0"), u"0.5.0");
}

TEST(FormatNumber, AllWholeDigitsStandBeforeAPointWithoutPlaceholders) {
  EXPECT_EQ(format(0.5, u".00"), u".50");
  EXPECT_EQ(format(0, u".00"), u".00");
  EXPECT_EQ(format(1234.5, u".00"), u"1234.50");
  EXPECT_EQ(format(-12, u"$.##"), u"-$12.");
}

TEST(FormatNumber, APlaceholderBehindAZeroShowsOneToo) {
  EXPECT_EQ(format(5, u"0#"), u"05");
  EXPECT_EQ(format(0, u"0#"), u"00");
  EXPECT_EQ(format(5, u"#0#"), u"05");
  EXPECT_EQ(format(5, u"#0"), u"5");
  EXPECT_EQ(format(123, u"0#"), u"123");
  EXPECT_EQ(format(1.5, u"0.#0"), u"1.50");
}

TEST(FormatNumber, ShowsLiteralsAsTheyAre) {
  EXPECT_EQ(format(5, u"#0.00\\%"), u"5.00%");
  EXPECT_EQ(format(5, u"0\" kg; net\""), u"5 kg; net");
  EXPECT_EQ(format(5, u"$0"), u"$5");
  EXPECT_EQ(format(5, u"Fixed price"), u"Fixed price");
  EXPECT_EQ(format(5, u"0-0"), u"0-5");
  EXPECT_EQ(format(5, u"0\u00a0\u20ac"), u"5\u00a0\u20ac");
}

TEST(FormatNumber, ABackslashInQuotesIsACharacter) {
  EXPECT_EQ(format(5, u"\"a\\b\" 0"), u"a\\b 5");
  EXPECT_EQ(format(5, u"\"a\\\"0"), u"a\\5");
  EXPECT_EQ(format(5, u"0\\"), u"5");
  EXPECT_EQ(format(5, u"0\" open"), u"5 open");
}

TEST(FormatNumber, PercentSignsMultiplyOnce) {
  EXPECT_EQ(format(0.125, u"0.0%"), u"12.5%");
  EXPECT_EQ(format(0.125, u"0%%"), u"13%%");
  EXPECT_EQ(format(0.5, u"%0"), u"%50");
  EXPECT_EQ(format(1e15, u"0%"), u"100000000000000000%");
  const Text many(150, u'%');
  EXPECT_EQ(format(0.125, u"0" + many), u"13" + many);
  EXPECT_EQ(format(1.5, u"0" + Text(500, u'%')), u"150" + Text(500, u'%'));
}

TEST(FormatNumber, ChoosesTheSectionOfTheSign) {
  EXPECT_EQ(format(5, u"0;(0);zero"), u"5");
  EXPECT_EQ(format(-5, u"0;(0);zero"), u"(5)");
  EXPECT_EQ(format(0, u"0;(0);zero"), u"zero");
  EXPECT_EQ(format(-5, u"0;;zero"), u"-5");
  EXPECT_EQ(format(-5, u"0;-0;zero"), u"-5");
  EXPECT_EQ(format(-5, u"0;\";\"0"), u";5");
}

TEST(FormatNumber, AMissingOrEmptySectionIsReplacedByTheFirst) {
  EXPECT_EQ(format(0, u"0.0;(0)"), u"0.0");
  EXPECT_EQ(format(0, u"0.0;(0);"), u"0.0");
  EXPECT_EQ(format(-5, u"0.0;"), u"-5.0");
  EXPECT_EQ(format(5, u";0"), u"");
  EXPECT_EQ(format(-5, u";"), u"");
}

TEST(FormatNumber, ASectionOfEmptyQuotesShowsNothing) {
  EXPECT_EQ(format(-5, u"0;\"\";0"), u"");
  EXPECT_EQ(format(0, u"0;0;\"\""), u"");
}

TEST(FormatNumber, TheSectionOfZeroHasDecimalsOfItsOwn) {
  EXPECT_EQ(format(0, u"0;0.0;0.00"), u"0.00");
  EXPECT_EQ(format(0, u"0.000;0.0;0"), u"0");
  // The sign of the number chooses the section, even if the number rounds to zero.
  EXPECT_EQ(format(0.25, u"0;(0.0);0.00"), u"0");
  EXPECT_EQ(format(-0.25, u"0;(0);nil"), u"(0)");
}

TEST(FormatNumber, NamesStandForFormats) {
  EXPECT_EQ(format(1234.5, u"Standard"), u"1,234.50");
  EXPECT_EQ(format(-0.5, u"Standard"), u"-0.50");
  EXPECT_EQ(format(1234.5, u"Fixed"), u"1234.50");
  EXPECT_EQ(format(0.125, u"Percent"), u"12.50%");
  EXPECT_EQ(format(1234.5, u"Currency"), u"$1,234.50");
  EXPECT_EQ(formatNumber(1234.5, u"Standard", kGermany), u"1.234,50");
  EXPECT_EQ(formatNumber(1234.5, u"Currency", kGermany), u"\u20ac1.234,50");
}

TEST(FormatNumber, NamesAreCaseInsensitiveAndMatchedAsAWhole) {
  EXPECT_EQ(format(5, u"FIXED"), u"5.00");
  EXPECT_EQ(format(5, u"general number"), u"5");
  EXPECT_EQ(format(5, u"cURRENCY"), u"$5.00");
  EXPECT_EQ(format(5, u" Fixed"), u" Fixed");
  EXPECT_EQ(format(5, u"\"Fixed\" 0"), u"Fixed 5");
}

TEST(FormatNumber, CurrencyHasAFormatAndSeparatorsOfItsOwn) {
  NumberLocale geneva{u",", u"\u00a0", u"CHF"};
  geneva.currencyFormat = u"#,##0.00 CHF;(#,##0.00 CHF)";
  geneva.currencyDecimalSeparator = u".";
  geneva.currencyThousandsSeparator = u"'";
  EXPECT_EQ(formatNumber(1234.5, u"Currency", geneva), u"1'234.50 CHF");
  EXPECT_EQ(formatNumber(-1234.5, u"Currency", geneva), u"(1'234.50 CHF)");
  EXPECT_EQ(formatNumber(1234.5, u"Standard", geneva), u"1\u00a0234,50");
}

TEST(FormatNumber, GeneralNumberShowsAllDigits) {
  const std::vector<std::pair<double, Text>> numbers = {{0, u"0"},
                                                        {5, u"5"},
                                                        {-5, u"-5"},
                                                        {1000, u"1000"},
                                                        {0.05, u"0.05"},
                                                        {0.0001, u"0.0001"},
                                                        {-1234567.891, u"-1234567.891"},
                                                        {0.1 + 0.2, u"0.3"},
                                                        {1.0 / 3, u"0.333333333333333"},
                                                        {123456789012345, u"123456789012345"},
                                                        {1e14, u"100000000000000"},
                                                        {1e15, u"1E+15"},
                                                        {1234567890123456, u"1.23456789012346E+15"},
                                                        {0.00001, u"1E-05"},
                                                        {-1.5e-10, u"-1.5E-10"},
                                                        {1.5e300, u"1.5E+300"}};
  for (const auto& [number, text] : numbers) {
    EXPECT_EQ(format(number, u"General Number"), text);
    EXPECT_EQ(format(number, u""), text);
  }
  EXPECT_EQ(formatNumber(1234.5, u"General Number", kGermany), u"1234,5");
}

TEST(FormatNumber, AnEmptyOrMissingSectionFormatsLikeTheFirst) {
  EXPECT_EQ(format(0, u"0.0;(0)"), u"0.0");
  EXPECT_EQ(format(0, u"0.0;(0);"), u"0.0");
  EXPECT_EQ(format(-5, u"0.0;"), u"-5.0");
}

TEST(FormatNumber, LiteralsMayHoldFormatCharacters) {
  EXPECT_EQ(format(5, uR"(0\;0)"), u"0;5");
  EXPECT_EQ(format(5, uR"(\00)"), u"05");
  EXPECT_EQ(format(1234.5, uR"(0\.0.0)"), u"123.4.5");
  EXPECT_EQ(format(5, uR"(0\"\\)"), uR"(5"\)");
  EXPECT_EQ(format(5, uR"("\"0)"), uR"(\5)");
  EXPECT_EQ(format(5, uR"(0")"), u"5");
  EXPECT_EQ(format(5, uR"(0\)"), u"5");
}

TEST(FormatNumber, DigitsFillThePlaceholdersFromTheRight) {
  EXPECT_EQ(format(12, u"0-0-0"), u"0-1-2");
  EXPECT_EQ(format(12345, u"0-0-0"), u"123-4-5");
  EXPECT_EQ(format(12, u"#-#-#"), u"-1-2");
  EXPECT_EQ(format(7, u"#0#"), u"07");
  EXPECT_EQ(format(0.25, u"0.0-0"), u"0.2-5");
}

TEST(FormatNumber, TheWholePartStandsBeforeAPointWithoutPlaceholders) {
  EXPECT_EQ(format(12.5, u".0"), u"12.5");
}

TEST(FormatNumber, OnlyACommaBetweenWholeDigitsGroups) {
  EXPECT_EQ(format(12, u"0,000"), u"0,012");
  EXPECT_EQ(format(123456, u"#,##0"), u"123,456");
}

TEST(FormatNumber, RoundingMayAddADigit) {
  EXPECT_EQ(format(0.95, u"0.0"), u"1.0");
  EXPECT_EQ(format(0.95, u"#.#"), u"1.");
  EXPECT_EQ(format(999.96, u"#,##0.0"), u"1,000.0");
  EXPECT_EQ(format(0.5, u"0"), u"1");
  EXPECT_EQ(format(0.04, u"0.0"), u"0.0");
  EXPECT_EQ(format(0.06, u"0.0"), u"0.1");
}

TEST(FormatNumber, APercentSignAsALiteralDoesNotMultiply) {
  EXPECT_EQ(format(0.125, uR"(0.0\%)"), u"0.1%");
}

TEST(FormatNumber, FollowsTheRegionalSettings) {
  EXPECT_EQ(formatNumber(1234.5, u"#,##0.00", kGermany), u"1.234,50");
}

TEST(FormatNumber, HoldsLargeAndSmallNumbers) {
  EXPECT_EQ(format(1e20, u"0"), u"100000000000000000000");
  EXPECT_EQ(format(123456789012345.0, u"0.00"), u"123456789012345.00");
  EXPECT_EQ(format(1e-20, u"0.00"), u"0.00");
}

}  // namespace
}  // namespace tillora
