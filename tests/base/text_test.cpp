#include "base/text.h"

#include <gtest/gtest.h>

namespace tillora {
namespace {

TEST(ToUtf8, WritesTheFirstAndLastCharacterOfEachLength) {
  EXPECT_EQ(toUtf8(Text(1, u'\0')), std::string(1, '\0'));
  EXPECT_EQ(toUtf8(u"\u007F"), "\x7F");
  EXPECT_EQ(toUtf8(u"\u0080"), "\xC2\x80");
  EXPECT_EQ(toUtf8(u"\u07FF"), "\xDF\xBF");
  EXPECT_EQ(toUtf8(u"\u0800"), "\xE0\xA0\x80");
  EXPECT_EQ(toUtf8(u"\uD7FF"), "\xED\x9F\xBF");
  EXPECT_EQ(toUtf8(u"\uE000"), "\xEE\x80\x80");
  EXPECT_EQ(toUtf8(u"\uFFFF"), "\xEF\xBF\xBF");
  EXPECT_EQ(toUtf8(u"\U00010000"), "\xF0\x90\x80\x80");
  EXPECT_EQ(toUtf8(u"\U0010FFFF"), "\xF4\x8F\xBF\xBF");
}

TEST(ToUtf8, WritesEveryBitOfACharacter) {
  EXPECT_EQ(toUtf8(u"\u0555"), "\xD5\x95");
  EXPECT_EQ(toUtf8(u"\u02AA"), "\xCA\xAA");
  EXPECT_EQ(toUtf8(u"\u5555"), "\xE5\x95\x95");
  EXPECT_EQ(toUtf8(u"\u2AAA"), "\xE2\xAA\xAA");
  EXPECT_EQ(toUtf8(u"\U00055555"), "\xF1\x95\x95\x95");
  EXPECT_EQ(toUtf8(u"\U000AAAAA"), "\xF2\xAA\xAA\xAA");
}

TEST(ToUtf8, HalfAPairIsReplaced) {
  const std::string replaced = "\xEF\xBF\xBD";
  for (const char16_t half : {u'\xD800', u'\xDBFF', u'\xDC00', u'\xDFFF'}) {
    EXPECT_EQ(toUtf8(Text{half}), replaced);
    EXPECT_EQ(toUtf8(Text{half, u'a'}), replaced + "a");
    EXPECT_EQ(toUtf8(Text{half, u'\xE000'}), replaced + "\xEE\x80\x80");
  }
  EXPECT_EQ(toUtf8(Text{u'\xDC00', u'\xD800'}), replaced + replaced);
  EXPECT_EQ(toUtf8(Text{u'\xDBFF', u'\xDBFF', u'\xDFFF'}), replaced + "\xF4\x8F\xBF\xBF");
}

TEST(NulsAsBlanks, ReplacesNothingElse) {
  EXPECT_EQ(nulsAsBlanks(Text(u"a\0b\0\x01", 5)), u"a b \x01");
}

}  // namespace
}  // namespace tillora
