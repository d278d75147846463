#include "ui/masked_text.h"

#include <gtest/gtest.h>

namespace tillora::ui {
namespace {

Text after(Text shown, TextView before) {
  replacePlaceholders(shown, before);
  return shown;
}

TEST(MaskedText, ThereIsAPlaceholderForEachCharacter) {
  EXPECT_EQ(placeholders(0), u"");
  EXPECT_EQ(placeholders(3).size(), 3U);
  EXPECT_EQ(after(placeholders(3), u"abc"), u"abc");
}

TEST(MaskedText, PlaceholdersStandForTheirCharacterAnywhere) {
  const Text shown = placeholders(3);
  EXPECT_EQ(after(shown.substr(1), u"abc"), u"bc");
  EXPECT_EQ(after(shown.substr(0, 1) + shown.substr(2), u"abc"), u"ac");
  EXPECT_EQ(after(shown.substr(0, 1) + u"x" + shown.substr(1), u"abc"), u"axbc");
  EXPECT_EQ(after(u"xyz", u"abc"), u"xyz");
}

TEST(MaskedText, OtherCharactersStandForThemselves) {
  const Text shown = placeholders(4);
  EXPECT_EQ(after(shown, u"abc"), u"abc" + shown.substr(3));
  EXPECT_EQ(after(u"\uE000", u""), u"\uE000");
}

}  // namespace
}  // namespace tillora::ui
