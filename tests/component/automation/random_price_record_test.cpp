#include "component/automation/random_price_record.h"

#include <gtest/gtest.h>

#include "component/automation/dispatch_object.h"

namespace tillora::automation {
namespace {

using win32::ComPtr;

TEST(RandomPriceRecordTest, StartsEmptyAndKeepsItsFields) {
  const long before = win32::ModuleLock::count();
  {
    DispatchObject record(ComPtr<IDispatch>::adopt(new RandomPriceRecord), u"clsRandomPrice");
    EXPECT_FALSE(record.getBoolean(u"mbInactive"));
    EXPECT_EQ(record.getLong(u"mlFormatID"), 0);
    EXPECT_EQ(record.getText(u"msUOMUnitCaption"), u"");
    record.put(u"mbInactive", true);
    record.put(u"mlFormatID", std::int32_t{5});
    record.put(u"mlPrefix", u"20");
    record.put(u"mlOptionBits", std::int32_t{3});
    record.put(u"msUOMUnitCaption", u"kg");
    record.put(u"msUOMPriceUnitCaption", u"/kg");
    EXPECT_TRUE(record.getBoolean(u"mbInactive"));
    EXPECT_EQ(record.getLong(u"mlFormatID"), 5);
    EXPECT_EQ(record.getLong(u"mlPrefix"), 20);
    EXPECT_EQ(record.getLong(u"mlOptionBits"), 3);
    EXPECT_EQ(record.getText(u"msUOMUnitCaption"), u"kg");
    EXPECT_EQ(record.getText(u"msUOMPriceUnitCaption"), u"/kg");
    EXPECT_EQ(win32::ModuleLock::count(), before + 1);
  }
  EXPECT_EQ(win32::ModuleLock::count(), before);
}

TEST(RandomPriceRecordTest, RefusesWhatDoesNotFit) {
  DispatchObject record(ComPtr<IDispatch>::adopt(new RandomPriceRecord), u"clsRandomPrice");
  EXPECT_THROW(record.put(u"mlPrefix", 1e12), Error);
  EXPECT_THROW(record.put(u"mlPrefix", u"two"), Error);
  EXPECT_EQ(record.getLong(u"mlPrefix"), 0);
}

}  // namespace
}  // namespace tillora::automation
