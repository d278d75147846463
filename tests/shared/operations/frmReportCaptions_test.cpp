#include "operations/frmReportCaptions.h"

#include "operations/report_captions.h"
#include "tests/testing/function_ref.h"
#include "tests/testing/options_test.h"

namespace tillora::testing {
namespace {

using ui::Key;

std::vector<Text> defaultsOf(std::span<const ReportCaption> table) {
  std::vector<Text> texts;
  for (const ReportCaption& caption : table) texts.emplace_back(caption.standard);
  return texts;
}

class ReportCaptionsDialogTest : public OptionsTest {
 protected:
  ReportCaptionsDialogTest() {
    messages.setSettings(options_.SettingsObject);
    for (std::size_t i = 0; i < kReportTitles.size(); ++i) {
      titles.push_back(u"Title " + Text(i + 1, u'i'));
    }
    for (std::size_t i = 0; i < kReportDetails.size(); ++i) {
      details.push_back(u"Detail " + Text(i + 1, u'i'));
    }
  }
  void TearDown() override {
    messages.setSettings(nullptr);
    OptionsTest::TearDown();
  }

  /// Shows the dialog with `titles` and `details`, which become what is handed back.
  /// @return whether it was cancelled
  bool show(const FunctionRef<void(frmReportCaptions&)>& act) {
    frmReportCaptions dialog(desk->screen(), messages);
    dialog.Titles = titles;
    dialog.Details = details;
    desk->whenShown([&](ui::Form&) { act(dialog); });
    dialog.showModal();
    titles = dialog.Titles;
    details = dialog.Details;
    return dialog.Cancelled();
  }
  static std::vector<Text> shown(const ui::ControlArray<ui::TextBox>& texts) {
    std::vector<Text> shown;
    for (const auto& [index, box] : texts) shown.push_back(box->text());
    return shown;
  }
  void enter(ui::TextBox& box, TextView text) {
    user.click(box);
    user.selectAll();
    if (text.empty()) {
      user.press(Key::del);
    } else {
      user.paste(text);
    }
  }
  void expectTitlesWarning(const ShownMessage& message) {
    EXPECT_EQ(message.text,
              u"One or more Report Titles are blank.  Report Titles cannot be left blank.\r\n\r\n"
              u"All blank Report Titles will now be filled with their default captions.");
    EXPECT_EQ(message.title, u"Report Titles cannot be blank");
    EXPECT_EQ(message.style, 48);
    EXPECT_TRUE(message.settingsGiven);
  }
  void expectDetailsWarning(const ShownMessage& message) {
    EXPECT_EQ(message.text,
              u"One or more Report Detail captions are blank.  Report Detail captions cannot be "
              u"left blank.\r\n\r\n"
              u"All blank Report Detail captions will now be filled with their default captions.");
    EXPECT_EQ(message.title, u"Report Detail captions cannot be blank");
    EXPECT_EQ(message.style, 48);
    EXPECT_TRUE(message.settingsGiven);
  }

  Messages messages{desk->screen(), boxes};
  std::vector<Text> titles;
  std::vector<Text> details;
};

TEST_F(ReportCaptionsDialogTest, TheTextsOfTheDialog) {
  show([&](frmReportCaptions& dialog) {
    EXPECT_EQ(dialog.caption(), u"Report Captions");
    EXPECT_EQ(dialog.tabReportCaptions.tabs(),
              (std::vector<Text>{u"Report Titles", u"Report Detail Captions"}));
    EXPECT_EQ(dialog.cmdCommand[0].caption(), u"OK");
    EXPECT_EQ(dialog.cmdCommand[1].caption(), u"Cancel");
    const auto& resetTitles = dialog.cmdCommand[2];
    EXPECT_EQ(resetTitles.caption(), u"R&eset Report Title Captions");
    EXPECT_EQ(resetTitles.toolTip(), u"Reset the report titles to the default captions");
    const auto& resetDetails = dialog.cmdCommand[3];
    EXPECT_EQ(resetDetails.caption(), u"R&eset Report Detail Captions");
    EXPECT_EQ(resetDetails.toolTip(), u"Reset the report detail captions to the default captions");
    EXPECT_EQ(
        dialog.lblNote.caption(),
        u"Note: As well as being printed at the top of reports, the Report Titles are displayed as "
        u"lists in some windows such as the report selection window in Process End-Of-Day.  To "
        u"enable a Windows keyboard shortcut for a Report Title in a list add an ampersand (&&) "
        u"character in front of the character to be used as the shortcut.  For example, to use the "
        u"letter 'a' as the shortcut for the Balance Report enter the title as 'B&&alance Report'. "
        u" When the title is printed or displayed in a list the ampersand character itself will "
        u"not be printed or displayed.");
    EXPECT_FALSE(dialog.lblNote.accessKey());
    EXPECT_EQ(dialog.defaultButton(), &dialog.cmdCommand[0]);
    EXPECT_EQ(dialog.cancelButton(), &dialog.cmdCommand[1]);
    EXPECT_EQ(dialog.lblReportTitleCaptions[11].caption(), u"&End Of Day window");
    for (const auto& [index, label] : dialog.lblReportDetailCaptions) {
      EXPECT_EQ(label->caption(), kReportDetails[static_cast<std::size_t>(index)].standard);
    }
  });
}

TEST_F(ReportCaptionsDialogTest, ShowsTheCaptionsOfTheCallerAndHandsBackTheEditedOnes) {
  const auto firstTitles = titles;
  const auto firstDetails = details;
  EXPECT_FALSE(show([&](frmReportCaptions& dialog) {
    EXPECT_EQ(shown(dialog.txtReportTitleCaption), firstTitles);
    EXPECT_EQ(shown(dialog.txtReportDetailCaption), firstDetails);
    for (const auto& [index, box] : dialog.txtReportTitleCaption) enter(*box, u"t" + box->text());
    user.clickTab(dialog.tabReportCaptions, 2);
    for (const auto& [index, box] : dialog.txtReportDetailCaption) enter(*box, u"d" + box->text());
    user.press(Key::enter);
  }));
  for (std::size_t i = 0; i < titles.size(); ++i) EXPECT_EQ(titles[i], u"t" + firstTitles[i]);
  for (std::size_t i = 0; i < details.size(); ++i) EXPECT_EQ(details[i], u"d" + firstDetails[i]);
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(ReportCaptionsDialogTest, ATabShowsItsFrameAlone) {
  show([&](frmReportCaptions& dialog) {
    const auto expectTab = [&](int tab) {
      EXPECT_EQ(dialog.tabReportCaptions.selected(), tab);
      EXPECT_EQ(dialog.fraTitles.visible(), tab == 1);
      EXPECT_EQ(dialog.fraDetails.visible(), tab == 2);
      ASSERT_NE(dialog.activeControl(), nullptr);
      EXPECT_TRUE(dialog.activeControl()->canFocus());
    };
    expectTab(1);
    EXPECT_TRUE(dialog.txtReportTitleCaption[0].hasFocus());
    user.press(Key::tab, {.ctrl = true});
    expectTab(2);
    EXPECT_TRUE(dialog.txtReportDetailCaption[0].hasFocus());
    user.press(Key::tab, {.ctrl = true});
    expectTab(1);
    EXPECT_TRUE(dialog.txtReportTitleCaption[0].hasFocus());
    user.clickTab(dialog.tabReportCaptions, 2);
    expectTab(2);
    user.clickTab(dialog.tabReportCaptions, 2);
    expectTab(2);
    user.press(Key::left);
    expectTab(1);
  });
}

TEST_F(ReportCaptionsDialogTest, EveryShowBeginsWithTheTitles) {
  frmReportCaptions dialog(desk->screen(), messages);
  dialog.Titles = titles;
  dialog.Details = details;
  for (int round = 0; round < 2; ++round) {
    desk->whenShown([&](ui::Form&) {
      EXPECT_EQ(dialog.tabReportCaptions.selected(), 1);
      EXPECT_TRUE(dialog.fraTitles.visible());
      EXPECT_EQ(shown(dialog.txtReportTitleCaption), titles);
      EXPECT_EQ(shown(dialog.txtReportDetailCaption), details);
      user.type(u"dropped");
      user.clickTab(dialog.tabReportCaptions, 2);
      enter(dialog.txtReportDetailCaption[3], u"dropped");
    });
    dialog.showModal();
    EXPECT_TRUE(dialog.Cancelled());
  }
}

TEST_F(ReportCaptionsDialogTest, BlanksInBothSetsGiveBothMessagesAndAreFilled) {
  const auto firstTitles = titles;
  const auto firstDetails = details;
  EXPECT_FALSE(show([&](frmReportCaptions& dialog) {
    const auto& titleBox = dialog.txtReportTitleCaption;
    const auto& detailBox = dialog.txtReportDetailCaption;
    for (const int i : {0, 11}) enter(titleBox[i], u"");
    user.clickTab(dialog.tabReportCaptions, 2);
    for (const int i : {2, 33}) enter(detailBox[i], u"");
    std::vector<int> tabs;
    boxes.onShow = [&](const ShownMessage&) {
      tabs.push_back(dialog.tabReportCaptions.selected());
      EXPECT_EQ(titleBox[0].text(), u"");
      EXPECT_EQ(detailBox[2].text(), u"");
    };
    user.press(Key::enter);
    boxes.onShow = nullptr;

    EXPECT_TRUE(dialog.isShown());
    EXPECT_EQ(tabs, (std::vector<int>{1, 2}));
    ASSERT_EQ(boxes.shown.size(), 2U);
    expectTitlesWarning(boxes.shown[0]);
    expectDetailsWarning(boxes.shown[1]);
    EXPECT_EQ(dialog.tabReportCaptions.selected(), 1);
    EXPECT_TRUE(dialog.fraTitles.visible());
    EXPECT_FALSE(dialog.fraDetails.visible());
    EXPECT_TRUE(titleBox[0].hasFocus());
    EXPECT_EQ(titleBox[0].selText(), u"B&alance Report");
    auto expected = firstTitles;
    expected[0] = u"B&alance Report";
    expected[11] = u"End of Day";
    EXPECT_EQ(shown(titleBox), expected);
    expected = firstDetails;
    expected[2] = u"Credit Card In Drawer";
    expected[33] = kReportDetails[33].standard;
    EXPECT_EQ(shown(detailBox), expected);

    user.click(dialog.cmdCommand[frmReportCaptions::ok]);
    EXPECT_FALSE(dialog.isShown());
  }));
  EXPECT_EQ(boxes.shown.size(), 2U);
  EXPECT_EQ(titles[0], u"B&alance Report");
  EXPECT_EQ(titles[1], firstTitles[1]);
  EXPECT_EQ(details[2], u"Credit Card In Drawer");
}

TEST_F(ReportCaptionsDialogTest, BlanksInOneSetGiveItsMessageOnly) {
  show([&](frmReportCaptions& dialog) {
    for (const auto& [index, box] : dialog.txtReportTitleCaption) enter(*box, u"");
    user.clickTab(dialog.tabReportCaptions, 2);
    user.press(Key::enter);
    ASSERT_EQ(boxes.shown.size(), 1U);
    expectTitlesWarning(boxes.shown[0]);
    EXPECT_EQ(dialog.tabReportCaptions.selected(), 1);
    EXPECT_EQ(shown(dialog.txtReportTitleCaption), defaultsOf(kReportTitles));
    EXPECT_EQ(shown(dialog.txtReportDetailCaption), details);

    user.clickTab(dialog.tabReportCaptions, 2);
    for (const auto& [index, box] : dialog.txtReportDetailCaption) enter(*box, u"");
    user.clickTab(dialog.tabReportCaptions, 1);
    user.click(dialog.cmdCommand[frmReportCaptions::ok]);
    ASSERT_EQ(boxes.shown.size(), 2U);
    expectDetailsWarning(boxes.shown[1]);
    EXPECT_EQ(dialog.tabReportCaptions.selected(), 2);
    EXPECT_EQ(shown(dialog.txtReportDetailCaption), defaultsOf(kReportDetails));
    EXPECT_TRUE(dialog.isShown());
  });
}

TEST_F(ReportCaptionsDialogTest, ARefusalLeadsToTheFirstBlankWithItsDefaultSelected) {
  struct Case {
    std::vector<int> titles;
    std::vector<int> details;
    int focusedTab;
    int focused;
  };
  for (const Case& blank : {Case{{4, 9}, {}, 1, 4}, Case{{}, {33}, 2, 33}, Case{{}, {7, 8}, 2, 7},
                            Case{{11}, {0}, 1, 11}, Case{{0}, {}, 1, 0}}) {
    show([&](frmReportCaptions& dialog) {
      for (const int i : blank.titles) enter(dialog.txtReportTitleCaption[i], u"");
      user.clickTab(dialog.tabReportCaptions, 2);
      for (const int i : blank.details) enter(dialog.txtReportDetailCaption[i], u"");
      user.click(dialog.cmdCommand[frmReportCaptions::ok]);
      EXPECT_EQ(dialog.tabReportCaptions.selected(), blank.focusedTab);
      const ui::TextBox& box = blank.focusedTab == 1 ? dialog.txtReportTitleCaption[blank.focused]
                                                     : dialog.txtReportDetailCaption[blank.focused];
      EXPECT_TRUE(box.hasFocus()) << blank.focused;
      EXPECT_NE(box.text(), u"");
      EXPECT_EQ(box.selText(), box.text());
      user.type(u"Mine");
      EXPECT_EQ(box.text(), u"Mine");
      user.press(Key::escape);
    });
  }
}

TEST_F(ReportCaptionsDialogTest, ARefusalSelectsTheTextOfTheBlankThatHadTheFocus) {
  EXPECT_FALSE(show([&](frmReportCaptions& dialog) {
    user.press(Key::del);
    user.press(Key::enter);
    EXPECT_EQ(boxes.shown.size(), 1U);
    EXPECT_TRUE(dialog.txtReportTitleCaption[0].hasFocus());
    EXPECT_EQ(dialog.txtReportTitleCaption[0].selText(), u"B&alance Report");
    user.type(u"Balance");
    user.press(Key::enter);
    EXPECT_FALSE(dialog.isShown());
  }));
  EXPECT_EQ(titles[0], u"Balance");
}

TEST_F(ReportCaptionsDialogTest, ACaptionThatCameEmptyIsFilledToo) {
  titles[5] = u"";
  details[9] = u"";
  EXPECT_FALSE(show([&](frmReportCaptions&) {
    user.press(Key::enter);
    EXPECT_EQ(boxes.shown.size(), 2U);
    user.press(Key::enter);
  }));
  EXPECT_EQ(titles[5], kReportTitles[5].standard);
  EXPECT_EQ(details[9], kReportDetails[9].standard);
}

TEST_F(ReportCaptionsDialogTest, OneBlankIsNotEmpty) {
  EXPECT_FALSE(show([&](frmReportCaptions& dialog) {
    enter(dialog.txtReportTitleCaption[4], u" ");
    user.press(Key::enter);
    EXPECT_FALSE(dialog.isShown());
  }));
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_EQ(titles[4], u" ");
}

TEST_F(ReportCaptionsDialogTest, FilledBlanksAreDroppedByCancel) {
  const auto firstTitles = titles;
  EXPECT_TRUE(show([&](frmReportCaptions& dialog) {
    enter(dialog.txtReportTitleCaption[4], u"");
    user.press(Key::enter);
    EXPECT_TRUE(dialog.isShown());
    user.press(Key::escape);
    EXPECT_FALSE(dialog.isShown());
  }));
  EXPECT_EQ(titles, firstTitles);
}

TEST_F(ReportCaptionsDialogTest, ResetIsAskedForAndDoneOnYesForItsOwnSet) {
  const auto firstTitles = titles;
  const auto firstDetails = details;
  show([&](frmReportCaptions& dialog) {
    boxes.answers = {MessageResult::yes};
    user.click(dialog.cmdCommand[frmReportCaptions::resetTitles]);
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(boxes.shown[0].text,
              u"Are you sure you want to reset all Report Titles to their default captions ?");
    EXPECT_EQ(boxes.shown[0].title, u"Reset Report Title Captions?");
    EXPECT_EQ(boxes.shown[0].style, 292);
    EXPECT_TRUE(boxes.shown[0].settingsGiven);
    EXPECT_EQ(shown(dialog.txtReportTitleCaption), defaultsOf(kReportTitles));
    EXPECT_EQ(shown(dialog.txtReportDetailCaption), firstDetails);
  });
  EXPECT_EQ(titles, firstTitles);
  EXPECT_FALSE(show([&](frmReportCaptions& dialog) {
    boxes.shown.clear();
    boxes.answers = {MessageResult::yes};
    user.clickTab(dialog.tabReportCaptions, 2);
    user.accessKey(u'e');
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(
        boxes.shown[0].text,
        u"Are you sure you want to reset all Report Detail captions to their default captions ?");
    EXPECT_EQ(boxes.shown[0].title, u"Reset Report Detail Captions?");
    EXPECT_EQ(boxes.shown[0].style, 292);
    EXPECT_EQ(shown(dialog.txtReportDetailCaption), defaultsOf(kReportDetails));
    EXPECT_EQ(shown(dialog.txtReportTitleCaption), firstTitles);
    user.click(dialog.cmdCommand[frmReportCaptions::ok]);
  }));
  EXPECT_EQ(titles, firstTitles);
  EXPECT_EQ(details, defaultsOf(kReportDetails));
}

TEST_F(ReportCaptionsDialogTest, AnyOtherAnswerToAResetChangesNothing) {
  const auto firstTitles = titles;
  const auto firstDetails = details;
  for (const MessageResult answer : {MessageResult::no, MessageResult::cancel, MessageResult::ok}) {
    EXPECT_FALSE(show([&](frmReportCaptions& dialog) {
      boxes.answers = {answer, answer};
      user.click(dialog.cmdCommand[frmReportCaptions::resetTitles]);
      user.clickTab(dialog.tabReportCaptions, 2);
      user.click(dialog.cmdCommand[frmReportCaptions::resetDetails]);
      EXPECT_EQ(shown(dialog.txtReportTitleCaption), firstTitles);
      EXPECT_EQ(shown(dialog.txtReportDetailCaption), firstDetails);
      user.click(dialog.cmdCommand[frmReportCaptions::ok]);
    }));
    EXPECT_EQ(titles, firstTitles);
    EXPECT_EQ(details, firstDetails);
  }
}

TEST_F(ReportCaptionsDialogTest, AmpersandsAndLongTextsAreKeptAsTyped) {
  EXPECT_FALSE(show([&](frmReportCaptions& dialog) {
    user.type(u"B&alance && Report");
    enter(dialog.txtReportTitleCaption[1], Text(10000, u'x'));
    enter(dialog.txtReportTitleCaption[2], u"  'q' \"\u00e9\u4e2d ");
    user.press(Key::enter);
  }));
  EXPECT_EQ(titles[0], u"B&alance && Report");
  EXPECT_EQ(titles[1], Text(10000, u'x'));
  EXPECT_EQ(titles[2], u"  'q' \"\u00e9\u4e2d ");
}

TEST_F(ReportCaptionsDialogTest, EveryWayOutButOkIsCancelling) {
  const auto firstTitles = titles;
  const std::vector<std::function<void(frmReportCaptions&)>> ways = {
      [&](frmReportCaptions&) { user.press(Key::escape); },
      [&](frmReportCaptions& dialog) { user.click(dialog.cmdCommand[frmReportCaptions::cancel]); },
      [&](frmReportCaptions& dialog) { user.closeWindow(dialog); }};
  for (const auto& leave : ways) {
    EXPECT_TRUE(show([&](frmReportCaptions& dialog) {
      enter(dialog.txtReportTitleCaption[0], u"");
      leave(dialog);
      EXPECT_FALSE(dialog.isShown());
    }));
    EXPECT_EQ(titles, firstTitles);
  }
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(ReportCaptionsDialogTest, AccessKeysReachTheTitles) {
  show([&](frmReportCaptions& dialog) {
    const std::vector<std::pair<char16_t, int>> keys = {{u'a', 0}, {u'g', 2}, {u'd', 3}, {u'p', 4},
                                                        {u'u', 5}, {u'r', 6}, {u's', 7}, {u'm', 8},
                                                        {u'j', 9}, {u'o', 10}};
    for (const auto& [key, index] : keys) {
      user.accessKey(key);
      EXPECT_TRUE(dialog.txtReportTitleCaption[index].hasFocus()) << index;
      EXPECT_EQ(dialog.txtReportTitleCaption[index].selText(),
                titles[static_cast<std::size_t>(index)]);
    }
    // Two owners: the key walks and presses nothing.
    user.accessKey(u'e');
    EXPECT_TRUE(dialog.txtReportTitleCaption[11].hasFocus());
    user.accessKey(u'e');
    EXPECT_TRUE(dialog.cmdCommand[frmReportCaptions::resetTitles].hasFocus());
  });
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(ReportCaptionsDialogTest, TabWalksThroughEachPageInOrder) {
  show([&](frmReportCaptions& dialog) {
    for (const auto& [index, box] : dialog.txtReportTitleCaption) {
      EXPECT_TRUE(box->hasFocus()) << index;
      user.press(Key::tab);
    }
    EXPECT_TRUE(dialog.cmdCommand[frmReportCaptions::resetTitles].hasFocus());
    user.press(Key::tab);
    EXPECT_TRUE(dialog.cmdCommand[frmReportCaptions::ok].hasFocus());
    user.press(Key::tab, {.ctrl = true});
    for (const auto& [index, box] : dialog.txtReportDetailCaption) {
      EXPECT_TRUE(box->hasFocus()) << index;
      user.press(Key::tab);
    }
    EXPECT_TRUE(dialog.cmdCommand[frmReportCaptions::resetDetails].hasFocus());
  });
}

}  // namespace
}  // namespace tillora::testing
