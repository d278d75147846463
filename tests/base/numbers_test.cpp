#include "base/numbers.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>
#include <vector>

#include "tests/testing/number_locales.h"

namespace tillora {
namespace {

using testing::kAustralia;
using testing::kGermany;

TEST(ToNumber, ReadsDigitsSignsAndDecimals) {
  EXPECT_EQ(toNumber(u"0", kAustralia), 0);
  EXPECT_EQ(toNumber(u"007", kAustralia), 7);
  EXPECT_EQ(toNumber(u"12.50", kAustralia), 12.5);
  EXPECT_EQ(toNumber(u".5", kAustralia), 0.5);
  EXPECT_EQ(toNumber(u"5.", kAustralia), 5);
  EXPECT_EQ(toNumber(u"-5", kAustralia), -5);
  EXPECT_EQ(toNumber(u"+5", kAustralia), 5);
  EXPECT_EQ(toNumber(u"5-", kAustralia), -5);
  EXPECT_EQ(toNumber(u"- 5", kAustralia), -5);
}

TEST(ToNumber, ReadsBlanksParenthesesCurrencyAndThousands) {
  EXPECT_EQ(toNumber(u"  12\t", kAustralia), 12);
  EXPECT_EQ(toNumber(u"(5)", kAustralia), -5);
  EXPECT_EQ(toNumber(u"$5", kAustralia), 5);
  EXPECT_EQ(toNumber(u"-$5.25", kAustralia), -5.25);
  EXPECT_EQ(toNumber(u"1,234,567", kAustralia), 1234567);
}

TEST(ToNumber, NoBreakSpacesAndOtherBlanksOfUnicodeAreBlanks) {
  for (const char16_t blank :
       {u'\t', u'\n', u'\v', u'\f', u'\r', u' ', u'\u0085', u'\u00a0', u'\u1680', u'\u2000',
        u'\u2007', u'\u200a', u'\u2028', u'\u2029', u'\u202f', u'\u205f', u'\u3000'}) {
    const Text b(2, blank);
    EXPECT_TRUE(isNumberBlank(blank)) << static_cast<int>(blank);
    EXPECT_EQ(toNumber(b + u"-" + b + u"1.5" + b, kAustralia), -1.5) << static_cast<int>(blank);
    EXPECT_EQ(toNumber(u"$" + b + u"5", kAustralia), 5) << static_cast<int>(blank);
    EXPECT_EQ(toNumber(u"5" + b + u"7", kAustralia), std::nullopt) << static_cast<int>(blank);
    EXPECT_EQ(toNumber(b, kAustralia), std::nullopt) << static_cast<int>(blank);
    EXPECT_EQ(withoutNumberBlanks(b + u"1 %" + b), u"1 %");
    EXPECT_EQ(withoutNumberBlanks(b), u"");
  }
  for (const char16_t other : {u'\0', u'\b', u'\u001c', u'\u001f', u'\u180e', u'\u200b', u'\u200c',
                               u'\u2060', u'\ufeff'}) {
    EXPECT_FALSE(isNumberBlank(other)) << static_cast<int>(other);
    EXPECT_EQ(toNumber(other + Text(u"5"), kAustralia), std::nullopt) << static_cast<int>(other);
  }
}

TEST(ToNumber, ABlankSeparatesThousandsIfANoBreakSpaceDoes) {
  const NumberLocale france{u",", u"\u00a0", u"\u20ac"};
  EXPECT_EQ(toNumber(u"1\u00a0234\u00a0567,5 \u20ac", france), 1234567.5);
  EXPECT_EQ(toNumber(u"1 234 567,5", france), 1234567.5);
  EXPECT_EQ(toNumber(u" 1 234 ", france), 1234);
  EXPECT_EQ(toNumber(u"1\t234", france), std::nullopt);
  EXPECT_EQ(toNumber(u"1\u202f234", france), std::nullopt);
  EXPECT_EQ(toNumber(u"1,5 5", france), std::nullopt);
}

TEST(ToNumber, ReadsExponents) {
  EXPECT_EQ(toNumber(u"1e3", kAustralia), 1000);
  EXPECT_EQ(toNumber(u"25E-2", kAustralia), 0.25);
  EXPECT_EQ(toNumber(u"1e+2", kAustralia), 100);
}

TEST(ToNumber, FollowsTheRegionalSettings) {
  EXPECT_EQ(toNumber(u"1.234,5", kGermany), 1234.5);
  EXPECT_EQ(toNumber(u"5 \u20ac", kGermany), 5);
  EXPECT_EQ(toNumber(u"$5", kGermany), std::nullopt);
}

TEST(ToNumber, RefusesAnyOtherText) {
  for (const Text text :
       {u"",    u" ",  u".",  u"-",   u"abc", u"1a",     u"1 2",  u"1..2",  u"--1",
        u"-1-", u"(5", u"5)", u"$",   u"$$5", u"&H1F",   u"&O17", u"0x1F",  u"1e",
        u"1e+", u"e5", u"1%", u"NaN", u"inf", u"\u0661", u",5",   u"1e999", u"-1e999"}) {
    EXPECT_EQ(toNumber(text, kAustralia), std::nullopt) << toUtf8(text);
  }
}

TEST(ToNumber, ACurrencyAmountHasNoExponent) {
  EXPECT_EQ(toNumber(u"$1e3", kAustralia), std::nullopt);
}

TEST(ToNumber, ANumberTooSmallToTellFromZeroIsZero) {
  EXPECT_EQ(toNumber(u"5e-999", kAustralia), 0);
  EXPECT_EQ(toNumber(u"123456.5e-999", kAustralia), 0);
  EXPECT_EQ(toNumber(u"0e999", kAustralia), 0);
}

TEST(ToScientific, RoundsToSignificantDigits) {
  const auto expect = [](double magnitude, int significant, const char* digits, int exponent) {
    const Scientific number = toScientific(magnitude, significant);
    EXPECT_EQ(number.digits, digits) << magnitude;
    EXPECT_EQ(number.exponent, exponent) << magnitude;
  };
  expect(0, 3, "000", 0);
  expect(1234.5, 5, "12345", 3);
  expect(0.00125, 15, "125000000000000", -3);
  expect(9.996, 3, "100", 1);
  expect(5e-324, 1, "5", -324);
  expect(1.7976931348623157e308, 17, "17976931348623157", 308);
}

TEST(ToDecimal, KeepsTheNumberAsItWasWritten) {
  const auto number = toDecimal(u"-0012.50e3", kAustralia);
  ASSERT_TRUE(number);
  EXPECT_TRUE(number->negative);
  EXPECT_EQ(number->digits, "001250");
  EXPECT_EQ(number->exponent, 1);
  EXPECT_FALSE(number->isZero());
  EXPECT_TRUE(toDecimal(u"0.00", kAustralia)->isZero());
  EXPECT_FALSE(toDecimal(u"abc", kAustralia));
}

TEST(RoundHalfEven, GoesToTheEvenNeighbour) {
  const std::vector<std::pair<double, double>> values = {
      {0.5, 0},  {1.5, 2},    {2.5, 2}, {-0.5, 0}, {-1.5, -2},     {-2.5, -2},      {2.4999, 2},
      {2.51, 3}, {-2.51, -3}, {3, 3},   {-3, -3},  {1e300, 1e300}, {254.99999, 255}};
  for (const auto& [value, rounded] : values) EXPECT_EQ(roundHalfEven(value), rounded) << value;
}

TEST(ToDouble, IsTheNumberAsItWasWritten) {
  EXPECT_EQ(toDouble({false, "0255", -2}), 2.55);
  EXPECT_EQ(toDouble({true, "5", 3}), -5000);
  EXPECT_EQ(toDouble({false, "1", 400}), std::nullopt);
  EXPECT_EQ(toDouble({false, "1", -400}), 0);
}

TEST(ToFixedPoint, CountsADecimalPlaceExactly) {
  EXPECT_EQ(toFixedPoint({false, "1015", -3}, 3), 1015);
  EXPECT_EQ(toFixedPoint({false, "1015", -3}, 5), 101500);
  EXPECT_EQ(toFixedPoint({true, "0250", -1}, 0), -25);
  EXPECT_EQ(toFixedPoint({false, "12", 2}, 2), 120000);
  EXPECT_EQ(toFixedPoint({false, "000", 999}, 2), 0);
  EXPECT_EQ(toFixedPoint({false, "9", -400}, 2), 0);
}

TEST(ToFixedPoint, RoundsHalfwayToTheEvenCount) {
  EXPECT_EQ(toFixedPoint({false, "1005", -3}, 2), 100);
  EXPECT_EQ(toFixedPoint({false, "1015", -3}, 2), 102);
  EXPECT_EQ(toFixedPoint({true, "1015", -3}, 2), -102);
  EXPECT_EQ(toFixedPoint({false, "2195", -3}, 2), 220);
  EXPECT_EQ(toFixedPoint({false, "5", -3}, 2), 0);
  EXPECT_EQ(toFixedPoint({false, "10149999999999999999999", -22}, 2), 101);
  EXPECT_EQ(toFixedPoint({false, "10250000000000000000001", -22}, 2), 103);
}

TEST(ToFixedPoint, HoldsTheRangeOf64Bits) {
  EXPECT_EQ(toFixedPoint({true, "9223372036854775807", 0}, 0), -9223372036854775807);
  EXPECT_EQ(toFixedPoint({false, "9223372036854775808", 0}, 0), std::nullopt);
  EXPECT_EQ(toFixedPoint({false, "92233720368547758075", -1}, 0), std::nullopt);
  EXPECT_EQ(toFixedPoint({true, "1", 999}, 2), std::nullopt);
}

TEST(AsWritten, ReadsAsTheSingleDoes) {
  const auto written = [](float value) { return toDouble(asWritten(value)); };
  EXPECT_EQ(written(2.55F), 2.55);
  EXPECT_EQ(written(-99.99F), -99.99);
  EXPECT_EQ(written(0.0F), 0);
  EXPECT_EQ(written(1e30F), 1e30);
  EXPECT_EQ(written(-0.1F), -0.1);
  EXPECT_EQ(written(16777217.0F), 16777216);
  EXPECT_EQ(written(1.1754944e-38F), 1.1754944e-38);
  EXPECT_EQ(written(std::numeric_limits<float>::max()), 3.4028235e38);
  EXPECT_EQ(written(std::numeric_limits<float>::denorm_min()), 1e-45);
}

TEST(IsDigit, IsOneOfTheTenDigits) {
  for (char16_t c = 0; c < 0x300; ++c) EXPECT_EQ(isDigit(c), c >= u'0' && c <= u'9');
  EXPECT_FALSE(isDigit(u'\u0661'));
}

TEST(IsCommandCharacter, IsAControlCharacterOtherThanBackspace) {
  for (char16_t c = 0; c < 0x20; ++c) EXPECT_EQ(isCommandCharacter(c), c != 8);
  EXPECT_FALSE(isCommandCharacter(0x7F));
  EXPECT_FALSE(isCommandCharacter(u' '));
}

TEST(DecimalText, WritesWholeNumbers) {
  EXPECT_EQ(decimalText(0), u"0");
  EXPECT_EQ(decimalText(15), u"15");
  EXPECT_EQ(decimalText(-1), u"-1");
  EXPECT_EQ(decimalText(std::numeric_limits<std::int64_t>::min()), u"-9223372036854775808");
}

}  // namespace
}  // namespace tillora
