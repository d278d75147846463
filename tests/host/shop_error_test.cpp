#include "host/shop_error.h"

#include <gtest/gtest.h>

namespace tillora::host {
namespace {

/// As a program in Basic sees it.
constexpr std::int32_t basicNumber(std::int32_t number) { return number & 0xFFFF; }

TEST(ShopError, HasTheNumbersThatBasicKnows) {
  EXPECT_EQ(basicNumber(shop_error::outOfMemory), 7);
  EXPECT_EQ(basicNumber(shop_error::diskFull), 61);
  EXPECT_EQ(basicNumber(shop_error::stringNotFound), 326);
  EXPECT_EQ(basicNumber(shop_error::noEditInProgress), 3020);
  EXPECT_EQ(basicNumber(shop_error::noCurrentRow), 3021);
  EXPECT_EQ(basicNumber(shop_error::storage), 3043);
  EXPECT_EQ(basicNumber(shop_error::damaged), 3049);
  EXPECT_EQ(basicNumber(shop_error::cannotOpen), 3051);
  EXPECT_EQ(basicNumber(shop_error::criteriaSyntax), 3077);
  EXPECT_EQ(basicNumber(shop_error::rowDeleted), 3167);
  EXPECT_EQ(basicNumber(shop_error::saveLost), 3246);
  EXPECT_EQ(basicNumber(shop_error::locked), 3260);
  EXPECT_EQ(basicNumber(shop_error::unknownField), 3265);
  EXPECT_EQ(basicNumber(shop_error::wrongVersion), 3343);
  EXPECT_EQ(basicNumber(shop_error::shopClosed), 3420);
  EXPECT_EQ(basicNumber(shop_error::criteriaType), 3464);
}

}  // namespace
}  // namespace tillora::host
