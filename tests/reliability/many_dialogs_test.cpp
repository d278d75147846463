// Dialog after dialog, each with all of its pages seen: nothing of them is left.
#include <gtest/gtest.h>

#include <iostream>
#include <memory>
#include <vector>

#include "tests/testing/function_ref.h"
#include "tests/testing/long_run.h"
#include "tests/testing/memory/failing_memory.h"
#include "tests/testing/options_test.h"

namespace tillora::testing {
namespace {

class ManyDialogsTest : public OptionsTest {
 protected:
  ManyDialogsTest() {
    host.dispensingAvailable = true;
    host.classes = {{{u"Name", Text(u"Retail")}, {u"Hidden", false}}};
    host.webSites = {{{u"Description", Text(u"Our shop in this town")},
                      {u"URL", Text(u"https://shop.example")},
                      {u"Inactive", false}}};
    host.items = {{u"OTHC", u"2", u"Other", u"Rounding", u"Rounding", u"Sales"}};
  }

  struct Held {
    long blocks;  ///< of memory
    int objects;  ///< of the host
    friend bool operator==(const Held&, const Held&) = default;
  };
  /// What so many dialogs leave behind, each after `act`.
  Held heldAfter(int dialogs, const FunctionRef<void()>& act) {
    showOne([] {});  // what is made once is not counted
    const Held before{FailingMemory::blocks(), host.live};
    for (int i = 0; i < dialogs; ++i) showOne(act);
    return {FailingMemory::blocks() - before.blocks, host.live - before.objects};
  }

 private:
  void showOne(const FunctionRef<void()>& act) {
    edit([&](frmOptions& dialog) {
      const int pages = dialog.tabOptions.count();
      EXPECT_EQ(pages, 12);
      for (int page = pages; page > 0; --page) user.clickTab(dialog.tabOptions, page);
      user.click(dialog.tabs().companyDetails.txtCompanyDetails[0]);
      user.type(u"x");
      act();
    });
    EXPECT_EQ(host.liveRecords, 0);
    EXPECT_EQ(host.sent.size(), 1U);
    host.stored.clear();
    host.calls.clear();
    host.writes.clear();
    host.sent.clear();
    changes.clear();
  }
};

TEST_F(ManyDialogsTest, LeaveNoMemoryAndNoObjectOfTheHost) {
  const int dialogs = isLongRun() ? 10'000 : 40;
  EXPECT_EQ(heldAfter(dialogs, [] {}), (Held{0, 0}));
  if (isLongRun()) std::cout << dialogs << " dialogs\n";
}

TEST_F(ManyDialogsTest, WhatEachDialogLeavesIsSeen) {
  std::vector<std::unique_ptr<int>> blocks;
  std::vector<std::unique_ptr<Table>> tables;
  blocks.reserve(10);
  tables.reserve(10);
  EXPECT_EQ(heldAfter(5, [&] { blocks.push_back(std::make_unique<int>(0)); }), (Held{5, 0}));
  EXPECT_EQ(heldAfter(5, [&] { tables.push_back(options_.DBJetObject->classTable()); }).objects, 5);
}

}  // namespace
}  // namespace tillora::testing
