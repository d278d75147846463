#include "operations/frmEODDefaultReports.h"

#include "operations/report_captions.h"
#include "tests/testing/function_ref.h"
#include "tests/testing/options_test.h"

namespace tillora::testing {
namespace {

using ui::Key;

constexpr int kReports = 9;
constexpr std::int32_t kAllReports = 0x1FF;
constexpr std::int32_t kDrawerBit = 0x200;

class EODDefaultReportsTest : public OptionsTest {
 protected:
  EODDefaultReportsTest() {
    messages.setSettings(options_.SettingsObject);
    for (const ReportCaption& title : kReportTitles) titles.emplace_back(title.standard);
  }
  void TearDown() override {
    messages.setSettings(nullptr);
    OptionsTest::TearDown();
  }

  struct Result {
    bool cancelled = false;
    std::int32_t bits = 0;
  };
  /// Shows the dialog; without another end it is closed by its close box after `act`.
  Result choose(std::int32_t bits, bool forced,
                const FunctionRef<void(frmEODDefaultReports&)>& act) {
    frmEODDefaultReports dialog(desk->screen(), messages);
    dialog.AppObject = options_.AppObject;
    dialog.Titles = titles;
    dialog.ReportBits = bits;
    dialog.ForceBalanceReport = forced;
    desk->whenShown([&](ui::Form&) { act(dialog); });
    dialog.showModal();
    return {dialog.Cancelled(), dialog.ReportBits};
  }
  static std::int32_t shown(const frmEODDefaultReports& dialog) {
    std::int32_t mask = 0;
    for (const auto& [index, box] : dialog.chkReports) mask |= box->value() ? 1 << index : 0;
    return mask;
  }
  void expectRefusal() {
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(boxes.shown[0].text, host.title +
                                       u" requires at least one report to be selected.\r\n\r\n"
                                       u"Select at least one report before applying your changes.");
    EXPECT_EQ(boxes.shown[0].title, u"No reports selected");
    EXPECT_EQ(boxes.shown[0].style, 48);
    EXPECT_TRUE(boxes.shown[0].settingsGiven);
    boxes.shown.clear();
  }

  Messages messages{desk->screen(), boxes};
  std::vector<Text> titles;
};

TEST_F(EODDefaultReportsTest, AnAmpersandMarksAnAccessKeyBeforeALetterButNotBeforeABlank) {
  titles[static_cast<std::size_t>(ReportTitle::balance)] = u"Profit & Loss";
  titles[static_cast<std::size_t>(ReportTitle::productSales)] = u"&\u00DCbersicht";
  titles[static_cast<std::size_t>(ReportTitle::salesPerson)] = u"Ta&x";
  choose(0, false, [&](frmEODDefaultReports& dialog) {
    EXPECT_EQ(dialog.chkReports[frmEODDefaultReports::drawerBalance].caption(), u"Profit & Loss");
    EXPECT_FALSE(dialog.userAccessKey(u' '));
    EXPECT_TRUE(dialog.userAccessKey(u'\u00FC'));
    user.accessKey(u'x');
    EXPECT_EQ(shown(dialog),
              1 << frmEODDefaultReports::productSales | 1 << frmEODDefaultReports::salesPerson);
  });
}

TEST_F(EODDefaultReportsTest, TheTextsOfTheDialog) {
  choose(0, false, [&](frmEODDefaultReports& dialog) {
    EXPECT_EQ(dialog.caption(), u"Default Reports - EOD Processing");
    EXPECT_EQ(dialog.lblLabel.caption(),
              u"Select the reports that should be automatically printed when performing an "
              u"End-Of-Day report.");
    const std::vector<std::pair<Text, Text>> reports = {
        {u"B&alance Report", u"Print the Drawer Balance Report"},
        {u"&Group Sales Report", u"Print the Group Sales Report"},
        {u"&Department Sales Report", u"Print the Department Sales Report"},
        {u"&Product Sales Report", u"Print the Product Sales Report"},
        {u"C&ustomer Sales Report", u"Print the Account Customer Sales Report"},
        {u"Layby Sales &Report", u"Print the Layby Customer Sales Report"},
        {u"&Sales Person Report", u"Print the Sales Person Report"},
        {u"Ti&me Report", u"Print the Time Report"},
        {u"&Journal Report", u"Print the Sales Journal Report"},
        {u"&Open the Cash Drawer", u"Open the Cash Drawer when printing the reports"}};
    ASSERT_EQ(dialog.chkReports.count(), static_cast<int>(reports.size()));
    for (const auto& [index, box] : dialog.chkReports) {
      EXPECT_EQ(box->caption(), reports[static_cast<std::size_t>(index)].first);
      EXPECT_EQ(box->toolTip(), reports[static_cast<std::size_t>(index)].second);
    }
    const std::vector<std::pair<Text, Text>> commands = {
        {u"OK", u"Save all changes then close this window"},
        {u"&Cancel", u"Cancel all changes and close this window"},
        {u"Select &All", u"Select all the reports"},
        {u"&De-select All", u"De-select all the reports"}};
    for (const auto& [index, command] : dialog.cmdCommand) {
      EXPECT_EQ(command->caption(), commands[static_cast<std::size_t>(index)].first);
      EXPECT_EQ(command->toolTip(), commands[static_cast<std::size_t>(index)].second);
    }
    EXPECT_EQ(dialog.defaultButton(), &dialog.cmdCommand[0]);
    EXPECT_EQ(dialog.cancelButton(), &dialog.cmdCommand[1]);
  });
}

TEST_F(EODDefaultReportsTest, EachBitIsShownInItsBoxAndHandedBack) {
  for (int i = 0; i <= frmEODDefaultReports::openDrawer; ++i) {
    const std::int32_t bits = 1 << i | (i == frmEODDefaultReports::openDrawer ? 1 : 0);
    const Result result = choose(bits, false, [&](frmEODDefaultReports& dialog) {
      EXPECT_EQ(shown(dialog), bits);
      user.press(Key::enter);
    });
    EXPECT_FALSE(result.cancelled);
    EXPECT_EQ(result.bits, bits);
  }
}

TEST_F(EODDefaultReportsTest, EachBoxIsHandedBackAsItsBit) {
  for (int i = 0; i < kReports; ++i) {
    const Result result = choose(0, false, [&](frmEODDefaultReports& dialog) {
      user.click(dialog.chkReports[i]);
      user.click(dialog.cmdCommand[frmEODDefaultReports::ok]);
    });
    EXPECT_EQ(result.bits, 1 << i);
  }
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(EODDefaultReportsTest, OkClearsBitsWithoutABox) {
  const Result result = choose(-1, false, [&](frmEODDefaultReports&) { user.press(Key::enter); });
  EXPECT_EQ(result.bits, kAllReports | kDrawerBit);
}

TEST_F(EODDefaultReportsTest, AForcedBalanceReportIsTickedAndCannotBeUnticked) {
  const Result result = choose(0, true, [&](frmEODDefaultReports& dialog) {
    EXPECT_EQ(shown(dialog), 0x1);
    EXPECT_FALSE(dialog.chkReports[0].enabled());
    user.click(dialog.chkReports[0]);
    EXPECT_TRUE(dialog.chkReports[0].value());
    user.press(Key::enter);
  });
  EXPECT_FALSE(result.cancelled);
  EXPECT_EQ(result.bits, 0x1);
  choose(0, false, [&](frmEODDefaultReports& dialog) {
    EXPECT_TRUE(dialog.chkReports[0].enabled());
    EXPECT_FALSE(dialog.chkReports[0].value());
  });
}

TEST_F(EODDefaultReportsTest, SelectAllLeavesTheDrawerBoxAlone) {
  for (const std::int32_t drawer : {0, kDrawerBit}) {
    const Result result = choose(drawer | 0x4, false, [&](frmEODDefaultReports& dialog) {
      user.click(dialog.cmdCommand[frmEODDefaultReports::selectAll]);
      EXPECT_EQ(shown(dialog), kAllReports | drawer);
      user.click(dialog.cmdCommand[frmEODDefaultReports::deselectAll]);
      EXPECT_EQ(shown(dialog), drawer);
      user.accessKey(u'd');  // the key of a title too: it walks and presses nothing
      EXPECT_EQ(shown(dialog), drawer);
      user.click(dialog.cmdCommand[frmEODDefaultReports::selectAll]);
      user.press(Key::enter);  // in the button that has the focus
      EXPECT_TRUE(dialog.isShown());
      user.click(dialog.cmdCommand[frmEODDefaultReports::ok]);
    });
    EXPECT_EQ(result.bits, kAllReports | drawer);
  }
}

TEST_F(EODDefaultReportsTest, SelectAndDeselectAllLeaveAForcedReportTicked) {
  for (const std::int32_t drawer : {0, kDrawerBit}) {
    choose(drawer, true, [&](frmEODDefaultReports& dialog) {
      user.click(dialog.cmdCommand[frmEODDefaultReports::deselectAll]);
      EXPECT_EQ(shown(dialog), 0x1 | drawer);
      user.click(dialog.cmdCommand[frmEODDefaultReports::selectAll]);
      EXPECT_EQ(shown(dialog), kAllReports | drawer);
      user.click(dialog.cmdCommand[frmEODDefaultReports::deselectAll]);
      EXPECT_EQ(shown(dialog), 0x1 | drawer);
      EXPECT_FALSE(dialog.chkReports[0].enabled());
    });
  }
}

TEST_F(EODDefaultReportsTest, NoReportIsRefusedAndTheDialogStaysOpen) {
  for (const std::int32_t bits : {0, kDrawerBit}) {
    const Result result = choose(bits, false, [&](frmEODDefaultReports& dialog) {
      user.press(Key::enter);
      EXPECT_TRUE(dialog.isShown());
      expectRefusal();
      user.click(dialog.cmdCommand[frmEODDefaultReports::ok]);
      EXPECT_TRUE(dialog.isShown());
      expectRefusal();
      EXPECT_EQ(shown(dialog), bits);
      user.click(dialog.chkReports[8]);
      user.press(Key::enter);
      EXPECT_FALSE(dialog.isShown());
    });
    EXPECT_FALSE(result.cancelled);
    EXPECT_EQ(result.bits, 0x100 | bits);
  }
}

TEST_F(EODDefaultReportsTest, EveryOtherWayOutIsCancelling) {
  const std::vector<std::function<void(frmEODDefaultReports&)>> ways = {
      [&](frmEODDefaultReports&) { user.press(Key::escape); },
      [&](frmEODDefaultReports& dialog) {
        user.click(dialog.cmdCommand[frmEODDefaultReports::cancel]);
      },
      [&](frmEODDefaultReports&) { user.press(Key::f4, {.alt = true}); },
      [&](frmEODDefaultReports& dialog) { user.closeWindow(dialog); },
      [&](frmEODDefaultReports& dialog) {
        user.click(dialog.cmdCommand[frmEODDefaultReports::deselectAll]);
        user.press(Key::enter);
        user.press(Key::escape);
      }};
  for (const auto& leave : ways) {
    const Result result = choose(0x3, false, [&](frmEODDefaultReports& dialog) {
      user.click(dialog.chkReports[5]);
      leave(dialog);
      EXPECT_FALSE(dialog.isShown());
    });
    EXPECT_TRUE(result.cancelled);
    EXPECT_EQ(result.bits, 0x3);
  }
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(EODDefaultReportsTest, EachShowStartsFromItsValues) {
  frmEODDefaultReports dialog(desk->screen(), messages);
  dialog.Titles = titles;
  for (const bool forced : {true, false}) {
    dialog.ReportBits = 0x8;
    dialog.ForceBalanceReport = forced;
    desk->whenShown([&](ui::Form&) {
      EXPECT_EQ(shown(dialog), forced ? 0x9 : 0x8);
      EXPECT_EQ(dialog.chkReports[0].enabled(), !forced);
      user.click(dialog.chkReports[6]);
      user.press(Key::escape);
    });
    dialog.showModal();
    EXPECT_TRUE(dialog.Cancelled());
  }
}

TEST_F(EODDefaultReportsTest, TabWalksFromTheReportsToTheButtons) {
  choose(0x1, false, [&](frmEODDefaultReports& dialog) {
    for (const int report : {0, 3, 6, 7, 8, 1, 2, 5, 4, 9}) {
      EXPECT_TRUE(dialog.chkReports[report].hasFocus()) << report;
      user.press(Key::tab);
    }
    for (const int command : {frmEODDefaultReports::selectAll, frmEODDefaultReports::deselectAll,
                              frmEODDefaultReports::ok, frmEODDefaultReports::cancel}) {
      EXPECT_TRUE(dialog.cmdCommand[command].hasFocus()) << command;
      user.press(Key::tab);
    }
  });
}

TEST_F(EODDefaultReportsTest, ReportsAreChosenByKeyboardAlone) {
  const Result result = choose(0x1, false, [&](frmEODDefaultReports& dialog) {
    user.accessKey(u'j');
    user.accessKey(u'o');
    user.press(Key::tab);
    user.press(Key::space);
    EXPECT_EQ(shown(dialog), kAllReports | kDrawerBit);
    user.accessKey(u'p');
    user.press(Key::enter);
  });
  EXPECT_EQ(result.bits, (kAllReports | kDrawerBit) & ~0x8);
}

TEST_F(EODDefaultReportsTest, EverythingFitsIntoTheDialog) {
  choose(0, false, [&](frmEODDefaultReports& dialog) {
    const auto& screen = desk->screen();
    int top = dialog.clientSize().height;
    for (const auto& [index, command] : dialog.cmdCommand) {
      EXPECT_GE(command->bounds().left, 0);
      EXPECT_LE(command->bounds().right(), dialog.clientSize().width);
      EXPECT_LE(command->bounds().bottom(), dialog.clientSize().height);
      top = std::min(top, command->bounds().top);
    }
    for (const auto& [index, box] : dialog.chkReports) {
      EXPECT_LT(box->bounds().bottom(), top) << index;
      EXPECT_LE(box->bounds().right(), dialog.clientSize().width);
    }
    EXPECT_GE(dialog.lblLabel.bounds().width, screen.textWidth(dialog.lblLabel.caption()));
  });
}

TEST_F(EODDefaultReportsTest, AVeryLongTitleIsShownAsItIs) {
  titles[0] = Text(10000, u'W');
  titles[4] = u"";
  choose(0x1, false, [&](frmEODDefaultReports& dialog) {
    EXPECT_EQ(dialog.chkReports[0].caption(), titles[0]);
    EXPECT_LE(dialog.chkReports[0].bounds().right(), dialog.clientSize().width);
    EXPECT_EQ(dialog.chkReports[3].caption(), u"");
    user.press(Key::enter);
    EXPECT_FALSE(dialog.isShown());
  });
}

TEST_F(EODDefaultReportsTest, TheTitleOfTheProgramIsReadWhenItIsNeeded) {
  const auto calls = [&] { return host.callsStarting("Title").size(); };
  choose(0, false, [&](frmEODDefaultReports&) {
    EXPECT_EQ(calls(), 0U);
    host.title = u"Tillora Back Office";
    user.press(Key::enter);
    EXPECT_EQ(calls(), 1U);
    expectRefusal();
  });
}

TEST_F(EODDefaultReportsTest, AFailureOfTheHostIsRaised) {
  host.failingCall = "Title";
  EXPECT_THROW(choose(0, false, [&](frmEODDefaultReports&) { user.press(Key::enter); }), Error);
  EXPECT_TRUE(boxes.shown.empty());
}

}  // namespace
}  // namespace tillora::testing
