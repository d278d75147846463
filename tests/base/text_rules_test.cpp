#include "base/text_rules.h"

#include <gtest/gtest.h>

namespace tillora {
namespace {

TEST(TrimBlanks, RemovesBlanksAtBothEndsOnly) {
  EXPECT_EQ(trimBlanks(u"  a b  "), u"a b");
  EXPECT_EQ(trimBlanks(u"ab"), u"ab");
  EXPECT_EQ(trimBlanks(u"   "), u"");
  EXPECT_EQ(trimBlanks(u""), u"");
}

TEST(TrimBlanks, LeavesOtherWhiteSpace) {
  EXPECT_EQ(trimBlanks(u"\ta\r\n"), u"\ta\r\n");
  EXPECT_EQ(trimBlanks(u"\u00a0a\u3000"), u"\u00a0a\u3000");
}

TEST(BeforeLastBlank, IsTheTitleWithoutItsLastWord) {
  EXPECT_EQ(beforeLastBlank(u"Tillora Administrator"), u"Tillora");
  EXPECT_EQ(beforeLastBlank(u"Tillora Back Office"), u"Tillora Back");
  EXPECT_EQ(beforeLastBlank(u"Tillora"), u"");
  EXPECT_EQ(beforeLastBlank(u""), u"");
  EXPECT_EQ(beforeLastBlank(u"Tillora "), u"Tillora");
}

}  // namespace
}  // namespace tillora
