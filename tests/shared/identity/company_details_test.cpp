#include "identity/company_details.h"

#include "tests/testing/options_test.h"

namespace tillora::testing {
namespace {

using ui::Key;

class CompanyDetailsTest : public OptionsTest {
 protected:
  ui::TextBox& box(frmOptions& dialog, int index) {
    return dialog.tabs().companyDetails.txtCompanyDetails[index];
  }
  ui::ComboBox& classes(frmOptions& dialog) { return dialog.tabs().companyDetails.cboClass; }
  void storeClasses(std::initializer_list<std::pair<Text, bool>> rows) {
    for (const auto& [name, hidden] : rows) {
      host.classes.push_back({{u"Name", name}, {u"Hidden", hidden}});
    }
  }
  static void expectCaret(const ui::TextBox& box, int caret) {
    EXPECT_TRUE(box.hasFocus());
    EXPECT_EQ(box.selStart(), caret);
    EXPECT_EQ(box.selLength(), 0);
  }
  void expectTexts(frmOptions& dialog, int first, const std::vector<Text>& texts) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
      EXPECT_EQ(box(dialog, first + static_cast<int>(i)).text(), texts[i]) << first << "+" << i;
    }
  }
};

TEST_F(CompanyDetailsTest, ShowsTheStoredValues) {
  host.store(options::CompanyName, u"Corner Shop");
  host.store(options::CompanyAddress, u"1 High Street\r\nPerth");
  host.store(options::CompanyPhone, u"08 1234 5678");
  host.store(options::CompanyFax, u"08 1234 5679");
  host.store(options::CompanyEmail, u"shop@tillora.example");
  open([&](frmOptions& dialog) {
    expectTexts(dialog, 0,
                {u"Corner Shop", u"1 High Street\r\nPerth", u"08 1234 5678", u"08 1234 5679",
                 u"shop@tillora.example"});
    EXPECT_FALSE(applyEnabled(dialog));
    EXPECT_TRUE(box(dialog, CompanyDetails::name).hasFocus());
  });
}

TEST_F(CompanyDetailsTest, ScreenReadersSayWhichDigitsOfANumberABoxHolds) {
  open([&](frmOptions& dialog) {
    const std::vector<Text> names = {
        u"ACN, digits 1 to 3", u"ACN, digits 4 to 6", u"ACN, digits 7 to 9", u"ABN, digits 1 to 2",
        u"ABN, digits 3 to 5", u"ABN, digits 6 to 8", u"ABN, digits 9 to 11"};
    for (std::size_t i = 0; i < names.size(); ++i) {
      EXPECT_EQ(box(dialog, CompanyDetails::firstOfAcn + static_cast<int>(i)).spokenName(),
                names[i]);
    }
  });
}

TEST_F(CompanyDetailsTest, ShowsEmptyBoxesWhenNothingIsStored) {
  open([&](frmOptions& dialog) {
    expectTexts(dialog, 0, std::vector<Text>(CompanyDetails::count));
    EXPECT_EQ(classes(dialog).items(), std::vector<Text>{u"(none)"});
    EXPECT_EQ(classes(dialog).text(), u"(none)");
  });
}

TEST_F(CompanyDetailsTest, ControlsHaveTheirCaptionsLinesAndLengths) {
  open([&](frmOptions& dialog) {
    const auto& tab = dialog.tabs().companyDetails;
    EXPECT_EQ(tab.fraGeneral.caption(), u"Company Details");
    std::vector<Text> captions;
    for (const auto& [index, label] : tab.lblGeneral) captions.push_back(label->caption());
    EXPECT_EQ(captions, (std::vector<Text>{u"Na&me", u"A&ddress", u"&Phone", u"&Fax", u"&Email",
                                           u"AC&N", u"A&BN", u"&Class"}));
    std::vector<int> lengths;
    for (const auto& [index, box] : tab.txtCompanyDetails) {
      lengths.push_back(box->maxLength());
      EXPECT_EQ(box->multiLine(), index == CompanyDetails::address) << index;
    }
    EXPECT_EQ(lengths, (std::vector<int>{255, 0, 50, 50, 50, 3, 3, 3, 2, 3, 3, 3}));
    const int line = desk->screen().lineHeight();
    EXPECT_GE(box(dialog, CompanyDetails::address).bounds().height, 4 * line);
    EXPECT_LT(box(dialog, CompanyDetails::address).bounds().height, 5 * line);
  });
}

TEST_F(CompanyDetailsTest, TheClassStandsAtTheEndOfTheRowOfTheAbn) {
  open([&](frmOptions& dialog) {
    const ui::Rect& lastGroup = box(dialog, 11).bounds();
    const ui::Rect& label = dialog.tabs().companyDetails.lblGeneral[7].bounds();
    const ui::Rect& list = classes(dialog).bounds();
    EXPECT_LE(lastGroup.right(), label.left);
    EXPECT_LE(label.right(), list.left);
    EXPECT_LT(list.top, lastGroup.bottom());
    EXPECT_GT(list.bottom(), lastGroup.top);
    EXPECT_EQ(list.right(), box(dialog, CompanyDetails::name).bounds().right());
  });
}

TEST_F(CompanyDetailsTest, TypingIntoAnyBoxEnablesApply) {
  for (int index = 0; index < CompanyDetails::count; ++index) {
    open([&](frmOptions& dialog) {
      user.click(box(dialog, index));
      EXPECT_FALSE(applyEnabled(dialog)) << index;
      user.type(u"1");
      EXPECT_EQ(box(dialog, index).text(), u"1");
      EXPECT_TRUE(applyEnabled(dialog)) << index;
    });
  }
}

TEST_F(CompanyDetailsTest, SplitsTheNumbersIntoTheirGroups) {
  host.store(options::CompanyACN, u"123456789");
  host.store(options::CompanyABN, u"51824753556");
  open([&](frmOptions& dialog) {
    expectTexts(dialog, 5, {u"123", u"456", u"789", u"51", u"824", u"753", u"556"});
  });
}

TEST_F(CompanyDetailsTest, TheLastGroupOfAShortNumberTakesItsLastThreeDigits) {
  host.store(options::CompanyACN, u"1234");
  host.store(options::CompanyABN, u"123456789");
  open([&](frmOptions& dialog) {
    expectTexts(dialog, 5, {u"123", u"4", u"234", u"12", u"345", u"678", u"789"});
  });
}

TEST_F(CompanyDetailsTest, SplitsNumbersOfAnyLength) {
  for (const Text stored : {u"", u"1", u"12", u"123", u"12345678901234567890"}) {
    host.store(options::CompanyABN, stored);
    open([&](frmOptions& dialog) {
      EXPECT_EQ(box(dialog, 8).text(), stored.substr(0, 2));
      EXPECT_EQ(box(dialog, 9).text(), stored.size() > 2 ? stored.substr(2, 3) : u"");
      EXPECT_EQ(box(dialog, 10).text(), stored.size() > 5 ? stored.substr(5, 3) : u"");
      EXPECT_EQ(box(dialog, 11).text(),
                stored.size() > 3 ? stored.substr(stored.size() - 3) : stored);
    });
  }
}

TEST_F(CompanyDetailsTest, IncompleteGroupsAreSavedRunTogether) {
  edit([&](frmOptions& dialog) {
    user.click(box(dialog, 8));
    user.type(u"12");
    user.click(box(dialog, 9));
    user.type(u"3");
    user.click(box(dialog, 11));
    user.type(u"456");
  });
  EXPECT_EQ(host.value(options::CompanyABN), u"123456");
}

TEST_F(CompanyDetailsTest, BlanksAroundTextsAreNotSaved) {
  host.store(options::CompanyName, u"Corner Shop");
  edit([&](frmOptions& dialog) {
    user.type(u"   ");
    user.click(box(dialog, CompanyDetails::phone));
    user.type(u"  08 1234  ");
    user.click(box(dialog, CompanyDetails::email));
    user.type(u" a b ");
  });
  EXPECT_EQ(host.value(options::CompanyName), u"");
  EXPECT_EQ(host.value(options::CompanyPhone), u"08 1234");
  EXPECT_EQ(host.value(options::CompanyEmail), u"a b");
}

TEST_F(CompanyDetailsTest, EveryTextIsSavedFromItsOwnBoxWithoutTheBlanksAroundIt) {
  edit([&](frmOptions& dialog) {
    for (int index = CompanyDetails::name; index <= CompanyDetails::email; ++index) {
      user.click(box(dialog, index));
      user.type(u"  text " + Text(static_cast<std::size_t>(index) + 1, u'i') + u"  ");
    }
  });
  EXPECT_EQ(host.value(options::CompanyName), u"text i");
  EXPECT_EQ(host.value(options::CompanyAddress), u"text ii");
  EXPECT_EQ(host.value(options::CompanyPhone), u"text iii");
  EXPECT_EQ(host.value(options::CompanyFax), u"text iiii");
  EXPECT_EQ(host.value(options::CompanyEmail), u"text iiiii");
}

TEST_F(CompanyDetailsTest, ASaveThatAnotherTabRefusesKeepsWhatWasTyped) {
  saveDefaults();
  host.store(options::CurrencyListColumns, 0);
  open([&](frmOptions& dialog) {
    user.type(u" Corner Shop ");
    user.click(box(dialog, 8));
    user.type(u"51824753556");
    user.click(dialog.cmdCommand[frmOptions::apply]);
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(box(dialog, CompanyDetails::name).text(), u" Corner Shop ");
    expectTexts(dialog, 8, {u"51", u"824", u"753", u"556"});
    EXPECT_TRUE(applyEnabled(dialog));
  });
  EXPECT_EQ(host.value(options::CompanyName), u"");
  EXPECT_EQ(host.value(options::CompanyABN), u"");
}

TEST_F(CompanyDetailsTest, OnlyBlanksAreTrimmed) {
  host.store(options::CompanyAddress, u"\t1 High Street\r\n");
  edit([&](frmOptions&) { user.type(u"x"); });
  EXPECT_EQ(host.value(options::CompanyAddress), u"\t1 High Street\r\n");
}

TEST_F(CompanyDetailsTest, SavesInTheOrderOfTheRecord) {
  edit([&](frmOptions&) { user.type(u"x"); });
  EXPECT_EQ(host.callsStarting("put Company"),
            (std::vector<std::string>{"put CompanyName", "put CompanyAddress", "put CompanyPhone",
                                      "put CompanyFax", "put CompanyEmail", "put CompanyACN",
                                      "put CompanyABN"}));
  EXPECT_EQ(host.callsStarting("put LVClass").size(), 1U);
}

TEST_F(CompanyDetailsTest, TypingElevenDigitsFillsTheAbn) {
  edit([&](frmOptions& dialog) {
    user.click(box(dialog, 8));
    user.type(u"51824753556");
    expectTexts(dialog, 8, {u"51", u"824", u"753", u"556"});
    expectCaret(box(dialog, 11), 3);
  });
  EXPECT_EQ(host.value(options::CompanyABN), u"51824753556");
}

TEST_F(CompanyDetailsTest, TypingNineDigitsFillsTheAcnAndStops) {
  edit([&](frmOptions& dialog) {
    user.click(box(dialog, 5));
    user.type(u"1234567890");
    expectTexts(dialog, 5, {u"123", u"456", u"789", u""});
    EXPECT_TRUE(box(dialog, 7).hasFocus());
  });
  EXPECT_EQ(host.value(options::CompanyACN), u"123456789");
}

TEST_F(CompanyDetailsTest, RetypingOverAFullNumberFlowsThroughTheGroups) {
  host.store(options::CompanyABN, u"11111111111");
  open([&](frmOptions& dialog) {
    user.click(box(dialog, 8));
    user.press(Key::home);
    user.type(u"51824753556");
    expectTexts(dialog, 8, {u"51", u"824", u"753", u"556"});
  });
}

TEST_F(CompanyDetailsTest, ADigitAtTheLastPlaceOfAGroupMovesOn) {
  host.store(options::CompanyACN, u"12");
  open([&](frmOptions& dialog) {
    user.click(box(dialog, 5));
    user.press(Key::end);
    user.type(u"3");
    EXPECT_EQ(box(dialog, 5).text(), u"123");
    expectCaret(box(dialog, 6), 0);
  });
}

TEST_F(CompanyDetailsTest, ADigitAtTheLastPlaceOfAFullGroupReplacesItsLastDigit) {
  host.store(options::CompanyACN, u"123456789");
  open([&](frmOptions& dialog) {
    user.click(box(dialog, 5));
    user.press(Key::end);
    user.press(Key::left);
    user.type(u"0");
    EXPECT_EQ(box(dialog, 5).text(), u"120");
    expectCaret(box(dialog, 6), 0);
  });
}

TEST_F(CompanyDetailsTest, ADiscardedLetterAtTheLastPlaceStillMovesOn) {
  host.store(options::CompanyACN, u"123456789");
  open([&](frmOptions& dialog) {
    user.click(box(dialog, 5));
    user.press(Key::end);
    user.press(Key::left);
    user.type(u"x");
    EXPECT_EQ(box(dialog, 5).text(), u"123");
    expectCaret(box(dialog, 6), 0);
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(CompanyDetailsTest, LettersAreNotTypedIntoDigitGroups) {
  open([&](frmOptions& dialog) {
    user.click(box(dialog, 9));
    user.type(u"a-. /:\u0661");
    EXPECT_EQ(box(dialog, 9).text(), u"");
    EXPECT_TRUE(box(dialog, 9).hasFocus());
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(CompanyDetailsTest, TheLastGroupOfANumberKeepsTheFocusWhenFull) {
  open([&](frmOptions& dialog) {
    for (const int last : {7, 11}) {
      user.click(box(dialog, last));
      user.type(u"1234");
      EXPECT_EQ(box(dialog, last).text(), u"123");
      expectCaret(box(dialog, last), 3);
    }
  });
}

TEST_F(CompanyDetailsTest, BackspaceWalksBackThroughTheGroups) {
  host.store(options::CompanyABN, u"51824753556");
  open([&](frmOptions& dialog) {
    user.click(box(dialog, 11));
    user.press(Key::end);
    for (int i = 0; i < 3; ++i) user.press(Key::backspace);
    expectCaret(box(dialog, 11), 0);
    user.press(Key::backspace);
    expectCaret(box(dialog, 10), 3);
    user.press(Key::backspace);
    expectTexts(dialog, 8, {u"51", u"824", u"75", u""});
    for (int i = 0; i < 3; ++i) user.press(Key::backspace);
    expectCaret(box(dialog, 9), 3);
    for (int i = 0; i < 7; ++i) user.press(Key::backspace);
    expectTexts(dialog, 8, {u"", u"", u"", u""});
    expectCaret(box(dialog, 8), 0);
  });
}

TEST_F(CompanyDetailsTest, BackspaceAtTheStartOfTheFirstGroupStays) {
  host.store(options::CompanyACN, u"123456789");
  host.store(options::CompanyABN, u"51824753556");
  open([&](frmOptions& dialog) {
    for (const int first : {5, 8}) {
      user.click(box(dialog, first));
      user.press(Key::home);
      user.press(Key::backspace);
      expectCaret(box(dialog, first), 0);
    }
    expectTexts(dialog, 5, {u"123", u"456", u"789", u"51", u"824", u"753", u"556"});
  });
}

TEST_F(CompanyDetailsTest, BackspaceOverASelectedGroupEmptiesItAndMovesBack) {
  host.store(options::CompanyABN, u"51824753556");
  open([&](frmOptions& dialog) {
    user.click(box(dialog, 10));
    user.selectAll();
    user.press(Key::backspace);
    expectTexts(dialog, 8, {u"51", u"824", u"", u"556"});
    expectCaret(box(dialog, 9), 3);
  });
}

TEST_F(CompanyDetailsTest, ArrowsCrossBetweenGroups) {
  host.store(options::CompanyABN, u"51824753556");
  open([&](frmOptions& dialog) {
    user.click(box(dialog, 8));
    user.press(Key::home);
    for (int i = 0; i < 2; ++i) user.press(Key::right);
    expectCaret(box(dialog, 8), 2);
    user.press(Key::right);
    expectCaret(box(dialog, 9), 0);
    user.press(Key::left);
    expectCaret(box(dialog, 8), 2);
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(CompanyDetailsTest, ArrowsStayAtTheOuterEndsOfANumber) {
  host.store(options::CompanyACN, u"123456789");
  host.store(options::CompanyABN, u"51824753556");
  open([&](frmOptions& dialog) {
    for (const int first : {5, 8}) {
      user.click(box(dialog, first));
      user.press(Key::home);
      user.press(Key::left);
      expectCaret(box(dialog, first), 0);
    }
    for (const int last : {7, 11}) {
      user.click(box(dialog, last));
      user.press(Key::end);
      user.press(Key::right);
      expectCaret(box(dialog, last), 3);
    }
  });
}

TEST_F(CompanyDetailsTest, ArrowsCrossEmptyGroups) {
  open([&](frmOptions& dialog) {
    user.click(box(dialog, 5));
    user.press(Key::right);
    expectCaret(box(dialog, 6), 0);
    user.press(Key::right);
    expectCaret(box(dialog, 7), 0);
    user.press(Key::left);
    user.press(Key::left);
    expectCaret(box(dialog, 5), 0);
  });
}

TEST_F(CompanyDetailsTest, LeftCrossesFromASelectedGroup) {
  host.store(options::CompanyACN, u"123456789");
  open([&](frmOptions& dialog) {
    user.click(box(dialog, 6));
    user.selectAll();
    user.press(Key::left);
    expectCaret(box(dialog, 5), 3);
  });
}

TEST_F(CompanyDetailsTest, RightFromASelectedGroupGoesToItsEnd) {
  host.store(options::CompanyACN, u"123456789");
  open([&](frmOptions& dialog) {
    user.click(box(dialog, 6));
    user.selectAll();
    user.press(Key::right);
    expectCaret(box(dialog, 6), 3);
  });
}

TEST_F(CompanyDetailsTest, AnArrowThatCrossesIsUsedUp) {
  host.store(options::CompanyABN, u"51824753556");
  open([&](frmOptions& dialog) {
    user.click(box(dialog, 9));
    user.selectAll();
    user.press(Key::left);
    expectCaret(box(dialog, 8), 2);
    // The group that was left never saw the key.
    EXPECT_EQ(box(dialog, 9).selText(), u"824");
    EXPECT_TRUE(dialog.userKeyDown(Key::right, {}));
    expectCaret(box(dialog, 9), 0);
    EXPECT_FALSE(dialog.userKeyDown(Key::right, {}));
    EXPECT_TRUE(dialog.userKeyDown(Key::left, {}));
    expectCaret(box(dialog, 8), 2);
    EXPECT_FALSE(dialog.userKeyDown(Key::left, {}));
  });
}

TEST_F(CompanyDetailsTest, ArrowsStayInTheOtherBoxes) {
  host.store(options::CompanyACN, u"123456789");
  open([&](frmOptions& dialog) {
    for (int index = CompanyDetails::name; index <= CompanyDetails::email; ++index) {
      ui::TextBox& other = box(dialog, index);
      user.click(other);
      user.selectAll();
      user.type(u"ab");
      EXPECT_FALSE(dialog.userKeyDown(Key::right, {})) << index;
      user.press(Key::right);
      expectCaret(other, 2);
      user.press(Key::left);
      expectCaret(other, 1);
      user.press(Key::home);
      EXPECT_FALSE(dialog.userKeyDown(Key::left, {})) << index;
      user.press(Key::left);
      expectCaret(other, 0);
      user.press(Key::backspace);
      expectCaret(other, 0);
      EXPECT_EQ(other.text(), u"ab") << index;
    }
  });
}

TEST_F(CompanyDetailsTest, UpAndDownAreLeftToTheBox) {
  host.store(options::CompanyABN, u"51824753556");
  open([&](frmOptions& dialog) {
    user.click(box(dialog, 9));
    user.press(Key::home);
    user.press(Key::up);
    user.press(Key::down);
    EXPECT_TRUE(box(dialog, 9).hasFocus());
    expectTexts(dialog, 8, {u"51", u"824", u"753", u"556"});
  });
}

TEST_F(CompanyDetailsTest, TabSelectsTheWholeGroup) {
  host.store(options::CompanyABN, u"51824753556");
  open([&](frmOptions& dialog) {
    user.click(box(dialog, 8));
    user.press(Key::tab);
    EXPECT_TRUE(box(dialog, 9).hasFocus());
    EXPECT_EQ(box(dialog, 9).selText(), u"824");
    user.press(Key::tab, {.shift = true});
    EXPECT_EQ(box(dialog, 8).selText(), u"51");
  });
}

TEST_F(CompanyDetailsTest, TheFocusSelectsAgainAfterAHandlerMovedIt) {
  host.store(options::CompanyABN, u"51824753556");
  open([&](frmOptions& dialog) {
    user.click(box(dialog, 8));
    user.press(Key::end);
    user.press(Key::right);
    expectCaret(box(dialog, 9), 0);
    user.press(Key::tab);
    EXPECT_EQ(box(dialog, 10).selText(), u"753");
  });
}

TEST_F(CompanyDetailsTest, PastedDigitsStay) {
  edit([&](frmOptions& dialog) {
    user.click(box(dialog, 9));
    user.paste(u"824");
    EXPECT_EQ(box(dialog, 9).text(), u"824");
    user.press(Key::tab);
    EXPECT_EQ(box(dialog, 9).text(), u"824");
  });
  EXPECT_EQ(host.value(options::CompanyABN), u"824");
}

TEST_F(CompanyDetailsTest, PastedTextIsClearedWhenTheGroupIsLeft) {
  edit([&](frmOptions& dialog) {
    user.click(box(dialog, 9));
    user.paste(u"abcdef");
    EXPECT_EQ(box(dialog, 9).text(), u"abc");
    user.press(Key::tab);
    EXPECT_EQ(box(dialog, 9).text(), u"");
    EXPECT_TRUE(box(dialog, 10).hasFocus());
    EXPECT_TRUE(applyEnabled(dialog));
  });
  EXPECT_EQ(host.value(options::CompanyABN), u"");
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(CompanyDetailsTest, APastedNumberFlowsThroughTheGroups) {
  edit([&](frmOptions& dialog) {
    user.click(box(dialog, 8));
    user.paste(u"51 824 753 556");
    expectTexts(dialog, 8, {u"51", u"824", u"753", u"556"});
    expectCaret(box(dialog, 11), 3);
    EXPECT_TRUE(applyEnabled(dialog));
    user.click(box(dialog, 5));
    user.paste(u"123456789");
    expectTexts(dialog, 5, {u"123", u"456", u"789", u"51"});
    expectCaret(box(dialog, 7), 3);
  });
  EXPECT_EQ(host.value(options::CompanyABN), u"51824753556");
  EXPECT_EQ(host.value(options::CompanyACN), u"123456789");
}

TEST_F(CompanyDetailsTest, APastedNumberReplacesTheOneThatWasThere) {
  host.store(options::CompanyABN, u"99999999999");
  open([&](frmOptions& dialog) {
    user.click(box(dialog, 8));  // selects its text
    user.paste(u"51824753556");
    expectTexts(dialog, 8, {u"51", u"824", u"753", u"556"});
    user.click(box(dialog, 8));
    user.press(Key::home);  // in a full group, with nothing selected
    user.paste(u"12 345 678 901");
    expectTexts(dialog, 8, {u"12", u"345", u"678", u"901"});
  });
}

TEST_F(CompanyDetailsTest, APastedNumberGoesOnFromTheCaretAsTypedDigitsDo) {
  host.store(options::CompanyACN, u"1");
  open([&](frmOptions& dialog) {
    user.click(box(dialog, 5));
    user.press(Key::end);
    user.paste(u"234");
    expectTexts(dialog, 5, {u"123", u"4", u"1"});
    expectCaret(box(dialog, 6), 1);
    user.type(u"5");
    expectTexts(dialog, 5, {u"123", u"45", u"1"});
    user.paste(u"6789");
    expectTexts(dialog, 5, {u"123", u"456", u"789"});
  });
}

TEST_F(CompanyDetailsTest, PastedDigitsBeyondTheLastGroupAreDropped) {
  open([&](frmOptions& dialog) {
    user.click(box(dialog, 7));
    user.paste(u"7 8 9 0 1");
    expectTexts(dialog, 5, {u"", u"", u"789", u""});
    expectCaret(box(dialog, 7), 3);
    user.click(box(dialog, 10));
    user.paste(u"123456789");
    expectTexts(dialog, 8, {u"", u"", u"123", u"456"});
    expectCaret(box(dialog, 11), 3);
  });
}

TEST_F(CompanyDetailsTest, DigitsThatTheGroupTakesAloneStayInIt) {
  open([&](frmOptions& dialog) {
    user.click(box(dialog, 8));
    user.paste(u"51");
    expectTexts(dialog, 8, {u"51", u""});
    expectCaret(box(dialog, 8), 2);
    user.click(box(dialog, 5));
    user.paste(u"1 2");
    expectTexts(dialog, 5, {u"1 2", u""});
    expectCaret(box(dialog, 5), 3);
  });
}

TEST_F(CompanyDetailsTest, OnlyDigitsAndBlanksFlow) {
  for (const Text text :
       {u"51-824-753-556", u"51 824 753 55x", u"+51824753556", u"5182.47", u"51824753556_",
        u"51\u00a0824\u00a0753\u00a0556", u"\u0665\u0661\u0668\u0662"}) {
    open([&](frmOptions& dialog) {
      user.click(box(dialog, 8));
      user.paste(text);
      EXPECT_EQ(box(dialog, 8).text(), text.substr(0, 2)) << toUtf8(text);
      expectTexts(dialog, 9, {u"", u"", u""});
      EXPECT_TRUE(box(dialog, 8).hasFocus());
    });
  }
}

TEST_F(CompanyDetailsTest, OnlyTheFirstLineOfWhatIsPastedCounts) {
  open([&](frmOptions& dialog) {
    user.click(box(dialog, 5));
    user.paste(u"123 456 789\r\nTillora");
    expectTexts(dialog, 5, {u"123", u"456", u"789"});
    user.click(box(dialog, 8));
    user.paste(u"51\r\n824753556");
    expectTexts(dialog, 8, {u"51", u""});
  });
}

TEST_F(CompanyDetailsTest, OtherBoxesTakeANumberAsItIs) {
  open([&](frmOptions& dialog) {
    user.click(box(dialog, CompanyDetails::email));
    user.paste(u"51 824 753 556");
    EXPECT_EQ(box(dialog, CompanyDetails::email).text(), u"51 824 753 556");
    expectTexts(dialog, 5, {u"", u"", u"", u"", u"", u"", u""});
  });
}

TEST_F(CompanyDetailsTest, NumbersThatAreNotDigitsAloneStay) {
  open([&](frmOptions& dialog) {
    for (const Text number : {u"1e2", u"-12", u" 1", u".5", u"1,0"}) {
      user.click(box(dialog, 9));
      user.selectAll();
      user.paste(number);
      user.press(Key::tab);
      EXPECT_EQ(box(dialog, 9).text(), number);
    }
    for (const Text garbage : {u"1e", u"-", u" ", u"&H1"}) {
      user.click(box(dialog, 9));
      user.selectAll();
      user.paste(garbage);
      user.press(Key::tab);
      EXPECT_EQ(box(dialog, 9).text(), u"") << toUtf8(garbage);
    }
  });
}

TEST_F(CompanyDetailsTest, AStoredGroupThatIsNotANumberIsClearedWhenItIsTabbedOver) {
  host.store(options::CompanyACN, u"12a456");
  open([&](frmOptions& dialog) {
    expectTexts(dialog, 5, {u"12a", u"456", u"456"});
    EXPECT_FALSE(applyEnabled(dialog));
    user.click(box(dialog, 5));
    user.press(Key::tab);
    expectTexts(dialog, 5, {u"", u"456", u"456"});
    EXPECT_TRUE(applyEnabled(dialog));
  });
}

TEST_F(CompanyDetailsTest, TabbingOverEmptyGroupsIsNotAnEdit) {
  open([&](frmOptions& dialog) {
    user.click(box(dialog, 5));
    for (int i = 0; i < 7; ++i) user.press(Key::tab);
    EXPECT_TRUE(classes(dialog).hasFocus());
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(CompanyDetailsTest, TheDeleteCharacterAtTheLastPlaceOfAGroupMovesOnAndDeletesNothing) {
  host.store(options::CompanyACN, u"123456789");
  open([&](frmOptions& dialog) {
    user.click(box(dialog, 5));
    user.press(Key::end);
    user.press(Key::left);
    user.type(Text(1, ui::kDeleteCharacter));  // that of Ctrl+Backspace
    expectTexts(dialog, 5, {u"123", u"456", u"789"});
    expectCaret(box(dialog, 6), 0);
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(CompanyDetailsTest, PastedTextIsClearedBeforeOkSavesByKeyboard) {
  open([&](frmOptions& dialog) {
    user.click(box(dialog, 5));
    user.paste(u"x1");
    user.press(Key::enter);
  });
  EXPECT_EQ(host.value(options::CompanyACN), u"");
}

TEST_F(CompanyDetailsTest, PastingMovesNoFocus) {
  open([&](frmOptions& dialog) {
    user.click(box(dialog, 8));
    user.type(u"5");
    user.paste(u"1");
    EXPECT_EQ(box(dialog, 8).text(), u"51");
    EXPECT_TRUE(box(dialog, 8).hasFocus());
  });
}

TEST_F(CompanyDetailsTest, TextsAreLimitedToTheirLength) {
  open([&](frmOptions& dialog) {
    const std::map<int, std::size_t> limits = {{0, 255}, {2, 50}, {3, 50}, {4, 50}, {1, 600}};
    for (const auto& [index, limit] : limits) {
      user.click(box(dialog, index));
      user.paste(Text(600, u'x'));
      EXPECT_EQ(box(dialog, index).text().size(), limit) << index;
    }
  });
}

TEST_F(CompanyDetailsTest, AStoredTextLongerThanTheLimitIsKept) {
  host.store(options::CompanyPhone, Text(80, u'1'));
  edit([&](frmOptions&) { user.type(u"x"); });
  EXPECT_EQ(host.value(options::CompanyPhone), Text(80, u'1'));
}

TEST_F(CompanyDetailsTest, EnterMakesALineInTheAddress) {
  edit([&](frmOptions& dialog) {
    user.click(box(dialog, CompanyDetails::address));
    EXPECT_EQ(dialog.defaultButton(), nullptr);
    user.type(u"1 High Street");
    user.press(Key::enter);
    user.type(u"Perth");
    EXPECT_TRUE(dialog.isShown());
    EXPECT_EQ(box(dialog, CompanyDetails::address).text(), u"1 High Street\r\nPerth");
  });
  EXPECT_EQ(host.value(options::CompanyAddress), u"1 High Street\r\nPerth");
}

TEST_F(CompanyDetailsTest, EnterPressesOkOnceTheAddressIsLeft) {
  open([&](frmOptions& dialog) {
    user.click(box(dialog, CompanyDetails::address));
    user.type(u"1 High Street");
    user.press(Key::tab);
    EXPECT_TRUE(box(dialog, CompanyDetails::phone).hasFocus());
    EXPECT_TRUE(dialog.cmdCommand[frmOptions::ok].isDefault());
    user.press(Key::enter);
    EXPECT_FALSE(dialog.isShown());
  });
  EXPECT_EQ(host.value(options::CompanyAddress), u"1 High Street");
}

TEST_F(CompanyDetailsTest, LoneLineFeedsOfAStoredAddressSurvive) {
  host.store(options::CompanyAddress, u"1 High Street\nPerth\rWA");
  edit([&](frmOptions&) { user.type(u"x"); });
  EXPECT_EQ(host.value(options::CompanyAddress), u"1 High Street\nPerth\rWA");
}

TEST_F(CompanyDetailsTest, TabWalksThroughTheFrameInOrder) {
  open([&](frmOptions& dialog) {
    for (int i = 0; i < CompanyDetails::count; ++i) {
      EXPECT_TRUE(box(dialog, i).hasFocus()) << i;
      user.press(Key::tab);
    }
    EXPECT_TRUE(classes(dialog).hasFocus());
  });
}

TEST_F(CompanyDetailsTest, AccessKeysOfTheLabelsReachTheirBoxes) {
  open([&](frmOptions& dialog) {
    const std::vector<std::pair<char16_t, int>> keys = {{u'd', 1}, {u'p', 2}, {u'f', 3}, {u'e', 4},
                                                        {u'n', 5}, {u'b', 8}, {u'm', 0}};
    for (const auto& [key, index] : keys) {
      user.accessKey(key);
      EXPECT_TRUE(box(dialog, index).hasFocus()) << index;
    }
  });
}

TEST_F(CompanyDetailsTest, TheKeyOfTheClassReachesTheListAndCancelAndPressesNeither) {
  open([&](frmOptions& dialog) {
    user.type(u"Corner Shop");
    user.accessKey(u'c');
    EXPECT_TRUE(classes(dialog).hasFocus());
    user.accessKey(u'c');
    EXPECT_TRUE(dialog.cmdCommand[frmOptions::cancel].hasFocus());
    EXPECT_TRUE(dialog.isShown());
    user.accessKey(u'c');
    EXPECT_TRUE(classes(dialog).hasFocus());
  });
}

TEST_F(CompanyDetailsTest, ListsTheVisibleClassesInTheirOrder) {
  storeClasses({{u"Retail", false}, {u"Old", true}, {u"Dispensary", false}, {u"Fuel", false}});
  open([&](frmOptions& dialog) {
    EXPECT_EQ(classes(dialog).items(),
              (std::vector<Text>{u"(none)", u"Retail", u"Dispensary", u"Fuel"}));
    EXPECT_EQ(classes(dialog).listIndex(), 0);
  });
}

TEST_F(CompanyDetailsTest, SelectsTheStoredClass) {
  storeClasses({{u"retail", false}, {u"Retail", false}, {u"Fuel", false}});
  host.store(options::LVClass, u"Retail");
  open([&](frmOptions& dialog) {
    EXPECT_EQ(classes(dialog).listIndex(), 2);
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(CompanyDetailsTest, AClassThatIsGoneOrHiddenShowsNoneAndIsSavedAsEmpty) {
  for (const Text stored : {u"Gone", u"Old", u"retail", u"(none)"}) {
    host.classes.clear();
    storeClasses({{u"Retail", false}, {u"Old", true}});
    host.store(options::LVClass, stored);
    edit([&](frmOptions& dialog) {
      EXPECT_EQ(classes(dialog).text(), u"(none)");
      user.type(u"x");
    });
    EXPECT_EQ(host.value(options::LVClass), u"");
  }
}

TEST_F(CompanyDetailsTest, OfTwoClassesOfTheStoredNameTheLaterIsSelected) {
  storeClasses({{u"Retail", false}, {u"Fuel", false}, {u"Retail", false}});
  host.store(options::LVClass, u"Retail");
  edit([&](frmOptions& dialog) {
    EXPECT_EQ(classes(dialog).listIndex(), 3);
    user.type(u"x");
  });
  EXPECT_EQ(host.value(options::LVClass), u"Retail");
}

TEST_F(CompanyDetailsTest, AClassMayBeNamedAsNoneOrNotAtAll) {
  storeClasses({{u"", false}, {u"(none)", false}});
  host.store(options::LVClass, u"(none)");
  edit([&](frmOptions& dialog) {
    EXPECT_EQ(classes(dialog).items(), (std::vector<Text>{u"(none)", u"", u"(none)"}));
    EXPECT_EQ(classes(dialog).listIndex(), 2);
    user.type(u"x");
  });
  EXPECT_EQ(host.value(options::LVClass), u"(none)");
  edit([&](frmOptions& dialog) { user.choose(classes(dialog), 0); });
  EXPECT_EQ(host.value(options::LVClass), u"");
}

TEST_F(CompanyDetailsTest, SavesTheChosenClass) {
  storeClasses({{u"Retail", false}, {u"Fuel", false}});
  edit([&](frmOptions& dialog) {
    user.choose(classes(dialog), 2);
    EXPECT_TRUE(applyEnabled(dialog));
  });
  EXPECT_EQ(host.value(options::LVClass), u"Fuel");
  edit([&](frmOptions& dialog) { user.choose(classes(dialog), 0); });
  EXPECT_EQ(host.value(options::LVClass), u"");
}

TEST_F(CompanyDetailsTest, AClassNameOfMoreThanTwelveLettersIsItsToolTip) {
  storeClasses({{u"TwelveLetter", false}, {u"ThirteenLette", false}});
  host.store(options::LVClass, u"ThirteenLette");
  open([&](frmOptions& dialog) {
    EXPECT_EQ(classes(dialog).toolTip(), u"ThirteenLette");
    user.choose(classes(dialog), 1);
    EXPECT_EQ(classes(dialog).toolTip(), u"");
    user.choose(classes(dialog), 2);
    EXPECT_EQ(classes(dialog).toolTip(), u"ThirteenLette");
  });
}

TEST_F(CompanyDetailsTest, AHostThatFailsInTheMiddleEndsTheSaveWithNothingWritten) {
  host.store(options::CompanyName, u"Corner Shop");
  for (const char* call : {"put CompanyName", "put CompanyFax", "put CompanyABN", "put LVClass"}) {
    expectFailureAt(call, TabPage::general, [&](frmOptions&) {
      user.type(u"Other");
      user.accessKey(u'o');
    });
  }
  EXPECT_EQ(host.value(options::CompanyName), u"Corner Shop");
  EXPECT_TRUE(changes.empty());
}

TEST_F(CompanyDetailsTest, AFailingClassListIsRaised) {
  host.failingCall = "ClassTable";
  EXPECT_THROW(options_.ShowOptions(), Error);
}

}  // namespace
}  // namespace tillora::testing
