#include "sales/transactions.h"

#include <algorithm>
#include <set>

#include "tests/testing/function_ref.h"
#include "tests/testing/options_test.h"

namespace tillora::testing {
namespace {

using ui::Key;

constexpr int kChecks = 13;
constexpr int kCaptions = 16;

struct CaptionOption {
  int box;
  const Option<OptionType::Text>& option;
  TextView defaultText;
};

const std::vector<CaptionOption> kCaptionOptions = {
    {0, options::TerminalIDCaption, u"Terminal ID:"},
    {1, options::TransactionNumberCaption, u"Transaction:"},
    {2, options::SalesPersonCaption, u"Sales Person:"},
    {11, options::TaxedSellPriceCaption, u"T"},
    {12, options::TaxedWholesaleCaption, u"W"},
    {13, options::TaxExemptCaption, u""},
    {14, options::ItemTaxCaption, u"Tax"},
    {3, options::ItemsSoldCaption, u"Items"},
    {15, options::TotalExTaxCaption, u"Total Ex Tax"},
    {10, options::TaxTotalCaption, u"Tax"},
    {4, options::TotalCaption, u"Total"},
    {5, options::ChangeCaption, u"Change"},
    {6, options::BalanceDueCaption, u"Balance Due"},
    {7, options::LaybyOpeningBalanceCaption, u"Opening Balance"},
    {8, options::LaybyClosingBalanceCaption, u"Balance"},
    {9, options::LaybyDateDueCaption, u"Date Due"},
};

/// The caption boxes that a check box governs, by its index.
const std::vector<std::set<int>> kGoverned = {{0},  {2}, {},   {},           {},   {3}, {4},
                                              {10}, {},  {14}, {11, 12, 13}, {15}, {}};
const std::set<int> kAlwaysEnabled = {1, 5, 6, 7, 8, 9};

std::int32_t bit(int index) { return static_cast<std::int32_t>(1U << index); }

class TransactionsTest : public OptionsTest {
 protected:
  TransactionOptions& part(frmOptions& dialog) { return dialog.tabs().transactionOptions; }
  ui::CheckBox& check(frmOptions& dialog, int index) { return part(dialog).chkTransaction[index]; }
  ui::TextBox& box(frmOptions& dialog, int index) { return part(dialog).txtCaption[index]; }
  ui::Label& label(frmOptions& dialog, int index) { return part(dialog).lblTransaction[index]; }

  void openPage(const FunctionRef<void(frmOptions&)>& act) { openOn(TabPage::transactions, act); }
  void editPage(const FunctionRef<void(frmOptions&)>& act) {
    openPage([&](frmOptions& dialog) {
      act(dialog);
      user.accessKey(u'o');
      EXPECT_FALSE(dialog.isShown());
    });
  }
  std::set<int> enabledBoxes(frmOptions& dialog) {
    std::set<int> enabled;
    for (const auto& [index, box] : part(dialog).txtCaption) {
      if (box->enabled()) enabled.insert(index);
    }
    return enabled;
  }
  std::set<int> tickedBoxes(frmOptions& dialog) {
    std::set<int> ticked;
    for (const auto& [index, box] : part(dialog).chkTransaction) {
      if (box->value()) ticked.insert(index);
    }
    return ticked;
  }
  static std::set<int> alwaysAnd(const std::set<int>& others) {
    std::set<int> all = kAlwaysEnabled;
    all.insert(others.begin(), others.end());
    return all;
  }
  void expectTaxLabels(frmOptions& dialog, bool enabled) {
    for (const int i : {1, 3, 5}) {
      EXPECT_EQ(label(dialog, i).enabled(), enabled) << i;
      EXPECT_EQ(label(dialog, i + 1).visible(), !enabled) << i;
    }
  }
};

TEST_F(TransactionsTest, ControlsHaveTheirCaptions) {
  const std::vector<Text> checks = {
      u"&Print the Terminal ID with this caption",
      u"P&rint the Sales Person with this caption",
      u"A &Sales Person must be selected before the first transaction",
      u"A Sa&les Person must be selected at the beginning of each transaction",
      u"The Sal&es Person can be changed during a transaction",
      u"Print n&umber of items sold using this caption",
      u"Print the total o&f the sale including tax using this caption",
      u"Print the ta&x total using this caption",
      u"Print a&mounts including tax",
      u"Print tax amount for eac&h sale item using this caption",
      u"Print caption n&ext to item amounts to indicate tax status using...",
      u"Print the total of the sale excludin&g tax using this caption",
      u"Entered a&mounts include tax"};
  const std::map<int, Text> labels = {{0, u"Cap&tion for transaction number"},
                                      {1, u"Taxed on s&ell price"},
                                      {3, u"Taxed on whol&esale price"},
                                      {5, u"Tax &exempt"},
                                      {7, u"When tendering starts..."},
                                      {8, u"Capt&ion for change"},
                                      {9, u"Capt&ion for balance"},
                                      {10, u"&Balance: Opening"},
                                      {11, u"Closi&ng"},
                                      {12, u"&Date due"}};
  openPage([&](frmOptions& dialog) {
    EXPECT_EQ(part(dialog).chkTransaction.count(), kChecks);
    EXPECT_EQ(part(dialog).txtCaption.count(), kCaptions);
    EXPECT_EQ(part(dialog).lblTransaction.count(), 13);
    for (int i = 0; i < kChecks; ++i) {
      EXPECT_EQ(check(dialog, i).caption(), checks[static_cast<std::size_t>(i)]) << i;
    }
    for (const auto& [index, caption] : labels) EXPECT_EQ(label(dialog, index).caption(), caption);
    const std::vector<Text> frames = {u"Transaction Detail", u"Layby captions for...",
                                      u"Tendering"};
    for (int i = 0; i < 3; ++i) {
      EXPECT_EQ(part(dialog).fraTransaction[i].caption(), frames[static_cast<std::size_t>(i)]);
    }
  });
}

TEST_F(TransactionsTest, EachControlIsInItsFrame) {
  openPage([&](frmOptions& dialog) {
    const auto frameOf = [&](const ui::Control& control) {
      for (const auto& [index, frame] : part(dialog).fraTransaction) {
        if (control.parent() == frame.get()) return index;
      }
      return -1;
    };
    for (const int i : {0, 1, 2, 3, 4, 8, 9, 10, 12}) EXPECT_EQ(frameOf(check(dialog, i)), 0) << i;
    for (const int i : {5, 6, 7, 11}) EXPECT_EQ(frameOf(check(dialog, i)), 2) << i;
    for (const int i : {0, 1, 2, 11, 12, 13, 14}) EXPECT_EQ(frameOf(box(dialog, i)), 0) << i;
    for (const int i : {7, 8, 9}) EXPECT_EQ(frameOf(box(dialog, i)), 1) << i;
    for (const int i : {3, 4, 5, 6, 10, 15}) EXPECT_EQ(frameOf(box(dialog, i)), 2) << i;
    for (int i = 0; i <= 6; ++i) EXPECT_EQ(frameOf(label(dialog, i)), 0) << i;
    for (const int i : {10, 11, 12}) EXPECT_EQ(frameOf(label(dialog, i)), 1) << i;
    for (const int i : {7, 8, 9}) EXPECT_EQ(frameOf(label(dialog, i)), 2) << i;
  });
}

TEST_F(TransactionsTest, NoCaptionIsCutOff) {
  openPage([&](frmOptions& dialog) {
    const auto& screen = desk->screen();
    const auto textWidth = [&](const ui::Control& control) {
      return screen.textWidth(ui::withoutAccessKey(control.caption()));
    };
    for (const auto& [index, box] : part(dialog).chkTransaction) {
      EXPECT_GE(box->bounds().width, textWidth(*box) + 240) << index;
    }
    for (const auto& [index, label] : part(dialog).lblTransaction) {
      EXPECT_GE(label->bounds().width, textWidth(*label)) << index;
    }
    for (const CaptionOption& row : kCaptionOptions) {
      EXPECT_GE(box(dialog, row.box).bounds().width, screen.textWidth(row.defaultText) + 120);
    }
  });
}

TEST_F(TransactionsTest, NothingStoredShowsTheDefaults) {
  openPage([&](frmOptions& dialog) {
    EXPECT_EQ(tickedBoxes(dialog), std::set<int>{});
    EXPECT_EQ(enabledBoxes(dialog), kAlwaysEnabled);
    expectTaxLabels(dialog, false);
    for (const CaptionOption& row : kCaptionOptions) {
      EXPECT_EQ(box(dialog, row.box).text(), row.defaultText) << row.box;
    }
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(TransactionsTest, AStoredEmptyCaptionStaysEmpty) {
  for (const CaptionOption& row : kCaptionOptions) host.store(row.option, u"");
  editPage([&](frmOptions& dialog) {
    for (const CaptionOption& row : kCaptionOptions) EXPECT_EQ(box(dialog, row.box).text(), u"");
    user.click(check(dialog, TransactionOptions::enteredAmountsWithTax));
  });
  for (const CaptionOption& row : kCaptionOptions) EXPECT_EQ(host.value(row.option), u"");
}

TEST_F(TransactionsTest, EachCaptionIsLoadedFromAndSavedToItsOwnSetting) {
  for (const CaptionOption& row : kCaptionOptions) {
    host.store(row.option, u"Stored " + Text(static_cast<std::size_t>(row.box) + 1, u'i'));
  }
  host.store(options::TransactionOptionBits, 0x1FFF);
  editPage([&](frmOptions& dialog) {
    for (const CaptionOption& row : kCaptionOptions) {
      const Text number(static_cast<std::size_t>(row.box) + 1, u'i');
      EXPECT_EQ(box(dialog, row.box).text(), u"Stored " + number);
      user.click(box(dialog, row.box));
      user.selectAll();
      user.type(u"New " + number);
    }
  });
  for (const CaptionOption& row : kCaptionOptions) {
    EXPECT_EQ(host.value(row.option), u"New " + Text(static_cast<std::size_t>(row.box) + 1, u'i'));
  }
}

TEST_F(TransactionsTest, EachStoredBitTicksItsBoxAndEnablesWhatItGoverns) {
  for (int i = 0; i < kChecks; ++i) {
    host.store(options::TransactionOptionBits, bit(i));
    openPage([&](frmOptions& dialog) {
      EXPECT_EQ(tickedBoxes(dialog), std::set<int>{i});
      EXPECT_EQ(enabledBoxes(dialog), alwaysAnd(kGoverned[static_cast<std::size_t>(i)])) << i;
      expectTaxLabels(dialog, i == TransactionOptions::printTaxStatus);
      EXPECT_FALSE(applyEnabled(dialog));
    });
  }
}

TEST_F(TransactionsTest, EachClickEnablesAndDisablesExactlyWhatItGoverns) {
  openPage([&](frmOptions& dialog) {
    for (int i = 0; i < kChecks; ++i) {
      user.click(check(dialog, i));
      EXPECT_EQ(enabledBoxes(dialog), alwaysAnd(kGoverned[static_cast<std::size_t>(i)])) << i;
      expectTaxLabels(dialog, i == TransactionOptions::printTaxStatus);
      user.click(check(dialog, i));
      EXPECT_EQ(enabledBoxes(dialog), kAlwaysEnabled) << i;
      expectTaxLabels(dialog, false);
    }
  });
}

TEST_F(TransactionsTest, EveryCheckBoxAloneEnablesApply) {
  openPage([&](frmOptions& dialog) {
    for (int i = 0; i < kChecks; ++i) {
      user.click(check(dialog, i));
      EXPECT_TRUE(applyEnabled(dialog)) << i;
      user.click(dialog.cmdCommand[frmOptions::apply]);
      EXPECT_FALSE(applyEnabled(dialog)) << i;
    }
  });
}

TEST_F(TransactionsTest, TickingTaxStatusEnablesItsThreeBoxesAtOnceAndUntickingKeepsTheirTexts) {
  editPage([&](frmOptions& dialog) {
    user.click(check(dialog, TransactionOptions::printTaxStatus));
    for (const int i : {11, 12, 13}) {
      user.click(box(dialog, i));
      user.selectAll();
      user.type(u"s" + Text(static_cast<std::size_t>(i), u'x'));
    }
    user.click(check(dialog, TransactionOptions::printTaxStatus));
    for (const int i : {11, 12, 13}) {
      EXPECT_FALSE(box(dialog, i).enabled());
      EXPECT_EQ(box(dialog, i).text(), u"s" + Text(static_cast<std::size_t>(i), u'x'));
    }
  });
  EXPECT_EQ(host.value(options::TransactionOptionBits), 0);
  EXPECT_EQ(host.value(options::TaxedSellPriceCaption), u"s" + Text(11, u'x'));
  EXPECT_EQ(host.value(options::TaxedWholesaleCaption), u"s" + Text(12, u'x'));
  EXPECT_EQ(host.value(options::TaxExemptCaption), u"s" + Text(13, u'x'));
}

TEST_F(TransactionsTest, ADisabledTaxStatusLabelIsEngraved) {
  openPage([&](frmOptions& dialog) {
    const ui::Size pixel = desk->screen().twipsPerPixel();
    for (const int i : {1, 3, 5}) {
      const ui::Label& shadow = label(dialog, i + 1);
      EXPECT_EQ(shadow.caption(), label(dialog, i).caption());
      EXPECT_EQ(shadow.foreColour(), ui::kButtonHighlight);
      EXPECT_EQ(shadow.bounds().left, label(dialog, i).bounds().left + pixel.width);
      EXPECT_EQ(shadow.bounds().top, label(dialog, i).bounds().top + pixel.height);
      EXPECT_GT(label(dialog, i).stacking(), shadow.stacking());
    }
  });
}

TEST_F(TransactionsTest, EnteredAmountsIncludeTaxOnlyEnablesApply) {
  openPage([&](frmOptions& dialog) {
    user.click(check(dialog, TransactionOptions::enteredAmountsWithTax));
    EXPECT_EQ(enabledBoxes(dialog), kAlwaysEnabled);
    expectTaxLabels(dialog, false);
    EXPECT_TRUE(applyEnabled(dialog));
  });
}

TEST_F(TransactionsTest, ADisabledCaptionBoxKeepsAndSavesItsText) {
  host.store(options::TerminalIDCaption, u"Till no.");
  host.store(options::TaxTotalCaption, u"GST");
  editPage([&](frmOptions& dialog) {
    EXPECT_FALSE(box(dialog, TransactionOptions::terminalId).enabled());
    user.click(box(dialog, TransactionOptions::terminalId));
    EXPECT_FALSE(box(dialog, TransactionOptions::terminalId).hasFocus());
    user.click(check(dialog, TransactionOptions::printItemsSold));
  });
  EXPECT_EQ(host.value(options::TerminalIDCaption), u"Till no.");
  EXPECT_EQ(host.value(options::TaxTotalCaption), u"GST");
  EXPECT_EQ(host.value(options::TransactionOptionBits), bit(TransactionOptions::printItemsSold));
}

TEST_F(TransactionsTest, EachBoxIsSavedAsItsBit) {
  saveDefaults();
  openPage([&](frmOptions& dialog) {
    for (int i = 0; i < kChecks; ++i) {
      user.click(check(dialog, i));
      user.click(dialog.cmdCommand[frmOptions::apply]);
      EXPECT_EQ(host.value(options::TransactionOptionBits), bit(i));
      user.click(check(dialog, i));
    }
    for (int i = 0; i < kChecks; ++i) user.click(check(dialog, i));
    user.click(dialog.cmdCommand[frmOptions::apply]);
    EXPECT_EQ(host.value(options::TransactionOptionBits), 0x1FFF);
  });
}

TEST_F(TransactionsTest, BitsThatNoBoxOwnsAreDropped) {
  for (const std::int32_t mask : {-1, static_cast<std::int32_t>(0x80000000U), 0x7FFFE000 | 0x21}) {
    host.store(options::TransactionOptionBits, mask);
    editPage([&](frmOptions& dialog) {
      user.click(box(dialog, TransactionOptions::change));
      user.type(u"x");
    });
    EXPECT_EQ(host.value(options::TransactionOptionBits), mask & 0x1FFF);
  }
}

TEST_F(TransactionsTest, TheMaskIsSavedAsZeroFirstAndThenBitByBit) {
  host.store(options::TransactionOptionBits, 0x1005);
  editPage([&](frmOptions& dialog) {
    user.click(check(dialog, TransactionOptions::printItemTax));
    host.calls.clear();
  });
  EXPECT_EQ(host.callsStarting("put TransactionOptionBits").size(), 5U);
  const auto first = std::ranges::find(host.calls, "put TransactionOptionBits");
  ASSERT_GE(host.calls.end() - first, 10);
  EXPECT_EQ(std::vector<std::string>(first, first + 10),
            (std::vector<std::string>{"put TransactionOptionBits", "get TransactionOptionBits",
                                      "put TransactionOptionBits", "get TransactionOptionBits",
                                      "put TransactionOptionBits", "get TransactionOptionBits",
                                      "put TransactionOptionBits", "get TransactionOptionBits",
                                      "put TransactionOptionBits", "put TerminalIDCaption"}));
  EXPECT_EQ(host.value(options::TransactionOptionBits), 0x1205);
}

TEST_F(TransactionsTest, AnUntickedPageIsSavedAsZero) {
  host.store(options::TransactionOptionBits, 0x1);
  editPage([&](frmOptions& dialog) { user.click(check(dialog, 0)); });
  EXPECT_EQ(host.value(options::TransactionOptionBits), 0);
}

TEST_F(TransactionsTest, CaptionsAreSavedAsTypedWithoutTrimmingOrLimit) {
  const Text odd = u"  " + Text(2000, u'x') + u" & 'q' \"\u00e9\u4e2d ";
  editPage([&](frmOptions& dialog) {
    user.click(box(dialog, TransactionOptions::change));
    user.selectAll();
    user.paste(odd);
    EXPECT_EQ(box(dialog, TransactionOptions::change).text(), odd);
    user.click(box(dialog, TransactionOptions::balanceDue));
    user.selectAll();
    user.type(u"   ");
  });
  EXPECT_EQ(host.value(options::ChangeCaption), odd);
  EXPECT_EQ(host.value(options::BalanceDueCaption), u"   ");
  openPage([&](frmOptions& dialog) {
    EXPECT_EQ(box(dialog, TransactionOptions::change).text(), odd);
    EXPECT_EQ(box(dialog, TransactionOptions::balanceDue).text(), u"   ");
  });
}

TEST_F(TransactionsTest, NoChangeIsRaisedForThisTab) {
  saveDefaults();
  editPage([&](frmOptions& dialog) {
    for (int i = 0; i < kChecks; ++i) user.click(check(dialog, i));
    for (int i = 0; i < kCaptions; ++i) {
      user.click(box(dialog, i));
      user.type(u"x");
    }
  });
  EXPECT_EQ(changes, std::vector<std::int32_t>{0});
}

TEST_F(TransactionsTest, TypingIntoAnyCaptionEnablesApply) {
  host.store(options::TransactionOptionBits, 0x1FFF);
  openPage([&](frmOptions& dialog) {
    for (int i = 0; i < kCaptions; ++i) {
      user.click(box(dialog, i));
      EXPECT_FALSE(applyEnabled(dialog)) << i;
      user.type(u"x");
      EXPECT_TRUE(applyEnabled(dialog)) << i;
      user.click(dialog.cmdCommand[frmOptions::apply]);
    }
  });
}

TEST_F(TransactionsTest, ACaptionIsSelectedWhenItGetsTheFocus) {
  openPage([&](frmOptions& dialog) {
    user.click(check(dialog, TransactionOptions::printTerminalId));
    user.press(Key::tab);
    EXPECT_TRUE(box(dialog, TransactionOptions::terminalId).hasFocus());
    EXPECT_EQ(box(dialog, TransactionOptions::terminalId).selText(), u"Terminal ID:");
    user.type(u"Till");
    EXPECT_EQ(box(dialog, TransactionOptions::terminalId).text(), u"Till");
  });
}

TEST_F(TransactionsTest, TabWalksDownTheFramesInOrder) {
  host.store(options::TransactionOptionBits, 0x1FFF);
  openPage([&](frmOptions& dialog) {
    const std::vector<ui::Control*> order = {
        &check(dialog, 0), &box(dialog, 0),    &check(dialog, 1), &box(dialog, 2),
        &check(dialog, 2), &check(dialog, 3),  &check(dialog, 4), &box(dialog, 1),
        &check(dialog, 8), &check(dialog, 9),  &box(dialog, 14),  &check(dialog, 10),
        &box(dialog, 11),  &box(dialog, 12),   &box(dialog, 13),  &check(dialog, 12),
        &box(dialog, 7),   &box(dialog, 8),    &box(dialog, 9),   &check(dialog, 5),
        &box(dialog, 3),   &check(dialog, 6),  &box(dialog, 4),   &check(dialog, 7),
        &box(dialog, 10),  &check(dialog, 11), &box(dialog, 15),  &box(dialog, 5),
        &box(dialog, 6)};
    for (std::size_t i = 0; i < order.size(); ++i) {
      EXPECT_TRUE(order[i]->hasFocus()) << i;
      user.press(Key::tab);
    }
    EXPECT_TRUE(dialog.cmdCommand[frmOptions::ok].hasFocus());
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(TransactionsTest, AccessKeysOfLabelsReachTheirBoxes) {
  openPage([&](frmOptions& dialog) {
    const std::vector<std::pair<char16_t, int>> keys = {
        {u't', TransactionOptions::transactionNumber},
        {u'b', TransactionOptions::laybyOpening},
        {u'n', TransactionOptions::laybyClosing},
        {u'd', TransactionOptions::laybyDateDue},
    };
    for (const auto& [key, index] : keys) {
      user.accessKey(key);
      EXPECT_TRUE(box(dialog, index).hasFocus()) << index;
    }
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(TransactionsTest, AnAccessKeyOfItsOwnTicksItsBox) {
  openPage([&](frmOptions& dialog) {
    const std::vector<std::pair<char16_t, int>> keys = {
        {u'p', 0}, {u'r', 1}, {u's', 2}, {u'l', 3}, {u'u', 5}, {u'f', 6}, {u'x', 7}, {u'g', 11}};
    for (const auto& [key, index] : keys) {
      user.accessKey(key);
      EXPECT_TRUE(check(dialog, index).value()) << index;
      EXPECT_TRUE(check(dialog, index).hasFocus()) << index;
    }
  });
}

TEST_F(TransactionsTest, SharedAccessKeysWalkAndTickNothing) {
  openPage([&](frmOptions& dialog) {
    for (int round = 0; round < 2; ++round) {
      user.accessKey(u'm');
      EXPECT_TRUE(check(dialog, TransactionOptions::printAmountsWithTax).hasFocus());
      user.accessKey(u'm');
      EXPECT_TRUE(check(dialog, TransactionOptions::enteredAmountsWithTax).hasFocus());
    }
    // The Help button has this key, too.
    user.accessKey(u'h');
    EXPECT_TRUE(dialog.cmdCommand[frmOptions::help_].hasFocus());
    user.accessKey(u'h');
    EXPECT_TRUE(check(dialog, TransactionOptions::printItemTax).hasFocus());
    user.accessKey(u'i');
    EXPECT_TRUE(box(dialog, TransactionOptions::change).hasFocus());
    user.accessKey(u'i');
    EXPECT_TRUE(box(dialog, TransactionOptions::balanceDue).hasFocus());
    EXPECT_EQ(tickedBoxes(dialog), std::set<int>{});
    EXPECT_FALSE(applyEnabled(dialog));
  });
  EXPECT_TRUE(machine.help.topics.empty());
}

TEST_F(TransactionsTest, TheKeyOfTheTaxStatusLabelsWalksToTheirBoxesWhileTheyAreEnabled) {
  host.store(options::TransactionOptionBits, bit(TransactionOptions::printTaxStatus));
  openPage([&](frmOptions& dialog) {
    const std::vector<ui::Control*> walk = {
        &check(dialog, TransactionOptions::salesPersonCanChange),
        &check(dialog, TransactionOptions::printTaxStatus),
        &box(dialog, TransactionOptions::taxedSellPrice),
        &box(dialog, TransactionOptions::taxedWholesale),
        &box(dialog, TransactionOptions::taxExempt)};
    for (int round = 0; round < 2; ++round) {
      for (const ui::Control* control : walk) {
        user.accessKey(u'e');
        EXPECT_TRUE(control->hasFocus());
      }
    }
    EXPECT_EQ(tickedBoxes(dialog), std::set<int>{TransactionOptions::printTaxStatus});
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(TransactionsTest, TheKeyOfTheTaxStatusLabelsPassesOverTheirBoxesWhileTheyAreDisabled) {
  openPage([&](frmOptions& dialog) {
    const std::vector<ui::Control*> walk = {
        &check(dialog, TransactionOptions::salesPersonCanChange),
        &check(dialog, TransactionOptions::printTaxStatus)};
    for (int round = 0; round < 2; ++round) {
      for (const ui::Control* control : walk) {
        user.accessKey(u'e');
        EXPECT_TRUE(control->hasFocus());
      }
    }
    EXPECT_EQ(tickedBoxes(dialog), std::set<int>{});
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(TransactionsTest, ASaveThatAnotherTabRefusesKeepsTicksAndCaptions) {
  saveDefaults();
  host.store(options::CurrencyListColumns, 0);
  openPage([&](frmOptions& dialog) {
    user.click(check(dialog, TransactionOptions::printTaxStatus));
    user.click(box(dialog, TransactionOptions::taxExempt));
    user.type(u"exempt");
    user.click(check(dialog, TransactionOptions::printTaxStatus));
    user.click(dialog.cmdCommand[frmOptions::apply]);
    EXPECT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(host.value(options::TaxExemptCaption), u"");
    user.clickTab(dialog.tabOptions, static_cast<int>(TabPage::transactions));
    expectTaxLabels(dialog, false);
    EXPECT_EQ(box(dialog, TransactionOptions::taxExempt).text(), u"exempt");
  });
}

TEST_F(TransactionsTest, FirstUseStoresTheDefaults) {
  saveDefaults();
  EXPECT_EQ(host.value(options::TransactionOptionBits), 0);
  for (const CaptionOption& row : kCaptionOptions) {
    EXPECT_EQ(host.value(row.option), row.defaultText);
  }
}

TEST_F(TransactionsTest, WhatIsStoredIsReadAgainByTheNextDialog) {
  editPage([&](frmOptions& dialog) {
    user.click(check(dialog, TransactionOptions::printTaxTotal));
    user.press(Key::tab);
    user.type(u"GST");
  });
  openPage([&](frmOptions& dialog) {
    EXPECT_EQ(tickedBoxes(dialog), std::set<int>{TransactionOptions::printTaxTotal});
    EXPECT_EQ(enabledBoxes(dialog), alwaysAnd({TransactionOptions::taxTotal}));
    EXPECT_EQ(box(dialog, TransactionOptions::taxTotal).text(), u"GST");
    EXPECT_EQ(box(dialog, TransactionOptions::itemTax).text(), u"Tax");
    user.click(check(dialog, TransactionOptions::printTaxTotal));
    user.click(dialog.cmdCommand[frmOptions::cancel]);
  });
  EXPECT_EQ(host.value(options::TransactionOptionBits), bit(TransactionOptions::printTaxTotal));
}

}  // namespace
}  // namespace tillora::testing
