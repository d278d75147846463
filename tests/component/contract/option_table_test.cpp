#include "component/contract/option_table.h"

#include <gtest/gtest.h>

namespace tillora {
namespace {

template <OptionType type>
void expectZero() {
  EXPECT_EQ(zeroOf(type), Value(typename OptionTraits<type>::Type{}));
}

TEST(OptionTableTest, TheZeroOfATypeIsOneOfItsOwnValues) {
  expectZero<OptionType::Text>();
  expectZero<OptionType::Long>();
  expectZero<OptionType::Integer>();
  expectZero<OptionType::Byte>();
  expectZero<OptionType::Single>();
  expectZero<OptionType::Currency>();
  expectZero<OptionType::Boolean>();
}

}  // namespace
}  // namespace tillora
