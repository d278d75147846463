#include "component/save_options.h"

#include <algorithm>

#include "identity/company_details.h"
#include "identity/fred_link.h"
#include "identity/passwords.h"
#include "operations/end_of_day.h"
#include "operations/report_captions.h"
#include "sales/currency_conversion.h"
#include "sales/list_columns.h"
#include "sales/rounding.h"
#include "sales/transactions.h"
#include "tests/testing/options_test.h"

namespace tillora::testing {
namespace {

class SaveOptionsTest : public OptionsTest {
 protected:
  /// Applies after an edit that leaves every stored value as it is.
  void applyNothing() {
    saveDefaults();
    open([&](frmOptions& dialog) {
      user.type(u"x");
      user.press(ui::Key::backspace);
      host.calls.clear();
      user.click(dialog.cmdCommand[frmOptions::apply]);
      EXPECT_FALSE(applyEnabled(dialog));
      saveCalls = host.calls;
    });
  }
  std::vector<std::string> saveCalls;
};

TEST_F(SaveOptionsTest, ASaveThatChangesNothingStillCommitsSendsAndRaises) {
  applyNothing();
  EXPECT_EQ(std::ranges::count(saveCalls, "commit"), 1);
  EXPECT_EQ(std::ranges::count(saveCalls, "send"), 1);
  EXPECT_EQ(changes, std::vector<std::int32_t>{0});
}

TEST_F(SaveOptionsTest, CallsTheHostInTheOrderOfTheSave) {
  host.dispensingAvailable = true;
  applyNothing();
  std::vector<std::string> expected;
  const auto add = [&](const std::vector<std::string>& calls) {
    expected.insert(expected.end(), calls.begin(), calls.end());
  };
  // A mask is compared with what was stored, set to 0, and given the bits of its rows.
  const auto addColumns = [&](const std::string& mask, int rows) {
    for (int i = 0; i <= rows; ++i) add({"get " + mask, "put " + mask});
  };
  add({"Title", "Path", "OptionsRecord"});
  add({"put CompanyName", "put CompanyAddress", "put CompanyPhone", "put CompanyFax",
       "put CompanyEmail", "put CompanyACN", "put CompanyABN", "put LVSummariseBits",
       "put LVClass"});
  add({"put TransactionOptionBits", "put TerminalIDCaption", "put TransactionNumberCaption",
       "put SalesPersonCaption", "put TaxedSellPriceCaption", "put TaxedWholesaleCaption",
       "put TaxExemptCaption", "put ItemTaxCaption", "put ItemsSoldCaption",
       "put TotalExTaxCaption", "put TaxTotalCaption", "put TotalCaption", "put ChangeCaption",
       "put BalanceDueCaption", "put LaybyOpeningBalanceCaption", "put LaybyClosingBalanceCaption",
       "put LaybyDateDueCaption"});
  add({"get RoundingStep", "put RoundingStep", "get RoundingFlags", "put RoundingFlags",
       "get RoundedCaption", "put RoundedCaption", "get RoundingItem", "put RoundingItem",
       "get RoundingVarianceCaption", "put RoundingVarianceCaption", "get TaxRoundingMode",
       "put TaxRoundingMode", "get TaxRoundingDirection", "put TaxRoundingDirection",
       "get RoundingDirection", "put RoundingDirection"});
  add({"get DefaultCurrencyMargin", "put DefaultCurrencyMargin"});
  add({"put RandomPriceScanningFlags", "RandomPriceTable"});
  for (const std::string prefix :
       {"20", "21", "22", "23", "24", "25", "26", "27", "28", "29", "2"}) {
    add({"find RandomPriceTable [Prefix] = " + prefix, "update RandomPriceTable"});
  }
  add({"put LaybyStartNumber", "put LaybyTermDays", "put LaybyTermsText", "put LaybyHistoryDays"});
  addColumns("SalesPersonListColumns", 5);
  addColumns("ProductListColumns", 13);
  addColumns("CustomerListColumns", 24);
  addColumns("LaybyCustomerListColumns", 12);
  addColumns("CurrencyListColumns", 7);
  add({"put EODOptionFlags", "put EODReconcileTotalFlags", "put EODHistoryDays",
       "put TimeReportPeriod", "put PrintNRGT", "put EODDefaultReportBits"});
  for (const auto& title : kReportTitles) add({"put setting " + toUtf8(title.setting)});
  for (const auto& detail : kReportDetails) add({"put setting " + toUtf8(detail.setting)});
  add({"get FREDPollSeconds", "put FREDPollSeconds", "get FREDLinkActive", "put FREDLinkActive",
       "get FREDDataFile", "put FREDDataFile"});
  add({"put PumpVolumeUnitCaption", "put PumpPriceUnitCaption", "put PumpOptionBits",
       "GradeTable"});
  add({"WebSiteTable", "find WebSiteTable [URL] = 'https://www.ledvane.example/point-of-sale'",
       "update WebSiteTable"});
  add({"put AdminSecurityBits", "put PasswordStartAdmin", "put PasswordTransferData",
       "put PasswordPostTransactions", "put PasswordCompactDatabase", "put PasswordAdminOptions",
       "put PasswordDeleteTerminal", "put PasswordChangePrices", "put PasswordPromotions",
       "put TerminalSecurityBits", "put PasswordEndOfDay", "put PasswordTerminalOptions",
       "put PasswordGlobalOverride"});
  add({"commit", "send"});
  expectSameCalls(saveCalls, expected);
}

TEST_F(SaveOptionsTest, WritesEveryOption) {
  host.dispensingAvailable = true;
  applyNothing();
  for (const OptionInfo& option : kOptionTable) {
    const std::string call = "put " + toUtf8(option.name);
    EXPECT_GT(std::ranges::count(saveCalls, call), 0) << call;
  }
}

TEST_F(SaveOptionsTest, SendsThePresentTime) {
  applyNothing();
  EXPECT_EQ(host.sent, std::vector<double>{45000.5});
}

TEST_F(SaveOptionsTest, TheEventComesLastWithThePointerAndApplyBackToNormal) {
  saveDefaults();
  open([&](frmOptions& dialog) {
    options_.OptionsChanged = [&](std::int32_t& mask) {
      changes.push_back(mask);
      EXPECT_EQ(host.calls.back(), "send");
      EXPECT_EQ(desk->screen().pointer(), ui::Pointer::standard);
      EXPECT_FALSE(applyEnabled(dialog));
    };
    user.type(u"x");
    EXPECT_TRUE(applyEnabled(dialog));
    user.click(dialog.cmdCommand[frmOptions::apply]);
  });
  EXPECT_EQ(changes.size(), 1U);
}

TEST_F(SaveOptionsTest, AHostThatAltersTheMaskChangesNothing) {
  saveDefaults();
  options_.OptionsChanged = [&](std::int32_t& mask) {
    changes.push_back(mask);
    mask = -1;
  };
  open([&](frmOptions& dialog) {
    for (const char16_t letter : {u'a', u'b'}) {
      user.click(dialog.tabs().companyDetails.txtCompanyDetails[0]);
      user.type(Text(1, letter));
      user.click(dialog.cmdCommand[frmOptions::apply]);
    }
  });
  EXPECT_EQ(changes, (std::vector<std::int32_t>{0, 0}));
}

TEST_F(SaveOptionsTest, ThePointerIsTheHourglassFromTheFirstCallOfTheHostToTheLast) {
  std::vector<std::string> seen;
  open([&](frmOptions& dialog) {
    user.type(u"x");
    EXPECT_EQ(desk->screen().pointer(), ui::Pointer::standard);
    host.onCall = [&](const std::string& call) {
      seen.push_back(call);
      EXPECT_EQ(desk->screen().pointer(), ui::Pointer::hourglass) << call;
    };
    user.click(dialog.cmdCommand[frmOptions::apply]);
    host.onCall = nullptr;
    EXPECT_EQ(desk->screen().pointer(), ui::Pointer::standard);
  });
  ASSERT_FALSE(seen.empty());
  EXPECT_EQ(seen.front(), "Title");
  EXPECT_EQ(seen.back(), "send");
}

TEST_F(SaveOptionsTest, AFirstUseRaisesTheGroupsWhoseDefaultsAreNotZero) {
  options_.FirstUse = true;
  open([](frmOptions&) {});
  EXPECT_EQ(changes, std::vector<std::int32_t>{0x60F});
  host.stored.clear();
  host.dispensingAvailable = true;
  open([](frmOptions&) {});
  EXPECT_EQ(changes, (std::vector<std::int32_t>{0x60F, 0x70F}));
}

TEST_F(SaveOptionsTest, ASaveThatChangesEveryGroupRaisesTheirBitsAndNoOther) {
  host.dispensingAvailable = true;
  saveDefaults();
  edit([&](frmOptions& dialog) {
    user.type(u"Corner Shop");
    user.clickTab(dialog.tabOptions, static_cast<int>(TabPage::lists));
    for (int i = 0; i < ListColumns::count; ++i) {
      auto& list = dialog.tabs().listColumns.lstListShow[i];
      user.clickCheck(list, list.count() - 1);
    }
    user.clickTab(dialog.tabOptions, static_cast<int>(TabPage::transactions));
    user.click(dialog.tabs().transactionOptions.chkTransaction[0]);
    user.clickTab(dialog.tabOptions, static_cast<int>(TabPage::rounding));
    user.click(dialog.tabs().rounding.chkRounding[0]);
    user.clickTab(dialog.tabOptions, static_cast<int>(TabPage::currency));
    user.click(dialog.tabs().currencyConversion.txtCurrencyConversion[0]);
    user.type(u"5");
    for (const TabPage page : {TabPage::layby, TabPage::pump}) {
      user.clickTab(dialog.tabOptions, static_cast<int>(page));
      user.click(*openBoxes(dialog.fraFrame[static_cast<int>(page) - 1]).at(0));
      user.type(u"7");
    }
    user.clickTab(dialog.tabOptions, static_cast<int>(TabPage::fred));
    user.click(dialog.tabs().fredLink.chkDispense[0]);
    user.clickTab(dialog.tabOptions, static_cast<int>(TabPage::eod));
    user.click(dialog.tabs().endOfDay.chkEOD[2]);
    user.clickTab(dialog.tabOptions, static_cast<int>(TabPage::security));
    user.click(dialog.tabs().passwords.chkSecurity[1]);
  });
  std::int32_t everyGroup = 0;
#define TILLORA_CHANGE(name, value, help) everyGroup |= value;
#include "component/contract/option_changes.inc"
#undef TILLORA_CHANGE
  EXPECT_EQ(everyGroup, 0xF0F);
  EXPECT_EQ(changes, std::vector{everyGroup});
}

TEST_F(SaveOptionsTest, ADialogThatIsClosedDuringASaveLetsItFinish) {
  for (const std::string middle : {"Title", "OptionsRecord", "put CompanyPhone", "RandomPriceTable",
                                   "put PasswordGlobalOverride", "commit", "send"}) {
    changes.clear();
    host.sent.clear();
    open([&](frmOptions& dialog) {
      user.type(u"Closed at " + Text(middle.begin(), middle.end()));
      host.onCall = [&](const std::string& call) {
        if (call != middle || !dialog.isShown()) return;
        user.closeWindow(dialog);
        EXPECT_TRUE(dialog.isShown()) << "the close follows the save";
      };
      user.click(dialog.cmdCommand[frmOptions::apply]);
      host.onCall = nullptr;
      EXPECT_FALSE(dialog.isShown());
      EXPECT_EQ(options_.DBJetObject.use_count(), 1);
      EXPECT_EQ(options_.AppObject.use_count(), 1);
      EXPECT_EQ(options_.SettingsObject.use_count(), 1);
    });
    EXPECT_EQ(host.value(options::CompanyName), u"Closed at " + Text(middle.begin(), middle.end()));
    EXPECT_EQ(host.sent.size(), 1U) << middle;
    EXPECT_EQ(changes.size(), 1U) << middle;
  }
}

/// What a host holds; a save that fails leaves none of its options changed.
class FailingSaveTest : public SaveOptionsTest {
 protected:
  void SetUp() override {
    host.dispensingAvailable = true;
    host.grades = {{{u"GradeNumber", std::int32_t{1}},
                    {u"Product", Text(u"Fuel:ULP")},
                    {u"Caption", Text(u"Unleaded")}}};
    host.classes = {{{u"Name", Text(u"Retail")}, {u"Hidden", false}}};
    // If the load had to write them, it would take them back after a failure.
    for (std::int32_t prefix = 19; prefix <= 29; ++prefix) {
      host.randomPrices.push_back({{u"Prefix", prefix == 19 ? 2 : prefix}});
    }
  }

  bool run() {
    desk->whenShown([&](ui::Form& form) {
      if (!options_.FirstUse) {
        user.type(u"x");
        user.accessKey(u'o');
      }
      EXPECT_EQ(form.isShown(), options_.FirstUse);
    });
    return options_.ShowOptions();
  }
  /// The range of calls and of table steps in which a first use makes its currencies; failures
  /// there are ignored.
  struct Quiet {
    int firstCall = -1;
    int endOfCalls = -1;
    int firstStep = -1;
    int endOfSteps = -1;
  };
  /// A whole run without a failure.
  Quiet measure() {
    Quiet quiet;
    host.onCall = [&](const std::string& call) {
      const int number = static_cast<int>(host.calls.size()) - 1;
      if (call == "CurrencyTable") {
        quiet.firstCall = number;
        quiet.firstStep = host.tableSteps;
      } else if (call == "Title" && quiet.firstCall >= 0 && quiet.endOfCalls < 0) {
        quiet.endOfCalls = number;
        quiet.endOfSteps = host.tableSteps;
      }
    };
    EXPECT_TRUE(run());
    host.onCall = nullptr;
    calls = static_cast<int>(host.calls.size());
    steps = host.tableSteps;
    return quiet;
  }
  /// Restores everything to where the walk starts.
  void restart(const FakeHost& before) {
    host.stored = before.stored;
    host.randomPrices = before.randomPrices;
    host.grades = before.grades;
    host.webSites = before.webSites;
    host.currencies = before.currencies;
    host.settings = before.settings;
    host.calls.clear();
    host.tableSteps = 0;
  }
  void expectRaised(const std::map<OptionId, Value>& stored) {
    FakeHost::expectFailure([&] { run(); });
    if (host.calls.back() != "send") {
      EXPECT_EQ(host.stored, stored);
    }
    EXPECT_EQ(desk->screen().pointer(), ui::Pointer::standard);
    desk->dropSteps();  // if the load failed no dialog was shown
  }
  void expectCaught() {
    host.sent.clear();
    EXPECT_TRUE(run());
    EXPECT_EQ(host.sent.size(), 1U);
  }

  /// Each call and each table step of a run fails in its turn.
  void walk() {
    const FakeHost before = host;
    const Quiet quiet = measure();
    ASSERT_EQ(quiet.firstCall >= 0, options_.FirstUse);
    for (int number = 0; number < calls && !HasFailure(); ++number) {
      SCOPED_TRACE("call " + std::to_string(number));
      restart(before);
      host.failingNumber = number;
      if (number >= quiet.firstCall && number < quiet.endOfCalls) {
        expectCaught();
        continue;
      }
      expectRaised(before.stored);
      EXPECT_EQ(static_cast<int>(host.calls.size()), number + 1)
          << "the host was called after the failure";
    }
    host.failingNumber = -1;
    for (int number = 0; number < steps && !HasFailure(); ++number) {
      SCOPED_TRACE("step " + std::to_string(number));
      restart(before);
      host.failingStep = number;
      if (number >= quiet.firstStep && number < quiet.endOfSteps) {
        expectCaught();
        continue;
      }
      expectRaised(before.stored);
      EXPECT_EQ(host.tableSteps, number + 1) << "the table was used after the failure";
    }
  }

  int calls = 0;
  int steps = 0;
};

TEST_F(FailingSaveTest, AFailureAtAnyCallOfALoadOrSaveIsRaisedAsItCame) {
  walk();
  EXPECT_GT(calls, 300);
  EXPECT_GT(steps, 50);
}

TEST_F(FailingSaveTest, AFailureAtAnyCallOfAFirstUseIsRaisedExceptForItsCurrencies) {
  options_.FirstUse = true;
  walk();
  EXPECT_GT(calls, 300);
  EXPECT_GT(steps, 50);
}

}  // namespace
}  // namespace tillora::testing
