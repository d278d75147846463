#include "component/options.h"

#include <algorithm>

#include "identity/company_details.h"
#include "operations/report_captions.h"
#include "sales/currency_conversion.h"
#include "sales/rounding.h"
#include "tests/testing/options_test.h"

namespace tillora::testing {
namespace {

class ShowOptionsTest : public OptionsTest {
 protected:
  Error raised() {
    try {
      options_.ShowOptions();
    } catch (const Error& failure) {
      return failure;
    }
    ADD_FAILURE() << "nothing was raised";
    return {0, u"", u""};
  }
};

TEST_F(ShowOptionsTest, StartsWithNothingSet) {
  const Options fresh(machine.platform(desk->screen(), boxes));
  EXPECT_EQ(fresh.DBJetObject, nullptr);
  EXPECT_FALSE(fresh.FirstUse);
  EXPECT_EQ(fresh.SelectedTab, 0);
  EXPECT_EQ(fresh.LVFileExtension, u"");
  EXPECT_FALSE(fresh.ChangedDataFile());
}

TEST_F(ShowOptionsTest, CancelReturnsTrueAndRaisesNothing) {
  open([&](frmOptions& dialog) { user.click(dialog.cmdCommand[frmOptions::cancel]); });
  EXPECT_TRUE(changes.empty());
  EXPECT_FALSE(options_.ChangedDataFile());
}

TEST_F(ShowOptionsTest, TheOrderOfTheLoadIsTitleRecordThenTabs) {
  host.dispensingAvailable = true;
  host.randomPrices = {{{u"Prefix", std::int32_t{20}}}};
  open([&](frmOptions&) {});
  // The captions of the reports follow the last option of their tab; the list below leaves them
  // out.
  std::vector<std::string> captions = {"get EODDefaultReportBits"};
  for (const auto& title : kReportTitles) {
    captions.push_back("get setting " + toUtf8(title.setting));
  }
  for (const auto& detail : kReportDetails) {
    captions.push_back("get setting " + toUtf8(detail.setting));
  }
  const auto found = std::ranges::search(host.calls, captions);
  ASSERT_EQ(found.size(), captions.size());
  host.calls.erase(found.begin() + 1, found.end());
  expectSameCalls(
      host.calls,
      {"Title", "DispensingAvailable", "OptionsRecord",
       // General
       "get CompanyName", "get CompanyAddress", "get CompanyPhone", "get CompanyFax",
       "get CompanyEmail", "get CompanyACN", "get CompanyABN", "get LVClass", "ClassTable",
       "find ClassTable Hidden=False", "get DataFile", "get LVSummariseBits", "Title",
       // Transactions
       "get TransactionOptionBits", "get TerminalIDCaption", "get TransactionNumberCaption",
       "get SalesPersonCaption", "get TaxedSellPriceCaption", "get TaxedWholesaleCaption",
       "get TaxExemptCaption", "get ItemTaxCaption", "get ItemsSoldCaption",
       "get TotalExTaxCaption", "get TaxTotalCaption", "get TotalCaption", "get ChangeCaption",
       "get BalanceDueCaption", "get LaybyOpeningBalanceCaption", "get LaybyClosingBalanceCaption",
       "get LaybyDateDueCaption",
       // Rounding
       "get RoundingDirection", "DecimalPlaces", "CurrencyFormat", "get RoundingStep",
       "get RoundedCaption", "get RoundingVarianceCaption", "get RoundingItem", "get RoundingFlags",
       "get TaxRoundingMode", "get TaxRoundingDirection",
       // Currency
       "DecimalSeparator", "get DefaultCurrencyMargin",
       // Scanning
       "get RandomPriceScanningFlags", "RandomPriceTable", "find RandomPriceTable [Prefix] = 2",
       "update RandomPriceTable",
       // Layby
       "get LaybyStartNumber", "get LaybyTermDays", "get LaybyTermsText", "get LaybyHistoryDays",
       // Lists
       "get SalesPersonListColumns", "get ProductListColumns", "get CustomerListColumns",
       "get LaybyCustomerListColumns", "get CurrencyListColumns",
       // EOD
       "get EODOptionFlags", "get EODReconcileTotalFlags", "get EODHistoryDays",
       "get TimeReportPeriod", "get PrintNRGT", "get EODDefaultReportBits",
       // FRED
       "get FREDPollSeconds", "get FREDDataFile", "get FREDLinkActive",
       // Pump
       "get PumpVolumeUnitCaption", "get PumpPriceUnitCaption", "get PumpOptionBits", "GradeTable",
       // Web
       "WebSiteTable",
       // Security
       "get AdminSecurityBits", "get TerminalSecurityBits", "get PasswordStartAdmin",
       "get PasswordTransferData", "get PasswordPostTransactions", "get PasswordCompactDatabase",
       "get PasswordAdminOptions", "get PasswordDeleteTerminal", "get PasswordChangePrices",
       "get PasswordPromotions", "get PasswordEndOfDay", "get PasswordTerminalOptions",
       "get PasswordGlobalOverride"});
}

TEST_F(ShowOptionsTest, TheLoadReadsEveryOption) {
  host.dispensingAvailable = true;
  open([&](frmOptions&) {});
  for (const OptionInfo& option : kOptionTable) {
    const std::string call = "get " + toUtf8(option.name);
    EXPECT_EQ(std::ranges::count(host.calls, call), 1) << call;
  }
}

TEST_F(ShowOptionsTest, AnObjectThatIsNotSetFailsAtItsFirstUse) {
  const std::vector<std::pair<std::function<void()>, Text>> missing = {
      {[&] { options_.AppObject.reset(); }, u"AppObject was not set."},
      {[&] { options_.DBJetObject.reset(); }, u"DBJetObject was not set."},
      {[&] { options_.SettingsObject.reset(); }, u"SettingsObject was not set."},
  };
  for (const auto& [take, description] : missing) {
    const HostObjects objects = host.objects();
    options_.AppObject = objects.app;
    options_.DBJetObject = objects.database;
    options_.SettingsObject = objects.settings;
    take();
    const Error failure = raised();
    EXPECT_EQ(failure.number(), error::objectNotSet);
    EXPECT_EQ(failure.description(), description);
  }
}

TEST_F(ShowOptionsTest, WithoutAMessageSenderASaveFailsAfterItsCommit) {
  options_.MsgSndObject.reset();
  desk->whenShown([&](ui::Form&) {
    user.type(u"Corner Shop");
    user.accessKey(u'o');
  });
  EXPECT_EQ(raised().description(), u"MsgSndObject was not set.");
  EXPECT_EQ(host.value(options::CompanyName), u"Corner Shop");
  EXPECT_TRUE(changes.empty());
}

TEST_F(ShowOptionsTest, MissingResourceStringsAffectNothingElse) {
  options_.ResourceObject.reset();
  options_.FirstUse = true;
  edit([&](frmOptions&) { user.type(u"Corner Shop"); });
  EXPECT_EQ(host.value(options::CompanyName), u"Corner Shop");
  EXPECT_TRUE(host.currencies.empty());
}

TEST_F(ShowOptionsTest, ShowOptionsWhileADialogIsOpenIsAnErrorAndLeavesIt) {
  Options second(machine.platform(desk->screen(), boxes));
  open([&](frmOptions& dialog) {
    for (Options* caller : {&options_, &second}) {
      try {
        caller->ShowOptions();
        ADD_FAILURE();
      } catch (const Error& failure) {
        EXPECT_EQ(failure.number(), error::alreadyShown);
      }
    }
    EXPECT_TRUE(dialog.isShown());
    user.type(u"Corner Shop");
    user.accessKey(u'o');
  });
  EXPECT_EQ(host.value(options::CompanyName), u"Corner Shop");
}

TEST_F(ShowOptionsTest, ATabSetInACallOfTheLoadIsForTheNextDialog) {
  host.onCall = [this](const std::string&) { options_.SelectedTab = -7; };
  openOn(TabPage::web, [](frmOptions& dialog) {
    EXPECT_EQ(dialog.tabOptions.selected(), static_cast<int>(TabPage::web));
  });
}

TEST_F(ShowOptionsTest, AFailedShowLeavesNoDialogOpen) {
  options_.SelectedTab = 99;
  EXPECT_EQ(raised().number(), error::indexOutOfBounds);
  options_.SelectedTab = 0;
  open([&](frmOptions& dialog) { EXPECT_TRUE(dialog.isShown()); });
}

TEST_F(ShowOptionsTest, AFailureInsideTheDialogEndsItAndIsRaised) {
  host.failingCall = "commit";
  bool shownAfterwards = false;
  desk->whenShown([&](ui::Form& form) {
    user.type(u"x");
    user.accessKey(u'a');
    shownAfterwards = form.isShown();
  });
  const Error failure = raised();
  EXPECT_EQ(failure.number(), FakeHost::failure().number());
  EXPECT_EQ(failure.source(), u"Shop.Database");
  EXPECT_EQ(failure.description(), u"The shop database cannot be opened.");
  EXPECT_FALSE(shownAfterwards);
  EXPECT_TRUE(host.stored.empty());
  EXPECT_TRUE(host.sent.empty());
}

TEST_F(ShowOptionsTest, TwoAppliesRaiseTwoEventsEachWithItsOwnChanges) {
  saveDefaults();
  open([&](frmOptions& dialog) {
    user.clickTab(dialog.tabOptions, static_cast<int>(TabPage::rounding));
    user.click(dialog.tabs().rounding.chkRounding[0]);
    user.click(dialog.cmdCommand[frmOptions::apply]);
    user.clickTab(dialog.tabOptions, static_cast<int>(TabPage::currency));
    user.click(dialog.tabs().currencyConversion.txtCurrencyConversion[0]);
    user.type(u"5");
    user.click(dialog.cmdCommand[frmOptions::apply]);
  });
  EXPECT_EQ(changes, (std::vector<std::int32_t>{512, 2048}));
}

TEST_F(ShowOptionsTest, FirstUseSavesTheDefaultsWhileLoading) {
  options_.FirstUse = true;
  open([&](frmOptions& dialog) {
    EXPECT_FALSE(applyEnabled(dialog));
    EXPECT_EQ(host.sent.size(), 1U);
    user.click(dialog.cmdCommand[frmOptions::ok]);
  });
  EXPECT_EQ(changes.size(), 1U);
  EXPECT_EQ(host.value(options::CompanyName), u"");
  EXPECT_EQ(host.value(options::LVClass), u"");
}

TEST_F(ShowOptionsTest, FirstUseMakesTheDefaultCurrenciesOnce) {
  host.currencies.push_back({{u"Name", Text(u"Local")}});
  options_.FirstUse = true;
  open([&](frmOptions&) {});
  open([&](frmOptions&) {});
  ASSERT_EQ(host.currencies.size(), 2U);
  EXPECT_EQ(host.currencies[1].at(u"Name").get<Text>(), u"Foreign");
}

TEST_F(ShowOptionsTest, FirstUseGoesOnWhenItsCurrenciesFail) {
  for (const std::string call : {"CurrencyTable", "string 20000", "update CurrencyTable"}) {
    host.failingCall = call;
    host.sent.clear();
    options_.FirstUse = true;
    open([&](frmOptions& dialog) { EXPECT_FALSE(applyEnabled(dialog)); });
    EXPECT_EQ(host.sent.size(), 1U) << call;
  }
}

TEST_F(ShowOptionsTest, AsItClosesTheDialogReleasesAllButSenderAndStrings) {
  const std::vector<std::function<void(frmOptions&)>> ways = {
      [&](frmOptions& dialog) { user.click(dialog.cmdCommand[frmOptions::ok]); },
      [&](frmOptions& dialog) { user.click(dialog.cmdCommand[frmOptions::cancel]); },
      [&](frmOptions& dialog) { user.closeWindow(dialog); },
  };
  for (const auto& leave : ways) {
    open([&](frmOptions& dialog) {
      EXPECT_GT(options_.DBJetObject.use_count(), 1);
      EXPECT_GT(options_.AppObject.use_count(), 1);
      EXPECT_GT(options_.SettingsObject.use_count(), 1);
      leave(dialog);
      EXPECT_EQ(options_.DBJetObject.use_count(), 1);
      EXPECT_EQ(options_.AppObject.use_count(), 1);
      EXPECT_EQ(options_.SettingsObject.use_count(), 1);
      EXPECT_EQ(options_.MsgSndObject.use_count(), 2);
      EXPECT_EQ(options_.ResourceObject.use_count(), 2);
    });
    EXPECT_EQ(options_.MsgSndObject.use_count(), 1);
    EXPECT_EQ(options_.ResourceObject.use_count(), 1);
  }
}

TEST_F(ShowOptionsTest, ADialogClosedByItsButtonsIsHiddenBeforeTheHostsObjectsAreReleased) {
  const std::shared_ptr<App> app = options_.AppObject;
  for (const int button : {frmOptions::ok, frmOptions::cancel}) {
    frmOptions* shownDialog = nullptr;
    std::vector<bool> shownAtRelease;
    options_.AppObject = std::shared_ptr<App>(
        app.get(), [&](App*) { shownAtRelease.push_back(shownDialog->isShown()); });
    open([&](frmOptions& dialog) {
      shownDialog = &dialog;
      options_.AppObject.reset();
      EXPECT_TRUE(shownAtRelease.empty());
      user.click(dialog.cmdCommand[button]);
      EXPECT_EQ(shownAtRelease, std::vector<bool>{false});
    });
  }
}

TEST_F(ShowOptionsTest, AFirstUseMakesItsRecordsBetweenTheLoadAndTheSave) {
  options_.FirstUse = true;
  open([](frmOptions&) {});
  const std::vector<std::string> expected = {
      "get PasswordGlobalOverride",  // the last of the load
      "CurrencyTable",
      "string 20000",
      "find CurrencyTable [Name] = 'Local'",
      "update CurrencyTable",
      "string 20001",
      "find CurrencyTable [Name] = 'Foreign'",
      "update CurrencyTable",
      "Title",
      "Path",
      "OptionsRecord",
      "put CompanyName",
  };
  EXPECT_EQ(std::ranges::search(host.calls, expected).size(), expected.size());
  EXPECT_EQ(host.callsStarting("OptionsRecord").size(), 2U);
  EXPECT_EQ(host.callsStarting("CurrencyTable").size(), 1U);
  ASSERT_GE(host.calls.size(), 2U);
  EXPECT_EQ(*(host.calls.end() - 2), "commit");
  EXPECT_EQ(host.calls.back(), "send");
}

TEST_F(ShowOptionsTest, EachRecordIsReleasedBeforeTheNextStep) {
  std::vector<std::string> seen;
  host.onCall = [&](const std::string& call) {
    if (call != "CurrencyTable" && call != "string 20000" && call != "send") return;
    seen.push_back(call);
    EXPECT_EQ(host.liveRecords, 0) << call;
  };
  options_.OptionsChanged = [&](std::int32_t&) {
    seen.emplace_back("event");
    EXPECT_EQ(host.liveRecords, 0);
  };
  options_.FirstUse = true;
  edit([&](frmOptions&) {
    EXPECT_EQ(host.liveRecords, 0);
    user.type(u"x");
  });
  EXPECT_EQ(seen, (std::vector<std::string>{"CurrencyTable", "string 20000", "send", "event",
                                            "send", "event"}));
}

}  // namespace
}  // namespace tillora::testing
