#include "component/save_options.h"

#include <algorithm>

#include "identity/company_details.h"
#include "operations/report_captions.h"
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
  EXPECT_EQ(saveCalls, expected);
}

TEST_F(SaveOptionsTest, SendsThePresentTime) {
  applyNothing();
  EXPECT_EQ(host.sent, std::vector<double>{45000.5});
}

TEST_F(SaveOptionsTest, TheEventComesLastWithThePointerAndApplyBackToNormal) {
  options_.OptionsChanged = [&](std::int32_t& mask) {
    changes.push_back(mask);
    EXPECT_EQ(host.calls.back(), "send");
    EXPECT_EQ(desk->screen().pointer(), ui::Pointer::standard);
  };
  applyNothing();
  EXPECT_FALSE(changes.empty());
}

TEST_F(SaveOptionsTest, AHostThatAltersTheMaskChangesNothing) {
  saveDefaults();
  options_.OptionsChanged = [&](std::int32_t& mask) {
    changes.push_back(mask);
    mask = -1;
  };
  open([&](frmOptions& dialog) {
    for (const char16_t letter : {u'a', u'b'}) {
      user.click(dialog.tab<CompanyDetails>().txtCompanyDetails[0]);
      user.type(Text(1, letter));
      user.click(dialog.cmdCommand[frmOptions::apply]);
    }
  });
  EXPECT_EQ(changes, (std::vector<std::int32_t>{0, 0}));
}

TEST_F(SaveOptionsTest, ThePointerIsTheHourglassWhileTheHostWrites) {
  std::vector<ui::Pointer> seen;
  options_.MsgSndObject = [&] {
    struct Sender final : MessageSender {
      Sender(ui::Screen& s, std::vector<ui::Pointer>& p) : screen(s), seen(p) {}
      void send(DateTime) override { seen.push_back(screen.pointer()); }
      ui::Screen& screen;
      std::vector<ui::Pointer>& seen;
    };
    return std::make_shared<Sender>(desk->screen(), seen);
  }();
  edit([&](frmOptions&) { user.type(u"x"); });
  EXPECT_EQ(seen, std::vector<ui::Pointer>{ui::Pointer::hourglass});
}

TEST_F(SaveOptionsTest, AFailureAtAnyCallOfALoadOrSaveIsRaisedAsItCame) {
  const auto run = [&] {
    desk->whenShown([&](ui::Form&) {
      user.type(u"x");
      user.accessKey(u'o');
    });
    return options_.ShowOptions();
  };
  EXPECT_TRUE(run());
  const int calls = static_cast<int>(host.calls.size());
  ASSERT_GT(calls, 20);
  const auto stored = host.stored;
  for (int number = 0; number < calls; ++number) {
    host.calls.clear();
    host.stored = stored;
    host.randomPrices.clear();
    host.failingNumber = number;
    FakeHost::expectFailure(run);
    EXPECT_EQ(static_cast<int>(host.calls.size()), number + 1) << "the host was called on";
    if (host.calls.back() != "send") {
      EXPECT_EQ(host.stored, stored) << number;
    }
    EXPECT_EQ(desk->screen().pointer(), ui::Pointer::standard);
    desk->dropSteps();  // where the load failed no dialog was shown
  }
}

}  // namespace
}  // namespace tillora::testing
