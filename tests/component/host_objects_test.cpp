#include "component/host_objects.h"

#include <gtest/gtest.h>

#include "tests/testing/fake_host.h"

namespace tillora::testing {
namespace {

class TableFieldTest : public ::testing::Test {
 protected:
  /// A table of one row, whose field holds this.
  std::unique_ptr<Table> holding(Value value) {
    host_.grades = {{{field.name, std::move(value)}}};
    return host_.objects().database->gradeTable();
  }
  const Field field = fields::grade::GradeNumber;

 private:
  FakeHost host_;
};

TEST_F(TableFieldTest, AWholeNumberIsReadInAnySize) {
  EXPECT_EQ(holding(std::int32_t{-70000})->integer(field), -70000);
  EXPECT_EQ(holding(std::int16_t{-20})->integer(field), -20);
  EXPECT_EQ(holding(std::uint8_t{255})->integer(field), 255);
}

TEST_F(TableFieldTest, ABooleanMayBeANumber) {
  EXPECT_TRUE(holding(true)->boolean(field));
  EXPECT_FALSE(holding(false)->boolean(field));
  EXPECT_TRUE(holding(std::int16_t{-1})->boolean(field));
  EXPECT_TRUE(holding(std::int32_t{1})->boolean(field));
  EXPECT_FALSE(holding(std::int16_t{0})->boolean(field));
}

TEST_F(TableFieldTest, NoValueAndOneOfAnotherKindAreTheTypesZero) {
  for (const Value& value : {Value(), Value(1.5F), Value(Money{10000})}) {
    EXPECT_EQ(holding(value)->text(field), u"");
    EXPECT_EQ(holding(value)->integer(field), 0);
    EXPECT_FALSE(holding(value)->boolean(field));
  }
  EXPECT_EQ(holding(Text(u"20"))->integer(field), 0);
  EXPECT_EQ(holding(Text(u"20"))->text(field), u"20");
}

}  // namespace
}  // namespace tillora::testing
