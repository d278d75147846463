#include "component/frmOptions.h"

#include "component/contract/option_table.h"
#include "identity/company_details.h"
#include "identity/ledvane_link.h"
#include "identity/start_up_entry.h"
#include "operations/layby.h"
#include "sales/rounding.h"
#include "tests/testing/options_test.h"

namespace tillora::testing {
namespace {

using ui::Key;

class FrmOptionsTest : public OptionsTest {
 protected:
  static void expectOnlyPageShown(frmOptions& dialog, int tab) {
    EXPECT_EQ(dialog.tabOptions.selected(), tab);
    for (const auto& [index, frame] : dialog.fraFrame) {
      EXPECT_EQ(frame->visible(), index == tab - 1) << index;
    }
  }
  ui::TextBox& nameBox(frmOptions& dialog) {
    return dialog.tabs().companyDetails.txtCompanyDetails[CompanyDetails::name];
  }
  ui::TextBox& addressBox(frmOptions& dialog) {
    return dialog.tabs().companyDetails.txtCompanyDetails[CompanyDetails::address];
  }
};

TEST_F(FrmOptionsTest, OpensOnGeneralWithElevenTabs) {
  open([&](frmOptions& dialog) {
    EXPECT_EQ(dialog.caption(), u"Options");
    EXPECT_EQ(dialog.tabOptions.tabs(),
              (std::vector<Text>{u"General", u"Lists", u"Transactions", u"Rounding", u"Currency",
                                 u"Scanning", u"Layby", u"EOD", u"Pump", u"Web", u"Security"}));
    expectOnlyPageShown(dialog, 1);
    EXPECT_EQ(dialog.helpContext(), 53);
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(FrmOptionsTest, ATwelfthTabStandsForDispensing) {
  host.dispensingAvailable = true;
  options_.SelectedTab = 12;
  open([&](frmOptions& dialog) {
    EXPECT_EQ(dialog.tabOptions.tabs().back(), u"FRED");
    expectOnlyPageShown(dialog, 12);
    EXPECT_EQ(dialog.helpContext(), 25);
  });
}

TEST_F(FrmOptionsTest, ButtonsHaveTheirCaptionsToolTipsAndRoles) {
  open([&](frmOptions& dialog) {
    const auto& command = dialog.cmdCommand;
    EXPECT_EQ(command[0].caption(), u"&OK");
    EXPECT_EQ(command[0].toolTip(), u"Apply and save all changes then close this window");
    EXPECT_TRUE(command[0].isDefault());
    EXPECT_EQ(command[1].caption(), u"&Apply");
    EXPECT_EQ(command[1].toolTip(), u"Apply and save all changes");
    EXPECT_EQ(command[2].caption(), u"&Cancel");
    EXPECT_EQ(command[2].toolTip(), u"Cancel all changes and close this window");
    EXPECT_TRUE(command[2].isCancel());
    EXPECT_EQ(command[3].caption(), u"&Help");
    EXPECT_EQ(command[3].toolTip(), u"Display help for this window");
  });
}

TEST_F(FrmOptionsTest, EachTabShowsItsPageAndHelpTopic) {
  const std::vector<int> topics = {53, 19, 20, 21, 22, 23, 216, 24, 216, 26, 27, 25};
  host.dispensingAvailable = true;
  open([&](frmOptions& dialog) {
    for (int tab = 12; tab >= 1; --tab) {
      user.clickTab(dialog.tabOptions, tab);
      expectOnlyPageShown(dialog, tab);
      EXPECT_EQ(dialog.helpContext(), topics[static_cast<std::size_t>(tab - 1)]);
    }
  });
}

TEST_F(FrmOptionsTest, ChoosingTheShownTabLeavesItsPage) {
  open([&](frmOptions& dialog) {
    user.clickTab(dialog.tabOptions, 1);
    expectOnlyPageShown(dialog, 1);
  });
}

TEST_F(FrmOptionsTest, ControlTabWalksThroughTheTabs) {
  open([&](frmOptions& dialog) {
    for (int tab = 2; tab <= 11; ++tab) {
      user.press(Key::tab, {.ctrl = true});
      expectOnlyPageShown(dialog, tab);
    }
    user.press(Key::tab, {.ctrl = true});
    expectOnlyPageShown(dialog, 1);
    EXPECT_TRUE(nameBox(dialog).hasFocus());
    user.press(Key::tab, {.shift = true, .ctrl = true});
    expectOnlyPageShown(dialog, 11);
  });
}

TEST_F(FrmOptionsTest, ArrowsOnTheTabStripSwitchTabs) {
  open([&](frmOptions& dialog) {
    user.clickTab(dialog.tabOptions, 2);
    user.press(Key::right);
    expectOnlyPageShown(dialog, 3);
    user.press(Key::left);
    user.press(Key::left);
    expectOnlyPageShown(dialog, 1);
    EXPECT_TRUE(dialog.tabOptions.hasFocus());
  });
}

TEST_F(FrmOptionsTest, SwitchingTabsTakesTheFocusOffTheHiddenPage) {
  open([&](frmOptions& dialog) {
    user.click(addressBox(dialog));
    EXPECT_EQ(dialog.defaultButton(), nullptr);
    user.clickTab(dialog.tabOptions, 2);
    EXPECT_FALSE(addressBox(dialog).hasFocus());
    EXPECT_TRUE(dialog.cmdCommand[frmOptions::ok].isDefault());
    user.press(Key::enter);
    EXPECT_FALSE(dialog.isShown());
  });
}

TEST_F(FrmOptionsTest, SwitchingTabsFromCancelValidatesWhatIsPendingOnThePage) {
  openOn(TabPage::layby, [&](frmOptions& dialog) {
    ui::TextBox& number = dialog.tabs().laybyOptions.txtLayby[LaybyOptions::startNumber];
    user.type(u"0");
    dialog.cmdCommand[frmOptions::cancel].setFocus();
    EXPECT_EQ(number.text(), u"0");
    user.press(Key::tab, {.ctrl = true});
    EXPECT_EQ(number.text(), u"1");
    expectOnlyPageShown(dialog, 8);
  });
}

TEST_F(FrmOptionsTest, ARefusedValidationFromCancelKeepsThePage) {
  openOn(TabPage::layby, [&](frmOptions& dialog) {
    ui::TextBox& number = dialog.tabs().laybyOptions.txtLayby[LaybyOptions::startNumber];
    number.validate = [](bool& refuse) { refuse = true; };
    dialog.cmdCommand[frmOptions::cancel].setFocus();
    user.press(Key::tab, {.ctrl = true});
    expectOnlyPageShown(dialog, 7);
    EXPECT_TRUE(number.hasFocus());
  });
}

TEST_F(FrmOptionsTest, SelectedTabOpensThatTab) {
  options_.SelectedTab = 3;
  open([&](frmOptions& dialog) {
    expectOnlyPageShown(dialog, 3);
    EXPECT_EQ(dialog.helpContext(), 20);
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(FrmOptionsTest, ASelectedTabOfZeroOrLessKeepsTheFirst) {
  for (const std::int16_t tab : {std::int16_t{0}, std::int16_t{-1}, std::int16_t{-32768}}) {
    options_.SelectedTab = tab;
    open([&](frmOptions& dialog) { expectOnlyPageShown(dialog, 1); });
  }
}

TEST_F(FrmOptionsTest, ASelectedTabBeyondTheLastIsAnErrorAndShowsNothing) {
  for (const std::int16_t tab : {std::int16_t{12}, std::int16_t{99}, std::int16_t{32767}}) {
    options_.SelectedTab = tab;
    try {
      options_.ShowOptions();
      ADD_FAILURE() << tab;
    } catch (const Error& failure) {
      EXPECT_EQ(failure.number(), error::indexOutOfBounds);
      EXPECT_EQ(failure.description(), u"Index out of bounds");
    }
  }
  options_.SelectedTab = 11;
  open([&](frmOptions& dialog) { expectOnlyPageShown(dialog, 11); });
}

TEST_F(FrmOptionsTest, AFirstUseThatEndsAtATabBeyondTheLastHasStillSaved) {
  options_.FirstUse = true;
  options_.SelectedTab = 99;
  try {
    options_.ShowOptions();
    ADD_FAILURE();
  } catch (const Error& failure) {
    EXPECT_EQ(failure.number(), error::indexOutOfBounds);
  }
  EXPECT_EQ(host.callsStarting("commit").size(), 1U);
  EXPECT_EQ(host.sent.size(), 1U);
  EXPECT_EQ(changes.size(), 1U);
  EXPECT_EQ(host.value(options::CompanyName), u"");
  options_.FirstUse = false;
  options_.SelectedTab = 0;
  open([&](frmOptions& dialog) { expectOnlyPageShown(dialog, 1); });
}

TEST_F(FrmOptionsTest, AnOpeningThatFailsKeepsWhetherTheDataFileWasChanged) {
  machine.fileDialogs.answers = {u"C:\\Ledvane\\Other.ldv"};
  edit([&](frmOptions& dialog) { user.click(dialog.tabs().ledvaneLink.cmdLedvane); });
  ASSERT_TRUE(options_.ChangedDataFile());
  options_.FirstUse = true;
  options_.SelectedTab = 99;
  EXPECT_THROW(options_.ShowOptions(), Error);
  EXPECT_TRUE(options_.ChangedDataFile());
  options_.FirstUse = false;
  options_.SelectedTab = 0;
  open([](frmOptions&) {});
  EXPECT_FALSE(options_.ChangedDataFile());
}

TEST_F(FrmOptionsTest, OkWithoutAnEditClosesWithoutSaving) {
  open([&](frmOptions& dialog) {
    user.click(dialog.cmdCommand[frmOptions::ok]);
    EXPECT_FALSE(dialog.isShown());
  });
  EXPECT_TRUE(changes.empty());
  EXPECT_TRUE(host.callsStarting("put").empty());
  EXPECT_TRUE(host.callsStarting("commit").empty());
  EXPECT_FALSE(options_.ChangedDataFile());
}

TEST_F(FrmOptionsTest, OkAfterAnEditSavesAndCloses) {
  saveDefaults();
  open([&](frmOptions& dialog) {
    user.type(u"Corner Shop");
    user.click(dialog.cmdCommand[frmOptions::ok]);
    EXPECT_FALSE(dialog.isShown());
  });
  EXPECT_EQ(host.value(options::CompanyName), u"Corner Shop");
  EXPECT_EQ(changes, std::vector<std::int32_t>{0});
}

TEST_F(FrmOptionsTest, EnterPressesOk) {
  open([&](frmOptions& dialog) {
    user.type(u"Corner Shop");
    user.press(Key::enter);
    EXPECT_FALSE(dialog.isShown());
  });
  EXPECT_EQ(host.value(options::CompanyName), u"Corner Shop");
}

TEST_F(FrmOptionsTest, EveryEditEnablesApply) {
  host.classes.push_back({{u"Name", Text(u"Retail")}, {u"Hidden", false}});
  open([&](frmOptions& dialog) {
    user.type(u"x");
    EXPECT_TRUE(applyEnabled(dialog));
  });
  open([&](frmOptions& dialog) {
    user.choose(dialog.tabs().companyDetails.cboClass, 1);
    EXPECT_TRUE(applyEnabled(dialog));
  });
}

TEST_F(FrmOptionsTest, ChoosingTheItemThatIsShownIsAnEdit) {
  openOn(TabPage::rounding, [&](frmOptions& dialog) {
    ui::ComboBox& step = dialog.tabs().rounding.cboRounding[Rounding::step];
    user.choose(step, step.listIndex());
    EXPECT_TRUE(applyEnabled(dialog));
  });
}

TEST_F(FrmOptionsTest, AnArrowKeyThatCannotMoveIsNotAChoice) {
  host.store(options::RoundingDirection, std::uint8_t{Rounding::downTo});
  openOn(TabPage::rounding, [&](frmOptions& dialog) {
    ui::ComboBox& direction = dialog.tabs().rounding.cboRounding[Rounding::direction];
    EXPECT_TRUE(direction.setFocus());
    user.press(Key::down);
    EXPECT_FALSE(applyEnabled(dialog));
    user.press(Key::up);
    EXPECT_TRUE(applyEnabled(dialog));
  });
}

TEST_F(FrmOptionsTest, TypingIntoAnyTextBoxEnablesApply) {
  host.dispensingAvailable = true;
  host.store(options::FREDLinkActive, true);
  host.store(options::TransactionOptionBits, 0x1FFF);
  saveDefaults();
  std::size_t typedInto = 0;
  open([&](frmOptions& dialog) {
    for (int tab = 1; tab <= dialog.tabOptions.count(); ++tab) {
      user.clickTab(dialog.tabOptions, tab);
      const auto found = openBoxes(dialog.fraFrame[tab - 1]);
      for (std::size_t i = 0; i < found.size(); ++i) {
        user.click(*found[i]);
        ASSERT_FALSE(applyEnabled(dialog)) << "box " << i << " of tab " << tab;
        user.type(u"7");
        EXPECT_TRUE(applyEnabled(dialog)) << "box " << i << " of tab " << tab;
        user.click(dialog.cmdCommand[frmOptions::apply]);
        ++typedInto;
      }
    }
  });
  EXPECT_EQ(changes.size(), typedInto);
  // Company, captions of receipts, rounding, margin, layby, days, pump, FRED.
  EXPECT_EQ(typedInto, 12U + 16U + 2U + 1U + 4U + 1U + 2U + 1U);
}

TEST_F(FrmOptionsTest, NeitherLoadingEveryOptionNorWalkingThroughEveryPageIsAnEdit) {
  host.dispensingAvailable = true;
  host.store(options::FREDLinkActive, true);
  host.store(options::DefaultCurrencyMargin, 2.5F);
  host.store(options::CompanyABN, u"51824753556");
  saveDefaults();
  ASSERT_EQ(host.stored.size(), std::size(kOptionTable));
  open([&](frmOptions& dialog) {
    EXPECT_FALSE(applyEnabled(dialog));
    for (int tab = 1; tab <= dialog.tabOptions.count(); ++tab) {
      user.clickTab(dialog.tabOptions, tab);
      int stops = 0;
      do {
        user.press(Key::tab);
        ++stops;
      } while (!dialog.tabOptions.hasFocus() && stops < 60);
      EXPECT_TRUE(dialog.tabOptions.hasFocus());
      EXPECT_FALSE(applyEnabled(dialog)) << "tab " << tab;
    }
  });
  EXPECT_TRUE(changes.empty());
}

TEST_F(FrmOptionsTest, TypingTheSameLetterOverItselfIsAnEdit) {
  host.store(options::CompanyName, u"x");
  open([&](frmOptions& dialog) {
    user.type(u"x");
    EXPECT_TRUE(applyEnabled(dialog));
  });
}

TEST_F(FrmOptionsTest, LookingAroundEnablesNothing) {
  host.store(options::CompanyName, u"Corner Shop");
  host.store(options::CompanyABN, u"51824753556");
  open([&](frmOptions& dialog) {
    for (int i = 0; i < 40; ++i) user.press(Key::tab);
    for (int i = 0; i < 12; ++i) user.press(Key::tab, {.ctrl = true});
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(FrmOptionsTest, ApplySavesStaysOpenAndIsDisabledAgain) {
  saveDefaults();
  open([&](frmOptions& dialog) {
    user.type(u"One");
    user.click(dialog.cmdCommand[frmOptions::apply]);
    EXPECT_TRUE(dialog.isShown());
    EXPECT_FALSE(applyEnabled(dialog));
    EXPECT_EQ(host.value(options::CompanyName), u"One");
    user.click(nameBox(dialog));
    user.selectAll();
    user.type(u"Two");
    EXPECT_TRUE(applyEnabled(dialog));
    user.accessKey(u'a');
    EXPECT_EQ(host.value(options::CompanyName), u"Two");
    EXPECT_TRUE(dialog.isShown());
  });
  EXPECT_EQ(changes, (std::vector<std::int32_t>{0, 0}));
}

TEST_F(FrmOptionsTest, ApplyHandsTheFocusToOkWhenItIsDisabled) {
  open([&](frmOptions& dialog) {
    user.type(u"One");
    user.click(dialog.cmdCommand[frmOptions::apply]);
    EXPECT_TRUE(dialog.cmdCommand[frmOptions::ok].hasFocus());
    user.press(Key::enter);
    EXPECT_FALSE(dialog.isShown());
  });
}

TEST_F(FrmOptionsTest, CancelEscapeAndTheCloseBoxDropEdits) {
  const std::vector<std::function<void(frmOptions&)>> ways = {
      [&](frmOptions& dialog) { user.click(dialog.cmdCommand[frmOptions::cancel]); },
      [&](frmOptions&) { user.press(Key::escape); },
      [&](frmOptions& dialog) { user.closeWindow(dialog); },
      [&](frmOptions&) { user.press(Key::f4, {.alt = true}); },
  };
  for (const auto& leave : ways) {
    open([&](frmOptions& dialog) {
      user.type(u"x");
      leave(dialog);
      EXPECT_FALSE(dialog.isShown());
    });
  }
  EXPECT_TRUE(host.stored.empty());
  EXPECT_TRUE(changes.empty());
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(FrmOptionsTest, CancelAfterApplyKeepsWhatWasApplied) {
  saveDefaults();
  open([&](frmOptions& dialog) {
    user.type(u"One");
    user.click(dialog.cmdCommand[frmOptions::apply]);
    user.click(nameBox(dialog));
    user.type(u"Two");
    user.click(dialog.cmdCommand[frmOptions::cancel]);
  });
  EXPECT_EQ(host.value(options::CompanyName), u"One");
  EXPECT_EQ(changes.size(), 1U);
}

TEST_F(FrmOptionsTest, TheHelpButtonDoesNothing) {
  open([&](frmOptions& dialog) {
    user.click(dialog.cmdCommand[frmOptions::help_]);
    EXPECT_TRUE(dialog.isShown());
    EXPECT_TRUE(machine.help.topics.empty());
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(FrmOptionsTest, F1OpensTheHostsHelpAtTheTopicOfTheTab) {
  open([&](frmOptions& dialog) {
    user.press(Key::f1);
    user.clickTab(dialog.tabOptions, 7);
    user.press(Key::f1);
  });
  EXPECT_EQ(machine.help.topics,
            (std::vector<std::pair<Text, int>>{{u"C:\\Tillora\\Tillora Administrator.chm", 53},
                                               {u"C:\\Tillora\\Tillora Administrator.chm", 216}}));
}

TEST_F(FrmOptionsTest, TabWalksFromThePageThroughTheButtonsAndRound) {
  open([&](frmOptions& dialog) {
    // The data file, its button, the first check box of its frame.
    user.accessKey(u't');
    for (int i = 0; i < 3; ++i) user.press(Key::tab);
    EXPECT_TRUE(dialog.tabs().startUpEntry.chkShortcut.hasFocus());
    user.press(Key::tab);
    EXPECT_TRUE(dialog.cmdCommand[frmOptions::ok].hasFocus());
    user.press(Key::tab);
    EXPECT_TRUE(dialog.cmdCommand[frmOptions::cancel].hasFocus());
    user.press(Key::tab);
    EXPECT_TRUE(dialog.cmdCommand[frmOptions::help_].hasFocus());
    user.press(Key::tab);
    EXPECT_TRUE(dialog.tabOptions.hasFocus());
    user.press(Key::tab);
    EXPECT_TRUE(nameBox(dialog).hasFocus());
    user.press(Key::tab, {.shift = true});
    EXPECT_TRUE(dialog.tabOptions.hasFocus());
  });
}

TEST_F(FrmOptionsTest, PagesFillTheTabStripsClientArea) {
  open([&](frmOptions& dialog) {
    const ui::Rect client = dialog.tabOptions.clientArea();
    for (const auto& [index, frame] : dialog.fraFrame) EXPECT_EQ(frame->bounds(), client);
    EXPECT_GT(client.width, 9000);
    EXPECT_GT(client.height, 6000);

    enlarge(dialog, {1500, 900});
    const ui::Rect larger = dialog.tabOptions.clientArea();
    EXPECT_EQ(larger.width, client.width + 1500);
    EXPECT_EQ(larger.height, client.height + 900);
    for (const auto& [index, frame] : dialog.fraFrame) EXPECT_EQ(frame->bounds(), larger);
  });
}

TEST_F(FrmOptionsTest, EveryControlOfEveryPageLiesInsideItsHolder) {
  open([&](frmOptions& dialog) {
    const std::function<void(const ui::Container&)> check = [&](const ui::Container& holder) {
      const ui::Size size = holder.clientSize();
      for (const auto& control : holder.children()) {
        const ui::Rect& place = control->bounds();
        EXPECT_GE(place.left, 0) << toUtf8(control->caption());
        EXPECT_GE(place.top, 0) << toUtf8(control->caption());
        EXPECT_LE(place.right(), size.width) << toUtf8(control->caption());
        EXPECT_LE(place.bottom(), size.height) << toUtf8(control->caption());
        EXPECT_GT(place.width, 0) << toUtf8(control->caption());
        EXPECT_GT(place.height, 0) << toUtf8(control->caption());
        if (control->kind() == ui::Kind::frame) check(static_cast<ui::Frame&>(*control));
      }
    };
    check(dialog);
  });
}

TEST_F(FrmOptionsTest, ReopeningStartsFromWhatIsStored) {
  edit([&](frmOptions&) { user.type(u"One"); });
  open([&](frmOptions& dialog) {
    EXPECT_EQ(nameBox(dialog).text(), u"One");
    EXPECT_FALSE(applyEnabled(dialog));
    user.type(u"Two");
  });
  open([&](frmOptions& dialog) { EXPECT_EQ(nameBox(dialog).text(), u"One"); });
}

}  // namespace
}  // namespace tillora::testing
