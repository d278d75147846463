#include "sales/rounding.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "sales/frmBrowseItems.h"
#include "tests/testing/function_ref.h"
#include "tests/testing/options_test.h"

namespace tillora::testing {
namespace {

using ui::Key;

class RoundingTest : public OptionsTest {
 protected:
  explicit RoundingTest(NumberLocale numbers = {}) : OptionsTest(std::move(numbers)) {}

  static Rounding& tab(frmOptions& dialog) { return dialog.tabs().rounding; }
  static ui::ComboBox& combo(frmOptions& dialog, int index) {
    return tab(dialog).cboRounding[index];
  }
  static ui::TextBox& caption(frmOptions& dialog, int index) {
    return tab(dialog).txtRoundingCaption[index];
  }
  static ui::OptionButton& mode(frmOptions& dialog, int index) {
    return tab(dialog).optRounding[index];
  }
  static std::vector<int> selectedModes(frmOptions& dialog) {
    std::vector<int> selected;
    for (const auto& [index, button] : tab(dialog).optRounding) {
      if (button->value()) selected.push_back(index);
    }
    return selected;
  }
  void openTab(const FunctionRef<void(frmOptions&)>& act) { openOn(TabPage::rounding, act); }
  /// Opens the tab and presses OK after `act`.
  void editTab(const FunctionRef<void(frmOptions&)>& act) {
    openTab([&](frmOptions& dialog) {
      act(dialog);
      user.accessKey(u'o');
    });
  }
  std::vector<Text> stepsShown() {
    std::vector<Text> shown;
    openTab([&](frmOptions& dialog) { shown = combo(dialog, Rounding::step).items(); });
    return shown;
  }
  /// An edit that changes no value.
  void touch(frmOptions& dialog) {
    user.click(caption(dialog, Rounding::roundedCaption));
    user.press(Key::end);
    user.type(u"x");
    user.press(Key::backspace);
  }
  Text stepShown() {
    Text shown;
    openTab([&](frmOptions& dialog) { shown = combo(dialog, Rounding::step).text(); });
    return shown;
  }
  void addRoundingItem(TextView group, TextView name) {
    host.items.push_back({u"OTHC", u"1", Text(group), Text(name), u"", u"Income"});
    host.accounts = {
        {{u"Name", Text(u"Income")}, {u"Inactive", false}, {u"AccountType", Text(u"INC")}}};
  }
};

/// The same with a decimal comma.
class RoundingWithCommas : public RoundingTest {
 protected:
  RoundingWithCommas() : RoundingTest({u",", u".", u"\u20ac"}) {}
};

TEST_F(RoundingTest, ShowsTheDefaultsWhenNothingIsStored) {
  openTab([&](frmOptions& dialog) {
    EXPECT_EQ(combo(dialog, Rounding::direction).text(), u"down to");
    EXPECT_EQ(combo(dialog, Rounding::step).listIndex(), 2);
    EXPECT_EQ(combo(dialog, Rounding::step).text(), u"$0.05");
    EXPECT_EQ(caption(dialog, Rounding::roundedCaption).text(), u"Rounded");
    EXPECT_EQ(caption(dialog, Rounding::varianceCaption).text(), u"Rounding");
    EXPECT_EQ(caption(dialog, Rounding::item).text(), u"");
    EXPECT_FALSE(tab(dialog).chkRounding[0].value());
    EXPECT_EQ(selectedModes(dialog), std::vector<int>{0});
    EXPECT_EQ(combo(dialog, Rounding::taxDirection).text(), u"up to");
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(RoundingTest, ShowsTheStoredValues) {
  host.store(options::RoundingStep, Money{1000});
  host.store(options::RoundingFlags, 1);
  host.store(options::RoundedCaption, u"Tidy");
  host.store(options::RoundingItem, u"Charges:Rounding");
  host.store(options::RoundingVarianceCaption, u"");
  host.store(options::TaxRoundingMode, 2);
  host.store(options::TaxRoundingDirection, 1);
  host.store(options::RoundingDirection, 0);
  openTab([&](frmOptions& dialog) {
    EXPECT_EQ(combo(dialog, Rounding::direction).text(), u"up to");
    EXPECT_EQ(combo(dialog, Rounding::step).text(), u"$0.10");
    EXPECT_EQ(caption(dialog, Rounding::roundedCaption).text(), u"Tidy");
    EXPECT_EQ(caption(dialog, Rounding::varianceCaption).text(), u"");
    EXPECT_EQ(caption(dialog, Rounding::item).text(), u"Charges:Rounding");
    EXPECT_TRUE(tab(dialog).chkRounding[0].value());
    EXPECT_EQ(selectedModes(dialog), std::vector<int>{2});
    EXPECT_EQ(combo(dialog, Rounding::taxDirection).text(), u"down to");
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(RoundingTest, OffersTheStepsOfTheCurrencysDecimals) {
  host.currencyFormat = u"0.0000";
  host.decimalPlaces = 1;
  EXPECT_EQ(stepsShown(), (std::vector<Text>{u"0.1000", u"0.2000", u"0.5000", u"1.0000"}));
  host.decimalPlaces = 2;
  EXPECT_EQ(stepsShown(), (std::vector<Text>{u"0.0100", u"0.0200", u"0.0500", u"0.1000", u"0.2000",
                                             u"0.2500", u"0.5000", u"1.0000"}));
  host.decimalPlaces = 3;
  EXPECT_EQ(stepsShown(),
            (std::vector<Text>{u"0.0010", u"0.0020", u"0.0050", u"0.0100", u"0.0200", u"0.0250",
                               u"0.0500", u"0.1000", u"0.2000", u"0.2500", u"0.5000", u"1.0000"}));
  host.decimalPlaces = 4;
  EXPECT_EQ(stepsShown(),
            (std::vector<Text>{u"0.0001", u"0.0002", u"0.0005", u"0.0010", u"0.0020", u"0.0025",
                               u"0.0050", u"0.0100", u"0.0200", u"0.0250", u"0.0500", u"0.1000",
                               u"0.2000", u"0.2500", u"0.5000", u"1.0000"}));
}

TEST_F(RoundingTest, ACurrencyWithoutDecimalsGoesToTenThousand) {
  host.decimalPlaces = 0;
  host.currencyFormat = u"0";
  EXPECT_EQ(stepsShown(),
            (std::vector<Text>{u"1", u"2", u"5", u"10", u"20", u"25", u"50", u"100", u"200", u"250",
                               u"500", u"1000", u"2000", u"2500", u"5000", u"10000"}));
  EXPECT_EQ(stepShown(), u"5");
}

TEST_F(RoundingTest, DecimalsAreClampedAndTwoWhenMissing) {
  host.currencyFormat = u"0.####";
  const std::vector<std::pair<std::optional<std::int16_t>, std::size_t>> cases = {
      {std::nullopt, 8}, {-1, 16}, {5, 16}, {32767, 16}, {-32768, 16}};
  for (const auto& [places, count] : cases) {
    host.decimalPlaces = places;
    EXPECT_EQ(stepsShown().size(), count);
  }
  host.decimalPlaces = 5;
  EXPECT_EQ(stepsShown().front(), u"0.0001");
  host.decimalPlaces = -1;
  EXPECT_EQ(stepsShown().back(), u"10000.");
}

TEST_F(RoundingTest, StepsAreShownInTheHostsFormatWithoutBlanksAround) {
  host.currencyFormat = u" $ 0.00 ";
  EXPECT_EQ(stepsShown().front(), u"$ 0.01");
  host.currencyFormat = u"";
  EXPECT_EQ(stepsShown().back(), u"1.00");
  host.decimalPlaces = 0;
  EXPECT_EQ(stepsShown().back(), u"10000");
}

TEST_F(RoundingTest, TheTaxFrameNamesTheSmallestUnit) {
  const auto unit = [&] {
    Text shown;
    openTab(
        [&](frmOptions& dialog) { shown = tab(dialog).lblRounding[Rounding::taxStep].caption(); });
    return shown;
  };
  EXPECT_EQ(unit(), u"$0.01");
  host.decimalPlaces = 3;
  host.currencyFormat = u"0.000";
  EXPECT_EQ(unit(), u"0.001");
  host.decimalPlaces = 0;
  host.currencyFormat = u"0";
  EXPECT_EQ(unit(), u"1");
}

TEST_F(RoundingTest, SelectsTheStoredStep) {
  const std::vector<std::pair<std::int64_t, Text>> steps = {
      {100, u"$0.01"},  {200, u"$0.02"},  {500, u"$0.05"},  {1000, u"$0.10"},
      {2000, u"$0.20"}, {2500, u"$0.25"}, {5000, u"$0.50"}, {10000, u"$1.00"}};
  for (const auto& [amount, shown] : steps) {
    host.store(options::RoundingStep, Money{amount});
    EXPECT_EQ(stepShown(), shown);
  }
}

TEST_F(RoundingTest, AStepThatIsNotInTheListShowsTheThird) {
  constexpr auto kLargest = std::numeric_limits<std::int64_t>::max();
  for (const std::int64_t amount : {std::int64_t{3000}, std::int64_t{0}, std::int64_t{-500},
                                    std::int64_t{501}, std::int64_t{20000}, kLargest, -kLargest}) {
    host.store(options::RoundingStep, Money{amount});
    EXPECT_EQ(stepShown(), u"$0.05") << amount;
    editTab([&](frmOptions& dialog) { touch(dialog); });
    EXPECT_EQ(host.value(options::RoundingStep), Money{amount});
  }
  // The one that is shown can be chosen, too.
  editTab([&](frmOptions& dialog) { user.choose(combo(dialog, Rounding::step), 2); });
  EXPECT_EQ(host.value(options::RoundingStep), Money{500});
}

TEST_F(RoundingTest, AStepWithAnAmbiguousTextIsFoundByItsAmount) {
  host.decimalPlaces = 3;
  host.currencyFormat = u"0 units";
  host.store(options::RoundingStep, Money{250});
  openTab([&](frmOptions& dialog) { EXPECT_EQ(combo(dialog, Rounding::step).listIndex(), 5); });
}

TEST_F(RoundingTest, AStepIsFoundByItsOwnAmountFirst) {
  host.decimalPlaces = 3;
  host.currencyFormat = u"0.00";
  host.store(options::RoundingStep, Money{100});
  openTab([&](frmOptions& dialog) {
    const ui::ComboBox& steps = combo(dialog, Rounding::step);
    EXPECT_EQ(steps.items()[2], u"0.01");
    EXPECT_EQ(steps.items()[3], u"0.01");
    EXPECT_EQ(steps.listIndex(), 3);
  });
}

TEST_F(RoundingTest, AStepThatIsNotOfferedIsFoundByTheFirstOfEqualTexts) {
  host.decimalPlaces = 3;
  host.currencyFormat = u"0.00";
  host.store(options::RoundingStep, Money{300});
  openTab([&](frmOptions& dialog) {
    EXPECT_EQ(combo(dialog, Rounding::step).items()[5], u"0.03");
    EXPECT_EQ(combo(dialog, Rounding::step).listIndex(), 5);
  });
  host.currencyFormat = u"0.0";
  host.store(options::RoundingStep, Money{3000});
  openTab([&](frmOptions& dialog) {
    EXPECT_EQ(combo(dialog, Rounding::step).items()[9], u"0.3");
    EXPECT_EQ(combo(dialog, Rounding::step).listIndex(), 9);
  });
}

TEST_F(RoundingTest, AStoredStepIsWrittenBackUnchangedByASaveOfAnotherTab) {
  saveDefaults();
  const std::vector<std::pair<std::int16_t, Text>> formats = {
      {3, u"0.00"}, {3, u"0"}, {2, u"0.0"}, {2, u"Standard"}, {4, u"$#,##0.00"}, {0, u"0"}};
  for (const auto& [places, format] : formats) {
    host.decimalPlaces = places;
    host.currencyFormat = format;
    for (const std::int64_t amount : {100, 50, 10, 1, 3000, 0, -500}) {
      host.store(options::RoundingStep, Money{amount});
      edit([&](frmOptions&) { user.type(u"x"); });
      EXPECT_EQ(host.value(options::RoundingStep), Money{amount}) << toUtf8(format);
    }
  }
  EXPECT_EQ(std::ranges::count(changes, 0), static_cast<std::ptrdiff_t>(changes.size()));
}

TEST_F(RoundingTest, AStoredStepIsGivenUpWhenOneIsChosen) {
  host.decimalPlaces = 3;
  host.currencyFormat = u"0.00";
  saveDefaults();
  host.store(options::RoundingStep, Money{300});
  openTab([&](frmOptions& dialog) {
    ui::ComboBox& steps = combo(dialog, Rounding::step);
    touch(dialog);
    user.click(dialog.cmdCommand[frmOptions::apply]);
    EXPECT_EQ(host.value(options::RoundingStep), Money{300});
    user.choose(steps, steps.listIndex());
    user.click(dialog.cmdCommand[frmOptions::apply]);
    EXPECT_EQ(host.value(options::RoundingStep), Money{250});
    user.choose(steps, 4);
    user.click(dialog.cmdCommand[frmOptions::apply]);
    touch(dialog);
    user.click(dialog.cmdCommand[frmOptions::apply]);
    EXPECT_EQ(host.value(options::RoundingStep), Money{200});
  });
  EXPECT_EQ(changes, (std::vector<std::int32_t>{0, 512, 512, 0}));
  openTab([&](frmOptions& dialog) { EXPECT_EQ(combo(dialog, Rounding::step).listIndex(), 4); });
}

TEST_F(RoundingTest, AStepIsChosenByKeyboardToo) {
  host.store(options::RoundingStep, Money{3000});
  editTab([&](frmOptions& dialog) {
    combo(dialog, Rounding::step).setFocus();
    user.press(Key::down);
    user.press(Key::up);
    EXPECT_EQ(combo(dialog, Rounding::step).listIndex(), 2);
  });
  EXPECT_EQ(host.value(options::RoundingStep), Money{500});
}

TEST_F(RoundingTest, StepsMayBeShownInANamedFormatOrWithASecondPoint) {
  const std::vector<std::pair<Text, Text>> formats = {
      {u"Currency", u"$0.25"}, {u"currency", u"$0.25"},      {u"Standard", u"0.25"},
      {u"Fixed", u"0.25"},     {u"General Number", u"0.25"}, {u"#,##0.00 kr.", u"0.25 kr."}};
  host.store(options::RoundingStep, Money{2500});
  for (const auto& [format, shown] : formats) {
    host.currencyFormat = format;
    EXPECT_EQ(stepShown(), shown);
  }
  host.decimalPlaces = 0;
  host.currencyFormat = u"Currency";
  EXPECT_EQ(stepsShown().back(), u"$10,000.00");
}

TEST_F(RoundingWithCommas, StepsAreShownAndFoundByTheUsersSeparators) {
  host.decimalPlaces = 3;
  host.currencyFormat = u"#,##0.00 \u20ac";
  host.store(options::RoundingStep, Money{500});
  openTab([&](frmOptions& dialog) {
    const ui::ComboBox& steps = combo(dialog, Rounding::step);
    EXPECT_EQ(steps.items().front(), u"0,00 \u20ac");
    EXPECT_EQ(steps.items().back(), u"1,00 \u20ac");
    EXPECT_EQ(steps.text(), u"0,05 \u20ac");
    EXPECT_EQ(tab(dialog).lblRounding[Rounding::taxStep].caption(), u"0,00 \u20ac");
  });
  // This is not an offered amount, but 0,025 is shown as 0,03.
  host.store(options::RoundingStep, Money{300});
  openTab([&](frmOptions& dialog) {
    EXPECT_EQ(combo(dialog, Rounding::step).text(), u"0,03 \u20ac");
    EXPECT_EQ(combo(dialog, Rounding::step).listIndex(), 5);
  });
}

TEST_F(RoundingWithCommas, LargeStepsAreGroupedAndFoundByTheUsersSeparators) {
  host.decimalPlaces = 0;
  host.currencyFormat = u"#,##0.0";
  EXPECT_EQ(stepsShown().back(), u"10.000,0");
  host.store(options::RoundingStep, Money{20000000});
  EXPECT_EQ(stepShown(), u"2.000,0");
}

TEST_F(RoundingTest, AStepIsSavedAsItsOwnAmount) {
  host.decimalPlaces = 4;
  host.currencyFormat = u"0.00";
  editTab([&](frmOptions& dialog) {
    EXPECT_EQ(combo(dialog, Rounding::step).items()[5], u"0.00");
    user.choose(combo(dialog, Rounding::step), 5);
  });
  EXPECT_EQ(host.value(options::RoundingStep), Money{25});
  openTab([&](frmOptions& dialog) { EXPECT_EQ(combo(dialog, Rounding::step).listIndex(), 5); });
}

TEST_F(RoundingTest, SavesWhatWasChosen) {
  addRoundingItem(u"Charges", u"Rounding");
  editTab([&](frmOptions& dialog) {
    user.choose(combo(dialog, Rounding::direction), Rounding::upTo);
    user.choose(combo(dialog, Rounding::step), 7);
    user.click(caption(dialog, Rounding::roundedCaption));
    user.type(u"  Tidy ");
    user.click(caption(dialog, Rounding::varianceCaption));
    user.press(Key::backspace);
    user.click(mode(dialog, 3));
    user.choose(combo(dialog, Rounding::taxDirection), Rounding::downTo);
    user.click(tab(dialog).chkRounding[0]);
    desk->whenShown([&](ui::Form&) { user.press(Key::enter); });
    user.click(tab(dialog).cmdBrowse);
  });
  EXPECT_EQ(host.value(options::RoundingDirection), 0);
  EXPECT_EQ(host.value(options::RoundingStep), Money{10000});
  EXPECT_EQ(host.value(options::RoundedCaption), u"  Tidy ");
  EXPECT_EQ(host.value(options::RoundingVarianceCaption), u"");
  EXPECT_EQ(host.value(options::RoundingItem), u"Charges:Rounding");
  EXPECT_EQ(host.value(options::TaxRoundingMode), 3);
  EXPECT_EQ(host.value(options::TaxRoundingDirection), 1);
  EXPECT_EQ(host.value(options::RoundingFlags), 1);
  openTab([&](frmOptions& dialog) {
    EXPECT_EQ(combo(dialog, Rounding::step).text(), u"$1.00");
    EXPECT_EQ(caption(dialog, Rounding::varianceCaption).text(), u"");
    EXPECT_EQ(selectedModes(dialog), std::vector<int>{3});
  });
}

TEST_F(RoundingTest, EveryEditEnablesApply) {
  const std::vector<std::function<void(frmOptions&)>> edits = {
      [&](frmOptions& d) { user.choose(combo(d, Rounding::direction), 0); },
      [&](frmOptions& d) { user.choose(combo(d, Rounding::step), 0); },
      [&](frmOptions& d) { user.choose(combo(d, Rounding::taxDirection), 1); },
      [&](frmOptions& d) { user.click(mode(d, 1)); },
      [&](frmOptions& d) { user.click(tab(d).chkRounding[0]); },
      [&](frmOptions& d) { touch(d); },
      [&](frmOptions& d) {
        user.click(caption(d, Rounding::varianceCaption));
        user.type(u"x");
      }};
  for (const auto& act : edits) {
    openTab([&](frmOptions& dialog) {
      EXPECT_FALSE(applyEnabled(dialog));
      act(dialog);
      EXPECT_TRUE(applyEnabled(dialog));
    });
  }
}

TEST_F(RoundingTest, EachOfTheEightSettingsRaisesTheBit) {
  addRoundingItem(u"", u"Rounding");
  const std::vector<std::function<void(frmOptions&)>> edits = {
      [&](frmOptions& d) { user.choose(combo(d, Rounding::step), 0); },
      [&](frmOptions& d) { user.click(tab(d).chkRounding[0]); },
      [&](frmOptions& d) {
        user.click(caption(d, Rounding::roundedCaption));
        user.type(u"x");
      },
      [&](frmOptions& d) {
        desk->whenShown([&](ui::Form&) { user.press(Key::enter); });
        user.click(tab(d).cmdBrowse);
      },
      [&](frmOptions& d) {
        user.click(caption(d, Rounding::varianceCaption));
        user.type(u"x");
      },
      [&](frmOptions& d) { user.click(mode(d, 1)); },
      [&](frmOptions& d) { user.choose(combo(d, Rounding::taxDirection), 1); },
      [&](frmOptions& d) { user.choose(combo(d, Rounding::direction), 0); }};
  saveDefaults();
  for (const auto& act : edits) {
    changes.clear();
    editTab(act);
    EXPECT_EQ(changes, std::vector<std::int32_t>{512});
    changes.clear();
    editTab([&](frmOptions& dialog) { touch(dialog); });
    EXPECT_EQ(changes, std::vector<std::int32_t>{0});
  }
}

TEST_F(RoundingTest, TheFirstSaveOfANewShopRaisesTheBit) {
  editTab([&](frmOptions& dialog) { touch(dialog); });
  ASSERT_EQ(changes.size(), 1U);
  EXPECT_EQ(changes[0] & 512, 512);
  EXPECT_EQ(host.value(options::RoundingStep), Money{500});
  EXPECT_EQ(host.value(options::RoundedCaption), u"Rounded");
  EXPECT_EQ(host.value(options::RoundingVarianceCaption), u"Rounding");
  EXPECT_EQ(host.value(options::RoundingDirection), 1);
}

TEST_F(RoundingTest, TheFlagsAreWrittenAsZeroAndThenBitByBit) {
  saveDefaults();
  editTab([&](frmOptions& dialog) { user.click(tab(dialog).chkRounding[0]); });
  const std::vector<std::string> expected = {"put RoundingFlags", "get RoundingFlags",
                                             "put RoundingFlags"};
  const auto all = host.calls;
  const auto first = std::ranges::find(all, "put RoundingFlags");
  ASSERT_GE(all.end() - first, 3);
  EXPECT_EQ(std::vector<std::string>(first, first + 3), expected);
  EXPECT_EQ(host.value(options::RoundingFlags), 1);
}

TEST_F(RoundingTest, BitsWithoutACheckBoxAreNotKept) {
  host.store(options::RoundingFlags, -1);
  editTab([&](frmOptions& dialog) {
    EXPECT_TRUE(tab(dialog).chkRounding[0].value());
    touch(dialog);
  });
  EXPECT_EQ(host.value(options::RoundingFlags), 1);
}

TEST_F(RoundingTest, ChoicesOutOfRangeShowNothingAndAreKeptUntilOneIsMade) {
  host.store(options::RoundingDirection, 2);
  host.store(options::TaxRoundingDirection, 255);
  host.store(options::TaxRoundingMode, 4);
  editTab([&](frmOptions& dialog) {
    EXPECT_EQ(combo(dialog, Rounding::direction).listIndex(), -1);
    EXPECT_EQ(combo(dialog, Rounding::taxDirection).listIndex(), -1);
    EXPECT_TRUE(selectedModes(dialog).empty());
    touch(dialog);
  });
  EXPECT_EQ(host.value(options::RoundingDirection), 2);
  EXPECT_EQ(host.value(options::TaxRoundingDirection), 255);
  EXPECT_EQ(host.value(options::TaxRoundingMode), 4);
  editTab([&](frmOptions& dialog) {
    user.choose(combo(dialog, Rounding::direction), 1);
    user.choose(combo(dialog, Rounding::taxDirection), 0);
    user.click(mode(dialog, 0));
  });
  EXPECT_EQ(host.value(options::RoundingDirection), 1);
  EXPECT_EQ(host.value(options::TaxRoundingDirection), 0);
  EXPECT_EQ(host.value(options::TaxRoundingMode), 0);
}

TEST_F(RoundingTest, ChoicesFarOutOfRangeAreKeptToo) {
  host.store(options::RoundingDirection, 7);
  host.store(options::TaxRoundingMode, 200);
  editTab([&](frmOptions& dialog) {
    EXPECT_EQ(combo(dialog, Rounding::direction).listIndex(), -1);
    EXPECT_TRUE(selectedModes(dialog).empty());
    touch(dialog);
  });
  EXPECT_EQ(host.value(options::RoundingDirection), 7);
  EXPECT_EQ(host.value(options::TaxRoundingMode), 200);
}

TEST_F(RoundingTest, ModesAreStoredByIndexThoughShownInReverse) {
  const std::vector<Text> captions = {
      u"Round &tax per line item before any quantity multiplications",
      u"Round tax &per line item after any quantity multiplications",
      u"Round tax at the &end of the transaction", u"Do not round ta&x"};
  for (int index = 0; index < 4; ++index) {
    host.store(options::TaxRoundingMode, static_cast<std::uint8_t>((index + 1) % 4));
    editTab([&](frmOptions& dialog) {
      EXPECT_EQ(mode(dialog, index).caption(), captions[static_cast<std::size_t>(index)]);
      if (index > 0) {
        EXPECT_LT(mode(dialog, index).bounds().top, mode(dialog, index - 1).bounds().top);
      }
      user.click(mode(dialog, index));
      EXPECT_EQ(selectedModes(dialog), std::vector<int>{index});
    });
    EXPECT_EQ(host.value(options::TaxRoundingMode), index);
  }
}

TEST_F(RoundingTest, TheItemIsFilledByTheBrowserOnly) {
  host.store(options::RoundingItem, u"Charges:Rounding");
  addRoundingItem(u"", u"Freight");
  addRoundingItem(u"Charges", u"Rounding");
  openTab([&](frmOptions& dialog) {
    ui::TextBox& item = caption(dialog, Rounding::item);
    user.click(item);
    EXPECT_EQ(item.selText(), u"Charges:Rounding");
    user.type(u"x");
    user.press(Key::del);
    EXPECT_EQ(item.text(), u"Charges:Rounding");
    EXPECT_FALSE(applyEnabled(dialog));

    desk->whenShown([&](ui::Form& form) {
      auto& browser = dynamic_cast<frmBrowseItems&>(form);
      EXPECT_EQ(browser.caption(), u"Rounding Item");
      EXPECT_EQ(browser.SelectedValue, u"Charges:Rounding");
      EXPECT_EQ(browser.ltvItems.selectedRow(), 1);
      EXPECT_NE(browser.SettingsObject, nullptr);
      user.clickRow(browser.ltvItems, 0);
      user.press(Key::escape);
    });
    user.click(tab(dialog).cmdBrowse);
    EXPECT_EQ(item.text(), u"Charges:Rounding");
    EXPECT_FALSE(applyEnabled(dialog));

    desk->whenShown([&](ui::Form& form) {
      user.doubleClickRow(dynamic_cast<frmBrowseItems&>(form).ltvItems, 0);
    });
    user.accessKey(u'i');
    EXPECT_EQ(item.text(), u"Freight");
    EXPECT_TRUE(applyEnabled(dialog));
  });
}

TEST_F(RoundingTest, AnItemThatVanishedMeanwhileStaysUntilAnotherIsChosen) {
  host.store(options::RoundingItem, u"Charges:Rounding");
  addRoundingItem(u"Charges", u"Rounding");
  addRoundingItem(u"", u"Freight");
  editTab([&](frmOptions& dialog) {
    host.items.erase(host.items.begin());
    desk->whenShown([&](ui::Form& form) {
      auto& browser = dynamic_cast<frmBrowseItems&>(form);
      EXPECT_EQ(browser.ltvItems.count(), 1);
      EXPECT_EQ(browser.ltvItems.selectedRow(), -1);
      user.press(Key::enter);
    });
    user.click(tab(dialog).cmdBrowse);
    EXPECT_EQ(caption(dialog, Rounding::item).text(), u"Charges:Rounding");
    host.accounts.clear();
    desk->whenShown([&](ui::Form& form) {
      EXPECT_EQ(dynamic_cast<frmBrowseItems&>(form).ltvItems.count(), 0);
      user.press(Key::enter);
    });
    user.click(tab(dialog).cmdBrowse);
    EXPECT_EQ(caption(dialog, Rounding::item).text(), u"Charges:Rounding");
    touch(dialog);
  });
  EXPECT_EQ(host.value(options::RoundingItem), u"Charges:Rounding");
}

TEST_F(RoundingTest, AFailureOfTheBrowserEndsTheDialogAndIsRaised) {
  saveDefaults();
  addRoundingItem(u"", u"Freight");
  for (const char* call : {"ItemList", "MoveNext ItemList"}) {
    expectFailureAt(call, TabPage::rounding, [&](frmOptions& dialog) {
      user.choose(combo(dialog, Rounding::step), 7);
      user.click(tab(dialog).cmdBrowse);
    });
  }
  EXPECT_TRUE(changes.empty());
}

TEST_F(RoundingTest, CaptionsHaveNoLimit) {
  editTab([&](frmOptions& dialog) {
    user.click(caption(dialog, Rounding::roundedCaption));
    user.paste(Text(600, u'x'));
    user.click(caption(dialog, Rounding::varianceCaption));
    user.paste(Text(700, u'y'));
  });
  EXPECT_EQ(host.value(options::RoundedCaption), Text(600, u'x'));
  EXPECT_EQ(host.value(options::RoundingVarianceCaption), Text(700, u'y'));
}

TEST_F(RoundingTest, TheTextsOfThePage) {
  openTab([&](frmOptions& dialog) {
    auto& part = tab(dialog);
    EXPECT_EQ(part.fraTendering.caption(), u"Tendering");
    EXPECT_EQ(part.fraTax.caption(), u"Tax");
    EXPECT_EQ(part.fraUnitOfMeasure.caption(), u"Unit of Measure Items");
    EXPECT_EQ(part.cmdBrowse.caption(), u"Rounding &Item");
    EXPECT_EQ(part.cmdBrowse.toolTip(), u"Choose an item from a list");
    EXPECT_EQ(part.chkRounding[0].caption(), u"Recalculate tax after Unit of Measure calculations");
    std::vector<Text> labels;
    for (const auto& [index, label] : part.lblRounding) labels.push_back(label->caption());
    EXPECT_EQ(labels,
              (std::vector<Text>{u"&Round", u"the &nearest", u"Caption for 'roun&ded' amount",
                                 u"Caption for 'rounding variance' a&mount", u"Ro&und",
                                 u"the nearest", u"$0.01",
                                 u"NOTE: Activating this option will potentially cause your tax "
                                 u"component per item to be inconsistent."}));
  });
}

TEST_F(RoundingTest, EachControlStandsInItsFrame) {
  openTab([&](frmOptions& dialog) {
    auto& part = tab(dialog);
    const auto& page = dialog.fraFrame[static_cast<int>(TabPage::rounding) - 1];
    const auto& combos = part.cboRounding;
    const auto& labels = part.lblRounding;
    const auto& captions = part.txtRoundingCaption;
    const auto childrenOf = [](const ui::Container& frame) {
      std::vector<const ui::Control*> controls;
      for (const auto& control : frame.children()) controls.push_back(control);
      return controls;
    };
    EXPECT_EQ(childrenOf(page), (std::vector<const ui::Control*>{&part.fraTendering, &part.fraTax,
                                                                 &part.fraUnitOfMeasure}));
    EXPECT_EQ(
        childrenOf(part.fraTendering),
        (std::vector<const ui::Control*>{
            &labels[Rounding::round], &combos[Rounding::direction], &labels[Rounding::nearest],
            &combos[Rounding::step], &part.cmdBrowse, &captions[Rounding::item],
            &labels[Rounding::captionOfRounded], &captions[Rounding::roundedCaption],
            &labels[Rounding::captionOfVariance], &captions[Rounding::varianceCaption]}));
    EXPECT_EQ(childrenOf(part.fraTax),
              (std::vector<const ui::Control*>{
                  &labels[Rounding::taxRound], &combos[Rounding::taxDirection],
                  &labels[Rounding::taxNearest], &labels[Rounding::taxStep], &part.optRounding[3],
                  &part.optRounding[2], &part.optRounding[1], &part.optRounding[0]}));
    EXPECT_EQ(childrenOf(part.fraUnitOfMeasure),
              (std::vector<const ui::Control*>{&part.chkRounding[0], &labels[Rounding::note]}));
  });
}

TEST_F(RoundingTest, ArrowsGoDownTheOptionButtonsAsTheyStand) {
  host.store(options::TaxRoundingMode, 3);
  openTab([&](frmOptions& dialog) {
    user.accessKey(u'x');
    for (const int next : {2, 1, 0, 3}) {
      user.press(Key::down);
      EXPECT_TRUE(mode(dialog, next).hasFocus());
      EXPECT_EQ(selectedModes(dialog), std::vector<int>{next});
    }
  });
}

TEST_F(RoundingTest, OnlyItemsOfExactlyTheTypeOfOtherChargesAreOffered) {
  addRoundingItem(u"", u"Rounding");
  for (const Text type : {u"OTHCX", u"XOTHC", u"OTH", u"othc", u"OTHC ", u" OTHC", u""}) {
    host.items.push_back({type, u"2", u"", u"Of type " + type, u"", u"Income"});
  }
  openTab([&](frmOptions& dialog) {
    desk->whenShown([&](ui::Form& form) {
      const ui::ListView& items = dynamic_cast<frmBrowseItems&>(form).ltvItems;
      ASSERT_EQ(items.count(), 1);
      EXPECT_EQ(items.text(0, 1), u"Rounding");
    });
    user.click(tab(dialog).cmdBrowse);
  });
}

TEST_F(RoundingTest, TabWalksThroughThePageInOrder) {
  openTab([&](frmOptions& dialog) {
    auto& part = tab(dialog);
    const std::vector<ui::Control*> order = {&part.cboRounding[Rounding::direction],
                                             &part.cboRounding[Rounding::step],
                                             &part.cmdBrowse,
                                             &part.txtRoundingCaption[Rounding::item],
                                             &part.txtRoundingCaption[Rounding::roundedCaption],
                                             &part.txtRoundingCaption[Rounding::varianceCaption],
                                             &part.cboRounding[Rounding::taxDirection],
                                             &part.optRounding[0],
                                             &part.chkRounding[0]};
    expectTabOrder(order);
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(RoundingTest, AccessKeysReachTheirControls) {
  openTab([&](frmOptions& dialog) {
    auto& part = tab(dialog);
    const std::vector<std::pair<char16_t, ui::Control*>> keys = {
        {u'n', &part.cboRounding[Rounding::step]},
        {u'r', &part.cboRounding[Rounding::direction]},
        {u'm', &part.txtRoundingCaption[Rounding::varianceCaption]},
        {u'd', &part.txtRoundingCaption[Rounding::roundedCaption]},
        {u'u', &part.cboRounding[Rounding::taxDirection]},
        {u'x', &part.optRounding[3]},
        {u'e', &part.optRounding[2]},
        {u'p', &part.optRounding[1]},
        {u't', &part.optRounding[0]}};
    for (const auto& [key, control] : keys) {
      user.accessKey(key);
      EXPECT_TRUE(control->hasFocus()) << static_cast<char>(key);
    }
    EXPECT_EQ(selectedModes(dialog), std::vector<int>{0});
  });
}

TEST_F(RoundingTest, CancelAfterApplyKeepsWhatWasApplied) {
  openTab([&](frmOptions& dialog) {
    user.choose(combo(dialog, Rounding::step), 7);
    user.click(dialog.cmdCommand[frmOptions::apply]);
    user.choose(combo(dialog, Rounding::step), 0);
    user.press(Key::escape);
  });
  EXPECT_EQ(host.value(options::RoundingStep), Money{10000});
}

TEST_F(RoundingTest, AMarginAndARoundingChangeRaiseTheirBitsTogether) {
  saveDefaults();
  editTab([&](frmOptions& dialog) {
    user.choose(combo(dialog, Rounding::step), 7);
    user.clickTab(dialog.tabOptions, 5);
    user.spin(dialog.tabs().currencyConversion.udCurrencyConversion, +1);
  });
  EXPECT_EQ(changes, std::vector<std::int32_t>{512 + 2048});
}

TEST_F(RoundingTest, FirstUseStoresTheDefaultsThatWereShown) {
  saveDefaults();
  EXPECT_EQ(host.value(options::RoundingStep), Money{500});
  EXPECT_EQ(host.value(options::RoundedCaption), u"Rounded");
  EXPECT_EQ(host.value(options::RoundingDirection), 1);
  EXPECT_EQ(host.value(options::TaxRoundingMode), 0);
}

}  // namespace
}  // namespace tillora::testing
