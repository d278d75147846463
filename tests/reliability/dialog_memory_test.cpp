// Memory runs out at every allocation of the dialog: the host gets the failure, nothing is half
// stored or left behind, and the next dialog works.
#include <gtest/gtest.h>

#include <new>
#include <optional>

#include "tests/reliability/memory_walk.h"
#include "tests/testing/options_test.h"
#include "tests/testing/whole_page.h"

namespace tillora::testing {
namespace {

/// A host with something on every tab, and a person who does not know what fails.
class Sitting : public OptionsTest {
 public:
  using Stored = std::map<OptionId, Value>;
  using Act = std::function<void(Sitting&)>;

  Sitting() { host.fillEveryTab(); }
  ~Sitting() override { TearDown(); }

  /// Runs the act with this failure. Whatever it does, the dialog can be used and saved afterwards.
  /// Returns the allocations.
  long run(const Act& act, long number, FailingMemory::Mode mode) {
    // The tests' own host has room for what it records.
    host.calls.reserve(4096);
    host.writes.reserve(4096);
    const Stored before = host.stored;
    const int live = host.live;
    bool failed = false;
    long allocations = 0;
    {
      const FailingMemory memory(number, mode);
      try {
        act(*this);
      } catch (const std::bad_alloc&) {
        failed = true;
      }
      allocations = memory.allocations();
    }
    desk->dropSteps();
    options_.SelectedTab = 0;
    options_.FirstUse = false;
    if (number == FailingMemory::kNever) {
      EXPECT_FALSE(failed);
    }
    if (!host.sent.empty()) {
      EXPECT_EQ(host.callsStarting("commit").size(), host.sent.size());
    } else if (host.callsStarting("commit").empty()) {
      EXPECT_EQ(host.stored, before);
    }
    EXPECT_EQ(host.live, live) << "objects of the host are still held";
    EXPECT_EQ(host.liveRecords, 0);
    EXPECT_EQ(desk->screen().pointer(), ui::Pointer::standard);
    savesAgain();
    return allocations;
  }

  /// Memory runs out only once the dialog is open.
  void openPage(TabPage page) {
    std::optional<FailingMemory::Pause> opening(std::in_place);
    openOn(page, [&](frmOptions& dialog) {
      opening.reset();
      dialogs_ = useEverything(*desk, dialog.fraFrame[static_cast<int>(page) - 1]);
      user.click(dialog.cmdCommand[frmOptions::ok]);
    });
  }

  int saves() const { return static_cast<int>(host.sent.size()); }
  /// The dialogs that were opened from the page.
  int dialogs() const { return dialogs_; }

  void firstUse() {
    options_.FirstUse = true;
    open([](frmOptions&) {});
  }

  void openAndClose() {
    open([](frmOptions&) {});
  }

  /// A list without columns cannot be saved.
  void refusedSave() {
    openOn(TabPage::lists, [&](frmOptions& dialog) {
      untickAll(dialog.tabs().listColumns.lstListShow[ListColumns::currency]);
      user.click(dialog.cmdCommand[frmOptions::apply]);
    });
  }

 private:
  int dialogs_ = 0;

  void TestBody() override {}

  void savesAgain() {
    host.sent.clear();
    changes.clear();
    boxes.answers.clear();
    edit([&](frmOptions&) {
      user.selectAll();
      user.type(u"After the failure");
    });
    EXPECT_EQ(host.value(options::CompanyName), u"After the failure");
    EXPECT_EQ(host.sent.size(), 1U);
    EXPECT_EQ(changes.size(), 1U);
  }
};

class FailingMemoryTest : public ::testing::Test {
 protected:
  void walk(const Sitting::Act& act) {
    const auto run = [&](long number, FailingMemory::Mode mode) {
      const long blocks = FailingMemory::blocks();
      long allocations = 0;
      {
        Sitting sitting;
        allocations = sitting.run(act, number, mode);
      }
      EXPECT_EQ(FailingMemory::blocks(), blocks) << "memory is still held";
      return allocations;
    };
    // Once for what is made only at its first use.
    Sitting().run(act, FailingMemory::kNever, FailingMemory::Mode::once);
    EXPECT_GE(walkAllocations(4, run), 6);
  }
};

TEST_F(FailingMemoryTest, WhileTheDialogOpens) {
  walk([](Sitting& sitting) { sitting.openAndClose(); });
}

TEST_F(FailingMemoryTest, DuringAFirstUse) {
  walk([](Sitting& sitting) { sitting.firstUse(); });
}

TEST_F(FailingMemoryTest, DuringASaveThatIsRefused) {
  walk([](Sitting& sitting) { sitting.refusedSave(); });
}

struct UsedPage {
  const char* name;
  TabPage page;
  int dialogs;  ///< that everything on it opens
};

class FailingMemoryOnTabTest : public FailingMemoryTest,
                               public ::testing::WithParamInterface<UsedPage> {};

TEST_P(FailingMemoryOnTabTest, WhileEverythingIsUsedAndSaved) {
  {
    Sitting sitting;
    sitting.openPage(GetParam().page);
    ASSERT_EQ(sitting.saves(), 1) << "the page could not be saved";
    EXPECT_EQ(sitting.dialogs(), GetParam().dialogs);
  }
  walk([page = GetParam().page](Sitting& sitting) { sitting.openPage(page); });
}

INSTANTIATE_TEST_SUITE_P(Tabs, FailingMemoryOnTabTest,
                         ::testing::Values(UsedPage{"General", TabPage::general, 0},
                                           UsedPage{"Lists", TabPage::lists, 0},
                                           UsedPage{"Transactions", TabPage::transactions, 0},
                                           UsedPage{"Rounding", TabPage::rounding, 1},
                                           UsedPage{"Currency", TabPage::currency, 0},
                                           UsedPage{"Scanning", TabPage::scanning, 1},
                                           UsedPage{"Layby", TabPage::layby, 0},
                                           UsedPage{"EOD", TabPage::eod, 2},
                                           UsedPage{"Pump", TabPage::pump, 2},
                                           UsedPage{"Web", TabPage::web, 2},
                                           UsedPage{"Security", TabPage::security, 11},
                                           UsedPage{"FRED", TabPage::fred, 0}),
                         [](const auto& tested) { return tested.param.name; });

}  // namespace
}  // namespace tillora::testing
