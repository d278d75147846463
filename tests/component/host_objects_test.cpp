#include "component/host_objects.h"

#include <gtest/gtest.h>

#include "tests/testing/fake_host.h"

namespace tillora::testing {
namespace {

class TableFields : public ::testing::Test {
 protected:
  /// A table whose current row holds the value in the field Name.
  std::unique_ptr<Table> holding(Value value) {
    host.currencies = {{{u"Name", std::move(value)}}};
    return objects.database->currencyTable();
  }
  static constexpr Field kField = fields::currency::Name;

  FakeHost host;
  HostObjects objects = host.objects();
};

TEST_F(TableFields, AWholeNumberIsReadHoweverWideItIs) {
  EXPECT_EQ(holding(std::int32_t{-70000})->integer(kField), -70000);
  EXPECT_EQ(holding(std::int16_t{-12})->integer(kField), -12);
  EXPECT_EQ(holding(std::uint8_t{200})->integer(kField), 200);
}

TEST_F(TableFields, WhatIsNoWholeNumberIsZero) {
  EXPECT_EQ(holding(Value())->integer(kField), 0);
  EXPECT_EQ(holding(Text(u"5"))->integer(kField), 0);
  EXPECT_EQ(holding(5.0F)->integer(kField), 0);
}

TEST_F(TableFields, ANumberOtherThanZeroIsTrue) {
  EXPECT_TRUE(holding(true)->boolean(kField));
  EXPECT_FALSE(holding(false)->boolean(kField));
  EXPECT_TRUE(holding(std::int16_t{-1})->boolean(kField));
  EXPECT_TRUE(holding(std::int32_t{256})->boolean(kField));
  EXPECT_FALSE(holding(std::int32_t{0})->boolean(kField));
  EXPECT_FALSE(holding(Text(u"True"))->boolean(kField));
  EXPECT_FALSE(holding(Value())->boolean(kField));
}

TEST_F(TableFields, OnlyATextIsReadAsText) {
  EXPECT_EQ(holding(Text(u"a"))->text(kField), u"a");
  EXPECT_EQ(holding(std::int32_t{5})->text(kField), u"");
  EXPECT_EQ(holding(Value())->text(kField), u"");
}

}  // namespace
}  // namespace tillora::testing
