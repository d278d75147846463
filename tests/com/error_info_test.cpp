#include "com/error_info.h"

#include <gtest/gtest.h>
#include <oleauto.h>

#include "base/error.h"
#include "com/bstr.h"
#include "com/com_ptr.h"
#include "tests/testing/memory/failing_memory.h"

namespace tillora::win32 {
namespace {

using testing::FailingMemory;

const Error kFailure(error::overflow, u"Shop.Database, the one of the front shop",
                     u"There is no room left for the day's sales.", u"C:\\Tillora\\shop.chm", 77);

/// The description of the thread's error object, which is taken away; "none" if there is none.
Text takeDescription() {
  ComPtr<IErrorInfo> info;
  if (GetErrorInfo(0, info.out()) != S_OK) return u"none";
  Bstr description;
  info->GetDescription(description.out());
  return description.text();
}

HRESULT fail() {
  return guarded(IID_NULL, u"Own.Source", [] { throw kFailure; });
}

TEST(ErrorInfoTest, AFailureIsReportedWithItsTexts) {
  EXPECT_EQ(fail(), kFailure.number());
  EXPECT_EQ(takeDescription(), kFailure.description());
}

TEST(ErrorInfoTest, MemoryThatRunsOutWhileAFailureIsReportedIsReportedInItsPlace) {
  for (const auto mode : {FailingMemory::Mode::once, FailingMemory::Mode::fromThenOn}) {
    long number = 0;
    for (bool failed = true; failed; ++number) {
      fail();  // leaves an error object behind
      HRESULT result = S_OK;
      {
        const FailingMemory memory(number, mode);
        result = fail();
        failed = memory.hasFailed();
      }
      EXPECT_EQ(result, failed ? E_OUTOFMEMORY : kFailure.number()) << number;
      EXPECT_EQ(takeDescription(), failed ? Text(u"none") : kFailure.description()) << number;
    }
    EXPECT_GT(number, 5);
  }
}

TEST(ErrorInfoTest, AFailureWithoutMemoryLeavesNoTextOfAnEarlierOne) {
  fail();
  EXPECT_EQ(guarded(IID_NULL, u"Own.Source", [] { throw std::bad_alloc(); }), E_OUTOFMEMORY);
  EXPECT_EQ(takeDescription(), u"none");
}

}  // namespace
}  // namespace tillora::win32
