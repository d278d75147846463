#include "support/check_box_bits.h"

#include <gtest/gtest.h>

#include "tests/testing/fake_host.h"
#include "tests/testing/headless_desk.h"

namespace tillora::testing {
namespace {

class CheckBoxBits : public ::testing::Test {
 protected:
  CheckBoxBits() {
    for (const int index : {31, 0, 5}) form.take(boxes.add(index));
  }

  HeadlessDesk desk;
  ui::Form form{desk.screen(), u"Bits"};
  ui::ControlArray<ui::CheckBox> boxes;
};

TEST_F(CheckBoxBits, EachBoxShowsTheBitOfItsIndex) {
  showBits(boxes, 0x20);
  EXPECT_FALSE(boxes[0].value());
  EXPECT_TRUE(boxes[5].value());
  EXPECT_FALSE(boxes[31].value());
  showBits(boxes, static_cast<std::int32_t>(0x80000001U));
  EXPECT_TRUE(boxes[0].value());
  EXPECT_FALSE(boxes[5].value());
  EXPECT_TRUE(boxes[31].value());
}

TEST_F(CheckBoxBits, TickedBoxesGiveTheirBitsByIndex) {
  EXPECT_TRUE(tickedBits(boxes).empty());
  showBits(boxes, -1);
  EXPECT_EQ(tickedBits(boxes),
            (std::vector<std::int32_t>{1, 0x20, static_cast<std::int32_t>(0x80000000U)}));
}

TEST_F(CheckBoxBits, AMaskIsWrittenAsZeroFirstAndThenBitByBit) {
  FakeHost host;
  host.store(options::PumpOptionBits, 0x700);
  const auto record = host.objects().database->optionsRecord();
  host.calls.clear();
  EXPECT_EQ(saveBits(*record, options::PumpOptionBits, {0x1, 0x20, 0x21}), 0x21);
  const std::string get = "get PumpOptionBits";
  const std::string put = "put PumpOptionBits";
  EXPECT_EQ(host.calls, (std::vector<std::string>{put, get, put, get, put, get, put}));
  record->commit();
  EXPECT_EQ(host.value(options::PumpOptionBits), 0x21);
  EXPECT_EQ(saveBits(*record, options::PumpOptionBits, {}), 0);
  record->commit();
  EXPECT_EQ(host.value(options::PumpOptionBits), 0);
}

}  // namespace
}  // namespace tillora::testing
