#include <gtest/gtest.h>

#include <windows.h>

#include <oleauto.h>

#include <cmath>

#include "com/variant.h"
#include "platform/help_viewer.h"
#include "platform/system_clock.h"
#include "platform/user_locale.h"

namespace tillora::win32 {
namespace {

TEST(SystemClockTest, SaysLocalTimeToTheSecond) {
  SYSTEMTIME local;
  GetLocalTime(&local);
  double expected = 0;
  SystemTimeToVariantTime(&local, &expected);
  const double said = SystemClock().now().days;
  constexpr double kSecond = 1.0 / 86400;
  EXPECT_NEAR(said, expected, 3 * kSecond);
  EXPECT_NEAR(std::round(said / kSecond), said / kSecond, 1e-3);
}

TEST(HelpViewerTest, TheCommandNamesTopicAndFile) {
  const Text line = helpCommandLine(u"C:\\Tillora Shop\\Tillora Administrator.chm", 53);
  EXPECT_EQ(line, u"\"" + helpViewerPath() +
                      u"\" -mapid 53 \"C:\\Tillora Shop\\Tillora Administrator.chm\"");
  EXPECT_EQ(helpViewerPath().substr(1, 2), u":\\");
}

TEST(HelpViewerTest, AMissingFileOpensNothing) {
  HelpViewer viewer;
  const DWORD before = GetTickCount();
  EXPECT_NO_THROW(viewer.show(u"C:\\no\\such\\file.chm", 53));
  EXPECT_NO_THROW(viewer.show(u"", 0));
  EXPECT_NO_THROW(viewer.show(u"C:\\windows", 0)) << "a folder is not a help file";
  EXPECT_LT(GetTickCount() - before, 2000U);
}

TEST(UserLocaleTest, HasTheSeparatorsThatThePlatformConvertsWith) {
  const NumberLocale locale = userNumberLocale();
  const Text text = u"1" + locale.decimalSeparator + u"5";
  Variant number;
  Variant source{text};
  ASSERT_EQ(VariantChangeTypeEx(number.out(), source.address(), LOCALE_USER_DEFAULT, 0, VT_R8),
            S_OK);
  EXPECT_EQ(number.get().dblVal, 1.5);
  EXPECT_FALSE(locale.thousandsSeparator.empty());
  EXPECT_FALSE(locale.currencySymbol.empty());
}

TEST(VariantTest, MovesWithoutCopyingAndFreesOnce) {
  Variant text{u"moved"};
  const BSTR string = text.get().bstrVal;
  Variant other(std::move(text));
  EXPECT_EQ(other.get().bstrVal, string);
  EXPECT_EQ(text.type(), VT_EMPTY);  // NOLINT(bugprone-use-after-move): what it leaves behind
  other = Variant(std::int32_t{5});
  EXPECT_EQ(other.get().lVal, 5);
}

TEST(BstrTest, KeepsNulsAndEmptyText) {
  const Text withNul(u"a\0b", 3);
  EXPECT_EQ(Bstr(withNul).text(), withNul);
  EXPECT_EQ(Bstr(u"").text(), u"");
  EXPECT_NE(Bstr(u"").get(), nullptr);
  EXPECT_EQ(Bstr::textOf(nullptr), u"");
}

}  // namespace
}  // namespace tillora::win32
