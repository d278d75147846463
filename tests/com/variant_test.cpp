#include "com/variant.h"

#include <gtest/gtest.h>

namespace tillora::win32 {
namespace {

TEST(VariantTest, EveryValueComesBackAsItWas) {
  const Value values[] = {{},
                          true,
                          std::uint8_t{255},
                          std::int16_t{-2},
                          std::int32_t{-70000},
                          2.5F,
                          Money{-123456},
                          Text(u"Fuel"),
                          Text()};
  for (const Value& value : values) {
    const Variant variant = toVariant(value);
    EXPECT_EQ(variant.type(), variantType(value));
    EXPECT_EQ(toValue(variant.get()), value) << "type " << variant.type();
  }
}

TEST(VariantTest, AVariantOfAnotherTypeHoldsNoValue) {
  EXPECT_EQ(toValue(Variant(1.5).get()), Value());
  EXPECT_EQ(toValue(Variant(DateTime{45000}).get()), Value());
  EXPECT_EQ(toValue(Variant(static_cast<IDispatch*>(nullptr)).get()), Value());
}

}  // namespace
}  // namespace tillora::win32
