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

TEST(RunAtWindowsStartup, TellsNamesApartByTheirLetterCase) {
  FakeRegistry registry;
  registry.values = {{u"SHOP", u"x"}};
  EXPECT_FALSE(IsRunAtStartup(registry, u"Shop"));
  SetRunAtStartup(registry, u"Shop", u"C:\\Shop.exe", true);
  EXPECT_EQ(registry.values, (Values{{u"SHOP", u"x"}}));
  SetRunAtStartup(registry, u"Shop", u"C:\\Shop.exe", false);
  EXPECT_EQ(registry.values, (Values{{u"Shop", u"\"C:\\Shop.exe\""}}));
}

TEST(RunAtWindowsStartup, IsQuietWhereTheRegistryFails) {
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
