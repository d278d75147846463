#include "support/number_format.h"

#include <gtest/gtest.h>

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
  EXPECT_EQ(format(-0.001, u"0.00"), u"0.00");
}

TEST(FormatNumber, GroupsThousands) {
  EXPECT_EQ(format(1234567.891, u"#,##0.00"), u"1,234,567.89");
  EXPECT_EQ(format(999, u"#,##0"), u"999");
  EXPECT_EQ(format(1000, u"#,##0"), u"1,000");
}

TEST(FormatNumber, ShowsLiteralsAsTheyAre) {
  EXPECT_EQ(format(5, u"#0.00\\%"), u"5.00%");
  EXPECT_EQ(format(5, u"0\" kg; net\""), u"5 kg; net");
  EXPECT_EQ(format(5, u"$0"), u"$5");
  EXPECT_EQ(format(5, u"Fixed"), u"Fixed");
}

TEST(FormatNumber, APercentSignMultiplies) { EXPECT_EQ(format(0.125, u"0.0%"), u"12.5%"); }

TEST(FormatNumber, ChoosesTheSectionOfTheSign) {
  EXPECT_EQ(format(5, u"0;(0);zero"), u"5");
  EXPECT_EQ(format(-5, u"0;(0);zero"), u"(5)");
  EXPECT_EQ(format(0, u"0;(0);zero"), u"zero");
  EXPECT_EQ(format(-5, u"0;;zero"), u"-5");
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
