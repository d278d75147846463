#include "sales/list_columns.h"

#include <algorithm>
#include <functional>

#include "identity/company_details.h"
#include "sales/transactions.h"
#include "tests/testing/function_ref.h"
#include "tests/testing/options_test.h"

namespace tillora::testing {
namespace {

using ui::Key;

struct Row {
  Text name;
  std::uint32_t bits;
};

struct List {
  Text label;
  const Option<OptionType::Long>& option;
  std::int32_t change;
  std::uint32_t all;
  std::vector<Row> rows;
};

const std::vector<List> kLists = {
    {u"&Show in Sales Person List",
     options::SalesPersonListColumns,
     0x8,
     0x1F,
     {{u"ID", 0x8},
      {u"Initials", 0x1},
      {u"Name", 0x10},
      {u"Middle Initial", 0x2},
      {u"Mr/Mrs/Miss", 0x4}}},
    {u"Show in &Product List",
     options::ProductListColumns,
     0x2,
     0xFFFFFBF9,
     {{u"Number", 0x4000},
      {u"Barcode", 0x1},
      {u"Type", 0x2000},
      {u"Description", 0x8},
      {u"Include Tax in Prices", 0x800},
      {u"Price", 0x10},
      {u"Price 2", 0x20},
      {u"Price 3", 0x40},
      {u"Tax Code", 0x80},
      {u"Cost", 0x100},
      {u"Purchase Tax Code", 0x1000},
      {u"On Hand", 0x200},
      {u"Supplier", 0xFFFF8000}}},
    {u"Sho&w in Customer List",
     options::CustomerListColumns,
     0x4,
     0x1FFFFFE,
     {{u"Company Name", 0x2},
      {u"Name", 0x4},
      {u"Job", 0x1000000},
      {u"Middle Initial", 0x8},
      {u"Mr/Mrs/Miss", 0x10},
      {u"Contact", 0x20},
      {u"Alt. Contact", 0x40},
      {u"Billing Address", 0x80},
      {u"Shipping Address", 0x100},
      {u"Phone", 0x200},
      {u"Alt. Phone", 0x400},
      {u"Fax", 0x800},
      {u"E-mail", 0x1000},
      {u"Type", 0x2000},
      {u"Sales Person", 0x4000},
      {u"Terms", 0x8000},
      {u"Credit Limit", 0x10000},
      {u"Balance", 0x20000},
      {u"Credit Available", 0x40000},
      {u"Price Level", 0x80000},
      {u"Percentage", 0x100000},
      {u"ABN", 0x200000},
      {u"Barcode", 0x400000},
      {u"Notes", 0x800000}}},
    {u"Show in &Layby Customer List",
     options::LaybyCustomerListColumns,
     0x1,
     0xFFF,
     {{u"Middle Initial", 0x1},
      {u"Mr/Mrs/Miss", 0x2},
      {u"Number of Laybys", 0x4},
      {u"Address", 0x8},
      {u"Phone", 0x10},
      {u"Alt. Phone", 0x20},
      {u"Fax", 0x40},
      {u"E-mail", 0x80},
      {u"Amount", 0x100},
      {u"Payments", 0x200},
      {u"Balance", 0x400},
      {u"Notes", 0x800}}},
    {u"Show in C&urrency Conversion List",
     options::CurrencyListColumns,
     0x400,
     0xFE,
     {{u"Code", 0x2},
      {u"Type", 0x4},
      {u"Name", 0x8},
      {u"Base Rate", 0x10},
      {u"% Margin", 0x20},
      {u"Exchange Rate", 0x40},
      {u"Payment Item", 0x80}}},
};

const List& listOf(int index) { return kLists[static_cast<std::size_t>(index)]; }
std::int32_t mask(std::uint32_t bits) { return static_cast<std::int32_t>(bits); }

class ListColumnsTest : public OptionsTest {
 protected:
  ui::CheckListBox& list(frmOptions& dialog, int index) {
    return dialog.tabs().listColumns.lstListShow[index];
  }
  void openPage(const FunctionRef<void(frmOptions&)>& act) { openOn(TabPage::lists, act); }
  void editPage(const FunctionRef<void(frmOptions&)>& act) {
    openPage([&](frmOptions& dialog) {
      act(dialog);
      user.accessKey(u'o');
      EXPECT_FALSE(dialog.isShown());
    });
  }
  void apply(frmOptions& dialog) { user.click(dialog.cmdCommand[frmOptions::apply]); }

  /// Leaves exactly these rows ticked.
  void tickOnly(frmOptions& dialog, int index, const std::vector<int>& rows) {
    for (int row = 0; row < list(dialog, index).count(); ++row) {
      const bool wanted = std::ranges::find(rows, row) != rows.end();
      if (list(dialog, index).checked(row) != wanted) user.clickCheck(list(dialog, index), row);
    }
  }
  std::vector<Text> ticked(frmOptions& dialog, int index) {
    std::vector<Text> names;
    for (const auto& row : list(dialog, index).rows()) {
      if (row.checked) names.push_back(row.text);
    }
    return names;
  }
  void expectRefusal(const ShownMessage& message, const Text& name) {
    EXPECT_EQ(message.text, host.title + u" requires at least one column to be displayed in the " +
                                name +
                                u" list.\r\n\r\n"
                                u"Select at least one column before applying your changes.");
    EXPECT_EQ(message.title, u"Not enough columns");
    EXPECT_EQ(message.style, 48);
    EXPECT_EQ(message.secondaryText, u"");
    EXPECT_EQ(message.pointer, ui::Pointer::hourglass);
    EXPECT_TRUE(message.settingsGiven);
  }
};

TEST_F(ListColumnsTest, ListsHaveTheirRowsInOrderWithTheirBits) {
  openPage([&](frmOptions& dialog) {
    ASSERT_EQ(dialog.tabs().listColumns.lstListShow.count(), 5);
    int total = 0;
    for (int i = 0; i < ListColumns::count; ++i) {
      EXPECT_EQ(dialog.tabs().listColumns.lblLists[i].caption(), listOf(i).label);
      const auto& rows = list(dialog, i).rows();
      ASSERT_EQ(rows.size(), listOf(i).rows.size()) << i;
      for (std::size_t row = 0; row < rows.size(); ++row) {
        EXPECT_EQ(rows[row].text, listOf(i).rows[row].name);
        EXPECT_EQ(rows[row].itemData, mask(listOf(i).rows[row].bits)) << toUtf8(rows[row].text);
      }
      total += list(dialog, i).count();
    }
    EXPECT_EQ(total, 61);
  });
}

TEST_F(ListColumnsTest, EveryListStandsBelowItsLabelWithinThePage) {
  openPage([&](frmOptions& dialog) {
    const ui::Size page = dialog.fraFrame[1].clientSize();
    for (int i = 0; i < ListColumns::count; ++i) {
      const ui::Label& label = dialog.tabs().listColumns.lblLists[i];
      const ui::Rect& place = list(dialog, i).bounds();
      EXPECT_EQ(label.bounds().left, place.left);
      EXPECT_LT(label.bounds().bottom(), place.top);
      EXPECT_GE(label.bounds().width,
                desk->screen().textWidth(ui::withoutAccessKey(label.caption())));
      EXPECT_LE(label.bounds().right(), place.right());
      EXPECT_LE(place.bottom(), page.height);
      EXPECT_GE(place.left, 0);
      EXPECT_LE(place.right(), page.width);
      for (int other = 0; other < i; ++other) {
        const ui::Rect& there = list(dialog, other).bounds();
        EXPECT_TRUE(place.left >= there.right() || place.top >= there.bottom() ||
                    there.left >= place.right())
            << i << " over " << other;
      }
    }
  });
}

TEST_F(ListColumnsTest, AMissingMaskTicksEveryRow) {
  openPage([&](frmOptions& dialog) {
    for (int i = 0; i < ListColumns::count; ++i) {
      EXPECT_EQ(ticked(dialog, i).size(), listOf(i).rows.size()) << i;
    }
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(ListColumnsTest, AStoredZeroTicksNone) {
  for (const List& list : kLists) host.store(list.option, 0);
  openPage([&](frmOptions& dialog) {
    for (int i = 0; i < ListColumns::count; ++i) EXPECT_TRUE(ticked(dialog, i).empty()) << i;
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(ListColumnsTest, EachRowIsShownByItsOwnBits) {
  for (std::size_t row = 0; row < 24; ++row) {
    for (const List& list : kLists) {
      host.store(list.option, mask(list.rows[row % list.rows.size()].bits));
    }
    openPage([&](frmOptions& dialog) {
      for (int i = 0; i < ListColumns::count; ++i) {
        const auto& rows = listOf(i).rows;
        EXPECT_EQ(ticked(dialog, i), std::vector<Text>{rows[row % rows.size()].name});
      }
    });
  }
}

TEST_F(ListColumnsTest, EachRowIsSavedAsItsOwnBits) {
  openPage([&](frmOptions& dialog) {
    for (std::size_t row = 0; row < 24; ++row) {
      for (int i = 0; i < ListColumns::count; ++i) {
        // The last two columns of a sales person are not enough by themselves.
        const std::size_t choices = i == ListColumns::salesPerson ? 3 : listOf(i).rows.size();
        tickOnly(dialog, i, {static_cast<int>(row % choices)});
      }
      apply(dialog);
      for (int i = 0; i < ListColumns::count; ++i) {
        const std::size_t choices = i == ListColumns::salesPerson ? 3 : listOf(i).rows.size();
        EXPECT_EQ(host.value(listOf(i).option), mask(listOf(i).rows[row % choices].bits));
      }
    }
  });
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(ListColumnsTest, SupplierStandsForBits15To31) {
  for (const std::uint32_t stored : {0xFFFF8000U, 0x8000U, 0x40000U, 0x80000000U}) {
    host.store(options::ProductListColumns, mask(stored));
    editPage([&](frmOptions& dialog) {
      EXPECT_EQ(ticked(dialog, ListColumns::product), std::vector<Text>{u"Supplier"}) << stored;
      user.clickCheck(list(dialog, ListColumns::laybyCustomer), 0);
    });
    EXPECT_EQ(host.value(options::ProductListColumns), mask(0xFFFF8000));
  }
}

TEST_F(ListColumnsTest, SupplierUntickedClearsBits15To31) {
  host.store(options::ProductListColumns, -1);
  editPage([&](frmOptions& dialog) { user.clickCheck(list(dialog, ListColumns::product), 12); });
  EXPECT_EQ(host.value(options::ProductListColumns), 0x7BF9);
  openPage([&](frmOptions& dialog) {
    EXPECT_FALSE(list(dialog, ListColumns::product).checked(12));
    EXPECT_EQ(ticked(dialog, ListColumns::product).size(), 12U);
  });
}

TEST_F(ListColumnsTest, BitsThatNoRowOwnsAreDropped) {
  saveDefaults();
  host.store(options::CurrencyListColumns, mask(0xFFFFFF01) | 0x2);
  host.store(options::ProductListColumns, 0x407);
  host.store(options::CustomerListColumns, mask(0xFE000001));
  host.store(options::LaybyCustomerListColumns, 0x1001);
  host.store(options::SalesPersonListColumns, 0x28);
  editPage([&](frmOptions& dialog) {
    EXPECT_TRUE(ticked(dialog, ListColumns::customer).empty());
    user.clickCheck(list(dialog, ListColumns::laybyCustomer), 0);
    user.clickCheck(list(dialog, ListColumns::laybyCustomer), 0);
  });
  EXPECT_EQ(host.value(options::CurrencyListColumns), 0x2);
  EXPECT_EQ(host.value(options::ProductListColumns), 0x1);
  EXPECT_EQ(host.value(options::CustomerListColumns), 0);
  EXPECT_EQ(host.value(options::LaybyCustomerListColumns), 0x1);
  EXPECT_EQ(host.value(options::SalesPersonListColumns), 0x8);
  EXPECT_EQ(changes, std::vector<std::int32_t>{0x40F});
}

TEST_F(ListColumnsTest, FirstUseStoresEveryRow) {
  options_.FirstUse = true;
  open([](frmOptions&) {});
  for (const List& list : kLists) EXPECT_EQ(host.value(list.option), mask(list.all));
  ASSERT_EQ(changes.size(), 1U);
  EXPECT_EQ(changes[0] & 0x40F, 0x40F);
}

TEST_F(ListColumnsTest, EachListRaisesItsOwnChange) {
  saveDefaults();
  openPage([&](frmOptions& dialog) {
    for (int i = 0; i < ListColumns::count; ++i) {
      for (int twice = 0; twice < 2; ++twice) {
        changes.clear();
        user.clickCheck(list(dialog, i), 1);
        apply(dialog);
        EXPECT_EQ(changes, std::vector<std::int32_t>{listOf(i).change}) << i;
      }
    }
  });
}

TEST_F(ListColumnsTest, CustomersAndSalesPersonsTogetherRaiseTwelve) {
  saveDefaults();
  editPage([&](frmOptions& dialog) {
    user.clickCheck(list(dialog, ListColumns::customer), 3);
    user.clickCheck(list(dialog, ListColumns::salesPerson), 3);
  });
  EXPECT_EQ(changes, std::vector<std::int32_t>{12});
}

TEST_F(ListColumnsTest, TickingBackAndForthChangesNothingStored) {
  saveDefaults();
  editPage([&](frmOptions& dialog) {
    for (int i = 0; i < ListColumns::count; ++i) {
      user.clickCheck(list(dialog, i), 2);
      user.clickCheck(list(dialog, i), 2);
    }
  });
  EXPECT_EQ(changes, std::vector<std::int32_t>{0});
}

TEST_F(ListColumnsTest, AMissingMaskComparesAsZero) {
  editPage([&](frmOptions& dialog) {
    tickOnly(dialog, ListColumns::product, {});
    tickOnly(dialog, ListColumns::laybyCustomer, {});
  });
  EXPECT_EQ(host.value(options::ProductListColumns), 0);
  ASSERT_EQ(changes.size(), 1U);
  EXPECT_EQ(changes[0] & 0x40F, 0x4 | 0x8 | 0x400);
}

TEST_F(ListColumnsTest, ProductsCustomersAndLaybyCustomersMayShowNoColumn) {
  saveDefaults();
  editPage([&](frmOptions& dialog) {
    for (const int i : {1, 2, 3}) tickOnly(dialog, i, {});
  });
  for (const int i : {1, 2, 3}) EXPECT_EQ(host.value(listOf(i).option), 0);
  EXPECT_EQ(changes, std::vector<std::int32_t>{0x7});
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(ListColumnsTest, EveryChoiceOfSalesPersonColumnsIsAcceptedOrRefusedByItsNames) {
  saveDefaults();
  openPage([&](frmOptions& dialog) {
    for (unsigned choice = 0; choice < 32; ++choice) {
      std::vector<int> rows;
      for (int row = 0; row < 5; ++row) {
        if ((choice >> row & 1U) != 0) rows.push_back(row);
      }
      tickOnly(dialog, ListColumns::salesPerson, rows);
      // A choice that was there before enables nothing.
      user.clickCheck(list(dialog, ListColumns::product), 0);
      changes.clear();
      boxes.shown.clear();
      apply(dialog);
      const bool named = (choice & 0b00111U) != 0;
      EXPECT_EQ(boxes.shown.empty(), named) << choice;
      EXPECT_EQ(changes.empty(), !named) << choice;
      EXPECT_EQ(applyEnabled(dialog), !named) << choice;
    }
  });
}

TEST_F(ListColumnsTest, MiddleInitialAndTitleAloneAreRefusedAndInitialsAreAccepted) {
  saveDefaults();
  const auto stored = host.stored;
  openPage([&](frmOptions& dialog) {
    tickOnly(dialog, ListColumns::salesPerson, {3, 4});
    apply(dialog);
    ASSERT_EQ(boxes.shown.size(), 1U);
    expectRefusal(boxes.shown[0], u"Sales Person");
    EXPECT_EQ(host.stored, stored);
    tickOnly(dialog, ListColumns::salesPerson, {1});
    apply(dialog);
    EXPECT_EQ(boxes.shown.size(), 1U);
  });
  EXPECT_EQ(host.value(options::SalesPersonListColumns), 0x1);
  EXPECT_EQ(changes, std::vector<std::int32_t>{8});
}

TEST_F(ListColumnsTest, ACurrencyListWithoutColumnsIsRefused) {
  saveDefaults();
  openPage([&](frmOptions& dialog) {
    tickOnly(dialog, ListColumns::currency, {});
    apply(dialog);
    ASSERT_EQ(boxes.shown.size(), 1U);
    expectRefusal(boxes.shown[0], u"Currency");
    for (int row = 0; row < 7; ++row) {
      tickOnly(dialog, ListColumns::currency, {row});
      apply(dialog);
      EXPECT_FALSE(applyEnabled(dialog)) << row;
    }
  });
  EXPECT_EQ(boxes.shown.size(), 1U);
  EXPECT_EQ(host.value(options::CurrencyListColumns), 0x80);
}

TEST_F(ListColumnsTest, OnlyTheFirstRefusalIsShown) {
  saveDefaults();
  openPage([&](frmOptions& dialog) {
    tickOnly(dialog, ListColumns::salesPerson, {});
    tickOnly(dialog, ListColumns::currency, {});
    apply(dialog);
  });
  ASSERT_EQ(boxes.shown.size(), 1U);
  expectRefusal(boxes.shown[0], u"Sales Person");
}

TEST_F(ListColumnsTest, ARefusedSaveWritesNothingAndLeavesEveryEdit) {
  saveDefaults();
  const auto stored = host.stored;
  open([&](frmOptions& dialog) {
    user.type(u"Corner Shop");
    user.clickTab(dialog.tabOptions, 2);
    tickOnly(dialog, ListColumns::salesPerson, {4});
    user.clickTab(dialog.tabOptions, 3);
    user.click(dialog.tabs().transactionOptions.chkTransaction[0]);
    host.calls.clear();
    user.click(dialog.cmdCommand[frmOptions::ok]);

    EXPECT_TRUE(dialog.isShown());
    EXPECT_EQ(host.calls, (std::vector<std::string>{"Title", "Path"}));
    EXPECT_EQ(host.stored, stored);
    EXPECT_TRUE(host.sent.empty());
    EXPECT_TRUE(changes.empty());
    EXPECT_TRUE(applyEnabled(dialog));
    EXPECT_EQ(dialog.tabOptions.selected(), 2);
    EXPECT_TRUE(dialog.fraFrame[1].visible());
    EXPECT_FALSE(dialog.fraFrame[2].visible());
    EXPECT_EQ(dialog.helpContext(), 19);
    ASSERT_NE(dialog.activeControl(), nullptr);
    EXPECT_TRUE(dialog.activeControl()->canFocus());
    EXPECT_EQ(desk->screen().pointer(), ui::Pointer::standard);

    EXPECT_EQ(ticked(dialog, ListColumns::salesPerson), std::vector<Text>{u"Mr/Mrs/Miss"});
    user.clickCheck(list(dialog, ListColumns::salesPerson), 0);
    user.click(dialog.cmdCommand[frmOptions::ok]);
    EXPECT_FALSE(dialog.isShown());
  });
  EXPECT_EQ(boxes.shown.size(), 1U);
  EXPECT_EQ(host.value(options::SalesPersonListColumns), 0xC);
  EXPECT_EQ(host.value(options::CompanyName), u"Corner Shop");
  EXPECT_EQ(host.value(options::TransactionOptionBits), 0x1);
}

TEST_F(ListColumnsTest, TheMessageComesBeforeTheTab) {
  saveDefaults();
  struct Watching final : MessageBoxes {
    struct Box final : HostMessageBox {
      explicit Box(std::function<void()> s) : seen(std::move(s)) {}
      void setSettingsStore(const std::shared_ptr<SettingsStore>&) override {}
      MessageResult show(TextView, std::int32_t, TextView, TextView) override {
        seen();
        return MessageResult::ok;
      }
      std::function<void()> seen;
    };
    std::unique_ptr<HostMessageBox> create() override { return std::make_unique<Box>(seen); }
    std::function<void()> seen;
  } watching;
  Options watched(machine.platform(desk->screen(), watching));
  HostObjects objects = host.objects();
  watched.DBJetObject = objects.database;
  watched.AppObject = objects.app;
  watched.SettingsObject = objects.settings;
  watched.SelectedTab = 2;
  std::vector<int> tabs;
  desk->whenShown([&](ui::Form& form) {
    auto& dialog = dynamic_cast<frmOptions&>(form);
    watching.seen = [&] { tabs.push_back(dialog.tabOptions.selected()); };
    tickOnly(dialog, ListColumns::currency, {});
    user.clickTab(dialog.tabOptions, 3);
    apply(dialog);
    tabs.push_back(dialog.tabOptions.selected());
  });
  EXPECT_TRUE(watched.ShowOptions());
  EXPECT_EQ(tabs, (std::vector<int>{3, 2}));
}

TEST_F(ListColumnsTest, TheMessageNamesTheProgramAsItIsCalledAtTheSave) {
  openPage([&](frmOptions& dialog) {
    tickOnly(dialog, ListColumns::currency, {});
    host.title = u"Tillora Back Office";
    apply(dialog);
  });
  ASSERT_EQ(boxes.shown.size(), 1U);
  expectRefusal(boxes.shown[0], u"Currency");
}

TEST_F(ListColumnsTest, EnterOnAnyTabIsRefusedToo) {
  host.store(options::CurrencyListColumns, 0x1);
  open([&](frmOptions& dialog) {
    user.type(u"x");
    user.press(Key::enter);
    EXPECT_TRUE(dialog.isShown());
    EXPECT_EQ(dialog.tabOptions.selected(), 2);
  });
  EXPECT_EQ(boxes.shown.size(), 1U);
  EXPECT_EQ(host.value(options::CurrencyListColumns), 0x1);
}

TEST_F(ListColumnsTest, ARefusedFirstUseOpensOnTheListsWithApplyEnabled) {
  host.store(options::SalesPersonListColumns, 0x6);
  options_.FirstUse = true;
  open([&](frmOptions& dialog) {
    ASSERT_EQ(boxes.shown.size(), 1U);
    expectRefusal(boxes.shown[0], u"Sales Person");
    EXPECT_EQ(dialog.tabOptions.selected(), 2);
    EXPECT_TRUE(dialog.fraFrame[1].visible());
    EXPECT_TRUE(applyEnabled(dialog));
    EXPECT_TRUE(list(dialog, ListColumns::salesPerson).hasFocus());
    EXPECT_TRUE(host.callsStarting("put").empty());
    user.clickCheck(list(dialog, ListColumns::salesPerson), 2);
    user.click(dialog.cmdCommand[frmOptions::ok]);
    EXPECT_FALSE(dialog.isShown());
  });
  EXPECT_EQ(host.value(options::SalesPersonListColumns), 0x16);
  EXPECT_EQ(host.value(options::CustomerListColumns), 0x1FFFFFE);
}

TEST_F(ListColumnsTest, ARefusedFirstUseOpensOnTheTabThatTheCallerChose) {
  host.store(options::SalesPersonListColumns, 0x6);
  options_.FirstUse = true;
  openOn(TabPage::transactions, [&](frmOptions& dialog) {
    EXPECT_EQ(dialog.tabOptions.selected(), 3);
    EXPECT_TRUE(applyEnabled(dialog));
    EXPECT_EQ(dialog.activeControl(), dialog.nextInTabOrder(&dialog.tabOptions));
    EXPECT_TRUE(dialog.fraFrame[2].contains(*dialog.activeControl()));
  });
  EXPECT_EQ(boxes.shown.size(), 1U);
}

TEST_F(ListColumnsTest, EachMaskIsRememberedSetToZeroAndGivenItsBitsRowByRow) {
  saveDefaults();
  std::vector<std::string> expected;
  openPage([&](frmOptions& dialog) {
    tickOnly(dialog, ListColumns::product, {2, 12});
    tickOnly(dialog, ListColumns::laybyCustomer, {});
    host.calls.clear();
    apply(dialog);
    for (int i = 0; i < ListColumns::count; ++i) {
      const std::string name = toUtf8(optionInfo(listOf(i).option.id).name);
      expected.insert(expected.end(), {"get " + name, "put " + name});
      for (std::size_t row = 0; row < ticked(dialog, i).size(); ++row) {
        expected.insert(expected.end(), {"get " + name, "put " + name});
      }
    }
  });
  std::vector<std::string> calls;
  std::ranges::copy_if(host.calls, std::back_inserter(calls),
                       [](const std::string& call) { return call.ends_with("ListColumns"); });
  EXPECT_EQ(calls, expected);
  EXPECT_EQ(host.value(options::ProductListColumns), mask(0xFFFFA000));
}

TEST_F(ListColumnsTest, EveryTickEnablesApply) {
  saveDefaults();
  openPage([&](frmOptions& dialog) {
    for (int i = 0; i < ListColumns::count; ++i) {
      user.clickCheck(list(dialog, i), 1);
      EXPECT_TRUE(applyEnabled(dialog)) << i;
      apply(dialog);
      EXPECT_FALSE(applyEnabled(dialog)) << i;
    }
  });
}

TEST_F(ListColumnsTest, ThePageOpensInTheFirstRowOfTheFirstListAndEachListIsEnteredInItsFirst) {
  saveDefaults();
  openPage([&](frmOptions& dialog) {
    for (int i = 0; i < ListColumns::count; ++i) {
      const bool before = list(dialog, i).checked(0);
      user.press(Key::space);
      EXPECT_NE(list(dialog, i).checked(0), before) << i;
      user.press(Key::tab);
    }
  });
}

TEST_F(ListColumnsTest, TheSpaceBarTicksTheChosenRow) {
  openPage([&](frmOptions& dialog) {
    EXPECT_TRUE(list(dialog, ListColumns::salesPerson).hasFocus());
    user.press(Key::down);
    user.press(Key::down);
    user.press(Key::up);
    EXPECT_FALSE(applyEnabled(dialog));
    const int row = list(dialog, ListColumns::salesPerson).listIndex();
    ASSERT_GE(row, 0);
    user.press(Key::space);
    EXPECT_FALSE(list(dialog, ListColumns::salesPerson).checked(row));
    EXPECT_TRUE(applyEnabled(dialog));
    user.press(Key::space);
    EXPECT_TRUE(list(dialog, ListColumns::salesPerson).checked(row));
  });
}

TEST_F(ListColumnsTest, TabAndAccessKeysReachTheListsInOrder) {
  openPage([&](frmOptions& dialog) {
    for (int i = 0; i < ListColumns::count; ++i) {
      EXPECT_TRUE(list(dialog, i).hasFocus()) << i;
      user.press(Key::tab);
    }
    EXPECT_TRUE(dialog.cmdCommand[frmOptions::ok].hasFocus());
    const std::vector<std::pair<char16_t, int>> keys = {
        {u'u', 4}, {u'l', 3}, {u'w', 2}, {u'p', 1}, {u's', 0}};
    for (const auto& [key, index] : keys) {
      user.accessKey(key);
      EXPECT_TRUE(list(dialog, index).hasFocus()) << index;
    }
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(ListColumnsTest, CancelDropsTheTicks) {
  saveDefaults();
  openPage([&](frmOptions& dialog) {
    tickOnly(dialog, ListColumns::salesPerson, {});
    user.click(dialog.cmdCommand[frmOptions::cancel]);
    EXPECT_FALSE(dialog.isShown());
  });
  EXPECT_TRUE(boxes.shown.empty());
  openPage(
      [&](frmOptions& dialog) { EXPECT_EQ(ticked(dialog, ListColumns::salesPerson).size(), 5U); });
}

}  // namespace
}  // namespace tillora::testing
