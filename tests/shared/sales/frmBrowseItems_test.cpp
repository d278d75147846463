#include "sales/frmBrowseItems.h"

#include <algorithm>
#include <tuple>

#include "tests/testing/function_ref.h"
#include "tests/testing/options_test.h"
#include "ui/buttons.h"

namespace tillora::testing {
namespace {

using ui::Key;

class BrowseItemsTest : public OptionsTest {
 protected:
  BrowseItemsTest() {
    host.items = {
        {u"STOCK", u"100", u"Fuel", u"Unleaded", u"Unleaded petrol", u"Sales"},
        {u"PART", u"101", u"", u"Battery", u"Car battery", u"Sales"},
        {u"GRP", u"102", u"", u"Unleaded", u"A group", u"Sales"},
        {u"OTHC", u"200", u"Charges", u"Rounding", u"Rounding of sales", u"Income"},
        {u"OTHC", u"201", u"", u"Freight", u"Freight charge", u"Income"},
        {u"OTHC", u"202", u"", u"Costs", u"On a cost account", u"Costs"},
        {u"OTHC", u"203", u"", u"Old", u"On an inactive account", u"Closed"},
        {u"OTHC", u"204", u"", u"Lost", u"On no account", u"Gone"},
        {u"stock", u"300", u"", u"lower", u"", u"Income"},
        {u"SERV", u"301", u"", u"Service", u"", u"Income"},
    };
    host.accounts = {account(u"Income", false, u"INC"), account(u"Costs", false, u"EXP"),
                     account(u"Closed", true, u"INC"), account(u"Sales", false, u"INC")};
    host.paymentItems = {{u"Visa", u"Visa card", u"Clearing"},
                         {u"Cash", u"Notes and coins", u"Drawer"},
                         {u"Amex", u"Charge card", u"Clearing"}};
  }

  static FakeRow account(TextView name, bool inactive, TextView type) {
    return {{u"Name", Text(name)}, {u"Inactive", inactive}, {u"AccountType", Text(type)}};
  }

  /// Shows the browser; returns the value that the caller gets back.
  Text browse(int type, TextView value, const FunctionRef<void(frmBrowseItems&)>& act) {
    frmBrowseItems browser(desk->screen());
    return browse(browser, type, value, act);
  }
  Text browse(frmBrowseItems& browser, int type, TextView value,
              const FunctionRef<void(frmBrowseItems&)>& act) {
    browser.DBJetObject = options_.DBJetObject;
    browser.SettingsObject = options_.SettingsObject;
    browser.BrowseType = static_cast<std::int16_t>(type);
    browser.SelectedValue = value;
    desk->whenShown([&](ui::Form&) { act(browser); });
    browser.showModal();
    return browser.SelectedValue;
  }
  static std::vector<Text> column(const frmBrowseItems& browser, int column) {
    std::vector<Text> texts;
    for (int row = 0; row < browser.ltvItems.count(); ++row) {
      texts.push_back(browser.ltvItems.text(row, column));
    }
    return texts;
  }
  static std::vector<Text> row(const frmBrowseItems& browser, int row) {
    std::vector<Text> texts;
    for (int i = 0; i < 4; ++i) texts.push_back(browser.ltvItems.text(row, i));
    return texts;
  }
  static std::vector<Text> headers(const frmBrowseItems& browser) {
    std::vector<Text> texts;
    for (const auto& column : browser.ltvItems.columns()) texts.push_back(column.header);
    return texts;
  }
  /// The row that a value selects; -1 for none.
  int preselected(int type, TextView value) {
    int row = -2;
    browse(type, value, [&](frmBrowseItems& browser) {
      row = browser.ltvItems.selectedRow();
      EXPECT_EQ(browser.ltvItems.rowToShow(), row);
    });
    return row;
  }
};

TEST_F(BrowseItemsTest, ListsProductsForAGrade) {
  browse(frmBrowseItems::gradeProduct, u"", [&](frmBrowseItems& browser) {
    EXPECT_EQ(browser.caption(), u"Grade Product");
    EXPECT_EQ(browser.lblLabel.caption(),
              u"Select the Product to be associated with the grade, then click the OK button.");
    EXPECT_EQ(headers(browser),
              (std::vector<Text>{u"Product Number", u"Group", u"Item Name", u"Description"}));
    EXPECT_EQ(column(browser, 2), (std::vector<Text>{u"Battery", u"Unleaded", u"Unleaded"}));
    EXPECT_EQ(row(browser, 0), (std::vector<Text>{u"101", u"", u"Battery", u"Car battery"}));
    EXPECT_EQ(row(browser, 1),
              (std::vector<Text>{u"100", u"Fuel", u"Unleaded", u"Unleaded petrol"}));
  });
  EXPECT_TRUE(host.callsStarting("AccountTable").empty());
}

TEST_F(BrowseItemsTest, ListsOtherChargesOnActiveIncomeAccountsForRounding) {
  browse(frmBrowseItems::roundingItem, u"", [&](frmBrowseItems& browser) {
    EXPECT_EQ(browser.caption(), u"Rounding Item");
    EXPECT_EQ(browser.lblLabel.caption(),
              u"Select the Rounding Item for the rounded amount, then click the OK button.");
    EXPECT_EQ(headers(browser),
              (std::vector<Text>{u"Group", u"Item Name", u"Description", u"Account"}));
    ASSERT_EQ(browser.ltvItems.count(), 2);
    EXPECT_EQ(row(browser, 0), (std::vector<Text>{u"", u"Freight", u"Freight charge", u"Income"}));
    EXPECT_EQ(row(browser, 1),
              (std::vector<Text>{u"Charges", u"Rounding", u"Rounding of sales", u"Income"}));
  });
}

TEST_F(BrowseItemsTest, ListsPaymentItemsByAccount) {
  browse(frmBrowseItems::paymentItem, u"", [&](frmBrowseItems& browser) {
    EXPECT_EQ(browser.caption(), u"Payment Item");
    EXPECT_EQ(browser.lblLabel.caption(),
              u"Select the Payment Item the Currency Conversion entry will use, then click the OK "
              u"button.");
    EXPECT_EQ(headers(browser), (std::vector<Text>{u"Item Name", u"Description", u"Account", u""}));
    EXPECT_EQ(column(browser, 0), (std::vector<Text>{u"Visa", u"Amex", u"Cash"}));
    EXPECT_EQ(row(browser, 2), (std::vector<Text>{u"Cash", u"Notes and coins", u"Drawer", u""}));
  });
  EXPECT_TRUE(host.callsStarting("ItemList").empty());
}

TEST_F(BrowseItemsTest, RoundingItemsAreSortedByName) {
  host.items = {{u"OTHC", u"1", u"A", u"Zebra", u"a", u"Income"},
                {u"OTHC", u"2", u"B", u"Apple", u"z", u"Sales"}};
  browse(frmBrowseItems::roundingItem, u"", [&](frmBrowseItems& browser) {
    EXPECT_EQ(column(browser, 1), (std::vector<Text>{u"Apple", u"Zebra"}));
    EXPECT_EQ(browser.ltvItems.selectedRow(), 0);
  });
}

TEST_F(BrowseItemsTest, AListThatStandsAtItsEndIsWalkedFromItsFirstItemToItsLast) {
  for (const auto& [type, list, items] :
       {std::tuple{1, "ItemList", host.items.size()}, std::tuple{2, "ItemList", host.items.size()},
        std::tuple{3, "PaymentItemList", host.paymentItems.size()}}) {
    std::vector<Text> first;
    browse(type, u"", [&](frmBrowseItems& browser) { first = column(browser, 0); });
    host.calls.clear();
    browse(type, u"", [&](frmBrowseItems& browser) { EXPECT_EQ(column(browser, 0), first); });
    EXPECT_FALSE(first.empty());
    const std::string name = list;
    EXPECT_EQ(host.callsStarting("MoveFirst"), std::vector<std::string>{"MoveFirst " + name});
    EXPECT_EQ(host.callsStarting("MoveNext"), std::vector<std::string>(items, "MoveNext " + name));
  }
}

TEST_F(BrowseItemsTest, SortsWithoutRegardToCaseAndKeepsTheOrderOfEquals) {
  host.items.clear();
  for (const TextView name : {u"b", u"A", u"B", u"a", u"c", u"C"}) {
    const Text number(1, static_cast<char16_t>(u'1' + host.items.size()));
    host.items.push_back({u"STOCK", number, u"", Text(name), u"", u""});
  }
  browse(frmBrowseItems::gradeProduct, u"", [&](frmBrowseItems& browser) {
    EXPECT_EQ(column(browser, 0), (std::vector<Text>{u"2", u"4", u"1", u"3", u"5", u"6"}));
  });
}

TEST_F(BrowseItemsTest, AsksForEachAccountOnceByItsExactName) {
  host.items = {{u"OTHC", u"1", u"", u"A", u"", u"Sales"},
                {u"OTHC", u"2", u"", u"B", u"", u"Sales"},
                {u"OTHC", u"3", u"", u"C", u"", u"sales"},
                {u"STOCK", u"4", u"", u"D", u"", u"Costs"},
                {u"OTHC", u"5", u"", u"E", u"", u"Sales"}};
  browse(frmBrowseItems::roundingItem, u"", [&](frmBrowseItems& browser) {
    EXPECT_EQ(column(browser, 1), (std::vector<Text>{u"A", u"B", u"E"}));
  });
  EXPECT_EQ(host.callsStarting("find"),
            (std::vector<std::string>{
                "find AccountTable [Name] = 'Sales' AND [Inactive] = False AND [AccountType] = "
                "'INC'",
                "find AccountTable [Name] = 'sales' AND [Inactive] = False AND [AccountType] = "
                "'INC'"}));
  host.calls.clear();
  browse(frmBrowseItems::roundingItem, u"", [](frmBrowseItems&) {});
  EXPECT_EQ(host.callsStarting("find").size(), 2U);
}

TEST_F(BrowseItemsTest, AccountNamesAreQuoted) {
  const Text name = u"O'Neil|a;b";
  host.items = {{u"OTHC", u"1", u"", u"A", u"", name}};
  host.accounts = {account(name, false, u"INC")};
  browse(frmBrowseItems::roundingItem, u"",
         [&](frmBrowseItems& browser) { EXPECT_EQ(browser.ltvItems.count(), 1); });
  EXPECT_EQ(host.callsStarting("find"),
            std::vector<std::string>{
                "find AccountTable [Name] = 'O' & Chr$(39) & 'Neil' & Chr$(124) & 'a' & Chr$(59) "
                "& 'b' AND [Inactive] = False AND [AccountType] = 'INC'"});
}

TEST_F(BrowseItemsTest, AGroupAndANameAreBothNeededToSelectARow) {
  EXPECT_EQ(preselected(frmBrowseItems::gradeProduct, u"Fuel:Unleaded"), 1);
  EXPECT_EQ(preselected(frmBrowseItems::gradeProduct, u"Unleaded"), 2);
  EXPECT_EQ(preselected(frmBrowseItems::gradeProduct, u"Battery"), 0);
  EXPECT_EQ(preselected(frmBrowseItems::gradeProduct, u"Fuel:Battery"), -1);
  EXPECT_EQ(preselected(frmBrowseItems::gradeProduct, u"fuel:unleaded"), -1);
  EXPECT_EQ(preselected(frmBrowseItems::gradeProduct, u"Gone"), -1);
  EXPECT_EQ(preselected(frmBrowseItems::roundingItem, u"Charges:Rounding"), 1);
  EXPECT_EQ(preselected(frmBrowseItems::roundingItem, u"Freight"), 0);
  EXPECT_EQ(preselected(frmBrowseItems::roundingItem, u"Costs"), -1);
}

TEST_F(BrowseItemsTest, AValueIsSplitAtItsLastColon) {
  host.items = {{u"STOCK", u"1", u"A", u"B:C", u"", u""},
                {u"STOCK", u"2", u"A:B", u"C", u"", u""},
                {u"STOCK", u"3", u"", u"A:B:C", u"", u""}};
  browse(frmBrowseItems::gradeProduct, u"A:B:C", [&](frmBrowseItems& browser) {
    EXPECT_EQ(browser.ltvItems.text(browser.ltvItems.selectedRow(), 0), u"2");
  });
  host.items = {{u"STOCK", u"1", u"A", u"B:C", u"", u""}};
  EXPECT_EQ(preselected(frmBrowseItems::gradeProduct, u"A:B:C"), -1);
}

TEST_F(BrowseItemsTest, APaymentItemIsSelectedByItsWholeValue) {
  host.paymentItems.push_back({u"Card:Debit", u"", u"Clearing"});
  host.paymentItems.push_back({u"Debit", u"", u"Clearing"});
  browse(frmBrowseItems::paymentItem, u"Card:Debit", [&](frmBrowseItems& browser) {
    EXPECT_EQ(browser.ltvItems.text(browser.ltvItems.selectedRow(), 0), u"Card:Debit");
  });
}

TEST_F(BrowseItemsTest, AnEmptyValueSelectsTheFirstRowInSortedOrder) {
  host.items = {{u"STOCK", u"1", u"A", u"Zebra", u"", u""},
                {u"OTHC", u"2", u"A", u"Yarn", u"", u"Income"},
                {u"STOCK", u"3", u"B", u"Apple", u"", u""},
                {u"OTHC", u"4", u"B", u"Bread", u"", u"Income"}};
  const std::vector<Text> values = {u"B:Apple", u"B:Bread", u"Visa"};
  for (const int type : {1, 2, 3}) {
    EXPECT_EQ(preselected(type, u""), 0);
    EXPECT_EQ(browse(type, u"", [&](frmBrowseItems&) { user.press(Key::enter); }),
              values[static_cast<std::size_t>(type - 1)]);
  }
}

TEST_F(BrowseItemsTest, OfEqualRowsTheFirstIsSelected) {
  host.items = {{u"STOCK", u"1", u"", u"A", u"", u""}, {u"PART", u"2", u"", u"A", u"", u""}};
  EXPECT_EQ(preselected(frmBrowseItems::gradeProduct, u"A"), 0);
}

TEST_F(BrowseItemsTest, AnEmptyListSelectsNothingAndOkLeavesTheValue) {
  host.items.clear();
  host.paymentItems.clear();
  for (const int type : {1, 2, 3}) {
    for (const TextView value : {u"", u"Fuel:Unleaded"}) {
      EXPECT_EQ(browse(type, value,
                       [&](frmBrowseItems& browser) {
                         EXPECT_EQ(browser.ltvItems.count(), 0);
                         EXPECT_EQ(browser.ltvItems.selectedRow(), -1);
                         user.click(browser.cmdCommand[frmBrowseItems::ok]);
                         EXPECT_FALSE(browser.isShown());
                       }),
                value);
    }
  }
}

TEST_F(BrowseItemsTest, OkHandsBackGroupAndName) {
  const auto choose = [&](int type, int row) {
    return browse(type, u"", [&](frmBrowseItems& browser) {
      user.clickRow(browser.ltvItems, row);
      user.click(browser.cmdCommand[frmBrowseItems::ok]);
      EXPECT_FALSE(browser.isShown());
    });
  };
  EXPECT_EQ(choose(frmBrowseItems::gradeProduct, 0), u"Battery");
  EXPECT_EQ(choose(frmBrowseItems::gradeProduct, 1), u"Fuel:Unleaded");
  EXPECT_EQ(choose(frmBrowseItems::roundingItem, 0), u"Freight");
  EXPECT_EQ(choose(frmBrowseItems::roundingItem, 1), u"Charges:Rounding");
  EXPECT_EQ(choose(frmBrowseItems::paymentItem, 2), u"Cash");
}

TEST_F(BrowseItemsTest, OkWithoutARowLeavesTheValue) {
  EXPECT_EQ(browse(frmBrowseItems::gradeProduct, u"Gone",
                   [&](frmBrowseItems& browser) {
                     user.click(browser.cmdCommand[frmBrowseItems::ok]);
                     EXPECT_FALSE(browser.isShown());
                   }),
            u"Gone");
}

TEST_F(BrowseItemsTest, CancelEscapeAndTheCloseBoxLeaveTheValue) {
  const std::vector<std::function<void(frmBrowseItems&)>> ways = {
      [&](frmBrowseItems& browser) { user.click(browser.cmdCommand[frmBrowseItems::cancel]); },
      [&](frmBrowseItems&) { user.press(Key::escape); },
      [&](frmBrowseItems& browser) { user.closeWindow(browser); }};
  for (const auto& leave : ways) {
    EXPECT_EQ(browse(frmBrowseItems::gradeProduct, u"Battery",
                     [&](frmBrowseItems& browser) {
                       user.clickRow(browser.ltvItems, 1);
                       leave(browser);
                       EXPECT_FALSE(browser.isShown());
                     }),
              u"Battery");
  }
}

TEST_F(BrowseItemsTest, EnterAcceptsTheRowThatTheArrowsChose) {
  EXPECT_EQ(browse(frmBrowseItems::gradeProduct, u"",
                   [&](frmBrowseItems& browser) {
                     EXPECT_TRUE(browser.ltvItems.hasFocus());
                     user.press(Key::down);
                     user.press(Key::enter);
                   }),
            u"Fuel:Unleaded");
}

TEST_F(BrowseItemsTest, TypingFindsARowByTheColumnThatTheListIsSortedBy) {
  const auto found = [&](int type, TextView typed) {
    return browse(type, u"", [&](frmBrowseItems&) {
      user.type(typed);
      user.press(Key::enter);
    });
  };
  EXPECT_EQ(found(frmBrowseItems::gradeProduct, u"u"), u"Fuel:Unleaded");
  EXPECT_EQ(found(frmBrowseItems::roundingItem, u"R"), u"Charges:Rounding");
  EXPECT_EQ(found(frmBrowseItems::paymentItem, u"d"), u"Cash") << "its account is Drawer";
  EXPECT_EQ(found(frmBrowseItems::paymentItem, u"a"), u"Visa") << "no account begins with it";
}

TEST_F(BrowseItemsTest, ADoubleClickOnARowAcceptsIt) {
  EXPECT_EQ(browse(frmBrowseItems::gradeProduct, u"Battery",
                   [&](frmBrowseItems& browser) {
                     user.doubleClickRow(browser.ltvItems, 1);
                     EXPECT_FALSE(browser.isShown());
                   }),
            u"Fuel:Unleaded");
}

TEST_F(BrowseItemsTest, ADoubleClickOnTheBlankDoesNothing) {
  EXPECT_EQ(browse(frmBrowseItems::gradeProduct, u"Battery",
                   [&](frmBrowseItems& browser) {
                     user.clickRow(browser.ltvItems, 1);
                     user.doubleClickBelow(browser.ltvItems);
                     EXPECT_TRUE(browser.isShown());
                   }),
            u"Battery");
}

TEST_F(BrowseItemsTest, AnyOtherTypeListsPaymentItemsAndAcceptsNone) {
  for (const int type : {0, 4, -1, 32767}) {
    EXPECT_EQ(browse(type, u"Amex",
                     [&](frmBrowseItems& browser) {
                       EXPECT_EQ(browser.caption(), u"Payment Item");
                       EXPECT_EQ(browser.ltvItems.count(), 3);
                       user.clickRow(browser.ltvItems, 0);
                       user.click(browser.cmdCommand[frmBrowseItems::ok]);
                       EXPECT_FALSE(browser.isShown());
                     }),
              u"Amex");
  }
}

TEST_F(BrowseItemsTest, TheButtonsSayWhatTheyDo) {
  browse(frmBrowseItems::gradeProduct, u"", [&](frmBrowseItems& browser) {
    const auto& ok = browser.cmdCommand[0];
    const auto& cancel = browser.cmdCommand[1];
    EXPECT_EQ(ok.caption(), u"&OK");
    EXPECT_EQ(ok.toolTip(), u"Accept the selected item and close this window");
    EXPECT_TRUE(ok.isDefault());
    EXPECT_EQ(cancel.caption(), u"&Cancel");
    EXPECT_EQ(cancel.toolTip(), u"Close this window");
    EXPECT_TRUE(cancel.isCancel());
  });
}

TEST_F(BrowseItemsTest, ColumnsAreAsWideAsTheirContentsOrHeaderAndFlat) {
  host.items[0].description = Text(80, u'x');
  browse(frmBrowseItems::gradeProduct, u"", [&](frmBrowseItems& browser) {
    EXPECT_EQ(browser.ltvItems.headerStyle() & ui::kHeaderButtons, 0U);
    const ui::Screen& screen = desk->screen();
    const auto width = [&](int column) {
      return browser.ltvItems.columns()[static_cast<std::size_t>(column)].width;
    };
    EXPECT_GE(width(0), screen.textWidth(u"Product Number"));
    EXPECT_GE(width(3), screen.textWidth(Text(80, u'x')));
    EXPECT_LT(width(1), width(0));
  });
  for (const int type : {1, 2, 3}) {
    browse(type, u"", [](frmBrowseItems& browser) {
      std::vector<bool> fills;
      for (const auto& column : browser.ltvItems.columns()) fills.push_back(column.fills);
      EXPECT_EQ(fills, (std::vector<bool>{false, false, false, true}));
    });
  }
}

TEST_F(BrowseItemsTest, ThePointerIsTheHourglassWhileTheListIsRead) {
  std::vector<ui::Pointer> seen;
  host.onCall = [&](const std::string&) { seen.push_back(desk->screen().pointer()); };
  browse(frmBrowseItems::roundingItem, u"",
         [&](frmBrowseItems&) { EXPECT_EQ(desk->screen().pointer(), ui::Pointer::standard); });
  ASSERT_FALSE(seen.empty());
  EXPECT_TRUE(std::ranges::all_of(seen, [](auto p) { return p == ui::Pointer::hourglass; }));
}

TEST_F(BrowseItemsTest, ReleasesTheHostsObjectsHoweverItCloses) {
  const std::vector<std::function<void(frmBrowseItems&)>> ways = {
      [&](frmBrowseItems& browser) { user.click(browser.cmdCommand[frmBrowseItems::ok]); },
      [&](frmBrowseItems&) { user.press(Key::escape); },
      [&](frmBrowseItems& browser) { user.closeWindow(browser); }};
  for (const auto& leave : ways) {
    frmBrowseItems browser(desk->screen());
    browse(browser, frmBrowseItems::gradeProduct, u"", leave);
    EXPECT_EQ(browser.DBJetObject, nullptr);
    EXPECT_EQ(browser.SettingsObject, nullptr);
  }
}

TEST_F(BrowseItemsTest, CanBeShownAgainForAnotherPurpose) {
  frmBrowseItems browser(desk->screen());
  browse(browser, frmBrowseItems::gradeProduct, u"", [](frmBrowseItems&) {});
  host.paymentItems.push_back({u"Voucher", u"", u"A"});
  browse(browser, frmBrowseItems::paymentItem, u"Voucher", [](frmBrowseItems& again) {
    EXPECT_EQ(headers(again), (std::vector<Text>{u"Item Name", u"Description", u"Account", u""}));
    EXPECT_EQ(again.ltvItems.count(), 4);
    EXPECT_EQ(again.ltvItems.selectedRow(), 0);
    EXPECT_EQ(again.ltvItems.headerStyle() & ui::kHeaderButtons, 0U);
  });
}

TEST_F(BrowseItemsTest, FailuresOfTheHostReachTheCaller) {
  const std::vector<std::pair<int, std::string>> calls = {
      {1, "ItemList"},
      {2, "ItemList"},
      {2, "AccountTable"},
      {2, "find AccountTable [Name] = 'Costs' AND [Inactive] = False AND [AccountType] = 'INC'"},
      {3, "PaymentItemList"}};
  for (const auto& [type, call] : calls) {
    host.failingCall = call;
    frmBrowseItems browser(desk->screen());
    browser.DBJetObject = options_.DBJetObject;
    browser.BrowseType = static_cast<std::int16_t>(type);
    FakeHost::expectFailure([&] { browser.showModal(); });
    EXPECT_FALSE(browser.isShown());
    EXPECT_EQ(desk->screen().pointer(), ui::Pointer::standard);
  }
}

TEST_F(BrowseItemsTest, AFailureAnywhereInTheWalkReachesTheCallerAndEndsIt) {
  for (const int type : {1, 2, 3}) {
    host.calls.clear();
    browse(type, u"", [](frmBrowseItems&) {});
    const int calls = static_cast<int>(host.calls.size());
    EXPECT_GT(calls, 3 * static_cast<int>(host.paymentItems.size()));
    for (int number = 0; number < calls; ++number) {
      host.calls.clear();
      host.failingNumber = number;
      frmBrowseItems browser(desk->screen());
      browser.DBJetObject = options_.DBJetObject;
      browser.BrowseType = static_cast<std::int16_t>(type);
      browser.SelectedValue = u"Fuel:Unleaded";
      FakeHost::expectFailure([&] { browser.showModal(); });
      EXPECT_EQ(static_cast<int>(host.calls.size()), number + 1) << "the host was called on";
      EXPECT_FALSE(browser.isShown());
      EXPECT_EQ(browser.SelectedValue, u"Fuel:Unleaded");
      EXPECT_EQ(desk->screen().pointer(), ui::Pointer::standard);
    }
    host.failingNumber = -1;
  }
}

TEST_F(BrowseItemsTest, WithoutADatabaseItFails) {
  for (const int type : {1, 2, 3}) {
    frmBrowseItems browser(desk->screen());
    browser.BrowseType = static_cast<std::int16_t>(type);
    try {
      browser.showModal();
      ADD_FAILURE() << type;
    } catch (const Error& failure) {
      EXPECT_EQ(failure.description(), u"DBJetObject was not set.");
    }
    EXPECT_FALSE(browser.isShown());
  }
}

}  // namespace
}  // namespace tillora::testing
