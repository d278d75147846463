#include "operations/end_of_day.h"

#include <algorithm>

#include "identity/company_details.h"
#include "operations/frmEODDefaultReports.h"
#include "operations/frmReportCaptions.h"
#include "operations/report_captions.h"
#include "sales/list_columns.h"
#include "tests/testing/function_ref.h"
#include "tests/testing/options_test.h"

namespace tillora::testing {
namespace {

using ui::Key;

constexpr int kChecks = 9;
constexpr int kTotals = 5;
constexpr std::int32_t bit(int index) { return std::int32_t{1} << index; }

class EndOfDayTest : public OptionsTest {
 protected:
  static EndOfDay& part(frmOptions& dialog) { return dialog.tabs().endOfDay; }
  static ui::CheckBox& check(frmOptions& dialog, int index) { return part(dialog).chkEOD[index]; }
  static ui::CheckBox& total(frmOptions& dialog, int index) {
    return part(dialog).chkEODReconcile[index];
  }
  static ui::TextBox& days(frmOptions& dialog) { return part(dialog).txtEOD; }
  static ui::ComboBox& period(frmOptions& dialog) { return part(dialog).cboTimeReportPeriod; }
  static ui::CommandButton& button(frmOptions& dialog, EndOfDay::Command which) {
    return part(dialog).cmdReports[which];
  }

  void openPage(const FunctionRef<void(frmOptions&)>& act) { openOn(TabPage::eod, act); }
  /// Opens the tab and presses OK after `act`.
  void editPage(const FunctionRef<void(frmOptions&)>& act) {
    openPage([&](frmOptions& dialog) {
      act(dialog);
      user.accessKey(u'o');
      EXPECT_FALSE(dialog.isShown());
    });
  }
  void apply(frmOptions& dialog) { user.click(dialog.cmdCommand[frmOptions::apply]); }
  /// An edit that is saved as what was there before.
  void touch(frmOptions& dialog) {
    user.click(part(dialog).chkReports[0]);
    user.click(part(dialog).chkReports[0]);
  }

  static std::int32_t shownBits(const ui::ControlArray<ui::CheckBox>& boxes) {
    std::int32_t mask = 0;
    for (const auto& [index, box] : boxes) mask |= box->value() ? bit(index) : 0;
    return mask;
  }
  void expectReconciliation(frmOptions& dialog, bool enabled) {
    for (int i = 0; i < kTotals; ++i) EXPECT_EQ(total(dialog, i).enabled(), enabled) << i;
    EXPECT_EQ(part(dialog).lblEOD[EndOfDay::showTotals].enabled(), enabled);
    EXPECT_TRUE(part(dialog).lblEOD[EndOfDay::showTotals].visible());
    EXPECT_EQ(part(dialog).lblEOD[EndOfDay::showTotalsShadow].visible(), !enabled);
    for (int i = 0; i < kChecks; ++i) {
      EXPECT_EQ(check(dialog, i).enabled(), enabled || i != EndOfDay::reconcileOnResetOnly) << i;
    }
  }
  void expectRefusal() {
    ASSERT_EQ(boxes.shown.size(), 1U);
    const ShownMessage& message = boxes.shown.front();
    EXPECT_EQ(message.text,
              host.title +
                  u" requires at least one In Drawer total to be calculated when the Reconcile The "
                  u"Cash Drawer option is selected.\r\n\r\n"
                  u"Select at least one In Drawer total before applying your changes.");
    EXPECT_EQ(message.title, u"No In Drawer totals selected");
    EXPECT_EQ(message.style, 48);
    EXPECT_EQ(message.secondaryText, u"");
    EXPECT_EQ(message.pointer, ui::Pointer::hourglass);
    EXPECT_TRUE(message.settingsGiven);
  }
  /// What is shown when the box is left after `text` was pasted.
  Text daysAfter(TextView text) {
    Text shown;
    openPage([&](frmOptions& dialog) {
      user.click(days(dialog));
      user.selectAll();
      if (text.empty()) {
        user.press(Key::del);
      } else {
        user.paste(text);
      }
      user.press(Key::tab);
      shown = days(dialog).text();
      apply(dialog);
      EXPECT_EQ(host.value(options::EODHistoryDays), std::stoi(toUtf8(shown)));
    });
    return shown;
  }
  /// What the person does in the next dialog that opens over the options.
  void inDefaultReports(const std::function<void(frmEODDefaultReports&)>& act) {
    desk->whenShown([=](ui::Form& form) { act(dynamic_cast<frmEODDefaultReports&>(form)); });
  }
  void inCaptions(const std::function<void(frmReportCaptions&)>& act) {
    desk->whenShown([=](ui::Form& form) { act(dynamic_cast<frmReportCaptions&>(form)); });
  }
  /// Renames a title and presses OK.
  void rename(frmOptions& dialog, int title, TextView text) {
    inCaptions([&](frmReportCaptions& captions) {
      user.click(captions.txtReportTitleCaption[title]);
      user.selectAll();
      user.paste(text);
      user.press(Key::enter);
    });
    user.click(button(dialog, EndOfDay::reportCaptions));
  }
};

TEST_F(EndOfDayTest, TheTextsOfThePage) {
  openPage([&](frmOptions& dialog) {
    EXPECT_EQ(part(dialog).fraEndOfDay.caption(), u"E&nd-Of-Day Options");
    EXPECT_EQ(part(dialog).fraReports.caption(), u"Reports Options");
    const std::vector<Text> checks = {u"Reconcile the Cash Drawer",
                                      u"Reconcile on RESET (Z) reports only",
                                      u"Don't allow READ (X) reports",
                                      u"Reset the Transaction Number",
                                      u"Balance report must be selected on RESET (Z) reports",
                                      u"Log off Sales Person after RESET (Z) report",
                                      u"Don't reset # on RESET (Z) reports",
                                      u"Don't show report selection page",
                                      u"Reports must be printed"};
    ASSERT_EQ(part(dialog).chkEOD.count(), kChecks);
    for (int i = 0; i < kChecks; ++i) {
      EXPECT_EQ(check(dialog, i).caption(), checks[static_cast<std::size_t>(i)]);
    }
    const std::vector<Text> totals = {u"Cash In Drawer", u"Cheque In Drawer",
                                      u"Credit Card In Drawer", u"EFT In Drawer",
                                      u"Voucher In Drawer"};
    ASSERT_EQ(part(dialog).chkEODReconcile.count(), kTotals);
    for (int i = 0; i < kTotals; ++i) {
      EXPECT_EQ(total(dialog, i).caption(), totals[static_cast<std::size_t>(i)]);
    }
    const auto& label = part(dialog).lblEOD;
    EXPECT_EQ(label[EndOfDay::historyDays].caption(), u"Number of days to keep historical data");
    EXPECT_EQ(label[EndOfDay::historyNote].caption(), u"(Maximum of 2 years of data allowed)");
    EXPECT_EQ(label[EndOfDay::showTotals].caption(), u"Show on Cash Drawer Reconciliation page...");
    EXPECT_EQ(part(dialog).lblReports[0].caption(), u"P&eriod for Time Report");
    EXPECT_EQ(part(dialog).chkReports[0].caption(), u"&Print the Non-Resetable Grand Total (NRGT)");
    const auto& command = part(dialog).cmdReports;
    EXPECT_EQ(command[0].caption(), u"Default Reports...");
    EXPECT_EQ(command[0].toolTip(), u"Select the default reports for End-Of-Day processing");
    EXPECT_EQ(command[1].caption(), u"Change &Report Captions...");
    EXPECT_EQ(command[1].toolTip(), u"Set captions for the reports");
    EXPECT_EQ(period(dialog).items(),
              (std::vector<Text>{u"Every 15 Minutes", u"Every 30 Minutes", u"Hourly",
                                 u"Every 2 Hours", u"Every 3 Hours", u"Every 4 Hours",
                                 u"Every 6 Hours", u"Every 8 Hours", u"Every 12 Hours"}));
  });
}

TEST_F(EndOfDayTest, NothingStoredShowsTheDefaults) {
  openPage([&](frmOptions& dialog) {
    EXPECT_EQ(shownBits(part(dialog).chkEOD), 0);
    EXPECT_EQ(shownBits(part(dialog).chkEODReconcile), 0);
    expectReconciliation(dialog, false);
    EXPECT_EQ(days(dialog).text(), u"730");
    EXPECT_EQ(period(dialog).text(), u"Hourly");
    EXPECT_FALSE(part(dialog).chkReports[0].value());
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(EndOfDayTest, FirstUseStoresTheDefaults) {
  saveDefaults();
  EXPECT_EQ(host.value(options::EODOptionFlags), 0);
  EXPECT_EQ(host.value(options::EODReconcileTotalFlags), 0);
  EXPECT_EQ(host.value(options::EODHistoryDays), 730);
  EXPECT_EQ(host.value(options::TimeReportPeriod), 2);
  EXPECT_FALSE(host.value(options::PrintNRGT));
  EXPECT_EQ(host.value(options::EODDefaultReportBits), 0);
  for (const auto& title : kReportTitles)
    EXPECT_EQ(host.settings.at(title.setting), title.standard);
  for (const auto& line : kReportDetails) EXPECT_EQ(host.settings.at(line.setting), line.standard);
}

TEST_F(EndOfDayTest, EachStoredBitTicksItsBox) {
  for (int i = 0; i < kChecks; ++i) {
    host.store(options::EODOptionFlags, bit(i));
    host.store(options::EODReconcileTotalFlags, bit(i % kTotals));
    openPage([&](frmOptions& dialog) {
      EXPECT_EQ(shownBits(part(dialog).chkEOD), bit(i));
      EXPECT_EQ(shownBits(part(dialog).chkEODReconcile), bit(i % kTotals));
      expectReconciliation(dialog, i == EndOfDay::reconcileDrawer);
      EXPECT_FALSE(applyEnabled(dialog));
    });
  }
}

TEST_F(EndOfDayTest, EachBoxEnablesApplyAndIsSavedAsItsBit) {
  host.store(options::EODReconcileTotalFlags, bit(2));
  openPage([&](frmOptions& dialog) {
    for (int i = 0; i < kChecks; ++i) {
      if (i == EndOfDay::reconcileOnResetOnly) continue;
      user.click(check(dialog, i));
      EXPECT_TRUE(applyEnabled(dialog)) << i;
      apply(dialog);
      EXPECT_FALSE(applyEnabled(dialog)) << i;
      EXPECT_EQ(host.value(options::EODOptionFlags), bit(i));
      user.click(check(dialog, i));
    }
    for (int i = 0; i < kChecks; ++i) user.click(check(dialog, i));
    apply(dialog);
    EXPECT_EQ(host.value(options::EODOptionFlags), 0x1FF);
    user.click(total(dialog, 2));
    for (int i = 0; i < kTotals; ++i) {
      user.click(total(dialog, i));
      EXPECT_TRUE(applyEnabled(dialog)) << i;
      apply(dialog);
      EXPECT_EQ(host.value(options::EODReconcileTotalFlags), bit(i));
      user.click(total(dialog, i));
    }
    for (int i = 0; i < kTotals; ++i) user.click(total(dialog, i));
    apply(dialog);
    EXPECT_EQ(host.value(options::EODReconcileTotalFlags), 0x1F);
  });
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(EndOfDayTest, BitsThatNoBoxOwnsAreDropped) {
  for (const std::int32_t mask : {-1, static_cast<std::int32_t>(0x80000001U), 0x7FFFFE13}) {
    host.store(options::EODOptionFlags, mask);
    host.store(options::EODReconcileTotalFlags, mask);
    editPage([&](frmOptions& dialog) { touch(dialog); });
    EXPECT_EQ(host.value(options::EODOptionFlags), mask & 0x1FF);
    EXPECT_EQ(host.value(options::EODReconcileTotalFlags), mask & 0x1F);
  }
}

TEST_F(EndOfDayTest, TheMasksAreSavedAsZeroFirstAndThenBitByBit) {
  host.store(options::EODOptionFlags, 0x101);
  host.store(options::EODReconcileTotalFlags, 0x10);
  editPage([&](frmOptions& dialog) {
    touch(dialog);
    host.calls.clear();
  });
  const std::vector<std::string> expected = {"put EODOptionFlags",
                                             "get EODOptionFlags",
                                             "put EODOptionFlags",
                                             "get EODOptionFlags",
                                             "put EODOptionFlags",
                                             "put EODReconcileTotalFlags",
                                             "get EODReconcileTotalFlags",
                                             "put EODReconcileTotalFlags",
                                             "put EODHistoryDays",
                                             "put TimeReportPeriod",
                                             "put PrintNRGT",
                                             "put EODDefaultReportBits"};
  EXPECT_EQ(std::ranges::search(host.calls, expected).size(), expected.size());
}

TEST_F(EndOfDayTest, ReconcilingEnablesItsGroupAsOneAndKeepsItsTicks) {
  host.store(options::EODOptionFlags, 0x2);
  host.store(options::EODReconcileTotalFlags, 0x15);
  openPage([&](frmOptions& dialog) {
    expectReconciliation(dialog, false);
    for (const bool on : {true, false, true}) {
      user.click(check(dialog, EndOfDay::reconcileDrawer));
      expectReconciliation(dialog, on);
      EXPECT_TRUE(check(dialog, EndOfDay::reconcileOnResetOnly).value());
      EXPECT_EQ(shownBits(part(dialog).chkEODReconcile), 0x15);
    }
    user.click(total(dialog, 0));
    user.click(check(dialog, EndOfDay::reconcileDrawer));
    user.click(dialog.cmdCommand[frmOptions::ok]);
  });
  EXPECT_EQ(host.value(options::EODOptionFlags), 0x2);
  EXPECT_EQ(host.value(options::EODReconcileTotalFlags), 0x14);
}

TEST_F(EndOfDayTest, ADisabledTotalCannotBeClicked) {
  openPage([&](frmOptions& dialog) {
    user.click(total(dialog, 0));
    user.click(check(dialog, EndOfDay::reconcileOnResetOnly));
    EXPECT_FALSE(total(dialog, 0).value());
    EXPECT_FALSE(check(dialog, EndOfDay::reconcileOnResetOnly).value());
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(EndOfDayTest, TheDisabledLabelIsEngraved) {
  openPage([&](frmOptions& dialog) {
    const ui::Size pixel = desk->screen().twipsPerPixel();
    const ui::Label& label = part(dialog).lblEOD[EndOfDay::showTotals];
    const ui::Label& shadow = part(dialog).lblEOD[EndOfDay::showTotalsShadow];
    EXPECT_EQ(shadow.caption(), label.caption());
    EXPECT_EQ(shadow.foreColour(), ui::kButtonHighlight);
    EXPECT_EQ(shadow.bounds().left, label.bounds().left + pixel.width);
    EXPECT_EQ(shadow.bounds().top, label.bounds().top + pixel.height);
    EXPECT_GT(label.stacking(), shadow.stacking());
  });
}

TEST_F(EndOfDayTest, EachPeriodIsLoadedAndSavedByItsPosition) {
  for (std::int32_t i = 0; i < 9; ++i) {
    host.store(options::TimeReportPeriod, i);
    openPage([&](frmOptions& dialog) {
      EXPECT_EQ(period(dialog).listIndex(), i);
      EXPECT_FALSE(applyEnabled(dialog));
      user.choose(period(dialog), (i + 1) % 9);
      EXPECT_TRUE(applyEnabled(dialog));
      apply(dialog);
    });
    EXPECT_EQ(host.value(options::TimeReportPeriod), (i + 1) % 9);
  }
}

TEST_F(EndOfDayTest, APeriodOutsideTheListShowsHourlyAndIsSavedAsIt) {
  for (const auto stored :
       std::initializer_list<std::int32_t>{-1, 9, 32767, 99999, 2147483647, -32769}) {
    host.store(options::TimeReportPeriod, stored);
    editPage([&](frmOptions& dialog) {
      EXPECT_EQ(period(dialog).text(), u"Hourly");
      EXPECT_FALSE(applyEnabled(dialog));
      touch(dialog);
    });
    EXPECT_EQ(host.value(options::TimeReportPeriod), 2);
  }
}

TEST_F(EndOfDayTest, PrintingTheGrandTotalIsLoadedAndSaved) {
  host.store(options::PrintNRGT, true);
  editPage([&](frmOptions& dialog) {
    EXPECT_TRUE(part(dialog).chkReports[0].value());
    user.click(part(dialog).chkReports[0]);
    EXPECT_TRUE(applyEnabled(dialog));
  });
  EXPECT_FALSE(host.value(options::PrintNRGT));
  editPage([&](frmOptions&) { user.accessKey(u'p'); });
  EXPECT_TRUE(host.value(options::PrintNRGT));
}

TEST_F(EndOfDayTest, HistoryDaysTakeDigitsOnly) {
  openPage([&](frmOptions& dialog) {
    user.click(days(dialog));
    EXPECT_EQ(days(dialog).selText(), u"730");
    user.type(u"a-1 .5x,e\u007f");
    EXPECT_EQ(days(dialog).text(), u"15");
    user.press(Key::backspace);
    EXPECT_EQ(days(dialog).text(), u"1");
    EXPECT_TRUE(applyEnabled(dialog));
    user.press(Key::tab);
    EXPECT_EQ(days(dialog).text(), u"1");
  });
}

TEST_F(EndOfDayTest, HistoryDaysOutOfRangeBecomeTheMost) {
  for (const TextView text : {u"", u"0", u"-1", u"731", u"99999", u"99999999999999999999", u"abc",
                              u"1 2 3", u" ", u"&H10", u"0.4", u"1e400"}) {
    EXPECT_EQ(daysAfter(text), u"730") << toUtf8(text);
  }
}

TEST_F(EndOfDayTest, HistoryDaysThatAreANumberAreShownAsWholeOnes) {
  const std::vector<std::pair<Text, Text>> cases = {
      {u"1", u"1"},     {u"730", u"730"}, {u"030", u"30"},    {u" 45 ", u"45"},
      {u"12.5", u"12"}, {u"12.6", u"13"}, {u"730.4", u"730"}, {u"1e2", u"100"},
      {u"0.6", u"1"},   {u"$30", u"30"},  {u"365", u"365"}};
  for (const auto& [text, shown] : cases) EXPECT_EQ(daysAfter(text), shown) << toUtf8(text);
}

TEST_F(EndOfDayTest, OkCorrectsTheDaysBeforeItSaves) {
  for (const bool byEnter : {true, false}) {
    openPage([&](frmOptions& dialog) {
      user.click(days(dialog));
      user.selectAll();
      user.paste(u"99999");
      EXPECT_EQ(days(dialog).text(), u"99999");
      byEnter ? user.press(Key::enter) : user.accessKey(u'o');
      EXPECT_FALSE(dialog.isShown());
    });
    EXPECT_EQ(host.value(options::EODHistoryDays), 730);
    host.stored.clear();
  }
}

TEST_F(EndOfDayTest, TabbingOverTheDaysIsNotAnEdit) {
  host.store(options::EODHistoryDays, 30);
  openPage([&](frmOptions& dialog) {
    user.click(days(dialog));
    user.press(Key::tab);
    EXPECT_EQ(days(dialog).text(), u"30");
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(EndOfDayTest, StoredDaysOutOfRangeShowTheMostAndAreSavedAsIt) {
  for (const auto stored :
       std::initializer_list<std::int32_t>{0, -1, 731, 32767, 36500, 40000, 2147483647, -32769}) {
    host.store(options::EODHistoryDays, stored);
    editPage([&](frmOptions& dialog) {
      EXPECT_EQ(days(dialog).text(), u"730") << stored;
      EXPECT_FALSE(applyEnabled(dialog));
      touch(dialog);
    });
    EXPECT_EQ(host.value(options::EODHistoryDays), 730);
  }
  for (const auto stored : std::initializer_list<std::int32_t>{1, 729, 730}) {
    host.store(options::EODHistoryDays, stored);
    editPage([&](frmOptions& dialog) { touch(dialog); });
    EXPECT_EQ(host.value(options::EODHistoryDays), stored);
  }
}

TEST_F(EndOfDayTest, ReconcilingWithoutATotalIsRefusedAndWritesNothing) {
  saveDefaults();
  host.store(options::EODOptionFlags, 0x1);
  host.store(options::EODReconcileTotalFlags, 0x1);
  const auto stored = host.stored;
  const auto settings = host.settings;
  open([&](frmOptions& dialog) {
    user.type(u"Corner Shop");
    user.clickTab(dialog.tabOptions, 8);
    user.click(total(dialog, 0));
    user.clickTab(dialog.tabOptions, 1);
    host.calls.clear();
    bool seen = false;
    boxes.onShow = [&](const ShownMessage&) {
      seen = true;
      EXPECT_EQ(dialog.tabOptions.selected(), 8);
      EXPECT_TRUE(total(dialog, 0).hasFocus());
    };
    user.click(dialog.cmdCommand[frmOptions::ok]);
    boxes.onShow = nullptr;

    EXPECT_TRUE(seen);
    EXPECT_TRUE(dialog.isShown());
    EXPECT_EQ(host.calls, (std::vector<std::string>{"Title", "Path"}));
    EXPECT_EQ(host.stored, stored);
    EXPECT_EQ(host.settings, settings);
    EXPECT_TRUE(host.sent.empty());
    EXPECT_TRUE(changes.empty());
    EXPECT_TRUE(applyEnabled(dialog));
    EXPECT_TRUE(dialog.fraFrame[7].visible());
    EXPECT_FALSE(dialog.fraFrame[0].visible());
    EXPECT_EQ(dialog.helpContext(), 24);
    EXPECT_TRUE(total(dialog, 0).hasFocus());
    EXPECT_EQ(desk->screen().pointer(), ui::Pointer::standard);

    user.press(Key::space);
    EXPECT_TRUE(total(dialog, 0).value());
    user.accessKey(u'o');
    EXPECT_FALSE(dialog.isShown());
  });
  expectRefusal();
  EXPECT_EQ(host.value(options::CompanyName), u"Corner Shop");
  EXPECT_EQ(host.value(options::EODReconcileTotalFlags), 0x1);
}

TEST_F(EndOfDayTest, UntickingEveryTotalBlocksApplyAndAnyOneTotalLetsItThrough) {
  host.store(options::EODOptionFlags, 0x1);
  host.store(options::EODReconcileTotalFlags, 0x1F);
  openPage([&](frmOptions& dialog) {
    for (int i = 0; i < kTotals; ++i) user.click(total(dialog, i));
    apply(dialog);
    expectRefusal();
    EXPECT_TRUE(applyEnabled(dialog));
    EXPECT_TRUE(host.callsStarting("put").empty());
    for (int i = 0; i < kTotals; ++i) {
      user.click(total(dialog, i));
      apply(dialog);
      EXPECT_FALSE(applyEnabled(dialog)) << i;
      user.click(total(dialog, i));
    }
    user.click(check(dialog, EndOfDay::reconcileDrawer));
    apply(dialog);
    EXPECT_FALSE(applyEnabled(dialog));
  });
  EXPECT_EQ(boxes.shown.size(), 1U);
  EXPECT_EQ(host.value(options::EODOptionFlags), 0);
  EXPECT_EQ(host.value(options::EODReconcileTotalFlags), 0);
}

TEST_F(EndOfDayTest, ColumnsAreRefusedBeforeTotals) {
  saveDefaults();
  host.store(options::EODOptionFlags, 0x1);
  host.store(options::CurrencyListColumns, 0);
  openPage([&](frmOptions& dialog) {
    touch(dialog);
    apply(dialog);
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(boxes.shown[0].title, u"Not enough columns");
    EXPECT_EQ(dialog.tabOptions.selected(), 2);
    user.clickCheck(dialog.tabs().listColumns.lstListShow[ListColumns::currency], 0);
    boxes.shown.clear();
    apply(dialog);
    expectRefusal();
    EXPECT_EQ(dialog.tabOptions.selected(), 8);
  });
}

TEST_F(EndOfDayTest, ARefusedFirstUseOpensOnTheFirstTotalWithApplyEnabled) {
  host.store(options::EODOptionFlags, 0x1);
  options_.FirstUse = true;
  open([&](frmOptions& dialog) {
    expectRefusal();
    EXPECT_EQ(dialog.tabOptions.selected(), 8);
    EXPECT_TRUE(total(dialog, 0).hasFocus());
    EXPECT_TRUE(applyEnabled(dialog));
    EXPECT_TRUE(host.callsStarting("put").empty());
    user.press(Key::space);
    user.accessKey(u'o');
    EXPECT_FALSE(dialog.isShown());
  });
  EXPECT_EQ(host.value(options::EODReconcileTotalFlags), 0x1);
  EXPECT_EQ(host.value(options::EODHistoryDays), 730);
}

TEST_F(EndOfDayTest, ARefusedFirstUseOpensOnTheTabThatTheCallerChose) {
  host.store(options::EODOptionFlags, 0x1);
  options_.FirstUse = true;
  openOn(TabPage::transactions, [&](frmOptions& dialog) {
    EXPECT_EQ(dialog.tabOptions.selected(), 3);
    EXPECT_TRUE(applyEnabled(dialog));
    EXPECT_EQ(dialog.activeControl(), dialog.nextInTabOrder(&dialog.tabOptions));
    EXPECT_TRUE(dialog.fraFrame[2].contains(*dialog.activeControl()));
  });
  expectRefusal();
}

TEST_F(EndOfDayTest, NoChangeIsRaisedForThisTab) {
  saveDefaults();
  editPage([&](frmOptions& dialog) {
    for (int i = 0; i < kChecks; ++i) user.click(check(dialog, i));
    user.click(total(dialog, 3));
    user.click(days(dialog));
    user.type(u"9");
    user.choose(period(dialog), 0);
    user.click(part(dialog).chkReports[0]);
    rename(dialog, 0, u"Balance");
  });
  EXPECT_EQ(changes, std::vector<std::int32_t>{0});
  EXPECT_EQ(host.value(options::EODOptionFlags), 0x1FD | 0x2);
}

TEST_F(EndOfDayTest, DefaultReportsAreTakenOverByOkAndSavedByApply) {
  host.store(options::EODDefaultReportBits, 0x201);
  openPage([&](frmOptions& dialog) {
    inDefaultReports([&](frmEODDefaultReports& reports) {
      EXPECT_EQ(shownBits(reports.chkReports), 0x201);
      EXPECT_TRUE(reports.chkReports[0].enabled());
      user.click(reports.chkReports[3]);
      user.press(Key::enter);
    });
    user.click(button(dialog, EndOfDay::defaultReports));
    EXPECT_TRUE(button(dialog, EndOfDay::defaultReports).hasFocus());
    EXPECT_TRUE(applyEnabled(dialog));
    EXPECT_EQ(host.value(options::EODDefaultReportBits), 0x201);

    inDefaultReports([&](frmEODDefaultReports& reports) {
      EXPECT_EQ(shownBits(reports.chkReports), 0x209);
      user.press(Key::escape);
    });
    user.click(button(dialog, EndOfDay::defaultReports));
    apply(dialog);
    EXPECT_EQ(host.value(options::EODDefaultReportBits), 0x209);
  });
}

TEST_F(EndOfDayTest, CancelledDefaultReportsChangeNothing) {
  host.store(options::EODDefaultReportBits, 0x8);
  editPage([&](frmOptions& dialog) {
    const std::vector<std::function<void(frmEODDefaultReports&)>> ways = {
        [&](auto&) { user.press(Key::escape); }, [&](auto&) { user.accessKey(u'c'); },
        [&](auto& reports) { user.closeWindow(reports); }};
    for (const auto& leave : ways) {
      inDefaultReports([&](frmEODDefaultReports& reports) {
        user.click(reports.chkReports[0]);
        leave(reports);
      });
      user.click(button(dialog, EndOfDay::defaultReports));
      EXPECT_FALSE(applyEnabled(dialog));
    }
    touch(dialog);
  });
  EXPECT_EQ(host.value(options::EODDefaultReportBits), 0x8);
}

TEST_F(EndOfDayTest, DefaultReportsThatWereNotOpenedAreSavedAsTheyWere) {
  host.store(options::EODDefaultReportBits, static_cast<std::int32_t>(0x80000401U));
  editPage([&](frmOptions& dialog) { touch(dialog); });
  EXPECT_EQ(host.value(options::EODDefaultReportBits), static_cast<std::int32_t>(0x80000401U));
}

TEST_F(EndOfDayTest, TheBalanceReportIsForcedByItsOptionSavedOrNot) {
  openPage([&](frmOptions& dialog) {
    const auto expectForced = [&](bool forced) {
      inDefaultReports([=](frmEODDefaultReports& reports) {
        EXPECT_EQ(reports.ForceBalanceReport, forced);
        EXPECT_EQ(reports.chkReports[0].enabled(), !forced);
        EXPECT_EQ(reports.chkReports[0].value(), forced);
      });
      user.click(button(dialog, EndOfDay::defaultReports));
    };
    expectForced(false);
    user.click(check(dialog, EndOfDay::balanceReportOnReset));
    expectForced(true);
    apply(dialog);
    expectForced(true);
    user.click(check(dialog, EndOfDay::balanceReportOnReset));
    expectForced(false);
    for (int i = 0; i < kChecks; ++i) {
      if (i != EndOfDay::balanceReportOnReset) user.click(check(dialog, i));
    }
    expectForced(false);
  });
}

TEST_F(EndOfDayTest, CaptionsAreStoredOnlyByApply) {
  const Text setting = kReportTitles[0].setting;
  host.settings[setting] = u"Old";
  openPage([&](frmOptions& dialog) {
    rename(dialog, 0, u"B&alance Report");
    EXPECT_TRUE(button(dialog, EndOfDay::reportCaptions).hasFocus());
    EXPECT_TRUE(applyEnabled(dialog));
    EXPECT_EQ(host.settings, (std::map<Text, Text>{{setting, u"Old"}}));
    apply(dialog);
    EXPECT_EQ(host.settings.at(setting), u"B&alance Report");
    EXPECT_EQ(host.settings.size(), kReportTitles.size() + kReportDetails.size());
  });
  openPage([&](frmOptions& dialog) {
    inCaptions([&](frmReportCaptions& captions) {
      EXPECT_EQ(captions.txtReportTitleCaption[0].text(), u"B&alance Report");
    });
    user.click(button(dialog, EndOfDay::reportCaptions));
  });
}

TEST_F(EndOfDayTest, CaptionsThatWereCancelledOrNotAppliedAreForgotten) {
  openPage([&](frmOptions& dialog) {
    inCaptions([&](frmReportCaptions& captions) {
      user.click(captions.txtReportTitleCaption[0]);
      user.type(u"x");
      user.press(Key::escape);
    });
    user.click(button(dialog, EndOfDay::reportCaptions));
    EXPECT_FALSE(applyEnabled(dialog));
    rename(dialog, 1, u"Dropped");
    user.press(Key::escape);
  });
  EXPECT_TRUE(host.settings.empty());
  openPage([&](frmOptions& dialog) {
    inCaptions([&](frmReportCaptions& captions) {
      for (const auto& [index, box] : captions.txtReportTitleCaption) {
        EXPECT_EQ(box->text(), kReportTitles[static_cast<std::size_t>(index)].standard);
      }
    });
    user.click(button(dialog, EndOfDay::reportCaptions));
  });
}

TEST_F(EndOfDayTest, ARenamedReportHasItsNewNameAmongTheDefaultReportsAtOnce) {
  openPage([&](frmOptions& dialog) {
    rename(dialog, static_cast<int>(ReportTitle::journal), u"Day &book");
    inDefaultReports([&](frmEODDefaultReports& reports) {
      EXPECT_EQ(reports.chkReports[frmEODDefaultReports::salesJournal].caption(), u"Day &book");
      user.accessKey(u'b');
      EXPECT_TRUE(reports.chkReports[frmEODDefaultReports::salesJournal].value());
    });
    user.click(button(dialog, EndOfDay::defaultReports));
  });
}

TEST_F(EndOfDayTest, ARefusedSaveKeepsTheRenamedReportForTheNextOne) {
  host.store(options::EODOptionFlags, 0x1);
  openPage([&](frmOptions& dialog) {
    rename(dialog, 0, u"Balance");
    apply(dialog);
    EXPECT_TRUE(host.settings.empty());
    user.click(total(dialog, 0));
    apply(dialog);
  });
  expectRefusal();
  EXPECT_EQ(host.settings.at(kReportTitles[0].setting), u"Balance");
}

TEST_F(EndOfDayTest, LongAndOddCaptionsAreKept) {
  const Text odd = Text(10000, u'&') + u" 'q' \"\u00e9\u4e2d\r\n ";
  host.settings[kReportTitles[2].setting] = odd;
  host.settings[kReportDetails[1].setting] = u"";
  editPage([&](frmOptions& dialog) {
    inDefaultReports([&](frmEODDefaultReports& reports) {
      EXPECT_EQ(reports.chkReports[frmEODDefaultReports::groupSales].caption(), odd);
    });
    user.click(button(dialog, EndOfDay::defaultReports));
    rename(dialog, 3, Text(10000, u'x'));
    touch(dialog);
  });
  // The dialog found the empty detail caption, filled it and stayed open: nothing was renamed.
  EXPECT_EQ(boxes.shown.size(), 1U);
  EXPECT_EQ(host.settings.at(kReportTitles[2].setting), odd);
  EXPECT_EQ(host.settings.at(kReportTitles[3].setting), kReportTitles[3].standard);
  EXPECT_EQ(host.settings.at(kReportDetails[1].setting), u"");
  host.settings.erase(kReportDetails[1].setting);
  editPage([&](frmOptions& dialog) { rename(dialog, 3, Text(10000, u'x')); });
  EXPECT_EQ(host.settings.at(kReportTitles[3].setting), Text(10000, u'x'));
}

TEST_F(EndOfDayTest, AFailureOfTheSettingsEndsTheSaveBeforeItsCommit) {
  const std::string last = "put setting " + toUtf8(kReportDetails.back().setting);
  host.failingCall = last;
  desk->whenShown([&](ui::Form&) {
    user.type(u"x");
    user.accessKey(u'o');
  });
  EXPECT_THROW(options_.ShowOptions(), Error);
  EXPECT_EQ(host.calls.back(), last);
  EXPECT_TRUE(host.stored.empty());
  EXPECT_TRUE(host.sent.empty());
}

TEST_F(EndOfDayTest, AFailureInADialogOverThisOneIsRaised) {
  desk->whenShown([&](ui::Form& form) {
    auto& dialog = dynamic_cast<frmOptions&>(form);
    user.clickTab(dialog.tabOptions, 8);
    inDefaultReports([&](frmEODDefaultReports&) {
      host.failingCall = "Title";
      user.press(Key::enter);
    });
    user.click(button(dialog, EndOfDay::defaultReports));
  });
  FakeHost::expectFailure([&] { options_.ShowOptions(); });
  EXPECT_TRUE(host.stored.empty());
}

TEST_F(EndOfDayTest, TabWalksThroughThePageInOrder) {
  host.store(options::EODOptionFlags, 0x1);
  openPage([&](frmOptions& dialog) {
    const std::vector<ui::Control*> order = {&check(dialog, 8),
                                             &check(dialog, 3),
                                             &check(dialog, 7),
                                             &check(dialog, 6),
                                             &check(dialog, 5),
                                             &check(dialog, 4),
                                             &check(dialog, 2),
                                             &days(dialog),
                                             &button(dialog, EndOfDay::defaultReports),
                                             &check(dialog, 0),
                                             &check(dialog, 1),
                                             &total(dialog, 0),
                                             &total(dialog, 1),
                                             &total(dialog, 2),
                                             &total(dialog, 3),
                                             &total(dialog, 4),
                                             &period(dialog),
                                             &part(dialog).chkReports[0],
                                             &button(dialog, EndOfDay::reportCaptions)};
    for (std::size_t i = 0; i < order.size(); ++i) {
      EXPECT_TRUE(order[i]->hasFocus()) << i;
      user.press(Key::tab);
    }
    EXPECT_TRUE(dialog.cmdCommand[frmOptions::ok].hasFocus());
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(EndOfDayTest, AccessKeysReachTheirControls) {
  openPage([&](frmOptions& dialog) {
    user.accessKey(u'e');
    EXPECT_TRUE(period(dialog).hasFocus());
    user.accessKey(u'n');
    EXPECT_TRUE(check(dialog, EndOfDay::reportsMustBePrinted).hasFocus());
    EXPECT_FALSE(applyEnabled(dialog));
    inCaptions([](frmReportCaptions&) {});
    user.accessKey(u'r');
    EXPECT_TRUE(button(dialog, EndOfDay::reportCaptions).hasFocus());
    user.accessKey(u'p');
    EXPECT_TRUE(part(dialog).chkReports[0].value());
  });
}

TEST_F(EndOfDayTest, AReportIsRenamedAndItsPeriodChosenByKeyboardAlone) {
  openPage([&](frmOptions& dialog) {
    inCaptions([&](frmReportCaptions&) {
      user.accessKey(u'm');
      user.type(u"Takings by the hour");
      user.press(Key::enter);
    });
    user.accessKey(u'r');
    user.accessKey(u'e');
    user.press(Key::up);
    user.press(Key::enter);
    EXPECT_FALSE(dialog.isShown());
  });
  EXPECT_EQ(host.settings.at(u"ReportTitleTimeReport"), u"Takings by the hour");
  EXPECT_EQ(host.value(options::TimeReportPeriod), 1);
}

TEST_F(EndOfDayTest, WhatIsStoredIsReadAgainByTheNextDialog) {
  editPage([&](frmOptions& dialog) {
    user.click(check(dialog, EndOfDay::reconcileDrawer));
    user.click(total(dialog, 4));
    user.click(days(dialog));
    user.type(u"90");
    user.choose(period(dialog), 8);
    user.click(part(dialog).chkReports[0]);
  });
  openPage([&](frmOptions& dialog) {
    EXPECT_EQ(shownBits(part(dialog).chkEOD), 0x1);
    EXPECT_EQ(shownBits(part(dialog).chkEODReconcile), 0x10);
    expectReconciliation(dialog, true);
    EXPECT_EQ(days(dialog).text(), u"90");
    EXPECT_EQ(period(dialog).text(), u"Every 12 Hours");
    EXPECT_TRUE(part(dialog).chkReports[0].value());
    EXPECT_FALSE(applyEnabled(dialog));
    user.click(check(dialog, EndOfDay::reconcileDrawer));
    user.press(Key::escape);
  });
  EXPECT_EQ(host.value(options::EODOptionFlags), 0x1);
}

TEST_F(EndOfDayTest, NoCaptionIsCutOffAndThePageHoldsAll) {
  openPage([&](frmOptions& dialog) {
    const auto& screen = desk->screen();
    const ui::Frame& page = dialog.fraFrame[7];
    const std::function<void(const ui::Container&)> expectFits = [&](const ui::Container& holder) {
      for (const auto& control : holder.children()) {
        const ui::Rect& place = control->bounds();
        EXPECT_LE(place.right(), holder.bounds().width) << toUtf8(control->caption());
        EXPECT_LE(place.bottom(), holder.bounds().height) << toUtf8(control->caption());
        if (control->kind() == ui::Kind::frame) {
          expectFits(static_cast<const ui::Frame&>(*control));
          continue;
        }
        const int mark = control->kind() == ui::Kind::checkBox ? 240 : 0;
        EXPECT_GE(place.width, screen.textWidth(ui::withoutAccessKey(control->caption())) + mark);
      }
    };
    expectFits(page);
    for (const Text& item : period(dialog).items()) {
      EXPECT_GE(period(dialog).bounds().width, screen.textWidth(item) + 330) << toUtf8(item);
    }
  });
}

}  // namespace
}  // namespace tillora::testing
