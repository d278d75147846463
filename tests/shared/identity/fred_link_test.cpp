#include "identity/fred_link.h"

#include <array>
#include <tuple>

#include "identity/company_details.h"
#include "tests/testing/function_ref.h"
#include "tests/testing/options_test.h"

namespace tillora::testing {
namespace {

using ui::Key;

constexpr std::array kSettings = {OptionId::FREDPollSeconds, OptionId::FREDLinkActive,
                                  OptionId::FREDDataFile};

class FredLinkTest : public OptionsTest {
 protected:
  FredLinkTest() { host.dispensingAvailable = true; }

  static FredLink& tab(frmOptions& dialog) { return dialog.tabs().fredLink; }
  static ui::CheckBox& active(frmOptions& dialog) { return tab(dialog).chkDispense[0]; }
  static ui::TextBox& path(frmOptions& dialog) {
    return tab(dialog).txtDispense[FredLink::dataFile];
  }
  static ui::TextBox& seconds(frmOptions& dialog) {
    return tab(dialog).txtDispense[FredLink::seconds];
  }
  static ui::UpDown& upDown(frmOptions& dialog) { return tab(dialog).udFRED; }

  void storeLink(std::int16_t interval, bool isActive, const Text& file) {
    host.store(options::FREDPollSeconds, interval);
    host.store(options::FREDLinkActive, isActive);
    host.store(options::FREDDataFile, file);
  }
  void openTab(const FunctionRef<void(frmOptions&)>& act) { openOn(TabPage::fred, act); }
  /// Opens the tab with an active link and this interval.
  void openWith(std::int16_t interval, const FunctionRef<void(frmOptions&)>& act) {
    storeLink(interval, true, u"C:\\FRED\\pos.dat");
    openTab(act);
  }
  void apply(frmOptions& dialog) { user.click(dialog.cmdCommand[frmOptions::apply]); }
  void typeSeconds(frmOptions& dialog, TextView text) {
    user.click(seconds(dialog));
    user.selectAll();
    user.type(text);
  }
  /// What the box shows when this was pasted into it and the box was left.
  Text afterPasting(frmOptions& dialog, TextView text) {
    user.click(seconds(dialog));
    user.selectAll();
    user.paste(text);
    user.press(Key::tab);
    return seconds(dialog).text();
  }
};

TEST_F(FredLinkTest, ShowsTheDefaultsWhenNothingIsStored) {
  openTab([&](frmOptions& dialog) {
    EXPECT_FALSE(active(dialog).value());
    EXPECT_EQ(path(dialog).text(), u"");
    EXPECT_EQ(seconds(dialog).text(), u"15");
    EXPECT_EQ(upDown(dialog).value(), 15);
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(FredLinkTest, ShowsTheStoredValues) {
  storeLink(42, true, u"C:\\FRED\\pos.dat");
  openTab([&](frmOptions& dialog) {
    EXPECT_TRUE(active(dialog).value());
    EXPECT_EQ(path(dialog).text(), u"C:\\FRED\\pos.dat");
    EXPECT_EQ(seconds(dialog).text(), u"42");
    EXPECT_EQ(upDown(dialog).value(), 42);
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(FredLinkTest, ControlsHaveTheirCaptionsAndToolTip) {
  openTab([&](frmOptions& dialog) {
    const auto& label = tab(dialog).lblDispenseLabels;
    EXPECT_EQ(label[0].caption(), u"seconds");
    EXPECT_EQ(label[1].caption(), u"Ch&eck the FRED point-of-sale data file every");
    EXPECT_EQ(label[2].caption(), u"FRED");
    EXPECT_EQ(label[3].caption(), u"Path to FRED's point-of-sale data file");
    EXPECT_EQ(active(dialog).caption(), u"Ac&tivate link to FRED");
    EXPECT_EQ(tab(dialog).cmdDispense.caption(), u"B&rowse...");
    EXPECT_EQ(tab(dialog).imgDispense.picture(), ui::PictureId::dispensing);
    EXPECT_EQ(seconds(dialog).toolTip(),
              u"Indicates how frequently Tillora will check for FRED data (ranges between 5-60 "
              u"seconds)");
    EXPECT_EQ(seconds(dialog).maxLength(), 2);
    EXPECT_TRUE(path(dialog).locked());
    EXPECT_EQ(path(dialog).backColour(), ui::kButtonFace);
    EXPECT_EQ(upDown(dialog).minimum(), 5);
    EXPECT_EQ(upDown(dialog).maximum(), 60);
    EXPECT_EQ(upDown(dialog).increment(), 1);
  });
}

TEST_F(FredLinkTest, TheExplanationIsWordForWord) {
  openTab([&](frmOptions& dialog) {
    ui::TextBox& box = tab(dialog).txtDispense[FredLink::explanation];
    EXPECT_EQ(box.text(),
              u"FRED (Fast Reliable Easy Dispensing) is a pharmacy dispensing system from its "
              u"supplier, made for every pharmacy, from the smallest one-person dispensary to the "
              u"largest pharmacy.  \r\n"
              u"FRED integrates with Tillora via the options on this tab and FRED's ability to "
              u"produce a point-of-sale data file.  \r\n"
              u"To have Tillora check for point-of-sale data produced by FRED, activate the the "
              u"link to FRED, set the path where Tillora can find FRED's point-of-sale data file, "
              u"and set the frequency (in seconds) that Tillora Administrator should check for new "
              u"FRED data.\r\n"
              u"Once Tillora Administrator has the FRED point-of-sale data, the dispensed items "
              u"for each patient may be viewed and sold to the patient using the Patient Number "
              u"function on a Tillora terminal.\r\n"
              u"Note: Tillora Administrator must be running for the FRED data to be extracted from "
              u"the FRED point-of-sale data file.");
    EXPECT_TRUE(box.multiLine());
    EXPECT_TRUE(box.locked());
    EXPECT_EQ(box.backColour(), ui::kButtonFace);
    user.click(box);
    user.type(u"x");
    user.press(Key::del);
    EXPECT_TRUE(box.text().starts_with(u"FRED (Fast"));
    EXPECT_FALSE(applyEnabled(dialog));
    EXPECT_TRUE(dialog.cmdCommand[frmOptions::ok].isDefault());
  });
}

TEST_F(FredLinkTest, WithoutDispensingNothingIsLoadedOrSaved) {
  host.dispensingAvailable = false;
  storeLink(42, true, u"C:\\FRED\\pos.dat");
  saveDefaults();
  edit([&](frmOptions& dialog) {
    EXPECT_EQ(dialog.tabOptions.count(), 11);
    EXPECT_EQ(seconds(dialog).text(), u"");
    EXPECT_EQ(path(dialog).text(), u"");
    user.type(u"Corner Shop");
  });
  EXPECT_TRUE(host.callsStarting("get FRED").empty());
  EXPECT_TRUE(host.callsStarting("put FRED").empty());
  EXPECT_EQ(host.value(options::FREDPollSeconds), 42);
  EXPECT_EQ(changes, std::vector<std::int32_t>{0});
}

TEST_F(FredLinkTest, FirstUseWithoutDispensingStoresNothingOfIt) {
  host.dispensingAvailable = false;
  saveDefaults();
  for (const OptionId option : kSettings) EXPECT_FALSE(host.stored.contains(option));
}

TEST_F(FredLinkTest, FirstUseStoresTheDefaultsThatWereShown) {
  options_.FirstUse = true;
  open([](frmOptions&) {});
  options_.FirstUse = false;
  EXPECT_EQ(host.value(options::FREDPollSeconds), 15);
  EXPECT_FALSE(host.value(options::FREDLinkActive));
  EXPECT_EQ(host.value(options::FREDDataFile), u"");
  ASSERT_EQ(changes.size(), 1U);
  EXPECT_NE(changes.front() & 256, 0);
}

TEST_F(FredLinkTest, TheRestIsEnabledWhileTheLinkIsTicked) {
  openTab([&](frmOptions& dialog) {
    const std::vector<ui::Control*> others = {
        &path(dialog),
        &seconds(dialog),
        &upDown(dialog),
        &tab(dialog).cmdDispense,
        &tab(dialog).lblDispenseLabels[FredLink::labelOfDataFile],
        &tab(dialog).lblDispenseLabels[FredLink::labelOfSeconds],
        &tab(dialog).lblDispenseLabels[FredLink::unitOfSeconds]};
    const auto expectEnabled = [&](bool enabled) {
      for (const ui::Control* control : others) EXPECT_EQ(control->enabled(), enabled);
    };
    expectEnabled(false);
    user.click(active(dialog));
    expectEnabled(true);
    EXPECT_TRUE(applyEnabled(dialog));
    user.accessKey(u't');
    expectEnabled(false);
    EXPECT_TRUE(tab(dialog).txtDispense[FredLink::explanation].enabled());
  });
  openWith(15, [&](frmOptions& dialog) {
    EXPECT_TRUE(seconds(dialog).enabled());
    EXPECT_TRUE(tab(dialog).cmdDispense.enabled());
  });
}

TEST_F(FredLinkTest, WhatIsDisabledCannotBeReached) {
  openTab([&](frmOptions& dialog) {
    user.accessKey(u'e');
    EXPECT_FALSE(seconds(dialog).hasFocus());
    user.accessKey(u'r');
    user.click(tab(dialog).cmdDispense);
    user.spin(upDown(dialog), +1);
    EXPECT_EQ(seconds(dialog).text(), u"15");
    EXPECT_FALSE(applyEnabled(dialog));
  });
  EXPECT_TRUE(machine.fileDialogs.shown.empty());
}

TEST_F(FredLinkTest, UntickingKeepsPathAndInterval) {
  openWith(42, [&](frmOptions& dialog) {
    user.click(active(dialog));
    apply(dialog);
  });
  EXPECT_FALSE(host.value(options::FREDLinkActive));
  EXPECT_EQ(host.value(options::FREDPollSeconds), 42);
  EXPECT_EQ(host.value(options::FREDDataFile), u"C:\\FRED\\pos.dat");
}

TEST_F(FredLinkTest, ThePageOpensInTheCheckBoxAndTabWalksThroughTheRest) {
  openWith(15, [&](frmOptions& dialog) {
    const std::vector<ui::Control*> order = {&active(dialog), &path(dialog),
                                             &tab(dialog).cmdDispense, &seconds(dialog),
                                             &dialog.cmdCommand[frmOptions::ok]};
    expectTabOrder(order);
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(FredLinkTest, ThePageOpensInTheCheckBoxFromOtherTabsToo) {
  openOn(TabPage::security, [&](frmOptions& dialog) {
    user.press(Key::tab, {.ctrl = true});
    EXPECT_EQ(dialog.tabOptions.selected(), static_cast<int>(TabPage::fred));
    EXPECT_TRUE(active(dialog).hasFocus());
    user.press(Key::tab, {.ctrl = true});
    user.press(Key::tab, {.shift = true, .ctrl = true});
    EXPECT_TRUE(active(dialog).hasFocus());
  });
}

TEST_F(FredLinkTest, TheExplanationIsReachedByTabWithItsTextSelected) {
  openTab([&](frmOptions& dialog) {
    const ui::TextBox& box = tab(dialog).txtDispense[FredLink::explanation];
    user.press(Key::tab, {.shift = true});
    EXPECT_TRUE(box.hasFocus());
    EXPECT_EQ(box.selText(), box.text());
    user.press(Key::tab, {.shift = true});
    EXPECT_TRUE(dialog.tabOptions.hasFocus());
    user.press(Key::tab);
    EXPECT_TRUE(box.hasFocus());
    user.press(Key::tab);
    EXPECT_TRUE(active(dialog).hasFocus());
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(FredLinkTest, IntervalPathAndCheckBoxAreReadInThisOrder) {
  openTab([](frmOptions&) {});
  EXPECT_EQ(
      host.callsStarting("get FRED"),
      (std::vector<std::string>{"get FREDPollSeconds", "get FREDDataFile", "get FREDLinkActive"}));
}

TEST_F(FredLinkTest, ControlsHaveTheirNumbers) {
  storeLink(42, true, u"C:\\FRED\\pos.dat");
  openTab([&](frmOptions& dialog) {
    const auto& box = tab(dialog).txtDispense;
    ASSERT_EQ(box.count(), 3);
    EXPECT_TRUE(box[0].text().starts_with(u"FRED (Fast"));
    EXPECT_EQ(box[1].text(), u"C:\\FRED\\pos.dat");
    EXPECT_EQ(box[2].text(), u"42");
  });
}

TEST_F(FredLinkTest, ASaveThatAnotherTabRefusesKeepsTheLinkUnwritten) {
  saveDefaults();
  host.store(options::CurrencyListColumns, 0);
  openTab([&](frmOptions& dialog) {
    user.click(active(dialog));
    typeSeconds(dialog, u"99");
    apply(dialog);
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_FALSE(host.value(options::FREDLinkActive));
    EXPECT_EQ(host.value(options::FREDPollSeconds), 15);
    EXPECT_TRUE(active(dialog).value());
    EXPECT_EQ(seconds(dialog).text(), u"60");
    EXPECT_TRUE(applyEnabled(dialog));
  });
  openTab([&](frmOptions& dialog) {
    EXPECT_FALSE(active(dialog).value());
    EXPECT_EQ(seconds(dialog).text(), u"15");
  });
}

TEST_F(FredLinkTest, AccessKeysReachTheLinkTheFileAndTheInterval) {
  openTab([&](frmOptions& dialog) {
    user.accessKey(u't');
    EXPECT_TRUE(active(dialog).value());
    user.accessKey(u'e');
    EXPECT_TRUE(seconds(dialog).hasFocus());
    EXPECT_EQ(seconds(dialog).selText(), u"15");
    user.accessKey(u'r');
    EXPECT_EQ(machine.fileDialogs.shown.size(), 1U);
  });
}

TEST_F(FredLinkTest, BrowseOffersAnyFileAndShowsTheChoice) {
  machine.fileDialogs.answers = {u"D:\\data\\\u4e2d.txt"};
  openWith(15, [&](frmOptions& dialog) {
    user.click(tab(dialog).cmdDispense);
    EXPECT_EQ(path(dialog).text(), u"D:\\data\\\u4e2d.txt");
    EXPECT_TRUE(applyEnabled(dialog));
    EXPECT_EQ(host.value(options::FREDDataFile), u"C:\\FRED\\pos.dat");
    apply(dialog);
  });
  ASSERT_EQ(machine.fileDialogs.shown.size(), 1U);
  EXPECT_EQ(machine.fileDialogs.shown[0].title, u"FRED's point-of-sale data file");
  EXPECT_EQ(machine.fileDialogs.shown[0].pattern, u"*.*");
  EXPECT_FALSE(machine.fileDialogs.shown[0].keepsShortcuts);
  EXPECT_EQ(host.value(options::FREDDataFile), u"D:\\data\\\u4e2d.txt");
}

TEST_F(FredLinkTest, BrowseThatIsCancelledChangesNothing) {
  machine.fileDialogs.answers = {std::nullopt};
  openWith(15, [&](frmOptions& dialog) {
    user.click(tab(dialog).cmdDispense);
    EXPECT_EQ(path(dialog).text(), u"C:\\FRED\\pos.dat");
    EXPECT_FALSE(applyEnabled(dialog));
    EXPECT_TRUE(tab(dialog).cmdDispense.hasFocus());
  });
}

TEST_F(FredLinkTest, ThePathCannotBeTyped) {
  openWith(15, [&](frmOptions& dialog) {
    user.click(path(dialog));
    EXPECT_EQ(path(dialog).selText(), u"C:\\FRED\\pos.dat");
    user.type(u"x");
    user.paste(u"y");
    user.press(Key::del);
    EXPECT_EQ(path(dialog).text(), u"C:\\FRED\\pos.dat");
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(FredLinkTest, OnlyDigitsCanBeTypedIntoTheInterval) {
  openWith(15, [&](frmOptions& dialog) {
    typeSeconds(dialog, u"a-. $\u0661");
    EXPECT_EQ(seconds(dialog).text(), u"15");
    user.type(u"x2y0z9");
    EXPECT_EQ(seconds(dialog).text(), u"20");
    user.press(Key::backspace);
    EXPECT_EQ(seconds(dialog).text(), u"2");
  });
}

TEST_F(FredLinkTest, AnEmptyIntervalBecomesFifteen) {
  openWith(42, [&](frmOptions& dialog) {
    user.click(seconds(dialog));
    user.press(Key::backspace);
    EXPECT_EQ(seconds(dialog).text(), u"");
    user.press(Key::tab);
    EXPECT_EQ(seconds(dialog).text(), u"15");
    EXPECT_FALSE(seconds(dialog).hasFocus());
    EXPECT_EQ(upDown(dialog).value(), 15);
  });
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(FredLinkTest, TheIntervalIsLimitedWhenTheBoxIsLeft) {
  const std::vector<std::pair<Text, Text>> intervals = {
      {u"4", u"5"},   {u"99", u"60"}, {u"60", u"60"}, {u"5", u"5"},   {u"0", u"5"},
      {u"61", u"60"}, {u"6", u"6"},   {u"59", u"59"}, {u"05", u"05"}, {u"00", u"5"}};
  openWith(15, [&](frmOptions& dialog) {
    for (const auto& [typed, shown] : intervals) {
      typeSeconds(dialog, typed);
      EXPECT_EQ(seconds(dialog).text(), typed);
      user.press(Key::tab);
      EXPECT_EQ(seconds(dialog).text(), shown) << toUtf8(typed);
      EXPECT_FALSE(seconds(dialog).hasFocus());
    }
  });
}

TEST_F(FredLinkTest, PastedTextIsCutAndGarbageBecomesFifteen) {
  openWith(42, [&](frmOptions& dialog) {
    EXPECT_EQ(afterPasting(dialog, u"abc"), u"15");
    EXPECT_EQ(afterPasting(dialog, u" "), u"15");
    EXPECT_EQ(afterPasting(dialog, u"1x"), u"15");
    EXPECT_EQ(afterPasting(dialog, u"3000"), u"30");
    EXPECT_EQ(afterPasting(dialog, u"-9"), u"5");
    EXPECT_EQ(afterPasting(dialog, u"$9"), u"$9");
    apply(dialog);
  });
  EXPECT_EQ(host.value(options::FREDPollSeconds), 9);
}

TEST_F(FredLinkTest, TheUpDownChangesTheIntervalByOne) {
  openWith(15, [&](frmOptions& dialog) {
    user.spin(upDown(dialog), +1);
    EXPECT_EQ(seconds(dialog).text(), u"16");
    EXPECT_TRUE(applyEnabled(dialog));
    EXPECT_TRUE(seconds(dialog).hasFocus());
    EXPECT_EQ(seconds(dialog).selText(), u"16");
    user.spin(upDown(dialog), -1);
    user.spin(upDown(dialog), -1);
    EXPECT_EQ(seconds(dialog).text(), u"14");
    EXPECT_EQ(seconds(dialog).selText(), u"14");
    apply(dialog);
  });
  EXPECT_EQ(host.value(options::FREDPollSeconds), 14);
}

TEST_F(FredLinkTest, TheUpDownEndsAtTheLimits) {
  openWith(59, [&](frmOptions& dialog) {
    for (int i = 0; i < 3; ++i) user.spin(upDown(dialog), +1);
    EXPECT_EQ(seconds(dialog).text(), u"60");
    for (int i = 0; i < 55; ++i) upDown(dialog).spin(-1);
    EXPECT_EQ(seconds(dialog).text(), u"5");
    user.spin(upDown(dialog), -1);
    EXPECT_EQ(seconds(dialog).text(), u"5");
  });
}

TEST_F(FredLinkTest, AClickGoesOnFromWhatWasTyped) {
  openWith(15, [&](frmOptions& dialog) {
    typeSeconds(dialog, u"30");
    user.spin(upDown(dialog), +1);
    EXPECT_EQ(seconds(dialog).text(), u"31");
    user.type(u"99");
    user.spin(upDown(dialog), -1);
    EXPECT_EQ(seconds(dialog).text(), u"59");
    user.press(Key::backspace);
    user.spin(upDown(dialog), -1);
    EXPECT_EQ(seconds(dialog).text(), u"14");
  });
}

TEST_F(FredLinkTest, AStoredIntervalOutOfRangeIsShownAndKeptUntilTheBoxIsLeft) {
  for (const std::int16_t stored : {std::int16_t{300}, std::int16_t{-5}, std::int16_t{32767}}) {
    storeLink(stored, true, u"");
    edit([&](frmOptions& dialog) {
      EXPECT_EQ(seconds(dialog).text(), stored == 300 ? u"300" : stored < 0 ? u"-5" : u"32767");
      EXPECT_FALSE(applyEnabled(dialog));
      user.type(u"x");
    });
    EXPECT_EQ(host.value(options::FREDPollSeconds), stored);
  }
  openWith(300, [&](frmOptions& dialog) {
    user.click(seconds(dialog));
    user.press(Key::tab);
    EXPECT_EQ(seconds(dialog).text(), u"60");
    EXPECT_TRUE(applyEnabled(dialog));
  });
  openWith(300, [&](frmOptions& dialog) {
    user.spin(upDown(dialog), -1);
    EXPECT_EQ(seconds(dialog).text(), u"59");
  });
}

TEST_F(FredLinkTest, AnArrowPastTheEndCorrectsAStoredIntervalOutOfRange) {
  const std::vector<std::tuple<std::int16_t, int, Text>> presses = {{std::int16_t{300}, +1, u"60"},
                                                                    {std::int16_t{61}, +1, u"60"},
                                                                    {std::int16_t{3}, -1, u"5"},
                                                                    {std::int16_t{-5}, -1, u"5"}};
  for (const auto& [stored, direction, shown] : presses) {
    openWith(stored, [&](frmOptions& dialog) {
      user.spin(upDown(dialog), direction);
      EXPECT_EQ(seconds(dialog).text(), shown) << stored;
      EXPECT_TRUE(seconds(dialog).hasFocus());
      EXPECT_EQ(seconds(dialog).selText(), shown);
      EXPECT_TRUE(applyEnabled(dialog));
      apply(dialog);
    });
    EXPECT_EQ(host.value(options::FREDPollSeconds), shown == u"5" ? 5 : 60);
  }
}

TEST_F(FredLinkTest, AnArrowAtTheEndGoesToTheBoxAndChangesNothing) {
  for (const auto& [stored, direction] : {std::pair{60, +1}, std::pair{5, -1}}) {
    openWith(static_cast<std::int16_t>(stored), [&](frmOptions& dialog) {
      user.spin(upDown(dialog), direction);
      EXPECT_EQ(seconds(dialog).selText(), stored == 5 ? u"5" : u"60");
      EXPECT_TRUE(seconds(dialog).hasFocus());
      EXPECT_FALSE(applyEnabled(dialog));
    });
  }
}

TEST_F(FredLinkTest, ApplyByItsAccessKeyCorrectsTheIntervalFirst) {
  openWith(15, [&](frmOptions& dialog) {
    typeSeconds(dialog, u"99");
    user.accessKey(u'a');
    EXPECT_EQ(seconds(dialog).text(), u"60");
    EXPECT_TRUE(dialog.isShown());
    EXPECT_EQ(host.value(options::FREDPollSeconds), 60);
  });
}

TEST_F(FredLinkTest, EachOfTheThreeRaisesTheDispensingBit) {
  machine.fileDialogs.answers = {u"E:\\other.dat"};
  saveDefaults();
  storeLink(15, true, u"C:\\FRED\\pos.dat");
  openTab([&](frmOptions& dialog) {
    user.spin(upDown(dialog), +1);
    apply(dialog);
    user.click(tab(dialog).cmdDispense);
    apply(dialog);
    user.click(active(dialog));
    apply(dialog);
    user.click(active(dialog));
    user.click(active(dialog));
    apply(dialog);
  });
  EXPECT_EQ(changes, (std::vector<std::int32_t>{256, 256, 256, 0}));
}

TEST_F(FredLinkTest, EachOfTheThreeEnablesApply) {
  machine.fileDialogs.answers = {u"E:\\other.dat"};
  const std::vector<std::function<void(frmOptions&)>> edits = {
      [&](frmOptions& dialog) { user.click(active(dialog)); },
      [&](frmOptions& dialog) { user.click(tab(dialog).cmdDispense); },
      [&](frmOptions& dialog) { typeSeconds(dialog, u"2"); },
      [&](frmOptions& dialog) { user.spin(upDown(dialog), -1); },
  };
  for (const auto& change : edits) {
    openWith(15, [&](frmOptions& dialog) {
      EXPECT_FALSE(applyEnabled(dialog));
      change(dialog);
      EXPECT_TRUE(applyEnabled(dialog));
    });
  }
}

TEST_F(FredLinkTest, OkByEnterValidatesAndSaves) {
  openWith(15, [&](frmOptions& dialog) {
    typeSeconds(dialog, u"4");
    user.press(Key::enter);
    EXPECT_FALSE(dialog.isShown());
  });
  EXPECT_EQ(host.value(options::FREDPollSeconds), 5);
}

TEST_F(FredLinkTest, CancelSavesNothing) {
  openWith(15, [&](frmOptions& dialog) {
    typeSeconds(dialog, u"4");
    user.press(Key::escape);
    EXPECT_FALSE(dialog.isShown());
  });
  EXPECT_EQ(host.value(options::FREDPollSeconds), 15);
  EXPECT_TRUE(changes.empty());
}

TEST_F(FredLinkTest, TheWholeLinkByKeyboardAlone) {
  machine.fileDialogs.answers = {u"E:\\pos.dat"};
  saveDefaults();
  openTab([&](frmOptions&) {
    user.press(Key::space);
    user.press(Key::tab);
    user.press(Key::tab);
    user.press(Key::space);
    user.press(Key::tab);
    user.type(u"20");
    user.press(Key::enter);
  });
  EXPECT_TRUE(host.value(options::FREDLinkActive));
  EXPECT_EQ(host.value(options::FREDDataFile), u"E:\\pos.dat");
  EXPECT_EQ(host.value(options::FREDPollSeconds), 20);
  EXPECT_EQ(changes, std::vector<std::int32_t>{256});
  openTab([&](frmOptions& dialog) {
    EXPECT_TRUE(active(dialog).value());
    EXPECT_EQ(path(dialog).text(), u"E:\\pos.dat");
    EXPECT_EQ(seconds(dialog).text(), u"20");
  });
}

TEST_F(FredLinkTest, AHostThatFailsEndsTheSaveWithNothingWritten) {
  storeLink(15, true, u"C:\\FRED\\pos.dat");
  saveDefaults();
  for (const char* call : {"put FREDPollSeconds", "get FREDDataFile", "put FREDDataFile"}) {
    desk->whenShown([&](ui::Form& form) {
      // What the load reads must not fail.
      host.failingCall = call;
      user.spin(upDown(dynamic_cast<frmOptions&>(form)), +1);
      user.accessKey(u'o');
    });
    options_.SelectedTab = static_cast<std::int16_t>(TabPage::fred);
    FakeHost::expectFailure([&] { options_.ShowOptions(); });
    EXPECT_EQ(host.calls.back(), call);
    host.failingCall.clear();
  }
  EXPECT_EQ(host.value(options::FREDPollSeconds), 15);
  EXPECT_TRUE(changes.empty());
}

TEST_F(FredLinkTest, ARefusedSaveKeepsWhatWasTyped) {
  saveDefaults();
  openWith(15, [&](frmOptions& dialog) {
    typeSeconds(dialog, u"30");
    user.clickTab(dialog.tabOptions, static_cast<int>(TabPage::lists));
    auto& list = dialog.tabs().listColumns.lstListShow[ListColumns::currency];
    untickAll(list);
    apply(dialog);
    EXPECT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(host.value(options::FREDPollSeconds), 15);
    user.clickCheck(list, 0);
    apply(dialog);
  });
  EXPECT_EQ(host.value(options::FREDPollSeconds), 30);
}

}  // namespace
}  // namespace tillora::testing
