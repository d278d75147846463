#include "base/whole_numbers.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/testing/number_locales.h"

namespace tillora {
namespace {

using testing::kAustralia;

constexpr auto kLargest = std::numeric_limits<std::int64_t>::max();
constexpr auto kSmallest = std::numeric_limits<std::int64_t>::min();

TEST(KeepDigitKey, LetsDigitsBackspaceAndCommandsPass) {
  for (const char16_t key : {u'0', u'5', u'9', kBackspaceCharacter, char16_t{1}, char16_t{3},
                             char16_t{0x16}, u'\r', char16_t{27}}) {
    char16_t kept = key;
    keepDigitKey(kept);
    EXPECT_EQ(kept, key) << static_cast<int>(key);
  }
}

TEST(KeepDigitKey, DiscardsAnyOtherCharacter) {
  for (const char16_t key :
       {u'a', u' ', u'-', u'.', u',', u'/', u':', u'$', u'\u0661', u'\u00b2', char16_t{0x7F}}) {
    char16_t kept = key;
    keepDigitKey(kept);
    EXPECT_EQ(kept, 0) << static_cast<int>(key);
  }
}

TEST(ToWholeNumber, ReadsWhatIsNumeric) {
  const std::vector<std::pair<Text, std::int64_t>> numbers = {
      {u"0", 0},   {u"007", 7},      {u" 12 ", 12},
      {u"-5", -5}, {u"(3)", -3},     {u"1e3", 1000},
      {u"$7", 7},  {u"1,234", 1234}, {u"999999999999", 999999999999}};
  for (const auto& [text, number] : numbers) {
    EXPECT_EQ(toWholeNumber(text, kAustralia), number) << toUtf8(text);
  }
}

TEST(ToWholeNumber, RoundsHalfwayToTheEvenNumber) {
  const std::vector<std::pair<Text, std::int64_t>> numbers = {
      {u"0.5", 0}, {u"0.51", 1}, {u"1.5", 2}, {u"2.5", 2}, {u"-0.5", 0}, {u"-1.5", -2}};
  for (const auto& [text, number] : numbers) {
    EXPECT_EQ(toWholeNumber(text, kAustralia), number) << toUtf8(text);
  }
}

TEST(ToWholeNumber, LimitsToSixtyFourBits) {
  EXPECT_EQ(toWholeNumber(u"9223372036854775808", kAustralia), kLargest);
  EXPECT_EQ(toWholeNumber(u"-9223372036854775808", kAustralia), kSmallest);
  EXPECT_EQ(toWholeNumber(u"1e300", kAustralia), kLargest);
  EXPECT_EQ(toWholeNumber(u"-1e300", kAustralia), kSmallest);
}

TEST(ToWholeNumber, RefusesAnyOtherText) {
  for (const Text text : {u"", u" ", u"abc", u"1a", u"&H10", u"1e999", u"-", u"1 2"}) {
    EXPECT_EQ(toWholeNumber(text, kAustralia), std::nullopt) << toUtf8(text);
  }
}

TEST(LimitedTo, StopsAtTheLimitsOfTheType) {
  EXPECT_EQ(limitedTo<std::int16_t>(32767), 32767);
  EXPECT_EQ(limitedTo<std::int16_t>(32768), 32767);
  EXPECT_EQ(limitedTo<std::int16_t>(-32768), -32768);
  EXPECT_EQ(limitedTo<std::int16_t>(-32769), -32768);
  EXPECT_EQ(limitedTo<std::int32_t>(kLargest), 2147483647);
  EXPECT_EQ(limitedTo<std::int32_t>(kSmallest), -2147483648LL);
}

}  // namespace
}  // namespace tillora
