#include "sales/currency_conversion.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "tests/testing/function_ref.h"
#include "tests/testing/options_test.h"

namespace tillora::testing {
namespace {

using ui::Key;

class CurrencyConversionTest : public OptionsTest {
 protected:
  explicit CurrencyConversionTest(NumberLocale numbers = {}) : OptionsTest(std::move(numbers)) {}

  static CurrencyConversion& tab(frmOptions& dialog) { return dialog.tabs().currencyConversion; }
  static ui::TextBox& box(frmOptions& dialog) { return tab(dialog).txtCurrencyConversion[0]; }
  static ui::UpDown& upDown(frmOptions& dialog) { return tab(dialog).udCurrencyConversion; }

  /// Opens the tab with this margin stored; the focus is in the box.
  void openWith(float margin, const FunctionRef<void(frmOptions&)>& act) {
    host.store(options::DefaultCurrencyMargin, margin);
    openOn(TabPage::currency, act);
  }
  void save(frmOptions& dialog) { user.click(dialog.cmdCommand[frmOptions::apply]); }
  void retype(frmOptions& dialog, TextView text) {
    user.click(box(dialog));
    user.selectAll();
    user.type(text);
  }
  void repaste(frmOptions& dialog, TextView text) {
    user.click(box(dialog));
    user.selectAll();
    user.paste(text);
  }
  /// The margin that clicks on the arrows lead to.
  Text after(float margin, std::initializer_list<int> clicks) {
    Text shown;
    openWith(margin, [&](frmOptions& dialog) {
      for (const int direction : clicks) user.spin(upDown(dialog), direction);
      shown = box(dialog).text();
    });
    return shown;
  }
};

/// The same with a decimal comma.
class CurrencyConversionWithCommas : public CurrencyConversionTest {
 protected:
  CurrencyConversionWithCommas() : CurrencyConversionTest({u",", u".", u"\u20ac"}) {}
};

TEST_F(CurrencyConversionTest, ShowsTheStoredMarginWithAPercentSign) {
  host.store(options::DefaultCurrencyMargin, 2.5F);
  open([&](frmOptions& dialog) {
    EXPECT_EQ(box(dialog).text(), u"2.50%");
    EXPECT_EQ(upDown(dialog).value(), 250);
    EXPECT_EQ(upDown(dialog).minimum(), -9999);
    EXPECT_EQ(upDown(dialog).maximum(), 9999);
    EXPECT_EQ(upDown(dialog).increment(), 1);
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(CurrencyConversionTest, ShowsZeroWhenNothingIsStored) {
  open([&](frmOptions& dialog) {
    EXPECT_EQ(box(dialog).text(), u"0.00%");
    EXPECT_EQ(upDown(dialog).value(), 0);
  });
}

TEST_F(CurrencyConversionTest, ShowsAMarginBelowZero) {
  host.store(options::DefaultCurrencyMargin, -12.345F);
  open([&](frmOptions& dialog) {
    EXPECT_EQ(box(dialog).text(), u"-12.35%");
    EXPECT_EQ(upDown(dialog).value(), -1234);
  });
}

TEST_F(CurrencyConversionTest, TheUpDownIsRoundedToTheEvenHundredth) {
  const std::vector<std::pair<float, int>> margins = {
      {0.125F, 12},  {0.375F, 38},  {-0.125F, -12},  {2.675F, 268},  {2.55F, 255}, {0.29F, 29},
      {1.015F, 102}, {2.195F, 220}, {-1.015F, -102}, {1.0125F, 101}, {3e38F, 9999}};
  for (const auto& [margin, hundredths] : margins) {
    openWith(margin, [&](frmOptions& dialog) { EXPECT_EQ(upDown(dialog).value(), hundredths); });
  }
}

TEST_F(CurrencyConversionTest, ThePercentSignIsHiddenWhileTheBoxHasTheFocus) {
  openWith(5, [&](frmOptions& dialog) {
    EXPECT_TRUE(box(dialog).hasFocus());
    EXPECT_EQ(box(dialog).text(), u"5.00");
    EXPECT_EQ(box(dialog).selText(), u"5.00");
    user.press(Key::tab);
    EXPECT_EQ(box(dialog).text(), u"5.00%");
    user.press(Key::tab, {.shift = true});
    EXPECT_EQ(box(dialog).selText(), u"5.00");
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(CurrencyConversionTest, ClicksMoveByATenthOfAPercent) {
  EXPECT_EQ(after(2.5F, {+1}), u"2.60");
  EXPECT_EQ(after(2.5F, {-1}), u"2.40");
  EXPECT_EQ(after(2.55F, {+1}), u"2.60");
  EXPECT_EQ(after(2.55F, {-1}), u"2.50");
  EXPECT_EQ(after(2.5F, {+1, +1, -1}), u"2.60");
  EXPECT_EQ(after(0, {+1}), u"0.10");
  EXPECT_EQ(after(0, {-1}), u"-0.10");
  EXPECT_EQ(after(0.05F, {-1}), u"0.00");
  EXPECT_EQ(after(-0.05F, {+1}), u"0.00");
  EXPECT_EQ(after(1.015F, {+1}), u"1.10");
  EXPECT_EQ(after(1.015F, {-1}), u"1.00");
  EXPECT_EQ(after(2.195F, {+1}), u"2.30");
  EXPECT_EQ(after(2.195F, {-1}), u"2.10");
}

TEST_F(CurrencyConversionTest, ClicksRoundDownBelowZeroToo) {
  EXPECT_EQ(after(-2.5F, {+1}), u"-2.40");
  EXPECT_EQ(after(-2.5F, {-1}), u"-2.60");
  EXPECT_EQ(after(-2.55F, {+1}), u"-2.50");
  EXPECT_EQ(after(-2.55F, {-1}), u"-2.60");
  EXPECT_EQ(after(-2.5F, {-1, +1}), u"-2.50");
}

TEST_F(CurrencyConversionTest, ClicksEndAtTheLimitsAndComeBack) {
  EXPECT_EQ(after(99.95F, {+1}), u"99.99");
  EXPECT_EQ(after(99.9F, {+1}), u"99.99");
  EXPECT_EQ(after(99.89F, {+1}), u"99.90");
  EXPECT_EQ(after(99.95F, {+1, +1}), u"99.99");
  EXPECT_EQ(after(99.95F, {+1, -1}), u"99.90");
  EXPECT_EQ(after(99.95F, {+1, -1, +1}), u"99.99");
  EXPECT_EQ(after(-99.95F, {-1}), u"-99.99");
  EXPECT_EQ(after(-99.9F, {-1}), u"-99.99");
  EXPECT_EQ(after(-99.95F, {-1, -1}), u"-99.99");
  EXPECT_EQ(after(-99.95F, {-1, +1}), u"-99.90");
  EXPECT_EQ(after(-99.95F, {-1, +1, -1}), u"-99.99");
}

TEST_F(CurrencyConversionTest, EveryValueGoesOneStepUpAndDown) {
  open([&](frmOptions& dialog) {
    user.clickTab(dialog.tabOptions, 5);
    for (int i = 0; i < 1000; ++i) upDown(dialog).spin(-1);
    EXPECT_EQ(upDown(dialog).value(), -9999);
    int before = -9999;
    for (int i = 1; i <= 1999; ++i) {
      upDown(dialog).spin(+1);
      const int expected = std::min(-10000 + 10 * i, 9999);
      ASSERT_EQ(upDown(dialog).value(), expected) << "after " << before;
      before = expected;
    }
    upDown(dialog).spin(+1);
    EXPECT_EQ(upDown(dialog).value(), 9999);
    for (int i = 1; i <= 1999; ++i) {
      upDown(dialog).spin(-1);
      ASSERT_EQ(upDown(dialog).value(), std::max(10000 - 10 * i, -9999));
    }
  });
}

TEST_F(CurrencyConversionTest, AClickPutsTheFocusIntoTheBoxWithItsTextSelected) {
  host.store(options::DefaultCurrencyMargin, 2.5F);
  open([&](frmOptions& dialog) {
    user.clickTab(dialog.tabOptions, 5);
    EXPECT_FALSE(box(dialog).hasFocus());
    user.spin(upDown(dialog), +1);
    EXPECT_TRUE(box(dialog).hasFocus());
    EXPECT_EQ(box(dialog).text(), u"2.60");
    EXPECT_EQ(box(dialog).selText(), u"2.60");
    EXPECT_TRUE(applyEnabled(dialog));
    user.press(Key::tab);
    EXPECT_EQ(box(dialog).text(), u"2.60%");
  });
}

TEST_F(CurrencyConversionTest, AClickFirstValidatesTheTextTypedSoFar) {
  openWith(0, [&](frmOptions& dialog) {
    user.type(u"7.55");
    user.spin(upDown(dialog), +1);
    EXPECT_EQ(box(dialog).text(), u"7.60");
    user.type(u"7.55");
    user.spin(upDown(dialog), -1);
    EXPECT_EQ(box(dialog).text(), u"7.50");
    user.type(u"-");
    user.spin(upDown(dialog), -1);
    EXPECT_EQ(box(dialog).text(), u"7.40");
    user.type(u"250");
    user.spin(upDown(dialog), +1);
    EXPECT_EQ(box(dialog).text(), u"99.99");
    EXPECT_EQ(box(dialog).selText(), u"99.99");
  });
}

TEST_F(CurrencyConversionTest, ATextThatIsNotYetValidatedDoesNotUndoAClick) {
  openWith(2.5F, [&](frmOptions& dialog) {
    dialog.cmdCommand[frmOptions::cancel].setFocus();
    EXPECT_EQ(box(dialog).text(), u"2.50%");
    user.spin(upDown(dialog), +1);
    EXPECT_EQ(box(dialog).text(), u"2.60");
    save(dialog);
  });
  EXPECT_EQ(host.value(options::DefaultCurrencyMargin), 2.6F);
}

TEST_F(CurrencyConversionTest, GoingToCancelLeavesTheTextUntilItIsValidated) {
  openWith(2.5F, [&](frmOptions& dialog) {
    user.type(u"7");
    dialog.cmdCommand[frmOptions::cancel].setFocus();
    EXPECT_EQ(box(dialog).text(), u"7");
    save(dialog);
    EXPECT_EQ(box(dialog).text(), u"7.00%");
  });
  EXPECT_EQ(host.value(options::DefaultCurrencyMargin), 7);
}

TEST_F(CurrencyConversionTest, TypedMarginsAreLimitedWhenTheBoxIsLeft) {
  struct Limited {
    Text typed;
    Text shown;
    float stored;
  };
  const std::vector<Limited> margins = {
      {u"250", u"99.99%", 99.99F},         {u"99.99", u"99.99%", 99.99F},
      {u"100", u"99.99%", 99.99F},         {u"99.991", u"99.99%", 99.99F},
      {u"-250", u"-99.99%", -99.99F},      {u"-99.99", u"-99.99%", -99.99F},
      {u"-99.991", u"-99.99%", -99.99F},   {u"99.9", u"99.90%", 99.9F},
      {Text(300, u'9'), u"99.99%", 99.99F}};
  openWith(1, [&](frmOptions& dialog) {
    for (const auto& [typed, shown, stored] : margins) {
      retype(dialog, u"1");
      user.press(Key::tab);
      repaste(dialog, typed);
      user.press(Key::tab);
      EXPECT_EQ(box(dialog).text(), shown);
      save(dialog);
      EXPECT_EQ(host.value(options::DefaultCurrencyMargin), stored) << toUtf8(typed);
    }
  });
}

TEST_F(CurrencyConversionTest, TypedMarginsSetTheUpDownToTheEvenHundredth) {
  const std::vector<std::pair<Text, int>> margins = {{u"0.125", 12},
                                                     {u"0.375", 38},
                                                     {u"5", 500},
                                                     {u"-0.5", -50},
                                                     {u"250", 9999},
                                                     {u".5", 50},
                                                     {u"1.015", 102},
                                                     {u"2.195", 220},
                                                     {u"-2.195", -220},
                                                     {u"1.0149999999999999999999", 101},
                                                     {u"1.0250000000000000000001", 103}};
  openWith(1, [&](frmOptions& dialog) {
    for (const auto& [typed, hundredths] : margins) {
      retype(dialog, typed);
      user.press(Key::tab);
      EXPECT_EQ(upDown(dialog).value(), hundredths) << toUtf8(typed);
    }
  });
}

TEST_F(CurrencyConversionTest, AnEmptyBoxCountsAsZero) {
  openWith(5, [&](frmOptions& dialog) {
    user.press(Key::backspace);
    user.press(Key::tab);
    EXPECT_EQ(box(dialog).text(), u"0.00%");
    save(dialog);
  });
  EXPECT_EQ(host.value(options::DefaultCurrencyMargin), 0);
}

TEST_F(CurrencyConversionTest, ATextThatIsNotANumberKeepsTheMargin) {
  openWith(5, [&](frmOptions& dialog) {
    for (const Text garbage : {u"abc", u"%", u"1e999", u"1..2", u"-", u".", u"5%%", u"&H10", u"NaN",
                               u"1.#IND", u"inf", u"-1e400", u"0x5"}) {
      repaste(dialog, garbage);
      EXPECT_EQ(box(dialog).text(), garbage);
      user.press(Key::tab);
      EXPECT_EQ(box(dialog).text(), u"5.00%") << toUtf8(garbage);
      EXPECT_EQ(upDown(dialog).value(), 500);
    }
    save(dialog);
  });
  EXPECT_EQ(host.value(options::DefaultCurrencyMargin), 5);
}

TEST_F(CurrencyConversionTest, PastedNumbersMayHaveAPercentSignAndBlanks) {
  const std::vector<std::pair<Text, float>> texts = {
      {u"7.5%", 7.5F},        {u" 7.5 % ", 7.5F},
      {u"7.5 %\t", 7.5F},     {u"\t7.5\t%\t \t", 7.5F},
      {u"7.5\u00a0%", 7.5F},  {u"\u30007.5\u202f% \u00a0", 7.5F},
      {u"\u2003-7.5", -7.5F}, {u"1e1", 10},
      {u"(3)", -3},           {u"  ", 0},
      {u"\u00a0\t", 0}};
  openWith(1, [&](frmOptions& dialog) {
    for (const auto& [text, stored] : texts) {
      retype(dialog, u"1");
      user.press(Key::tab);
      repaste(dialog, text);
      user.press(Key::tab);
      save(dialog);
      EXPECT_EQ(host.value(options::DefaultCurrencyMargin), stored) << toUtf8(text);
    }
  });
}

TEST_F(CurrencyConversionTest, OnlyDigitsSeparatorAndMinusCanBeTyped) {
  openWith(0, [&](frmOptions& dialog) {
    user.type(u"x1%+ ,e/:\u06612");
    EXPECT_EQ(box(dialog).text(), u"12");
    user.press(Key::backspace);
    EXPECT_EQ(box(dialog).text(), u"1");
  });
}

TEST_F(CurrencyConversionTest, ASecondSeparatorIsRefusedUnlessItReplacesTheFirst) {
  openWith(0, [&](frmOptions& dialog) {
    user.type(u"1.2.5");
    EXPECT_EQ(box(dialog).text(), u"1.25");
    box(dialog).setSelection(1, 2);
    user.type(u".");
    EXPECT_EQ(box(dialog).text(), u"1.5");
    box(dialog).setSelection(2, 1);
    user.type(u".");
    EXPECT_EQ(box(dialog).text(), u"1.5");
    user.selectAll();
    user.type(u".");
    EXPECT_EQ(box(dialog).text(), u".");
  });
}

TEST_F(CurrencyConversionTest, ASecondMinusIsRefusedUnlessItReplacesTheFirst) {
  openWith(0, [&](frmOptions& dialog) {
    user.type(u"--5-");
    EXPECT_EQ(box(dialog).text(), u"-5");
    box(dialog).setSelection(0, 1);
    user.type(u"-");
    EXPECT_EQ(box(dialog).text(), u"-5");
    user.press(Key::tab);
    EXPECT_EQ(box(dialog).text(), u"-5.00%");
  });
}

TEST_F(CurrencyConversionTest, CommandsPassTheKeyFilter) {
  openWith(5, [&](frmOptions& dialog) {
    user.press(Key::end);
    user.selectAll();
    EXPECT_EQ(box(dialog).selText(), u"5.00");
  });
}

TEST_F(CurrencyConversionTest, TheHostsSeparatorIsUsedForEverything) {
  host.decimalSeparator = u",";
  openWith(2.5F, [&](frmOptions& dialog) {
    EXPECT_EQ(box(dialog).text(), u"2,50");
    user.type(u"7.,2,5");
    EXPECT_EQ(box(dialog).text(), u"7,25");
    user.press(Key::tab);
    EXPECT_EQ(box(dialog).text(), u"7,25%");
    EXPECT_EQ(upDown(dialog).value(), 725);
    repaste(dialog, u"1.5");
    user.press(Key::tab);
    EXPECT_EQ(box(dialog).text(), u"7,25%");
    save(dialog);
  });
  EXPECT_EQ(host.value(options::DefaultCurrencyMargin), 7.25F);
}

TEST_F(CurrencyConversionWithCommas, TheUsersSeparatorIsUsedIfTheHostGivesNone) {
  host.decimalSeparator = u"";
  openWith(2.5F, [&](frmOptions& dialog) {
    EXPECT_EQ(box(dialog).text(), u"2,50");
    user.type(u"7.,2,5");
    EXPECT_EQ(box(dialog).text(), u"7,25");
    user.press(Key::tab);
    EXPECT_EQ(box(dialog).text(), u"7,25%");
    repaste(dialog, u"0.015,5");  // thousands are grouped by points
    user.press(Key::tab);
    EXPECT_EQ(box(dialog).text(), u"15,50%");
    save(dialog);
  });
  EXPECT_EQ(host.value(options::DefaultCurrencyMargin), 15.5F);
}

TEST_F(CurrencyConversionWithCommas, TheHostsSeparatorNoLongerGroupsThousands) {
  host.decimalSeparator = u".";
  openWith(2.5F, [&](frmOptions& dialog) {
    EXPECT_EQ(box(dialog).text(), u"2.50");
    user.type(u"7,.25");
    EXPECT_EQ(box(dialog).text(), u"7.25");
    user.press(Key::tab);
    EXPECT_EQ(box(dialog).text(), u"7.25%");
    EXPECT_EQ(upDown(dialog).value(), 725);
    repaste(dialog, u"1,5");
    user.press(Key::tab);
    EXPECT_EQ(box(dialog).text(), u"7.25%");
    save(dialog);
  });
  EXPECT_EQ(host.value(options::DefaultCurrencyMargin), 7.25F);
}

TEST_F(CurrencyConversionTest, OnlyAMarginThatDiffersRaisesItsBit) {
  saveDefaults();
  openWith(2.5F, [&](frmOptions& dialog) {
    user.type(u"2.5");
    save(dialog);
    retype(dialog, u"2.51");
    save(dialog);
    user.spin(upDown(dialog), +1);
    user.spin(upDown(dialog), -1);
    save(dialog);
  });
  EXPECT_EQ(changes, (std::vector<std::int32_t>{0, 2048, 2048}));
  EXPECT_EQ(host.value(options::DefaultCurrencyMargin), 2.5F);
}

TEST_F(CurrencyConversionTest, AMarginIsComparedAsASingle) {
  saveDefaults();
  openWith(0.1F, [&](frmOptions& dialog) {
    user.type(u"0.1");
    save(dialog);
    retype(dialog, u"0.1000000001");
    save(dialog);
    EXPECT_EQ(changes, (std::vector<std::int32_t>{0, 0}));
  });
}

TEST_F(CurrencyConversionTest, AMarginWithMoreDecimalsThanAreShownIsKeptWhenItIsNotEdited) {
  saveDefaults();
  host.store(options::DefaultCurrencyMargin, 2.555F);
  edit([&](frmOptions& dialog) {
    user.type(u"x");
    user.clickTab(dialog.tabOptions, 5);
    user.click(box(dialog));
    user.press(Key::tab);
  });
  EXPECT_EQ(host.value(options::DefaultCurrencyMargin), 2.555F);
  EXPECT_EQ(changes, std::vector<std::int32_t>{0});
}

TEST_F(CurrencyConversionTest, AMarginTypedAsItIsShownIsStored) {
  saveDefaults();
  const std::vector<std::pair<float, float>> margins = {
      {2.555F, 2.56F}, {-12.345F, -12.35F}, {250.0F, 99.99F}, {-250.0F, -99.99F}};
  for (const auto& [margin, stored] : margins) {
    changes.clear();
    openWith(margin, [&](frmOptions& dialog) {
      const Text shown = box(dialog).text();
      user.selectAll();
      user.type(shown);
      EXPECT_EQ(box(dialog).text(), shown);
      save(dialog);
    });
    EXPECT_EQ(host.value(options::DefaultCurrencyMargin), stored);
    EXPECT_EQ(changes, std::vector<std::int32_t>{2048});
  }
}

TEST_F(CurrencyConversionTest, RetypingADigitStoresTheMarginAsShown) {
  openWith(2.555F, [&](frmOptions& dialog) {
    user.press(Key::end);
    user.press(Key::backspace);
    user.type(u"6");
    EXPECT_EQ(box(dialog).text(), u"2.56");
    user.press(Key::tab);
    save(dialog);
  });
  EXPECT_EQ(host.value(options::DefaultCurrencyMargin), 2.56F);
}

TEST_F(CurrencyConversionTest, ARefusedKeyAndAnUndoneTextDoNotEditTheMargin) {
  openWith(2.555F, [&](frmOptions& dialog) {
    user.type(u"x");
    user.press(Key::tab);
    user.press(Key::tab, {.shift = true});
    repaste(dialog, u"abc");
    user.press(Key::tab);
    EXPECT_EQ(box(dialog).text(), u"2.56%");
    user.click(box(dialog));
    user.press(Key::tab);
    save(dialog);
  });
  EXPECT_EQ(host.value(options::DefaultCurrencyMargin), 2.555F);
}

TEST_F(CurrencyConversionTest, AMarginIsKeptAsTypedWhenTheBoxIsVisitedAgain) {
  openWith(0, [&](frmOptions& dialog) {
    user.type(u"3.333");
    user.press(Key::tab);
    user.press(Key::tab, {.shift = true});
    EXPECT_EQ(box(dialog).text(), u"3.33");
    user.press(Key::tab);
    save(dialog);
  });
  EXPECT_EQ(host.value(options::DefaultCurrencyMargin), 3.333F);
}

TEST_F(CurrencyConversionTest, AStoredMarginOutOfRangeIsKeptWhileTheBoxIsNotVisited) {
  host.store(options::DefaultCurrencyMargin, 250.0F);
  edit([&](frmOptions& dialog) {
    EXPECT_EQ(box(dialog).text(), u"250.00%");
    EXPECT_EQ(upDown(dialog).value(), 9999);
    user.type(u"x");
    user.clickTab(dialog.tabOptions, 5);
    EXPECT_EQ(box(dialog).text(), u"250.00%");
  });
  EXPECT_EQ(host.value(options::DefaultCurrencyMargin), 250.0F);
}

TEST_F(CurrencyConversionTest, AStoredMarginOutOfRangeIsLimitedWhenTheBoxIsLeft) {
  saveDefaults();
  struct Limited {
    float stored;
    Text shown;
    Text limited;
    float saved;
  };
  const std::vector<Limited> margins = {{250, u"250.00", u"99.99%", 99.99F},
                                        {-250, u"-250.00", u"-99.99%", -99.99F},
                                        {99.995F, u"100.00", u"99.99%", 99.99F},
                                        {-99.991F, u"-99.99", u"-99.99%", -99.99F},
                                        {3e38F, {}, u"99.99%", 99.99F}};
  for (const auto& [stored, shown, limited, saved] : margins) {
    changes.clear();
    openWith(stored, [&](frmOptions& dialog) {
      if (!shown.empty()) {
        EXPECT_EQ(box(dialog).text(), shown);
      }
      EXPECT_FALSE(applyEnabled(dialog));
      user.press(Key::tab);
      EXPECT_EQ(box(dialog).text(), limited);
      EXPECT_EQ(upDown(dialog).value(), stored > 0 ? 9999 : -9999);
      EXPECT_TRUE(applyEnabled(dialog)) << "another margin would be saved";
      user.press(Key::escape);
    });
    EXPECT_EQ(host.value(options::DefaultCurrencyMargin), stored) << "Cancel saves nothing";
    openWith(stored, [&](frmOptions&) {
      user.press(Key::tab);
      user.accessKey(u'o');
    });
    EXPECT_EQ(host.value(options::DefaultCurrencyMargin), saved);
    EXPECT_EQ(changes, std::vector<std::int32_t>{2048});
  }
}

TEST_F(CurrencyConversionTest, AMarginOutOfRangeIsLimitedByOkInTheBoxAndNotByCancel) {
  openWith(250, [&](frmOptions& dialog) {
    dialog.cmdCommand[frmOptions::cancel].setFocus();
    EXPECT_EQ(box(dialog).text(), u"250.00%");
    EXPECT_FALSE(applyEnabled(dialog));
    user.press(Key::escape);
  });
  EXPECT_EQ(host.value(options::DefaultCurrencyMargin), 250);
  openWith(250, [&](frmOptions& dialog) {
    user.press(Key::enter);
    EXPECT_FALSE(dialog.isShown());
  });
  EXPECT_EQ(host.value(options::DefaultCurrencyMargin), 99.99F);
}

TEST_F(CurrencyConversionTest, AMarginAtTheEndsOfTheRangeIsKept) {
  saveDefaults();
  for (const float margin : {99.99F, -99.99F, 99.989F, 0.0049F}) {
    openWith(margin, [&](frmOptions& dialog) {
      user.press(Key::tab);
      EXPECT_FALSE(applyEnabled(dialog));
    });
    edit([&](frmOptions& dialog) {
      user.type(u"x");
      user.clickTab(dialog.tabOptions, 5);
      user.click(box(dialog));
      user.press(Key::tab);
    });
    EXPECT_EQ(host.value(options::DefaultCurrencyMargin), margin);
  }
  EXPECT_EQ(changes, (std::vector<std::int32_t>{0, 0, 0, 0}));
}

TEST_F(CurrencyConversionTest, ClicksGoOnFromTheNearestEndOfAMarginOutOfRange) {
  EXPECT_EQ(after(250, {-1}), u"99.90");
  EXPECT_EQ(after(250, {+1}), u"99.99");
  EXPECT_EQ(after(-250, {+1}), u"-99.90");
  openOn(TabPage::currency, [&](frmOptions& dialog) {
    user.spin(upDown(dialog), +1);
    save(dialog);
  });
  EXPECT_EQ(host.value(options::DefaultCurrencyMargin), -99.9F);
}

TEST_F(CurrencyConversionTest, AStoredValueThatIsNotANumberShowsZero) {
  for (const float stored :
       {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()}) {
    openWith(stored, [&](frmOptions& dialog) { EXPECT_EQ(box(dialog).text(), u"0.00"); });
  }
}

TEST_F(CurrencyConversionTest, OkByEnterValidatesAndSaves) {
  openWith(0, [&](frmOptions& dialog) {
    user.type(u"250");
    user.press(Key::enter);
    EXPECT_FALSE(dialog.isShown());
  });
  EXPECT_EQ(host.value(options::DefaultCurrencyMargin), 99.99F);
}

TEST_F(CurrencyConversionTest, CancelSavesNothing) {
  openWith(5, [&](frmOptions&) {
    user.type(u"7");
    user.press(Key::escape);
  });
  EXPECT_EQ(host.value(options::DefaultCurrencyMargin), 5);
  EXPECT_TRUE(changes.empty());
}

TEST_F(CurrencyConversionTest, FirstUseStoresZero) {
  saveDefaults();
  EXPECT_EQ(host.value(options::DefaultCurrencyMargin), 0);
}

TEST_F(CurrencyConversionTest, TheAccessKeyOfTheLabelReachesTheBox) {
  open([&](frmOptions& dialog) {
    user.clickTab(dialog.tabOptions, 5);
    user.accessKey(u'm');
    EXPECT_TRUE(box(dialog).hasFocus());
  });
}

}  // namespace
}  // namespace tillora::testing
