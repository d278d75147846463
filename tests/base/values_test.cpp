#include "base/values.h"

#include <gtest/gtest.h>

#include <new>
#include <vector>

#include "tests/testing/memory/failing_memory.h"

namespace tillora {
namespace {

using testing::FailingMemory;

const Text kLongText(100, u'x');

TEST(ValueTest, HoldsOneOfItsTypesOrNothing) {
  EXPECT_TRUE(Value().isNone());
  EXPECT_EQ(*Value(true).as<bool>(), true);
  EXPECT_EQ(*Value(std::uint8_t{255}).as<std::uint8_t>(), 255);
  EXPECT_EQ(*Value(std::int16_t{-2}).as<std::int16_t>(), -2);
  EXPECT_EQ(*Value(std::int32_t{-70000}).as<std::int32_t>(), -70000);
  EXPECT_EQ(*Value(2.5F).as<float>(), 2.5F);
  EXPECT_EQ(*Value(Money{-123456}).as<Money>(), Money{-123456});
  EXPECT_EQ(*Value(Text(u"Fuel")).as<Text>(), u"Fuel");
}

TEST(ValueTest, AnotherTypeThanTheOneHeldIsNotThere) {
  const Value number(std::int32_t{7});
  EXPECT_TRUE(number.is<std::int32_t>());
  EXPECT_FALSE(number.is<std::int16_t>());
  EXPECT_EQ(number.as<Text>(), nullptr);
  EXPECT_THROW(number.get<bool>(), std::bad_variant_access);
  EXPECT_FALSE(Value().is<Text>());
}

TEST(ValueTest, AnEmptyTextIsAValue) {
  EXPECT_FALSE(Value(Text()).isNone());
  EXPECT_NE(Value(Text()), Value());
}

TEST(ValueTest, ValuesOfDifferentTypesDiffer) {
  EXPECT_NE(Value(std::int32_t{1}), Value(std::int16_t{1}));
  EXPECT_NE(Value(std::int32_t{0}), Value(false));
  EXPECT_EQ(Value(u"a"), Value(Text(u"a")));
}

TEST(ValueTest, AVisitorGetsTheValueItself) {
  struct Name {
    const char* operator()(std::uint8_t) const { return "byte"; }
    const char* operator()(std::int16_t) const { return "integer"; }
    const char* operator()(std::monostate) const { return "none"; }
    const char* operator()(const Text&) const { return "text"; }
    const char* operator()(std::int32_t) const { return "number"; }
    const char* operator()(bool) const { return "truth"; }
    const char* operator()(Money) const { return "amount"; }
    const char* operator()(float) const { return "single"; }
  };
  EXPECT_STREQ(Value().visit(Name{}), "none");
  EXPECT_STREQ(Value(Text()).visit(Name{}), "text");
  EXPECT_STREQ(Value(std::int32_t{0}).visit(Name{}), "number");
}

TEST(ValueTest, ACopyForWhichThereIsNoMemoryIsNotMade) {
  const Value text(kLongText);
  {
    const FailingMemory memory(0);
    EXPECT_THROW(static_cast<void>(Value(text)), std::bad_alloc);
  }
  const std::vector<Value> row = {std::int32_t{1}, kLongText, kLongText};
  for (long allocation = 0; allocation < 3; ++allocation) {
    const FailingMemory memory(allocation);
    EXPECT_THROW(static_cast<void>(std::vector<Value>(row)), std::bad_alloc);
  }
}

TEST(ValueTest, AnAssignmentForWhichThereIsNoMemoryChangesNothing) {
  const Value text(kLongText);
  Value number(std::int32_t{7});
  Value other(u"short");
  {
    const FailingMemory memory(0, FailingMemory::Mode::fromThenOn);
    EXPECT_THROW(number = text, std::bad_alloc);
    EXPECT_THROW(other = text, std::bad_alloc);
  }
  EXPECT_EQ(number, Value(std::int32_t{7}));
  EXPECT_EQ(other, Value(u"short"));
}

}  // namespace
}  // namespace tillora
