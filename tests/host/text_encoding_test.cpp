#include "host/text_encoding.h"

#include <gtest/gtest.h>

#include <string>

namespace tillora::host {
namespace {

constexpr char16_t kReplacement = 0xFFFD;

TEST(FromUtf8, ReadsTheFirstAndLastCharacterOfEachLength) {
  EXPECT_EQ(fromUtf8(std::string(1, '\0')), Text(1, u'\0'));
  EXPECT_EQ(fromUtf8("\x7F"), u"\u007F");
  EXPECT_EQ(fromUtf8("\xC2\x80"), u"\u0080");
  EXPECT_EQ(fromUtf8("\xDF\xBF"), u"\u07FF");
  EXPECT_EQ(fromUtf8("\xE0\xA0\x80"), u"\u0800");
  EXPECT_EQ(fromUtf8("\xEF\xBF\xBF"), u"\uFFFF");
  EXPECT_EQ(fromUtf8("\xF0\x90\x80\x80"), u"\U00010000");
  EXPECT_EQ(fromUtf8("\xF4\x8F\xBF\xBF"), u"\U0010FFFF");
  EXPECT_EQ(fromUtf8("\xED\x9F\xBF"), u"\uD7FF");
  EXPECT_EQ(fromUtf8("\xEE\x80\x80"), u"\uE000");
}

TEST(FromUtf8, ReadsCharactersOneAfterTheOther) {
  EXPECT_EQ(fromUtf8("a\xC3\xB8\xE2\x82\xAC\xF0\x9F\x9B\x92z"), u"a\u00F8\u20AC\U0001F6D2z");
}

TEST(FromUtf8, EachByteThatBelongsToNoCharacterIsReplaced) {
  const auto replaced = [](std::size_t count) { return Text(count, kReplacement); };
  // Not the beginning of a character.
  EXPECT_EQ(fromUtf8("\x80"), replaced(1));
  EXPECT_EQ(fromUtf8("\xF5\x80\x80\x80"), replaced(4));
  // Longer than needed.
  EXPECT_EQ(fromUtf8("\xC1\xBF"), replaced(2));
  EXPECT_EQ(fromUtf8("\xE0\x9F\xBF"), replaced(3));
  EXPECT_EQ(fromUtf8("\xF0\x8F\xBF\xBF"), replaced(4));
  // Halves of pairs, and what lies beyond Unicode.
  EXPECT_EQ(fromUtf8("\xED\xA0\x80"), replaced(3));
  EXPECT_EQ(fromUtf8("\xED\xBF\xBF"), replaced(3));
  EXPECT_EQ(fromUtf8("\xF4\x90\x80\x80"), replaced(4));
}

TEST(FromUtf8, ACharacterThatBreaksOffIsReplacedAndTheNextOneRead) {
  for (const std::string begun : {"\xC3", "\xE2", "\xE2\x82", "\xF0", "\xF0\x9F", "\xF0\x9F\x9B"}) {
    const Text replaced(begun.size(), kReplacement);
    EXPECT_EQ(fromUtf8(begun), replaced) << begun.size();
    EXPECT_EQ(fromUtf8(begun + "a"), replaced + u"a") << begun.size();
    EXPECT_EQ(fromUtf8(begun + "\xC3\xB8"), replaced + u"\u00F8") << begun.size();
  }
}

TEST(SameName, OnlyTheCaseOfAToZDoesNotMatter) {
  EXPECT_TRUE(sameName(u"GradeNumber", u"gRADEnUMBER"));
  EXPECT_TRUE(sameName(u"az", u"AZ"));
  EXPECT_FALSE(sameName(u"`", u"@"));
  EXPECT_FALSE(sameName(u"{", u"["));
  EXPECT_FALSE(sameName(u"\u00E9", u"\u00C9"));
  EXPECT_FALSE(sameName(u"ab", u"a"));
}

}  // namespace
}  // namespace tillora::host
