#include "identity/ledvane_link.h"

#include <algorithm>

#include "operations/end_of_day.h"
#include "sales/list_columns.h"
#include "tests/testing/function_ref.h"
#include "tests/testing/options_test.h"

namespace tillora::testing {
namespace {

using ui::Key;

class LedvaneLinkTest : public OptionsTest {
 protected:
  LedvaneLinkTest() {
    host.dataFile = kStored;
    options_.LVFileExtension = u"lvd";
  }

  static LedvaneLink& tab(frmOptions& dialog) { return dialog.tabs().ledvaneLink; }
  static ui::CheckBox& box(frmOptions& dialog, int index) { return tab(dialog).chkLedvane[index]; }
  static std::int32_t ticks(frmOptions& dialog) {
    std::int32_t mask = 0;
    for (const auto& [index, check] : tab(dialog).chkLedvane) mask |= check->value() << index;
    return mask;
  }

  /// Presses Change and chooses this file.
  void choose(frmOptions& dialog, const Text& file) {
    machine.fileDialogs.answers.emplace_back(file);
    user.click(tab(dialog).cmdLedvane);
  }
  void apply(frmOptions& dialog) { user.click(dialog.cmdCommand[frmOptions::apply]); }
  void addTerminal(std::int32_t reportingBits) {
    host.terminals.push_back({{u"ReportingBits", reportingBits}});
  }
  Error raisedBy(const FunctionRef<void(frmOptions&)>& act) {
    desk->whenShown([&](ui::Form& form) { act(dynamic_cast<frmOptions&>(form)); });
    try {
      options_.ShowOptions();
    } catch (const Error& failure) {
      return failure;
    }
    ADD_FAILURE() << "nothing was raised";
    return {0, u"", u""};
  }

  /// Change was refused with this message, and with nothing but it.
  void expectRefusal(frmOptions& dialog, const Text& text, const Text& secondaryText) {
    ASSERT_EQ(boxes.shown.size(), 1U);
    const ShownMessage& message = boxes.shown.front();
    EXPECT_EQ(message.text, text);
    EXPECT_EQ(message.secondaryText, secondaryText);
    EXPECT_EQ(message.title, u"Cannot change Ledvane Data File");
    EXPECT_EQ(message.style, 48);
    EXPECT_TRUE(message.settingsGiven);
    EXPECT_TRUE(machine.fileDialogs.shown.empty());
    EXPECT_EQ(tab(dialog).txtLedvane.text(), kStored);
    EXPECT_FALSE(applyEnabled(dialog));
  }
  /// Choices were refused by the same two questions, at the click or at the save.
  void expectDropped(frmOptions& dialog, std::size_t messages) {
    ASSERT_EQ(boxes.shown.size(), messages);
    EXPECT_EQ(boxes.shown.back().title, u"Cannot change Ledvane Data File");
    EXPECT_EQ(boxes.shown.back().style, 48);
    EXPECT_TRUE(boxes.shown.back().settingsGiven);
    EXPECT_EQ(tab(dialog).txtLedvane.text(), host.dataFile);
    EXPECT_TRUE(applyEnabled(dialog));
    EXPECT_TRUE(host.callsStarting("put DataFile").empty());
  }
  void expectTerminalRefusal(frmOptions& dialog, const Text& terminal) {
    expectRefusal(dialog,
                  u"One or more " + terminal +
                      u" terminals have un-processed transactions.\r\n\r\n"
                      u"These transactions must be posted to the current Ledvane data file before "
                      u"changing to a new Ledvane data file.",
                  u"To post the transactions to the current Ledvane data file, perform an "
                  u"End-Of-Day on each " +
                      terminal +
                      u" terminal, then use the Post Transactions to Ledvane wizard.  You may then "
                      u"change the Ledvane data file.");
  }
  void expectFileRefusal(frmOptions& dialog, const Text& count) {
    expectRefusal(dialog,
                  count +
                      u" waiting to be posted to Ledvane.\r\n\r\n"
                      u"The transaction file(s) must be posted to the current Ledvane data file "
                      u"before changing to a new Ledvane data file.",
                  u"Use the Post Transactions to Ledvane wizard to post the transaction file(s) to "
                  u"the current Ledvane data file.");
  }

  const Text kStored = u"C:\\Books\\Shop.lvd";
  const Text kWaiting = u"C:\\Books\\LVPst*.pos";
  const Text kOther = u"D:\\New Books\\Shop.lvd";
};

TEST_F(LedvaneLinkTest, ShowsTheDataFileInABoxThatCannotBeEdited) {
  open([&](frmOptions& dialog) {
    ui::TextBox& path = tab(dialog).txtLedvane;
    EXPECT_EQ(path.text(), kStored);
    EXPECT_EQ(path.backColour(), ui::kButtonFace);
    user.click(path);
    EXPECT_EQ(path.selText(), kStored);
    user.type(u"x");
    user.press(Key::del);
    user.paste(u"y");
    EXPECT_EQ(path.text(), kStored);
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(LedvaneLinkTest, TheTextsOfTheFrame) {
  open([&](frmOptions& dialog) {
    const auto& part = tab(dialog);
    EXPECT_EQ(part.fraGeneral.caption(), u"Ledvane");
    EXPECT_EQ(part.lblDataFile.caption(), u"Da&ta File");
    EXPECT_EQ(part.cmdLedvane.caption(), u"Change&...");
    EXPECT_EQ(part.cmdLedvane.toolTip(), u"Change the Ledvane data file used by Tillora");
    EXPECT_EQ(part.chkLedvane.count(), 3);
    EXPECT_EQ(part.chkLedvane[0].caption(), u"&Summarise transactions for posting to Ledvane");
    EXPECT_EQ(part.chkLedvane[1].caption(),
              u"S&ummarise line items where possible (including product description)");
    EXPECT_EQ(part.chkLedvane[2].caption(),
              u"S&ummarise line items where possible (excluding product description)");
  });
}

TEST_F(LedvaneLinkTest, EachBoxShowsItsBitAndTheLineItemsFollowTheFirst) {
  for (std::int32_t mask = 0; mask < 8; ++mask) {
    host.store(options::LVSummariseBits, mask);
    open([&](frmOptions& dialog) {
      EXPECT_EQ(ticks(dialog), mask);
      EXPECT_TRUE(box(dialog, 0).enabled());
      EXPECT_EQ(box(dialog, 1).enabled(), (mask & 1) != 0) << mask;
      EXPECT_EQ(box(dialog, 2).enabled(), (mask & 1) != 0) << mask;
      EXPECT_FALSE(applyEnabled(dialog));
    });
  }
}

TEST_F(LedvaneLinkTest, NothingIsTickedWhenNothingIsStored) {
  host.dataFile.clear();
  open([&](frmOptions& dialog) {
    EXPECT_EQ(ticks(dialog), 0);
    EXPECT_FALSE(box(dialog, 1).enabled());
    EXPECT_EQ(tab(dialog).txtLedvane.text(), u"");
  });
}

TEST_F(LedvaneLinkTest, EveryTickEnablesApply) {
  host.store(options::LVSummariseBits, 1);
  for (int index = 0; index < 3; ++index) {
    open([&](frmOptions& dialog) {
      EXPECT_FALSE(applyEnabled(dialog));
      user.click(box(dialog, index));
      EXPECT_TRUE(applyEnabled(dialog));
    });
  }
}

TEST_F(LedvaneLinkTest, LineItemsKeepTheirTicksWhileTheyAreDisabled) {
  host.store(options::LVSummariseBits, 7);
  edit([&](frmOptions& dialog) {
    user.click(box(dialog, 0));
    EXPECT_FALSE(box(dialog, 1).enabled());
    EXPECT_FALSE(box(dialog, 2).enabled());
    EXPECT_EQ(ticks(dialog), 6);
    user.click(box(dialog, 1));
    EXPECT_EQ(ticks(dialog), 6);
  });
  EXPECT_EQ(host.value(options::LVSummariseBits), 6);
  edit([&](frmOptions& dialog) {
    EXPECT_EQ(ticks(dialog), 6);
    user.click(box(dialog, 0));
    user.click(box(dialog, 2));
  });
  EXPECT_EQ(host.value(options::LVSummariseBits), 3);
}

TEST_F(LedvaneLinkTest, TheMaskIsWrittenAsZeroAndThenBitByBit) {
  saveDefaults();
  edit([&](frmOptions& dialog) {
    user.click(box(dialog, 0));
    user.click(box(dialog, 2));
    host.calls.clear();
  });
  const std::vector<std::string> expected = {"put LVSummariseBits", "get LVSummariseBits",
                                             "put LVSummariseBits", "get LVSummariseBits",
                                             "put LVSummariseBits", "put LVClass"};
  const auto first = std::ranges::find(host.calls, "put LVSummariseBits");
  ASSERT_GE(host.calls.end() - first, 6);
  EXPECT_EQ(std::vector<std::string>(first, first + 6), expected);
  EXPECT_EQ(host.value(options::LVSummariseBits), 5);
  EXPECT_EQ(changes, std::vector<std::int32_t>{0});
}

TEST_F(LedvaneLinkTest, BitsWithoutACheckBoxAreNotKept) {
  host.store(options::LVSummariseBits, -1);
  edit([&](frmOptions& dialog) {
    EXPECT_EQ(ticks(dialog), 7);
    user.click(box(dialog, 1));
  });
  EXPECT_EQ(host.value(options::LVSummariseBits), 5);
}

TEST_F(LedvaneLinkTest, ATerminalWithTransactionsRefusesBeforeAnyFileIsCounted) {
  machine.files.matches[kWaiting] = 2;
  addTerminal(3);
  addTerminal(0);
  open([&](frmOptions& dialog) {
    choose(dialog, kOther);
    expectTerminalRefusal(dialog, u"Tillora");
    EXPECT_TRUE(machine.files.listed.empty());
    EXPECT_EQ(host.callsStarting("TerminalCount"),
              std::vector<std::string>{"TerminalCount [ReportingBits] = 0"});
  });
  EXPECT_FALSE(options_.ChangedDataFile());
}

TEST_F(LedvaneLinkTest, TerminalsThatWereReportedRefuseNothing) {
  addTerminal(1);
  addTerminal(-1);
  open([&](frmOptions& dialog) {
    choose(dialog, kOther);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(tab(dialog).txtLedvane.text(), kOther);
  });
}

TEST_F(LedvaneLinkTest, TheTerminalWordIsTheTitleWithoutItsLastWord) {
  addTerminal(0);
  const std::vector<std::pair<Text, Text>> titles = {
      {u"Administrator", u""}, {u"Tillora Shop Administrator", u"Tillora Shop"}, {u"", u""}};
  for (const auto& [title, word] : titles) {
    host.title = title;
    boxes.shown.clear();
    open([&](frmOptions& dialog) {
      user.click(tab(dialog).cmdLedvane);
      expectTerminalRefusal(dialog, word);
    });
  }
}

TEST_F(LedvaneLinkTest, FilesThatWaitRefuseInTheSingularAndThePlural) {
  const std::vector<std::pair<int, Text>> counts = {{1, u"There is 1 transaction file"},
                                                    {2, u"There are 2 transaction files"},
                                                    {32767, u"There are 32767 transaction files"}};
  for (const auto& [count, text] : counts) {
    machine.files.matches[kWaiting] = count;
    boxes.shown.clear();
    open([&](frmOptions& dialog) {
      choose(dialog, kOther);
      expectFileRefusal(dialog, text);
    });
  }
}

TEST_F(LedvaneLinkTest, AFolderWithoutFilesAndAMissingFolderRefuseNothing) {
  machine.files.matches[kWaiting] = 0;
  for (int i = 0; i < 2; ++i) {
    open([&](frmOptions& dialog) {
      choose(dialog, kOther);
      EXPECT_EQ(tab(dialog).txtLedvane.text(), kOther);
    });
    machine.files.matches.clear();
  }
  EXPECT_EQ(machine.files.listed, (std::vector<Text>{kWaiting, kWaiting}));
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(LedvaneLinkTest, TheFolderIsEverythingThroughTheLastBackslashSlashOrColon) {
  const std::vector<std::pair<Text, Text>> paths = {
      {u"C:\\Books\\Shop.lvd", u"C:\\Books\\LVPst*.pos"},
      {u"C:\\Shop.lvd", u"C:\\LVPst*.pos"},
      {u"\\\\server\\books\\2026\\Shop.ledger", u"\\\\server\\books\\2026\\LVPst*.pos"},
      {u"C:\\B\u00fccher.old\\Shop", u"C:\\B\u00fccher.old\\LVPst*.pos"},
      {u"C:\\Books\\", u"C:\\Books\\LVPst*.pos"},
      {u"C:/Books/Shop.lvd", u"C:/Books/LVPst*.pos"},
      {u"C:\\Books/Shop.lvd", u"C:\\Books/LVPst*.pos"},
      {u"C:/Books\\Shop.lvd", u"C:/Books\\LVPst*.pos"},
      {u"//server/books/Shop.lvd", u"//server/books/LVPst*.pos"},
      {u"C:Shop.lvd", u"C:LVPst*.pos"},
      {u"C:Books\\Shop.lvd", u"C:Books\\LVPst*.pos"},
      {u"Shop.lvd", u"LVPst*.pos"}};
  for (const auto& [path, pattern] : paths) {
    host.dataFile = path;
    machine.files.listed.clear();
    open([&](frmOptions& dialog) { user.click(tab(dialog).cmdLedvane); });
    EXPECT_EQ(machine.files.listed, std::vector<Text>{pattern});
  }
}

TEST_F(LedvaneLinkTest, WithoutADataFileNoFileIsCounted) {
  host.dataFile.clear();
  machine.files.matches[u"LVPst*.pos"] = 3;
  edit([&](frmOptions& dialog) { choose(dialog, kOther); });
  EXPECT_TRUE(machine.files.listed.empty());
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_EQ(host.dataFile, kOther);
  EXPECT_TRUE(options_.ChangedDataFile());
}

TEST_F(LedvaneLinkTest, TheStoredFilesFolderIsExaminedWhileAnUnsavedChoiceIsShown) {
  open([&](frmOptions& dialog) {
    choose(dialog, kOther);
    choose(dialog, u"E:\\Shop.lvd");
    EXPECT_EQ(machine.files.listed, (std::vector<Text>{kWaiting, kWaiting}));
    EXPECT_EQ(tab(dialog).txtLedvane.text(), u"E:\\Shop.lvd");

    apply(dialog);
    machine.files.matches[u"E:\\LVPst*.pos"] = 1;
    choose(dialog, kOther);
    EXPECT_EQ(machine.files.listed.back(), u"E:\\LVPst*.pos");
    EXPECT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(tab(dialog).txtLedvane.text(), u"E:\\Shop.lvd");
  });
}

TEST_F(LedvaneLinkTest, TheFileDialogOffersFilesOfTheExtension) {
  const std::vector<std::pair<Text, Text>> extensions = {{u"lvd", u"*.lvd"},
                                                         {u".lvd", u"*.lvd"},
                                                         {u"ledger", u"*.ledger"},
                                                         {u"", u"*.*"},
                                                         {u".", u"*.*"}};
  for (const auto& [extension, pattern] : extensions) {
    options_.LVFileExtension = extension;
    machine.fileDialogs.shown.clear();
    open([&](frmOptions& dialog) { user.click(tab(dialog).cmdLedvane); });
    ASSERT_EQ(machine.fileDialogs.shown.size(), 1U);
    EXPECT_EQ(machine.fileDialogs.shown[0].pattern, pattern);
    EXPECT_FALSE(machine.fileDialogs.shown[0].keepsShortcuts);
  }
}

TEST_F(LedvaneLinkTest, CancellingTheFileDialogChangesNothing) {
  open([&](frmOptions& dialog) {
    user.click(tab(dialog).cmdLedvane);
    EXPECT_EQ(tab(dialog).txtLedvane.text(), kStored);
    EXPECT_FALSE(applyEnabled(dialog));

    choose(dialog, kOther);
    user.click(tab(dialog).cmdLedvane);
    EXPECT_EQ(tab(dialog).txtLedvane.text(), kOther);
  });
  EXPECT_EQ(host.dataFile, kStored);
}

TEST_F(LedvaneLinkTest, AChoiceShowsAtOnceAndIsHandedOverByTheSave) {
  saveDefaults();
  edit([&](frmOptions& dialog) {
    choose(dialog, kOther);
    EXPECT_EQ(tab(dialog).txtLedvane.text(), kOther);
    EXPECT_TRUE(applyEnabled(dialog));
    EXPECT_EQ(host.dataFile, kStored);
    host.calls.clear();
  });
  EXPECT_EQ(host.dataFile, kOther);
  EXPECT_TRUE(options_.ChangedDataFile());
  EXPECT_EQ(changes, std::vector<std::int32_t>{0});
  const std::vector<std::string> expected = {"put CompanyABN", "put DataFile",
                                             "put LVSummariseBits", "put LVClass"};
  const auto first = std::ranges::find(host.calls, "put CompanyABN");
  ASSERT_GE(host.calls.end() - first, 4);
  EXPECT_EQ(std::vector<std::string>(first, first + 4), expected);
  open([&](frmOptions& dialog) { EXPECT_EQ(tab(dialog).txtLedvane.text(), kOther); });
}

TEST_F(LedvaneLinkTest, AChoiceIsDroppedByCancel) {
  open([&](frmOptions& dialog) {
    choose(dialog, kOther);
    user.press(Key::escape);
  });
  EXPECT_EQ(host.dataFile, kStored);
  EXPECT_TRUE(host.callsStarting("put").empty());
  EXPECT_FALSE(options_.ChangedDataFile());
}

TEST_F(LedvaneLinkTest, ChoosingTheStoredFileIsNotAChange) {
  open([&](frmOptions& dialog) {
    choose(dialog, kStored);
    EXPECT_FALSE(applyEnabled(dialog));
    choose(dialog, kOther);
    EXPECT_EQ(tab(dialog).txtLedvane.text(), kOther);
    EXPECT_TRUE(applyEnabled(dialog));
    choose(dialog, kStored);
    EXPECT_EQ(tab(dialog).txtLedvane.text(), kStored);
    host.calls.clear();
    apply(dialog);
    // The choice is compared with what the host has by then.
    EXPECT_EQ(host.callsStarting("get DataFile").size(), 1U);
  });
  EXPECT_TRUE(host.callsStarting("put DataFile").empty());
  EXPECT_FALSE(options_.ChangedDataFile());
}

TEST_F(LedvaneLinkTest, AChoiceIsHandedOverOnceAndStaysReported) {
  open([&](frmOptions& dialog) {
    choose(dialog, kOther);
    apply(dialog);
    EXPECT_TRUE(dialog.ChangedDataFile);
    user.click(box(dialog, 0));
    apply(dialog);
    EXPECT_TRUE(dialog.ChangedDataFile);
    user.click(dialog.cmdCommand[frmOptions::cancel]);
  });
  EXPECT_EQ(host.callsStarting("put DataFile").size(), 1U);
  EXPECT_TRUE(options_.ChangedDataFile());
  edit([&](frmOptions& dialog) { user.click(box(dialog, 0)); });
  EXPECT_FALSE(options_.ChangedDataFile());
}

TEST_F(LedvaneLinkTest, ThereAndBackInTwoSavesStaysReported) {
  open([&](frmOptions& dialog) {
    for (const Text& file : {kOther, kStored}) {
      choose(dialog, file);
      apply(dialog);
    }
  });
  EXPECT_EQ(host.dataFile, kStored);
  EXPECT_TRUE(options_.ChangedDataFile());
}

TEST_F(LedvaneLinkTest, TheChangeIsReportedOnceTheSaveIsCommitted) {
  std::vector<std::pair<std::string, bool>> reported;
  edit([&](frmOptions& dialog) {
    choose(dialog, kOther);
    host.onCall = [&](const std::string& call) {
      if (call == "commit" || call == "send") reported.emplace_back(call, dialog.ChangedDataFile);
    };
  });
  host.onCall = nullptr;
  EXPECT_EQ(reported,
            (std::vector<std::pair<std::string, bool>>{{"commit", false}, {"send", true}}));
}

TEST_F(LedvaneLinkTest, WhenShowOptionsRaisesOnlyACommittedFileIsReported) {
  for (const bool before : {false, true}) {
    host.dataFile = kStored;
    if (before) edit([&](frmOptions& dialog) { choose(dialog, u"E:\\Shop.lvd"); });
    for (const std::string call : {"put DataFile", "commit", "send"}) {
      host.dataFile = kStored;
      host.failingCall = call;
      raisedBy([&](frmOptions& dialog) {
        choose(dialog, kOther);
        user.accessKey(u'o');
      });
      EXPECT_EQ(options_.ChangedDataFile(), before || call == "send") << call;
      host.failingCall.clear();
    }
  }
}

TEST_F(LedvaneLinkTest, ARefusalAtTheClickDropsAnUnsavedChoice) {
  saveDefaults();
  const std::vector<std::function<void()>> hindrances = {[&] { addTerminal(0); },
                                                         [&] {
                                                           host.terminals.clear();
                                                           machine.files.matches[kWaiting] = 1;
                                                         }};
  for (const auto& hinder : hindrances) {
    boxes.shown.clear();
    open([&](frmOptions& dialog) {
      machine.files.matches.clear();
      host.terminals.clear();
      choose(dialog, kOther);
      EXPECT_EQ(tab(dialog).txtLedvane.text(), kOther);
      hinder();
      boxes.onShow = [&](const ShownMessage&) {
        EXPECT_EQ(tab(dialog).txtLedvane.text(), kOther) << "until the message is answered";
      };
      user.click(tab(dialog).cmdLedvane);
      boxes.onShow = nullptr;
      expectDropped(dialog, 1);
      user.click(dialog.cmdCommand[frmOptions::ok]);
      EXPECT_FALSE(dialog.isShown());
    });
    EXPECT_EQ(boxes.shown.size(), 1U) << "nothing is left to hand over";
    EXPECT_EQ(host.dataFile, kStored);
    EXPECT_TRUE(host.callsStarting("put DataFile").empty());
    EXPECT_FALSE(options_.ChangedDataFile());
  }
  EXPECT_EQ(changes, (std::vector<std::int32_t>{0, 0}));
}

TEST_F(LedvaneLinkTest, ARefusalShowsTheFileThatTheHostHasByThen) {
  open([&](frmOptions& dialog) {
    host.dataFile = u"E:\\Moved\\Shop.lvd";
    addTerminal(0);
    user.click(tab(dialog).cmdLedvane);
    EXPECT_EQ(tab(dialog).txtLedvane.text(), u"E:\\Moved\\Shop.lvd");
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(LedvaneLinkTest, TheSaveAsksBothQuestionsBeforeItHandsAChoiceOver) {
  edit([&](frmOptions& dialog) {
    choose(dialog, kOther);
    host.calls.clear();
    machine.files.listed.clear();
  });
  const std::vector<std::string> expected = {"Title",         "Path",
                                             "get DataFile",  "TerminalCount [ReportingBits] = 0",
                                             "OptionsRecord", "put CompanyName"};
  ASSERT_GE(host.calls.size(), expected.size());
  host.calls.resize(expected.size());
  EXPECT_EQ(host.calls, expected);
  EXPECT_EQ(machine.files.listed, std::vector<Text>{kWaiting});
}

TEST_F(LedvaneLinkTest, ASaveThatHandsNothingOverAsksNothing) {
  addTerminal(0);
  machine.files.matches[kWaiting] = 1;
  saveDefaults();
  edit([&](frmOptions& dialog) { user.click(box(dialog, 0)); });
  EXPECT_EQ(host.value(options::LVSummariseBits), 1);
  EXPECT_TRUE(host.callsStarting("TerminalCount").empty());
  host.terminals.clear();
  machine.files.matches.clear();
  // A choice that the host has meanwhile need not be handed over.
  open([&](frmOptions& dialog) {
    choose(dialog, kOther);
    host.dataFile = kOther;
    addTerminal(0);
    host.calls.clear();
    apply(dialog);
    EXPECT_FALSE(applyEnabled(dialog));
    EXPECT_EQ(tab(dialog).txtLedvane.text(), kOther);
  });
  EXPECT_TRUE(host.callsStarting("TerminalCount").empty());
  EXPECT_TRUE(host.callsStarting("put DataFile").empty());
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_FALSE(options_.ChangedDataFile());
}

TEST_F(LedvaneLinkTest, WhatArrivesBetweenChoiceAndSaveRefusesTheSave) {
  saveDefaults();
  const auto stored = host.stored;
  const std::vector<std::function<void()>> arrivals = {[&] { addTerminal(0); },
                                                       [&] {
                                                         host.terminals.clear();
                                                         machine.files.matches[kWaiting] = 2;
                                                       }};
  for (const auto& arrive : arrivals) {
    for (const auto button : {frmOptions::apply, frmOptions::ok}) {
      boxes.shown.clear();
      open([&](frmOptions& dialog) {
        host.terminals.clear();
        machine.files.matches.clear();
        choose(dialog, kOther);
        user.click(box(dialog, 0));
        user.clickTab(dialog.tabOptions, static_cast<int>(TabPage::pump));
        arrive();
        host.calls.clear();
        boxes.onShow = [&](const ShownMessage& message) {
          EXPECT_EQ(dialog.tabOptions.selected(), static_cast<int>(TabPage::pump));
          EXPECT_EQ(message.pointer, ui::Pointer::hourglass);
        };
        user.click(dialog.cmdCommand[button]);
        boxes.onShow = nullptr;
        expectDropped(dialog, 1);
        EXPECT_TRUE(dialog.isShown());
        EXPECT_EQ(dialog.tabOptions.selected(), static_cast<int>(TabPage::general));
        EXPECT_EQ(desk->screen().pointer(), ui::Pointer::standard);
        EXPECT_TRUE(host.callsStarting("put").empty());
        EXPECT_TRUE(host.callsStarting("OptionsRecord").empty());
        EXPECT_EQ(host.stored, stored);
        EXPECT_EQ(ticks(dialog), 1) << "the other edits wait for the next save";
        EXPECT_FALSE(dialog.ChangedDataFile);
      });
    }
  }
  EXPECT_TRUE(host.sent.empty());
  EXPECT_TRUE(changes.empty());
  EXPECT_FALSE(options_.ChangedDataFile());
}

TEST_F(LedvaneLinkTest, TheMessagesOfTheSaveAreThoseOfTheClick) {
  open([&](frmOptions& dialog) {
    for (const bool files : {false, true}) {
      if (!files) addTerminal(0);
      machine.files.matches[kWaiting] = files ? 1 : 0;
      user.click(tab(dialog).cmdLedvane);
      host.terminals.clear();
      machine.files.matches.clear();
      choose(dialog, kOther);
      if (!files) addTerminal(0);
      machine.files.matches[kWaiting] = files ? 1 : 0;
      apply(dialog);
      host.terminals.clear();
    }
  });
  ASSERT_EQ(boxes.shown.size(), 4U);
  for (const std::size_t click : {0U, 2U}) {
    EXPECT_EQ(boxes.shown[click].text, boxes.shown[click + 1].text);
    EXPECT_EQ(boxes.shown[click].secondaryText, boxes.shown[click + 1].secondaryText);
  }
  EXPECT_NE(boxes.shown[0].text, boxes.shown[2].text);
}

TEST_F(LedvaneLinkTest, AfterARefusedSaveTheOtherEditsAreSavedWithTheFormerFile) {
  saveDefaults();
  open([&](frmOptions& dialog) {
    choose(dialog, kOther);
    user.click(box(dialog, 0));
    addTerminal(0);
    apply(dialog);
    EXPECT_EQ(boxes.shown.size(), 1U);
    apply(dialog);
    EXPECT_FALSE(applyEnabled(dialog));
    EXPECT_EQ(host.value(options::LVSummariseBits), 1);
    host.terminals.clear();
    choose(dialog, kOther);
    apply(dialog);
  });
  EXPECT_EQ(boxes.shown.size(), 1U);
  EXPECT_EQ(host.dataFile, kOther);
  EXPECT_TRUE(options_.ChangedDataFile());
}

TEST_F(LedvaneLinkTest, ARefusedSaveByEnterLeavesTheFocusOnAVisibleControl) {
  open([&](frmOptions& dialog) {
    choose(dialog, kOther);
    user.clickTab(dialog.tabOptions, static_cast<int>(TabPage::pump));
    ui::TextBox& caption = *openBoxes(dialog.fraFrame[static_cast<int>(TabPage::pump) - 1]).at(0);
    user.click(caption);
    addTerminal(0);
    user.press(Key::enter);
    EXPECT_TRUE(dialog.isShown());
    expectDropped(dialog, 1);
    EXPECT_FALSE(caption.hasFocus());
    ASSERT_NE(dialog.activeControl(), nullptr);
    EXPECT_TRUE(dialog.activeControl()->canFocus());
    user.press(Key::escape);
    EXPECT_FALSE(dialog.isShown());
  });
}

TEST_F(LedvaneLinkTest, TheQuestionsComeAfterTheTwoValidations) {
  const std::vector<std::function<void(frmOptions&)>> ways = {
      [&](frmOptions& dialog) {
        user.clickTab(dialog.tabOptions, static_cast<int>(TabPage::lists));
        auto& list = dialog.tabs().listColumns.lstListShow[ListColumns::currency];
        if (list.checked(0)) {
          untickAll(list);
        } else {
          user.clickCheck(list, 0);
        }
      },
      [&](frmOptions& dialog) {
        user.clickTab(dialog.tabOptions, static_cast<int>(TabPage::eod));
        user.click(dialog.tabs().endOfDay.chkEOD[EndOfDay::reconcileDrawer]);
      }};
  for (const auto& turn : ways) {
    boxes.shown.clear();
    open([&](frmOptions& dialog) {
      host.terminals.clear();
      choose(dialog, kOther);
      addTerminal(0);
      turn(dialog);
      host.calls.clear();
      apply(dialog);
      ASSERT_EQ(boxes.shown.size(), 1U);
      EXPECT_NE(boxes.shown[0].title, u"Cannot change Ledvane Data File");
      EXPECT_EQ(tab(dialog).txtLedvane.text(), kOther);
      EXPECT_TRUE(host.callsStarting("TerminalCount").empty());
      turn(dialog);
      apply(dialog);
      expectDropped(dialog, 2);
    });
  }
}

TEST_F(LedvaneLinkTest, AFailureOfTheQuestionsAtTheSaveIsRaisedAndNothingIsWritten) {
  const auto attempt = [&](const FunctionRef<void()>& before) {
    return raisedBy([&](frmOptions& dialog) {
      choose(dialog, kOther);
      before();
      user.accessKey(u'o');
    });
  };
  for (const std::string call : {"get DataFile", "TerminalCount [ReportingBits] = 0"}) {
    const Error failure = attempt([&] { host.failingCall = call; });
    EXPECT_EQ(failure.number(), FakeHost::failure().number());
    EXPECT_EQ(host.calls.back(), call);
    host.failingCall.clear();
  }
  const Error failure = attempt([&] { machine.files.matches[kWaiting] = 32768; });
  EXPECT_EQ(failure.number(), error::overflow);
  EXPECT_TRUE(host.callsStarting("put").empty());
  EXPECT_TRUE(host.stored.empty());
  EXPECT_EQ(host.dataFile, kStored);
}

TEST_F(LedvaneLinkTest, ARefusedSaveKeepsTheChoice) {
  open([&](frmOptions& dialog) {
    choose(dialog, kOther);
    user.clickTab(dialog.tabOptions, 2);
    auto& currencies = dialog.tabs().listColumns.lstListShow[ListColumns::currency];
    for (int row = 0; row < currencies.count(); ++row) user.clickCheck(currencies, row);
    apply(dialog);
    EXPECT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(host.dataFile, kStored);
    EXPECT_FALSE(dialog.ChangedDataFile);
    user.clickCheck(currencies, 0);
    apply(dialog);
    EXPECT_EQ(host.dataFile, kOther);
    EXPECT_TRUE(dialog.ChangedDataFile);
  });
}

TEST_F(LedvaneLinkTest, FailuresOfTheHostReachTheCallerAndEndTheChange) {
  for (const std::string call : {"Title", "TerminalCount [ReportingBits] = 0", "get DataFile"}) {
    const Error failure = raisedBy([&](frmOptions& dialog) {
      host.failingCall = call;
      choose(dialog, kOther);
    });
    EXPECT_EQ(failure.number(), FakeHost::failure().number()) << call;
    EXPECT_EQ(failure.description(), FakeHost::failure().description());
    EXPECT_EQ(host.calls.back(), call);
    host.failingCall.clear();
  }
  EXPECT_TRUE(machine.fileDialogs.shown.empty());
}

TEST_F(LedvaneLinkTest, AFailureOfTheHandOverEndsTheSave) {
  host.failingCall = "put DataFile";
  raisedBy([&](frmOptions& dialog) {
    choose(dialog, kOther);
    user.accessKey(u'o');
  });
  EXPECT_EQ(host.calls.back(), "put DataFile");
  EXPECT_TRUE(host.stored.empty());
  EXPECT_EQ(host.dataFile, kStored);
}

TEST_F(LedvaneLinkTest, FilesAreCountedUpToTheLargestInteger) {
  const std::vector<std::pair<int, std::int16_t>> counts = {
      {0, std::int16_t{0}}, {1, std::int16_t{1}}, {32767, std::int16_t{32767}}};
  open([&](frmOptions& dialog) {
    for (const auto& [files, count] : counts) {
      machine.files.matches[u"C:\\*.txt"] = files;
      EXPECT_EQ(dialog.GetNumberOfFiles(u"C:\\*.txt"), count);
    }
    EXPECT_EQ(dialog.GetNumberOfFiles(u"C:\\No such folder\\*.txt"), 0);
    for (const int files : {32768, 65536, 1000000}) {
      machine.files.matches[u"C:\\*.txt"] = files;
      try {
        dialog.GetNumberOfFiles(u"C:\\*.txt");
        ADD_FAILURE() << files;
      } catch (const Error& failure) {
        EXPECT_EQ(failure.number(), error::overflow);
      }
    }
  });
}

TEST_F(LedvaneLinkTest, TooManyFilesThatWaitAreAnErrorOfShowOptions) {
  machine.files.matches[kWaiting] = 32768;
  const Error failure = raisedBy([&](frmOptions& dialog) { choose(dialog, kOther); });
  EXPECT_EQ(failure.number(), error::overflow);
  EXPECT_TRUE(machine.fileDialogs.shown.empty());
  EXPECT_EQ(host.dataFile, kStored);
}

TEST_F(LedvaneLinkTest, AChangeByKeyboardAlone) {
  open([&](frmOptions& dialog) {
    const auto& part = tab(dialog);
    user.accessKey(u't');
    EXPECT_TRUE(part.txtLedvane.hasFocus());
    user.press(Key::tab);
    EXPECT_TRUE(part.cmdLedvane.hasFocus());
    machine.fileDialogs.answers.emplace_back(kOther);
    user.press(Key::space);
    EXPECT_EQ(part.txtLedvane.text(), kOther);
    user.press(Key::tab);
    EXPECT_TRUE(part.chkLedvane[0].hasFocus());
    user.press(Key::space);
    user.press(Key::tab);
    EXPECT_TRUE(part.chkLedvane[1].hasFocus());
    user.press(Key::tab);
    EXPECT_TRUE(part.chkLedvane[2].hasFocus());
    user.press(Key::space);
    user.press(Key::enter);
  });
  EXPECT_EQ(host.dataFile, kOther);
  EXPECT_EQ(host.value(options::LVSummariseBits), 5);
}

TEST_F(LedvaneLinkTest, AccessKeysReachTheirControls) {
  open([&](frmOptions& dialog) {
    machine.fileDialogs.answers.emplace_back(kOther);
    user.accessKey(u'.');
    EXPECT_EQ(tab(dialog).txtLedvane.text(), kOther);
    user.accessKey(u's');
    EXPECT_EQ(ticks(dialog), 1);
    user.accessKey(u'u');
    EXPECT_TRUE(box(dialog, 1).hasFocus());
    user.accessKey(u'u');
    EXPECT_TRUE(box(dialog, 2).hasFocus());
    user.accessKey(u'u');
    EXPECT_TRUE(box(dialog, 1).hasFocus());
    EXPECT_EQ(ticks(dialog), 1);
  });
}

TEST_F(LedvaneLinkTest, FirstUseStoresNoTicksAndNoDataFile) {
  saveDefaults();
  EXPECT_EQ(host.value(options::LVSummariseBits), 0);
  EXPECT_EQ(host.dataFile, kStored);
  EXPECT_FALSE(options_.ChangedDataFile());
}

}  // namespace
}  // namespace tillora::testing
