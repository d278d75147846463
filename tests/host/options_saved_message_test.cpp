#include "host/options_saved_message.h"

#include <gtest/gtest.h>

namespace tillora::host {
namespace {

TEST(OptionsSavedMessageTest, CarriesTheTimeExactly) {
  for (const double days : {0.0, 1.5, 45678.987654321, -657434.0, 2958465.999988426}) {
    EXPECT_EQ(OptionsSavedMessage::of({days}).when().days, days);
  }
}

}  // namespace
}  // namespace tillora::host
