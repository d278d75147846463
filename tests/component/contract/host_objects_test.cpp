#include "component/contract/host_objects.h"

#include <gtest/gtest.h>

#include "tests/testing/fake_host.h"

namespace tillora::testing {
namespace {

class TableFieldTest : public ::testing::Test {
 protected:
  /// A table of one row, whose field holds this.
  std::unique_ptr<Table> holding(Field field, Value value) {
    host_.randomPrices = {{{field.name, std::move(value)}}};
    return host_.objects().database->randomPriceTable();
  }
  const Field number = fields::randomPrice::Prefix;
  const Field flag = fields::randomPrice::Inactive;
  const Field caption = fields::randomPrice::UOMUnitCaption;

 private:
  FakeHost host_;
};

TEST_F(TableFieldTest, AFieldIsReadAsItsType) {
  EXPECT_EQ(holding(number, std::int32_t{-70000})->integer(number), -70000);
  EXPECT_TRUE(holding(flag, true)->boolean(flag));
  EXPECT_FALSE(holding(flag, false)->boolean(flag));
  EXPECT_EQ(holding(caption, Text(u"20"))->text(caption), u"20");
}

TEST_F(TableFieldTest, NoValueIsTheTypesZero) {
  EXPECT_EQ(holding(number, Value())->integer(number), 0);
  EXPECT_FALSE(holding(flag, Value())->boolean(flag));
  EXPECT_EQ(holding(caption, Value())->text(caption), u"");
}

}  // namespace
}  // namespace tillora::testing
