#include "base/money.h"

#include <gtest/gtest.h>

#include "tests/testing/number_locales.h"

namespace tillora {
namespace {

using testing::kAustralia;
using testing::kGermany;

std::int64_t amount(TextView text) {
  return toMoney(text, kAustralia).value_or(Money{-1}).tenThousandths;
}

TEST(ToMoney, ReadsAmountsToFourDecimals) {
  EXPECT_EQ(amount(u"0"), 0);
  EXPECT_EQ(amount(u"1"), 10'000);
  EXPECT_EQ(amount(u"0.05"), 500);
  EXPECT_EQ(amount(u"$0.05"), 500);
  EXPECT_EQ(amount(u"-$1,234.5"), -12'345'000);
  EXPECT_EQ(amount(u"(2)"), -20'000);
  EXPECT_EQ(amount(u".0001"), 1);
  EXPECT_EQ(amount(u"0010"), 100'000);
  EXPECT_EQ(amount(u"1e2"), 1'000'000);
  EXPECT_EQ(amount(u"12e-1"), 12'000);
  EXPECT_EQ(toMoney(u"1.234,5 \u20ac", kGermany), Money{12'345'000});
}

TEST(ToMoney, RoundsFurtherDecimalsHalfwayToTheEvenOne) {
  EXPECT_EQ(amount(u"0.00004"), 0);
  EXPECT_EQ(amount(u"0.00005"), 0);
  EXPECT_EQ(amount(u"0.000050001"), 1);
  EXPECT_EQ(amount(u"0.00006"), 1);
  EXPECT_EQ(amount(u"0.00015"), 2);
  EXPECT_EQ(amount(u"0.00025"), 2);
  EXPECT_EQ(amount(u"0.00035"), 4);
  EXPECT_EQ(amount(u"-0.00015"), -2);
  EXPECT_EQ(amount(u"0.99995"), 10'000);
  EXPECT_EQ(amount(u"0.000001"), 0);
  EXPECT_EQ(amount(u"1e-999"), 0);
}

TEST(ToMoney, ReadsTheWholeRangeExactly) {
  EXPECT_EQ(amount(u"922337203685477.5807"), 9'223'372'036'854'775'807);
  EXPECT_EQ(amount(u"-922337203685477.5807"), -9'223'372'036'854'775'807);
  EXPECT_EQ(amount(u"922337203685477.58074"), 9'223'372'036'854'775'807);
  EXPECT_EQ(amount(u"0e999"), 0);
}

TEST(ToMoney, RefusesAnyOtherText) {
  for (const Text text : {u"", u"abc", u"1.2.3", u"&H10", u"5%", u"922337203685477.5808",
                          u"922337203685477.58075", u"1e15", u"1e99999999999999999999"}) {
    EXPECT_EQ(toMoney(text, kAustralia), std::nullopt) << toUtf8(text);
  }
}

TEST(FormatMoney, WritesAnAmountByItsFormat) {
  EXPECT_EQ(formatMoney(Money{500}, u"$#,##0.00", kAustralia), u"$0.05");
  EXPECT_EQ(formatMoney(Money{-12'345'000}, u"$#,##0.00", kAustralia), u"-$1,234.50");
  EXPECT_EQ(formatMoney(Money{1}, u"0.0000", kAustralia), u"0.0001");
  EXPECT_EQ(formatMoney(Money{100'000'000}, u"#,##0", kAustralia), u"10,000");
  EXPECT_EQ(formatMoney(Money{500}, u"0.00 \u20ac", kGermany), u"0,05 \u20ac");
}

}  // namespace
}  // namespace tillora
