#include "support/modRunAtWindowsStartup.h"

#include <gtest/gtest.h>

#include "tests/testing/fake_machine.h"

namespace tillora::testing {
namespace {

using Values = std::vector<std::pair<Text, Text>>;

TEST(RunAtWindowsStartup, WritesReplacesAndRemovesTheQuotedPath) {
  FakeRegistry registry;
  SetRunAtStartup(registry, u"Shop", u"C:\\A B\\Shop.exe", false);
  EXPECT_EQ(registry.values, (Values{{u"Shop", u"\"C:\\A B\\Shop.exe\""}}));
  EXPECT_TRUE(IsRunAtStartup(registry, u"Shop"));
  SetRunAtStartup(registry, u"Shop", u"D:\\Shop.exe", false);
  EXPECT_EQ(registry.values, (Values{{u"Shop", u"\"D:\\Shop.exe\""}}));
  SetRunAtStartup(registry, u"Shop", u"D:\\Shop.exe", true);
  EXPECT_TRUE(registry.values.empty());
  EXPECT_FALSE(IsRunAtStartup(registry, u"Shop"));
  SetRunAtStartup(registry, u"Shop", u"D:\\Shop.exe", true);
  EXPECT_TRUE(registry.values.empty());
}

TEST(RunAtWindowsStartup, DistinguishesNamesByTheirLetterCase) {
  FakeRegistry registry;
  registry.values = {{u"SHOP", u"x"}};
  EXPECT_FALSE(IsRunAtStartup(registry, u"Shop"));
  SetRunAtStartup(registry, u"Shop", u"C:\\Shop.exe", true);
  EXPECT_EQ(registry.values, (Values{{u"SHOP", u"x"}}));
  SetRunAtStartup(registry, u"Shop", u"C:\\Shop.exe", false);
  EXPECT_EQ(registry.values, (Values{{u"Shop", u"\"C:\\Shop.exe\""}}));
}

TEST(RunAtWindowsStartup, AReadOnlyKeyShowsWhatIsThere) {
  FakeRegistry registry;
  registry.values = {{u"Shop", u"x"}};
  registry.readOnly = true;
  EXPECT_TRUE(IsRunAtStartup(registry, u"Shop"));
  EXPECT_FALSE(IsRunAtStartup(registry, u"Other"));
  for (const bool remove : {false, true}) {
    EXPECT_NO_THROW(SetRunAtStartup(registry, u"Shop", u"C:\\Shop.exe", remove));
  }
  EXPECT_EQ(registry.values, (Values{{u"Shop", u"x"}}));
}

TEST(RunAtWindowsStartup, ReplacesANameThatDiffersInTheCaseOfAnyLetter) {
  FakeRegistry registry;
  registry.values = {{u"\u01AF\u01A0NG", u"x"}};
  EXPECT_FALSE(IsRunAtStartup(registry, u"\u01B0\u01A1ng"));
  SetRunAtStartup(registry, u"\u01B0\u01A1ng", u"C:\\a.exe", false);
  EXPECT_EQ(registry.values, (Values{{u"\u01B0\u01A1ng", u"\"C:\\a.exe\""}}));
}

TEST(RunAtWindowsStartup, AFailedWriteIsSilentThoughTheOtherNameIsGone) {
  FakeRegistry registry;
  registry.values = {{u"SHOP", u"x"}};
  registry.textsCannotBeWritten = true;
  EXPECT_NO_THROW(SetRunAtStartup(registry, u"Shop", u"C:\\Shop.exe", false));
  EXPECT_TRUE(registry.values.empty());
}

TEST(RunAtWindowsStartup, IgnoresFailuresOfTheRegistry) {
  FakeRegistry registry;
  registry.values = {{u"Shop", u"x"}};
  const auto setBothWays = [&] {
    for (const bool remove : {false, true}) {
      EXPECT_NO_THROW(SetRunAtStartup(registry, u"Shop", u"C:\\Shop.exe", remove));
    }
    EXPECT_EQ(registry.values, (Values{{u"Shop", u"x"}}));
  };
  registry.writesFail = true;
  setBothWays();
  EXPECT_TRUE(IsRunAtStartup(registry, u"Shop"));
  registry.readsFail = true;
  setBothWays();
  EXPECT_FALSE(IsRunAtStartup(registry, u"Shop"));
  registry = FakeRegistry();
  registry.values = {{u"Shop", u"x"}};
  registry.key.clear();
  setBothWays();
  EXPECT_FALSE(IsRunAtStartup(registry, u"Shop"));
}

}  // namespace
}  // namespace tillora::testing
