#include "ui/win32/list_order.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace tillora::testing {
namespace {

using ui::win32::listOrder;

std::string platformKey(TextView text, const wchar_t* locale) {
  if (text.empty()) return {};
  constexpr DWORD kSortKey = LCMAP_SORTKEY | NORM_IGNORECASE;
  const auto* const source = reinterpret_cast<const wchar_t*>(text.data());
  const auto length = static_cast<int>(text.size());
  std::string key(static_cast<std::size_t>(LCMapStringEx(locale, kSortKey, source, length, nullptr,
                                                         0, nullptr, nullptr, 0)),
                  '\0');
  LCMapStringEx(locale, kSortKey, source, length, reinterpret_cast<wchar_t*>(key.data()),
                static_cast<int>(key.size()), nullptr, nullptr, 0);
  return key;
}

std::vector<Text> inOrder(const std::vector<Text>& texts) {
  const std::vector<TextView> views(texts.begin(), texts.end());
  std::vector<Text> ordered;
  for (const std::size_t i : listOrder(views, LOCALE_NAME_USER_DEFAULT)) {
    ordered.push_back(texts[i]);
  }
  return ordered;
}

Text randomText(std::mt19937& random, TextView letters) {
  std::uniform_int_distribution<std::size_t> length(0, 12);
  std::uniform_int_distribution<std::size_t> letter(0, letters.size() - 1);
  Text text(length(random), u' ');
  for (char16_t& c : text) c = letters[letter(random)];
  return text;
}

TEST(ListOrderTest, IsThatOfThePlatformsKeysInEveryLocale) {
  Text ascii;
  for (char16_t c = 0; c < 128; ++c) ascii += c;
  const Text mixed = ascii + u"\u00E4\u00D8\u0107\u01C6\u4E2D\u0301\uFDFA\u3042\u30A2";
  // Letters that sort as one in one of the locales, with what stands between them at times.
  const Text together = u"cChHdDzZsSlLjJaAnNgGtTyYuUwWiI-'";
  const Text few = u"aA-'b";  // many ties
  std::mt19937 random(20261121);
  for (const wchar_t* locale :
       {static_cast<const wchar_t*>(LOCALE_NAME_USER_DEFAULT), L"en-AU", L"cs-CZ", L"da-DK",
        L"es-ES_tradnl", L"hr-HR", L"hu-HU", L"cy-GB", L"vi-VN", L"tr-TR", L"th-TH", L"ja-JP"}) {
    for (const Text& letters : {ascii, mixed, together, few}) {
      std::vector<Text> texts;
      for (int i = 0; i < 1500; ++i) texts.push_back(u"Item " + randomText(random, letters));
      for (int i = 0; i < 500; ++i) texts.push_back(randomText(random, letters));
      std::vector<std::string> keys;
      for (const Text& text : texts) keys.push_back(platformKey(text, locale));
      std::vector<std::size_t> expected(texts.size());
      for (std::size_t i = 0; i < expected.size(); ++i) expected[i] = i;
      std::ranges::stable_sort(expected, {}, [&](std::size_t i) { return keys[i]; });
      ASSERT_EQ(listOrder(std::vector<TextView>(texts.begin(), texts.end()), locale), expected);
    }
  }
}

TEST(ListOrderTest, CaseDoesNotCountAndEqualTextsKeepTheirOrder) {
  EXPECT_EQ(
      inOrder({u"pear", u"Apple", u"APPLE", u"apple", u"\u00E4pple", u"applf", u""}),
      (std::vector<Text>{u"", u"Apple", u"APPLE", u"apple", u"\u00E4pple", u"applf", u"pear"}));
}

TEST(ListOrderTest, HyphensAndApostrophesCountLast) {
  EXPECT_EQ(inOrder({u"coot", u"co-op", u"coop", u"con", u"we're", u"were", u"wet"}),
            (std::vector<Text>{u"con", u"coop", u"co-op", u"coot", u"were", u"we're", u"wet"}));
}

TEST(ListOrderTest, OfManyTextsThatBeginAlikeTheRestDecides) {
  const Text alike(300, u'x');
  EXPECT_EQ(inOrder({alike + u"b", alike, alike + u"a", alike + u"B"}),
            (std::vector<Text>{alike, alike + u"a", alike + u"b", alike + u"B"}));
}

TEST(ListOrderTest, AKeyMayBeMuchLongerThanItsText) {
  const Text longest(20000, u'\uFDFA');  // a ligature that sorts as eighteen letters
  EXPECT_EQ(inOrder({longest, longest.substr(1)}), (std::vector<Text>{longest.substr(1), longest}));
}

TEST(ListOrderTest, AnEmptyListIsInOrder) { EXPECT_TRUE(inOrder({}).empty()); }

}  // namespace
}  // namespace tillora::testing
