#include "operations/pump.h"

#include <algorithm>

#include "operations/frmPumpGrade.h"
#include "sales/frmBrowseItems.h"
#include "tests/testing/function_ref.h"
#include "tests/testing/options_test.h"

namespace tillora::testing {
namespace {

using ui::Key;
using Rows = std::vector<std::vector<Text>>;

class PumpTest : public OptionsTest {
 protected:
  PumpTest() {
    host.items = {{u"STOCK", u"100", u"Fuel", u"Unleaded", u"Unleaded petrol", u"Sales"},
                  {u"PART", u"101", u"", u"Diesel", u"", u"Sales"}};
  }

  static FakeRow grade(std::int32_t number, TextView product = kNoProduct, TextView caption = {}) {
    return {{u"GradeNumber", number}, {u"Product", Text(product)}, {u"Caption", Text(caption)}};
  }
  void addGrades(const std::vector<std::int32_t>& numbers) {
    for (const std::int32_t number : numbers) host.grades.push_back(grade(number));
  }
  static PumpGrades& tab(frmOptions& dialog) { return dialog.tabs().pumpGrades; }
  static ui::CommandButton& command(frmOptions& dialog, int index) {
    return tab(dialog).cmdPump[index];
  }
  static Rows shown(frmOptions& dialog) {
    Rows rows;
    for (const auto& row : tab(dialog).ltvPump.rows()) {
      rows.emplace_back();
      for (std::size_t i = 0; i < row.texts.size(); ++i) rows.back().emplace_back(row.texts[i]);
    }
    return rows;
  }
  std::vector<std::int32_t> storedNumbers() const {
    std::vector<std::int32_t> numbers;
    for (const FakeRow& row : host.grades) {
      numbers.push_back(row.at(u"GradeNumber").get<std::int32_t>());
    }
    return numbers;
  }
  void openTab(const FunctionRef<void(frmOptions&)>& act) { openOn(TabPage::pump, act); }
  /// Opens the tab and presses OK after `act`.
  void editTab(const FunctionRef<void(frmOptions&)>& act) {
    openTab([&](frmOptions& dialog) {
      act(dialog);
      user.accessKey(u'o');
      EXPECT_FALSE(dialog.isShown());
    });
  }
  void whenGradeShown(const std::function<void(frmPumpGrade&)>& act) {
    desk->whenShown([act](ui::Form& form) { act(dynamic_cast<frmPumpGrade&>(form)); });
  }
  /// Presses New and Enter; returns the number that the new grade was given.
  std::int32_t addByNew(frmOptions& dialog) {
    std::int32_t number = 0;
    whenGradeShown([&](frmPumpGrade& form) {
      number = form.GradeNumber;
      user.press(Key::enter);
    });
    user.click(command(dialog, PumpGrades::add));
    return number;
  }
  void deleteRow(frmOptions& dialog, int row) {
    boxes.answers = {MessageResult::yes};
    user.clickRow(tab(dialog).ltvPump, row);
    user.click(command(dialog, PumpGrades::remove));
  }
  /// An edit that changes no value.
  void touch(frmOptions& dialog) {
    user.click(tab(dialog).chkPump[0]);
    user.click(tab(dialog).chkPump[0]);
  }
};

TEST_F(PumpTest, TheTextsOfThePage) {
  openTab([&](frmOptions& dialog) {
    auto& part = tab(dialog);
    std::vector<Text> labels;
    for (const auto& [index, label] : part.lblPump) labels.push_back(label->caption());
    EXPECT_EQ(labels, (std::vector<Text>{
                          u"&Grade and Product Assignments",
                          u"Note: Grade number 12 is reserved for special use in the Pump Console.",
                          u"Caption for &volume unit", u"Caption for price per &unit"}));
    std::vector<Text> headers;
    for (const auto& column : part.ltvPump.columns()) headers.push_back(column.header);
    EXPECT_EQ(headers, (std::vector<Text>{u"Grade", u"Product", u"Caption"}));
    EXPECT_EQ(part.ltvPump.headerStyle() & ui::kHeaderButtons, 0U);
    EXPECT_EQ(part.cmdPump[0].caption(), u"&New");
    EXPECT_EQ(part.cmdPump[0].toolTip(), u"Add a new Grade");
    EXPECT_EQ(part.cmdPump[1].caption(), u"D&elete");
    EXPECT_EQ(part.cmdPump[1].toolTip(), u"Delete the selected grade from the list");
    EXPECT_EQ(part.cmdPump[2].caption(), u"&Edit");
    EXPECT_EQ(part.cmdPump[2].toolTip(), u"Assign a product to the selected grade");
    EXPECT_EQ(part.chkPump[0].caption(), u"Print Pump Dispenser Caption on Receipt");
    EXPECT_EQ(part.chkPump.count(), 1);
  });
}

TEST_F(PumpTest, TabWalksThroughThePage) {
  host.grades = {grade(1)};
  openTab([&](frmOptions& dialog) {
    auto& part = tab(dialog);
    const std::vector<ui::Control*> order = {
        &part.ltvPump,    &part.cmdPump[0], &part.cmdPump[1], &part.cmdPump[2],
        &part.txtPump[0], &part.txtPump[1], &part.chkPump[0], &dialog.cmdCommand[frmOptions::ok]};
    for (const ui::Control* control : order) {
      EXPECT_EQ(dialog.activeControl(), control);
      user.press(Key::tab);
    }
    user.accessKey(u'g');
    EXPECT_TRUE(part.ltvPump.hasFocus());
    user.accessKey(u'v');
    EXPECT_TRUE(part.txtPump[PumpGrades::volumeUnit].hasFocus());
    user.accessKey(u'u');
    EXPECT_TRUE(part.txtPump[PumpGrades::priceUnit].hasFocus());
  });
}

TEST_F(PumpTest, TwoButtonsShareAnAccessKeyThatPressesNeither) {
  host.grades = {grade(1)};
  openTab([&](frmOptions& dialog) {
    user.accessKey(u'e');
    EXPECT_TRUE(command(dialog, PumpGrades::remove).hasFocus());
    user.accessKey(u'e');
    EXPECT_TRUE(command(dialog, PumpGrades::edit).hasFocus());
    EXPECT_TRUE(boxes.shown.empty());
  });
}

TEST_F(PumpTest, ShowsTheDefaultsWhenNothingIsStored) {
  openTab([&](frmOptions& dialog) {
    EXPECT_EQ(tab(dialog).txtPump[PumpGrades::volumeUnit].text(), u"L");
    EXPECT_EQ(tab(dialog).txtPump[PumpGrades::priceUnit].text(), u"/L");
    EXPECT_FALSE(tab(dialog).chkPump[0].value());
    EXPECT_EQ(tab(dialog).ltvPump.count(), 0);
    EXPECT_TRUE(command(dialog, PumpGrades::add).enabled());
    EXPECT_FALSE(command(dialog, PumpGrades::remove).enabled());
    EXPECT_FALSE(command(dialog, PumpGrades::edit).enabled());
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(PumpTest, ShowsWhatIsStored) {
  host.store(options::PumpVolumeUnitCaption, u"gal");
  host.store(options::PumpPriceUnitCaption, u"");
  host.store(options::PumpOptionBits, 1);
  host.grades = {grade(3, u"Fuel:Unleaded", u"ULP"), grade(1)};
  openTab([&](frmOptions& dialog) {
    EXPECT_EQ(tab(dialog).txtPump[PumpGrades::volumeUnit].text(), u"gal");
    EXPECT_EQ(tab(dialog).txtPump[PumpGrades::priceUnit].text(), u"");
    EXPECT_TRUE(tab(dialog).chkPump[0].value());
    EXPECT_EQ(shown(dialog), (Rows{{u"3", u"Fuel:Unleaded", u"ULP"}, {u"1", u"(None)", u""}}));
    EXPECT_EQ(tab(dialog).ltvPump.selectedRow(), 0);
    for (const auto& [index, button] : tab(dialog).cmdPump) EXPECT_TRUE(button->enabled());
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(PumpTest, SavesUnitsAsTypedAndTheReceiptOptionBitByBit) {
  host.store(options::PumpOptionBits, 0x700);
  editTab([&](frmOptions& dialog) {
    user.click(tab(dialog).txtPump[PumpGrades::volumeUnit]);
    user.type(u" litre ");
    user.click(tab(dialog).txtPump[PumpGrades::priceUnit]);
    user.paste(Text(600, u'x'));
    user.click(tab(dialog).chkPump[0]);
    EXPECT_TRUE(applyEnabled(dialog));
  });
  EXPECT_EQ(host.value(options::PumpVolumeUnitCaption), u" litre ");
  EXPECT_EQ(host.value(options::PumpPriceUnitCaption), Text(600, u'x'));
  EXPECT_EQ(host.value(options::PumpOptionBits), 1);
  const auto first = std::ranges::find(host.calls, "put PumpVolumeUnitCaption");
  ASSERT_GE(host.calls.end() - first, 6);
  EXPECT_EQ(std::vector<std::string>(first, first + 6),
            (std::vector<std::string>{"put PumpVolumeUnitCaption", "put PumpPriceUnitCaption",
                                      "put PumpOptionBits", "get PumpOptionBits",
                                      "put PumpOptionBits", "GradeTable"}));
}

TEST_F(PumpTest, NothingOnThePageRaisesAChangeBit) {
  saveDefaults();
  editTab([&](frmOptions& dialog) {
    user.click(tab(dialog).chkPump[0]);
    user.click(tab(dialog).txtPump[PumpGrades::volumeUnit]);
    user.type(u"gal");
    addByNew(dialog);
  });
  EXPECT_EQ(changes, std::vector<std::int32_t>{0});
}

TEST_F(PumpTest, AFirstUseStoresTheDefaultsThatWereShown) {
  saveDefaults();
  EXPECT_EQ(host.value(options::PumpVolumeUnitCaption), u"L");
  EXPECT_EQ(host.value(options::PumpPriceUnitCaption), u"/L");
  EXPECT_EQ(host.value(options::PumpOptionBits), 0);
  EXPECT_TRUE(host.grades.empty());
}

TEST_F(PumpTest, EveryEditEnablesApply) {
  host.grades = {grade(1)};
  const std::vector<std::function<void(frmOptions&)>> edits = {
      [&](frmOptions& d) { user.click(tab(d).chkPump[0]); },
      [&](frmOptions& d) {
        user.click(tab(d).txtPump[0]);
        user.type(u"L");
      },
      [&](frmOptions& d) {
        user.click(tab(d).txtPump[1]);
        user.type(u"L");
      },
      [&](frmOptions& d) { addByNew(d); },
      [&](frmOptions& d) {
        desk->whenShown([&](ui::Form&) { user.press(Key::enter); });
        user.click(command(d, PumpGrades::edit));
      },
      [&](frmOptions& d) { deleteRow(d, 0); }};
  for (const auto& act : edits) {
    openTab([&](frmOptions& dialog) {
      EXPECT_FALSE(applyEnabled(dialog));
      act(dialog);
      EXPECT_TRUE(applyEnabled(dialog));
    });
  }
}

TEST_F(PumpTest, AfterElevenGradesNewGivesThirteenToFifteenAndIsThenDisabled) {
  addGrades({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11});
  openTab([&](frmOptions& dialog) {
    ui::CommandButton& add = command(dialog, PumpGrades::add);
    EXPECT_EQ(addByNew(dialog), 13);
    EXPECT_TRUE(add.enabled());
    EXPECT_TRUE(add.hasFocus());
    EXPECT_EQ(addByNew(dialog), 14);
    EXPECT_TRUE(add.enabled());
    EXPECT_EQ(addByNew(dialog), 15);
    EXPECT_FALSE(add.enabled());
    ASSERT_NE(dialog.activeControl(), nullptr);
    EXPECT_NE(dialog.activeControl(), &add);
    EXPECT_NE(dialog.activeControl(), &dialog.cmdCommand[frmOptions::cancel]);
    deleteRow(dialog, 4);
    EXPECT_TRUE(add.enabled());
    EXPECT_EQ(addByNew(dialog), 5);
    EXPECT_TRUE(add.enabled());
  });
}

TEST_F(PumpTest, FifteenAloneDisablesNewHoweverFewRowsThereAre) {
  addGrades({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 13, 14});
  openTab([&](frmOptions& dialog) {
    EXPECT_EQ(addByNew(dialog), 15);
    EXPECT_FALSE(command(dialog, PumpGrades::add).enabled());
    deleteRow(dialog, 0);
    EXPECT_TRUE(command(dialog, PumpGrades::add).enabled());
  });
}

TEST_F(PumpTest, ANewGradeBelowFifteenLeavesNewEnabledThoughTheListIsFull) {
  addGrades({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 13, 15});
  openTab([&](frmOptions& dialog) {
    EXPECT_EQ(addByNew(dialog), 14);
    EXPECT_TRUE(command(dialog, PumpGrades::add).enabled());
  });
}

TEST_F(PumpTest, ACancelledFifteenLeavesNewEnabled) {
  addGrades({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 13, 14});
  openTab([&](frmOptions& dialog) {
    desk->whenShown([&](ui::Form&) { user.press(Key::escape); });
    user.click(command(dialog, PumpGrades::add));
    EXPECT_TRUE(command(dialog, PumpGrades::add).enabled());
    EXPECT_EQ(tab(dialog).ltvPump.count(), 13);
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(PumpTest, AGradeWithoutAProductShowsNoneAndIsSavedAsThatByTheNextSave) {
  FakeRow missing = grade(3, u"", u"Premium");
  missing.erase(u"Product");
  host.grades = {grade(1, u""), grade(2, u" "), missing};
  const auto before = host.grades;
  openTab([&](frmOptions& dialog) {
    EXPECT_EQ(shown(dialog),
              (Rows{{u"1", u"(None)", u""}, {u"2", u" ", u""}, {u"3", u"(None)", u"Premium"}}));
    EXPECT_FALSE(applyEnabled(dialog));
    EXPECT_EQ(host.grades, before);
    whenGradeShown([&](frmPumpGrade& form) {
      EXPECT_EQ(form.txtPumpGrade[frmPumpGrade::productBox].text(), u"(None)");
      user.press(Key::escape);
    });
    user.click(command(dialog, PumpGrades::edit));
  });
  EXPECT_EQ(host.grades, before);
  edit([&](frmOptions&) { user.type(u"x"); });  // on another tab
  EXPECT_EQ(host.grades,
            (std::vector<FakeRow>{grade(1), grade(2, u" "), grade(3, u"(None)", u"Premium")}));
}

TEST_F(PumpTest, WithoutASelectedRowEditAndDeleteDoNothing) {
  host.grades = {grade(1)};
  openTab([&](frmOptions& dialog) {
    tab(dialog).ltvPump.setSelectedRow(-1);
    // A dialog or a question would be unexpected.
    user.click(command(dialog, PumpGrades::edit));
    user.click(command(dialog, PumpGrades::remove));
    EXPECT_FALSE(applyEnabled(dialog));
  });
  openTab([&](frmOptions& dialog) {
    deleteRow(dialog, 0);
    boxes.shown.clear();
    // The list is empty: what a script or a double-click could still reach.
    command(dialog, PumpGrades::edit).click.raise();
    command(dialog, PumpGrades::remove).click.raise();
    tab(dialog).ltvPump.doubleClick.raise();
  });
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(PumpTest, TheBrowserOfAGradeGetsTheHostsSettings) {
  openTab([&](frmOptions& dialog) {
    whenGradeShown([&](frmPumpGrade& form) {
      desk->whenShown([&](ui::Form& browser) {
        EXPECT_EQ(dynamic_cast<frmBrowseItems&>(browser).SettingsObject, options_.SettingsObject);
        EXPECT_EQ(dynamic_cast<frmBrowseItems&>(browser).DBJetObject, options_.DBJetObject);
      });
      user.click(form.cmdPumpGrade[frmPumpGrade::browse]);
    });
    user.click(command(dialog, PumpGrades::add));
  });
}

TEST_F(PumpTest, NewIsEnabledAgainWhenTheDialogIsReopened) {
  addGrades({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 13, 14});
  editTab([&](frmOptions& dialog) { addByNew(dialog); });
  EXPECT_EQ(host.grades.size(), 14U);
  openTab([&](frmOptions& dialog) { EXPECT_TRUE(command(dialog, PumpGrades::add).enabled()); });
}

TEST_F(PumpTest, NewIsRefusedWhenEveryNumberIsTaken) {
  addGrades({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 13, 14, 15});
  for (const bool withTwelve : {false, true}) {
    if (withTwelve) addGrades({12});
    boxes.shown.clear();
    openTab([&](frmOptions& dialog) {
      user.click(command(dialog, PumpGrades::add));
      ASSERT_EQ(boxes.shown.size(), 1U);
      EXPECT_EQ(boxes.shown[0].text,
                u"You cannot add more grades.  A maximum of 15 grades are allowed.");
      EXPECT_EQ(boxes.shown[0].title, u"Cannot add grade");
      EXPECT_EQ(boxes.shown[0].style, 48);
      EXPECT_TRUE(boxes.shown[0].settingsGiven);
      EXPECT_FALSE(applyEnabled(dialog));
      EXPECT_TRUE(command(dialog, PumpGrades::add).enabled());
    });
  }
}

TEST_F(PumpTest, AGapIsFilledFirst) {
  addGrades({1, 2, 4});
  openTab([&](frmOptions& dialog) {
    EXPECT_EQ(addByNew(dialog), 3);
    EXPECT_EQ(addByNew(dialog), 5);
  });
}

TEST_F(PumpTest, TheFirstGradeIsNumberOne) {
  openTab([&](frmOptions& dialog) {
    EXPECT_EQ(addByNew(dialog), 1);
    EXPECT_EQ(shown(dialog), (Rows{{u"1", u"(None)", u""}}));
    EXPECT_TRUE(command(dialog, PumpGrades::remove).enabled());
    EXPECT_TRUE(command(dialog, PumpGrades::edit).enabled());
  });
}

TEST_F(PumpTest, TwelveIsNeverGivenThoughItIsListedAndEditable) {
  addGrades({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
  editTab([&](frmOptions& dialog) {
    EXPECT_EQ(addByNew(dialog), 13);
    user.clickRow(tab(dialog).ltvPump, 11);
    whenGradeShown([&](frmPumpGrade& form) {
      EXPECT_EQ(form.lblPumpGrade[0].caption(), u"Edit information for grade 12");
      user.type(u"Console");
      user.press(Key::enter);
    });
    user.click(command(dialog, PumpGrades::edit));
  });
  EXPECT_EQ(host.grades[11].at(u"Caption").get<Text>(), u"Console");
  EXPECT_EQ(storedNumbers(),
            (std::vector<std::int32_t>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13}));
}

TEST_F(PumpTest, NumbersThatNoGradeShouldHaveAreShownEditableAndKept) {
  const std::vector<std::int32_t> numbers = {0, 12, 16, -1, 2147483647, -2147483647 - 1};
  addGrades(numbers);
  editTab([&](frmOptions& dialog) {
    EXPECT_EQ(shown(dialog).size(), numbers.size());
    for (std::size_t i = 0; i < numbers.size(); ++i) {
      whenGradeShown([&](frmPumpGrade& form) {
        EXPECT_EQ(form.GradeNumber, numbers[i]);
        user.type(u"seen");
        user.press(Key::enter);
      });
      user.doubleClickRow(tab(dialog).ltvPump, static_cast<int>(i));
    }
    EXPECT_EQ(addByNew(dialog), 1);
  });
  auto expected = numbers;
  expected.push_back(1);
  EXPECT_EQ(storedNumbers(), expected);
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    EXPECT_EQ(host.grades[i].at(u"Caption").get<Text>(), u"seen");
  }
  EXPECT_EQ(host.callsStarting("find GradeTable")[3], "find GradeTable [GradeNumber] = -1");
}

TEST_F(PumpTest, OfGradesWithOneNumberTheFirstIsListedAndOnlyASaveRemovesTheOthers) {
  host.grades = {grade(1, u"A", u"first"), grade(2), grade(1, u"B", u"second")};
  const auto before = host.grades;
  openTab([&](frmOptions& dialog) {
    EXPECT_EQ(shown(dialog), (Rows{{u"1", u"A", u"first"}, {u"2", u"(None)", u""}}));
  });
  EXPECT_EQ(host.grades, before);
  editTab([&](frmOptions& dialog) { touch(dialog); });
  EXPECT_EQ(host.grades, (std::vector<FakeRow>{before[0], before[1]}));
}

TEST_F(PumpTest, ARowWithoutANumberIsNotListedAndStays) {
  FakeRow nameless = grade(0);
  nameless.erase(u"GradeNumber");
  FakeRow worded = grade(0);
  worded[u"GradeNumber"] = Text(u"three");
  host.grades = {nameless, grade(2), worded};
  editTab([&](frmOptions& dialog) {
    EXPECT_EQ(shown(dialog).size(), 1U);
    deleteRow(dialog, 0);
  });
  EXPECT_EQ(host.grades, (std::vector<FakeRow>{nameless, worded}));
}

TEST_F(PumpTest, NewShowsAnEmptyGradeAndAddsWhatWasEntered) {
  host.grades = {grade(1)};
  editTab([&](frmOptions& dialog) {
    desk->whenShown([&](ui::Form& form) {
      auto& grade = dynamic_cast<frmPumpGrade&>(form);
      EXPECT_EQ(grade.caption(), u"New Pump Grade Information");
      EXPECT_EQ(grade.lblPumpGrade[0].caption(), u"Create information for grade 2");
      EXPECT_EQ(grade.txtPumpGrade[frmPumpGrade::captionBox].text(), u"");
      EXPECT_EQ(grade.txtPumpGrade[frmPumpGrade::productBox].text(), u"(None)");
      user.type(u"ULP");
      desk->whenShown([&](ui::Form& browser) {
        EXPECT_EQ(dynamic_cast<frmBrowseItems&>(browser).ltvItems.selectedRow(), 0);
        user.press(Key::down);
        user.press(Key::enter);
      });
      user.accessKey(u'b');
      EXPECT_TRUE(grade.cmdPumpGrade[frmPumpGrade::browse].hasFocus());
      user.click(grade.cmdPumpGrade[frmPumpGrade::ok]);
    });
    user.accessKey(u'n');
    EXPECT_TRUE(command(dialog, PumpGrades::add).hasFocus());
    EXPECT_EQ(shown(dialog), (Rows{{u"1", u"(None)", u""}, {u"2", u"Fuel:Unleaded", u"ULP"}}));
    EXPECT_EQ(tab(dialog).ltvPump.selectedRow(), 1);
    EXPECT_EQ(tab(dialog).ltvPump.rowToShow(), 1);
  });
  EXPECT_EQ(host.grades, (std::vector<FakeRow>{grade(1), grade(2, u"Fuel:Unleaded", u"ULP")}));
}

TEST_F(PumpTest, EditShowsTheSelectedGradeAndReplacesProductAndCaption) {
  host.grades = {grade(1), grade(7, u"Fuel:Unleaded", u"ULP")};
  editTab([&](frmOptions& dialog) {
    user.clickRow(tab(dialog).ltvPump, 1);
    desk->whenShown([&](ui::Form& form) {
      auto& grade = dynamic_cast<frmPumpGrade&>(form);
      EXPECT_EQ(grade.caption(), u"Edit Pump Grade Information");
      EXPECT_EQ(grade.lblPumpGrade[0].caption(), u"Edit information for grade 7");
      EXPECT_EQ(grade.txtPumpGrade[frmPumpGrade::captionBox].text(), u"ULP");
      EXPECT_EQ(grade.txtPumpGrade[frmPumpGrade::productBox].text(), u"Fuel:Unleaded");
      desk->whenShown([&](ui::Form& browser) {
        auto& items = dynamic_cast<frmBrowseItems&>(browser).ltvItems;
        EXPECT_EQ(items.text(items.selectedRow(), 2), u"Unleaded");
        user.doubleClickRow(items, 0);
      });
      user.click(grade.cmdPumpGrade[frmPumpGrade::browse]);
      user.click(grade.txtPumpGrade[frmPumpGrade::captionBox]);
      user.type(u"DSL");
      user.press(Key::enter);
    });
    user.click(command(dialog, PumpGrades::edit));
    EXPECT_TRUE(command(dialog, PumpGrades::edit).hasFocus());
    EXPECT_EQ(shown(dialog)[1], (std::vector<Text>{u"7", u"Diesel", u"DSL"}));
    EXPECT_EQ(tab(dialog).ltvPump.selectedRow(), 1);
  });
  EXPECT_EQ(host.grades, (std::vector<FakeRow>{grade(1), grade(7, u"Diesel", u"DSL")}));
}

TEST_F(PumpTest, ACancelledEditChangesNothing) {
  host.grades = {grade(1, u"A", u"B")};
  openTab([&](frmOptions& dialog) {
    whenGradeShown([&](frmPumpGrade& form) {
      user.type(u"C");
      user.click(form.cmdPumpGrade[frmPumpGrade::cancel]);
    });
    user.click(command(dialog, PumpGrades::edit));
    EXPECT_EQ(shown(dialog), (Rows{{u"1", u"A", u"B"}}));
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(PumpTest, ADoubleClickOnARowEditsItAndOneBelowDoesNothing) {
  host.grades = {grade(1), grade(2)};
  openTab([&](frmOptions& dialog) {
    std::int32_t edited = 0;
    whenGradeShown([&](frmPumpGrade& form) {
      EXPECT_TRUE(form.EditMode);
      edited = form.GradeNumber;
    });
    user.doubleClickRow(tab(dialog).ltvPump, 1);
    EXPECT_EQ(edited, 2);
    user.doubleClickBelow(tab(dialog).ltvPump);
  });
}

TEST_F(PumpTest, AProductThatNoLongerExistsIsKept) {
  host.grades = {grade(1, u"Fuel:Gone", u"G")};
  editTab([&](frmOptions& dialog) {
    desk->whenShown([&](ui::Form& form) {
      auto& grade = dynamic_cast<frmPumpGrade&>(form);
      desk->whenShown([&](ui::Form& browser) {
        EXPECT_EQ(dynamic_cast<frmBrowseItems&>(browser).ltvItems.selectedRow(), -1);
        user.press(Key::enter);
      });
      user.click(grade.cmdPumpGrade[frmPumpGrade::browse]);
      EXPECT_EQ(grade.txtPumpGrade[frmPumpGrade::productBox].text(), u"Fuel:Gone");
      user.click(grade.cmdPumpGrade[frmPumpGrade::ok]);
    });
    user.click(command(dialog, PumpGrades::edit));
  });
  EXPECT_EQ(host.grades, (std::vector<FakeRow>{grade(1, u"Fuel:Gone", u"G")}));
}

TEST_F(PumpTest, DeleteAsksAndNoKeepsTheGrade) {
  host.grades = {grade(1), grade(12)};
  openTab([&](frmOptions& dialog) {
    user.clickRow(tab(dialog).ltvPump, 1);
    for (const MessageResult answer : {MessageResult::no, MessageResult::cancel}) {
      boxes.shown.clear();
      boxes.answers = {answer};
      user.click(command(dialog, PumpGrades::remove));
      ASSERT_EQ(boxes.shown.size(), 1U);
      EXPECT_EQ(boxes.shown[0].text, u"Are you sure you want to permanently delete grade 12 ?");
      EXPECT_EQ(boxes.shown[0].title, u"Delete grade");
      EXPECT_EQ(boxes.shown[0].style, 292);
      EXPECT_TRUE(boxes.shown[0].settingsGiven);
      EXPECT_EQ(tab(dialog).ltvPump.count(), 2);
      EXPECT_FALSE(applyEnabled(dialog));
    }
  });
}

TEST_F(PumpTest, DeleteAndInsertInTheListDoWhatTheButtonsDo) {
  addGrades({1, 14});
  openTab([&](frmOptions& dialog) {
    EXPECT_TRUE(tab(dialog).ltvPump.hasFocus());
    boxes.answers = {MessageResult::no, MessageResult::yes};
    user.press(Key::del);
    EXPECT_EQ(tab(dialog).ltvPump.count(), 2);
    user.press(Key::del);
    ASSERT_EQ(boxes.shown.size(), 2U);
    EXPECT_EQ(boxes.shown[1].title, u"Delete grade");
    ASSERT_EQ(tab(dialog).ltvPump.count(), 1);
    EXPECT_EQ(tab(dialog).ltvPump.text(0, PumpGrades::grade), u"14");
    whenGradeShown([&](frmPumpGrade& form) {
      EXPECT_EQ(form.GradeNumber, 1);
      user.press(Key::enter);
    });
    user.press(Key::insert);
    EXPECT_EQ(tab(dialog).ltvPump.count(), 2);
  });
}

TEST_F(PumpTest, InsertDoesNothingWhileNewIsDisabled) {
  addGrades({1});
  openTab([&](frmOptions& dialog) {
    EXPECT_TRUE(tab(dialog).ltvPump.hasFocus());
    command(dialog, PumpGrades::add).setEnabled(false);
    user.press(Key::insert);
    EXPECT_EQ(tab(dialog).ltvPump.count(), 1);
  });
}

TEST_F(PumpTest, DeletingTheOnlyGradeDisablesDeleteAndEdit) {
  host.grades = {grade(1)};
  editTab([&](frmOptions& dialog) {
    deleteRow(dialog, 0);
    EXPECT_EQ(tab(dialog).ltvPump.count(), 0);
    EXPECT_FALSE(command(dialog, PumpGrades::remove).enabled());
    EXPECT_FALSE(command(dialog, PumpGrades::edit).enabled());
    EXPECT_TRUE(command(dialog, PumpGrades::add).enabled());
    EXPECT_TRUE(applyEnabled(dialog));
    ASSERT_NE(dialog.activeControl(), nullptr);
    EXPECT_TRUE(dialog.activeControl()->canFocus());
    user.doubleClickBelow(tab(dialog).ltvPump);
  });
  EXPECT_TRUE(host.grades.empty());
}

TEST_F(PumpTest, AfterADeleteTheNextRowIsSelectedAndAfterTheLastThePrevious) {
  addGrades({1, 2, 3});
  openTab([&](frmOptions& dialog) {
    const auto selected = [&] {
      return tab(dialog).ltvPump.text(tab(dialog).ltvPump.selectedRow(), 0);
    };
    deleteRow(dialog, 1);
    EXPECT_EQ(selected(), u"3");
    deleteRow(dialog, 1);
    EXPECT_EQ(selected(), u"1");
  });
}

TEST_F(PumpTest, ADeletedGradeThatIsMadeAgainStartsEmpty) {
  host.grades = {grade(1, u"A", u"B"), grade(2)};
  editTab([&](frmOptions& dialog) {
    deleteRow(dialog, 0);
    EXPECT_EQ(addByNew(dialog), 1);
  });
  EXPECT_EQ(host.grades, (std::vector<FakeRow>{grade(1), grade(2)}));
}

TEST_F(PumpTest, ASaveLeavesExactlyTheListedGrades) {
  addGrades({1, 2, 3});
  openTab([&](frmOptions& dialog) {
    deleteRow(dialog, 1);
    addGrades({9});  // by another program
    host.calls.clear();
    user.click(dialog.cmdCommand[frmOptions::apply]);
    EXPECT_EQ(storedNumbers(), (std::vector<std::int32_t>{1, 3}));
    const auto first = std::ranges::find(host.calls, "GradeTable");
    ASSERT_GE(host.calls.end() - first, 7);
    EXPECT_EQ(
        std::vector<std::string>(first, first + 7),
        (std::vector<std::string>{"GradeTable", "find GradeTable [GradeNumber] = 1",
                                  "update GradeTable", "find GradeTable [GradeNumber] = 3",
                                  "update GradeTable", "delete GradeTable", "delete GradeTable"}));
    EXPECT_EQ(addByNew(dialog), 2);
    user.click(dialog.cmdCommand[frmOptions::apply]);
    EXPECT_EQ(storedNumbers(), (std::vector<std::int32_t>{1, 3, 2}));
  });
}

TEST_F(PumpTest, TheNumberIsWrittenIntoNewRowsAlone) {
  addGrades({1, 3});
  editTab([&](frmOptions& dialog) {
    EXPECT_EQ(addByNew(dialog), 2);
    deleteRow(dialog, 1);
    host.writes.clear();
  });
  EXPECT_EQ(host.writesOf("GradeTable"),
            (std::vector<std::string>{"edit GradeTable", "set GradeTable Product",
                                      "set GradeTable Caption", "update GradeTable",
                                      "add GradeTable", "set GradeTable GradeNumber",
                                      "set GradeTable Product", "set GradeTable Caption",
                                      "update GradeTable", "delete GradeTable"}));
  EXPECT_EQ(storedNumbers(), (std::vector<std::int32_t>{1, 2}));
}

TEST_F(PumpTest, CancelLeavesTheTableAsItWas) {
  addGrades({1, 2});
  const auto before = host.grades;
  openTab([&](frmOptions& dialog) {
    deleteRow(dialog, 0);
    addByNew(dialog);
  });
  EXPECT_EQ(host.grades, before);
}

TEST_F(PumpTest, MakesAGradeByKeyboardAlone) {
  editTab([&](frmOptions&) {
    desk->whenShown([&](ui::Form&) {
      user.type(u"Unleaded 91");
      user.press(Key::tab);
      user.press(Key::tab);
      desk->whenShown([&](ui::Form&) { user.press(Key::enter); });
      user.press(Key::space);
      user.press(Key::tab);
      user.press(Key::enter);
    });
    user.accessKey(u'n');
    user.accessKey(u'v');
    user.type(u"l");
  });
  EXPECT_EQ(host.grades, (std::vector<FakeRow>{grade(1, u"Diesel", u"Unleaded 91")}));
  EXPECT_EQ(host.value(options::PumpVolumeUnitCaption), u"l");
  openTab([&](frmOptions& dialog) {
    EXPECT_EQ(shown(dialog), (Rows{{u"1", u"Diesel", u"Unleaded 91"}}));
  });
}

TEST_F(PumpTest, ARefusedSaveWritesNoGrade) {
  addGrades({1});
  saveDefaults();
  const auto before = host.grades;
  host.store(options::CurrencyListColumns, 0);
  openTab([&](frmOptions& dialog) {
    deleteRow(dialog, 0);
    boxes.shown.clear();
    user.click(dialog.cmdCommand[frmOptions::apply]);
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(boxes.shown[0].title, u"Not enough columns");
    EXPECT_TRUE(applyEnabled(dialog));
    EXPECT_TRUE(host.callsStarting("find GradeTable").empty());
    EXPECT_EQ(host.grades, before);
  });
}

TEST_F(PumpTest, AFailureOfTheHostEndsTheDialogAndNothingMoreIsWritten) {
  for (const std::string call : {"find GradeTable [GradeNumber] = 2", "update GradeTable",
                                 "delete GradeTable", "put PumpOptionBits"}) {
    host.grades.clear();
    addGrades({1, 2});
    expectFailureAt(call, TabPage::pump, [&](frmOptions& dialog) {
      deleteRow(dialog, 0);
      user.accessKey(u'o');
    });
  }
}

TEST_F(PumpTest, AFailureOfTheBrowserEndsAllThreeDialogs) {
  expectFailureAt("ItemList", TabPage::pump, [&](frmOptions& dialog) {
    whenGradeShown(
        [&](frmPumpGrade& grade) { user.click(grade.cmdPumpGrade[frmPumpGrade::browse]); });
    user.click(command(dialog, PumpGrades::add));
  });
}

TEST_F(PumpTest, ColumnsFitWhatTheyShowAndAreFittedAgainAfterNewEditAndDelete) {
  host.grades = {grade(1, u"Fuel:Unleaded", Text(60, u'x'))};
  openTab([&](frmOptions& dialog) {
    const auto& columns = tab(dialog).ltvPump.columns();
    const ui::Screen& screen = desk->screen();
    EXPECT_GE(columns[0].width, screen.textWidth(u"Grade"));
    const auto expectCaptionsFit = [&](TextView longest) {
      EXPECT_GE(columns[2].width, screen.textWidth(longest));
      EXPECT_LT(columns[2].width, screen.textWidth(longest) + screen.textWidth(u"xxxxx"));
      EXPECT_TRUE(columns[2].fills);
      EXPECT_FALSE(columns[1].fills);
    };
    const auto enterCaption = [&](PumpGrades::Command which, int length) {
      whenGradeShown([&](frmPumpGrade&) {
        user.paste(Text(static_cast<std::size_t>(length), u'x'));
        user.press(Key::enter);
      });
      user.click(command(dialog, which));
    };
    EXPECT_GE(columns[1].width, screen.textWidth(u"Fuel:Unleaded"));
    expectCaptionsFit(Text(60, u'x'));
    enterCaption(PumpGrades::add, 90);
    expectCaptionsFit(Text(90, u'x'));
    enterCaption(PumpGrades::edit, 120);
    expectCaptionsFit(Text(120, u'x'));
    deleteRow(dialog, 1);
    expectCaptionsFit(Text(60, u'x'));
    deleteRow(dialog, 0);
    EXPECT_GE(columns[1].width, screen.textWidth(u"Product"));
    EXPECT_LT(columns[1].width, screen.textWidth(u"Fuel:Unleaded"));
  });
}

}  // namespace
}  // namespace tillora::testing
