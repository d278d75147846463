#include "operations/layby.h"

#include <array>
#include <limits>

#include "identity/company_details.h"
#include "tests/testing/function_ref.h"
#include "tests/testing/options_test.h"

namespace tillora::testing {
namespace {

using ui::Key;

constexpr std::array kNumbers = {LaybyOptions::startNumber, LaybyOptions::term,
                                 LaybyOptions::history};
constexpr std::array kDefaults = {u"1", u"90", u"180"};

class LaybyTest : public OptionsTest {
 protected:
  static LaybyOptions& tab(frmOptions& dialog) { return dialog.tabs().laybyOptions; }
  static ui::TextBox& box(frmOptions& dialog, int index) { return tab(dialog).txtLayby[index]; }
  void openTab(const FunctionRef<void(frmOptions&)>& act) { openOn(TabPage::layby, act); }
  /// Opens the tab and presses OK after `act`.
  void editTab(const FunctionRef<void(frmOptions&)>& act) {
    openTab([&](frmOptions& dialog) {
      act(dialog);
      user.click(dialog.cmdCommand[frmOptions::ok]);
    });
  }
  void apply(frmOptions& dialog) { user.click(dialog.cmdCommand[frmOptions::apply]); }
  void select(frmOptions& dialog, int index) {
    user.click(box(dialog, index));
    user.selectAll();
  }
  /// What the box shows when this text was pasted into it and the box was left.
  Text afterPasting(frmOptions& dialog, int index, TextView text) {
    select(dialog, index);
    user.paste(text);
    user.press(Key::tab);
    return box(dialog, index).text();
  }
  /// Paragraphs of a text: what empty lines separate.
  static std::vector<Text> paragraphs(const Text& text) {
    std::vector<Text> found;
    std::size_t start = 0;
    for (std::size_t end = 0; end != Text::npos; start = end + 4) {
      end = text.find(u"\r\n\r\n", start);
      found.push_back(text.substr(start, end == Text::npos ? end : end - start));
    }
    return found;
  }
};

TEST_F(LaybyTest, ShowsTheDefaultsWhenNothingIsStored) {
  openTab([&](frmOptions& dialog) {
    EXPECT_EQ(box(dialog, 0).text(), u"1");
    EXPECT_EQ(box(dialog, 1).text(), u"90");
    EXPECT_EQ(box(dialog, 2).text(), kDefaultLaybyTerms);
    EXPECT_EQ(box(dialog, 3).text(), u"180");
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(LaybyTest, TheDefaultTermsAreWordForWord) {
  const Text terms = kDefaultLaybyTerms;
  EXPECT_EQ(terms.size(), 1187U);
  EXPECT_EQ(
      paragraphs(terms),
      (std::vector<Text>{
          u"[Change these Terms and Conditions as required by your organisation]",
          u"TERMS & CONDITIONS OF LAY-BY",
          u"1. When either the purchaser or retailer cancels a lay-by sale, the purchaser has the "
          u"right of a full refund less any cancellation charge.  The cancellation charge on this "
          u"lay-by is shown below.  The charge is to cover selling costs incurred by the retailer.",
          u"Cancellation Charge $",
          u"2. Should the purchaser fail to honour the lay-by sale (ie. by non-payment of lay-by) "
          u"the retailer shall contact the purchaser and advise that the lay-by will be cancelled "
          u"after 7 days of notice of advice unless a further or full payments is received.  "
          u"Should the purchaser not pay outstanding monies within the 7 days the lay-by will be "
          u"cancelled, goods returned to stock, and any monies due, minus the cancellation charge, "
          u"refunded to the purchaser.",
          u"3. There is no cancellation charge if goods are unable to be supplied by the retailer, "
          u"or no cancellation charge is specified on this docket.",
          u"4. Instalments are due weekly.",
          u"5. Parcels cannot be broken and must therefore be collected in full.",
          u"6. It is the responsibility of the customer to advise this store of any change of "
          u"address."}));
}

TEST_F(LaybyTest, ShowsTheStoredValues) {
  host.store(options::LaybyStartNumber, 100001);
  host.store(options::LaybyTermDays, 40000);
  host.store(options::LaybyTermsText, u"Pay\nus\r\nsoon.");
  host.store(options::LaybyHistoryDays, 100000);
  openTab([&](frmOptions& dialog) {
    EXPECT_EQ(box(dialog, LaybyOptions::startNumber).text(), u"100001");
    EXPECT_EQ(box(dialog, LaybyOptions::term).text(), u"40000");
    EXPECT_EQ(box(dialog, LaybyOptions::terms).text(), u"Pay\nus\r\nsoon.");
    EXPECT_EQ(box(dialog, LaybyOptions::history).text(), u"100000");
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(LaybyTest, ControlsHaveTheirCaptions) {
  open([&](frmOptions& dialog) {
    const auto& label = tab(dialog).lblLayby;
    EXPECT_EQ(label[0].caption(), u"&Start Number");
    EXPECT_EQ(label[1].caption(), u"&Term");
    EXPECT_EQ(label[2].caption(), u"T&erms and Conditions");
    EXPECT_EQ(label[3].caption(), u"Historical &Layby Data");
    EXPECT_EQ(label[LaybyOptions::termUnit].caption(), u"days");
    EXPECT_EQ(label[LaybyOptions::historyUnit].caption(), u"days");
    for (int i = 0; i < 4; ++i) {
      EXPECT_EQ(box(dialog, i).multiLine(), i == LaybyOptions::terms);
      EXPECT_EQ(box(dialog, i).maxLength(), 0);
    }
  });
}

TEST_F(LaybyTest, TabFollowsTheScreenAndAccessKeysLeadToTheBoxes) {
  openTab([&](frmOptions& dialog) {
    for (const int index : {0, 1, 3, 2}) {
      EXPECT_TRUE(box(dialog, index).hasFocus()) << index;
      user.press(Key::tab);
    }
    EXPECT_TRUE(dialog.cmdCommand[frmOptions::ok].hasFocus());
    constexpr std::array kKeys = {u's', u't', u'e', u'l'};
    for (int i = 0; i < 4; ++i) {
      user.accessKey(kKeys[static_cast<std::size_t>(i)]);
      EXPECT_TRUE(box(dialog, i).hasFocus()) << i;
    }
  });
}

TEST_F(LaybyTest, EveryBoxSelectsItsTextOnFocus) {
  openTab([&](frmOptions& dialog) {
    for (const int i : {3, 2, 1, 0}) {
      user.click(box(dialog, i));
      EXPECT_EQ(box(dialog, i).selText(), box(dialog, i).text());
    }
  });
}

TEST_F(LaybyTest, SavesWhatWasTyped) {
  saveDefaults();
  editTab([&](frmOptions& dialog) {
    user.type(u"2000");
    user.press(Key::tab);
    user.type(u"60");
    user.press(Key::tab);
    user.type(u"400");
    user.press(Key::tab);
    user.type(u" Pay soon. ");
    EXPECT_TRUE(applyEnabled(dialog));
  });
  EXPECT_EQ(host.value(options::LaybyStartNumber), 2000);
  EXPECT_EQ(host.value(options::LaybyTermDays), 60);
  EXPECT_EQ(host.value(options::LaybyHistoryDays), 400);
  EXPECT_EQ(host.value(options::LaybyTermsText), u" Pay soon. ");
  EXPECT_EQ(changes, std::vector<std::int32_t>{0});
  openTab([&](frmOptions& dialog) {
    EXPECT_EQ(box(dialog, LaybyOptions::startNumber).text(), u"2000");
    EXPECT_EQ(box(dialog, LaybyOptions::term).text(), u"60");
    EXPECT_EQ(box(dialog, LaybyOptions::history).text(), u"400");
    EXPECT_EQ(box(dialog, LaybyOptions::terms).text(), u" Pay soon. ");
  });
}

TEST_F(LaybyTest, TheSameByAccessKeysAlone) {
  editTab([&](frmOptions&) {
    user.accessKey(u't');
    user.type(u"14");
    user.accessKey(u'e');
    user.type(u"None");
  });
  EXPECT_EQ(host.value(options::LaybyTermDays), 14);
  EXPECT_EQ(host.value(options::LaybyTermsText), u"None");
}

TEST_F(LaybyTest, FirstUseStoresTheDefaultsThatWereShown) {
  saveDefaults();
  EXPECT_EQ(host.value(options::LaybyStartNumber), 1);
  EXPECT_EQ(host.value(options::LaybyTermDays), 90);
  EXPECT_EQ(host.value(options::LaybyTermsText), kDefaultLaybyTerms);
  EXPECT_EQ(host.value(options::LaybyHistoryDays), 180);
}

TEST_F(LaybyTest, EveryBoxEnablesApply) {
  for (int i = 0; i < 4; ++i) {
    openTab([&](frmOptions& dialog) {
      user.click(box(dialog, i));
      EXPECT_FALSE(applyEnabled(dialog));
      user.type(u"7");
      EXPECT_TRUE(applyEnabled(dialog)) << i;
    });
  }
}

TEST_F(LaybyTest, LookingAroundEnablesNothing) {
  openTab([&](frmOptions& dialog) {
    for (int i = 0; i < 20; ++i) user.press(Key::tab);
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(LaybyTest, OnlyDigitsCanBeTypedIntoANumber) {
  openTab([&](frmOptions& dialog) {
    for (const int index : kNumbers) {
      select(dialog, index);
      user.type(u"a1-2.3 ,e$/:\u0661");
      EXPECT_EQ(box(dialog, index).text(), u"123") << index;
      user.press(Key::backspace);
      EXPECT_EQ(box(dialog, index).text(), u"12") << index;
    }
  });
}

TEST_F(LaybyTest, TheTermsAcceptEveryCharacter) {
  openTab([&](frmOptions& dialog) {
    user.click(box(dialog, LaybyOptions::terms));
    user.type(u"A b-1.\u00e9\u4e2d");
    EXPECT_EQ(box(dialog, LaybyOptions::terms).text(), u"A b-1.\u00e9\u4e2d");
  });
}

TEST_F(LaybyTest, ANumberThatIsClearedBecomesItsDefault) {
  openTab([&](frmOptions& dialog) {
    for (std::size_t i = 0; i < kNumbers.size(); ++i) {
      select(dialog, kNumbers[i]);
      user.type(u"7");
      user.press(Key::backspace);
      EXPECT_EQ(box(dialog, kNumbers[i]).text(), u"");
      user.press(Key::tab);
      EXPECT_EQ(box(dialog, kNumbers[i]).text(), kDefaults[i]);
      EXPECT_FALSE(box(dialog, kNumbers[i]).hasFocus());
    }
  });
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(LaybyTest, ANumberOfZeroBecomesItsDefault) {
  openTab([&](frmOptions& dialog) {
    for (std::size_t i = 0; i < kNumbers.size(); ++i) {
      for (const Text zero : {u"0", u"000", u"-0", u"0.0", u"$0", u"0e9"}) {
        EXPECT_EQ(afterPasting(dialog, kNumbers[i], zero), kDefaults[i]) << toUtf8(zero);
      }
    }
  });
}

TEST_F(LaybyTest, PastedGarbageBecomesTheDefault) {
  openTab([&](frmOptions& dialog) {
    for (std::size_t i = 0; i < kNumbers.size(); ++i) {
      for (const Text garbage :
           {u"abc", u" ", u"-", u"12x", u"&H10", u"1 2", u"90 days", u"1e999", u"\u0661"}) {
        EXPECT_EQ(afterPasting(dialog, kNumbers[i], garbage), kDefaults[i]) << toUtf8(garbage);
      }
    }
  });
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(LaybyTest, PastedNumbersKeepTheirText) {
  openTab([&](frmOptions& dialog) {
    for (const int index : kNumbers) {
      for (const Text number : {u"1", u"007", u" 12 ", u"12.5", u"1e3", u"$7", u"-5", u"32768",
                                u"0.5", u"-0.5", u".4", u"1e-9"}) {
        EXPECT_EQ(afterPasting(dialog, index, number), number);
      }
    }
  });
}

TEST_F(LaybyTest, WhatIsSavedIsTheWholeNumber) {
  editTab([&](frmOptions& dialog) {
    afterPasting(dialog, LaybyOptions::startNumber, u"1e3");
    afterPasting(dialog, LaybyOptions::term, u"12.5");
    afterPasting(dialog, LaybyOptions::history, u" 0365");
  });
  EXPECT_EQ(host.value(options::LaybyStartNumber), 1000);
  EXPECT_EQ(host.value(options::LaybyTermDays), 12);
  EXPECT_EQ(host.value(options::LaybyHistoryDays), 365);
}

TEST_F(LaybyTest, AFractionThatWouldBeSavedAsZeroIsSavedAndThenShownAsTheDefault) {
  for (const Text fraction : {u"0.5", u"-0.5", u"0.4", u"1e-9"}) {
    openTab([&](frmOptions& dialog) {
      for (const int index : kNumbers) {
        EXPECT_EQ(afterPasting(dialog, index, fraction), fraction);
      }
      apply(dialog);
      for (std::size_t i = 0; i < kNumbers.size(); ++i) {
        EXPECT_EQ(box(dialog, kNumbers[i]).text(), kDefaults[i]) << toUtf8(fraction);
      }
      EXPECT_FALSE(applyEnabled(dialog));
    });
    EXPECT_EQ(host.value(options::LaybyStartNumber), 1);
    EXPECT_EQ(host.value(options::LaybyTermDays), 90);
    EXPECT_EQ(host.value(options::LaybyHistoryDays), 180);
  }
}

TEST_F(LaybyTest, AFractionThatRoundsToAWholeNumberStaysInItsBox) {
  openTab([&](frmOptions& dialog) {
    EXPECT_EQ(afterPasting(dialog, LaybyOptions::startNumber, u"0.6"), u"0.6");
    apply(dialog);
    EXPECT_EQ(box(dialog, LaybyOptions::startNumber).text(), u"0.6");
  });
  EXPECT_EQ(host.value(options::LaybyStartNumber), 1);
}

TEST_F(LaybyTest, NumbersAreLimitedToTheTypeOfTheirOption) {
  openTab([&](frmOptions& dialog) {
    for (std::size_t i = 0; i < kNumbers.size(); ++i) {
      const int index = kNumbers[i];
      EXPECT_EQ(afterPasting(dialog, index, u"2147483647"), u"2147483647");
      EXPECT_EQ(afterPasting(dialog, index, u"2147483648"), u"2147483647");
      EXPECT_EQ(afterPasting(dialog, index, u"2147483647.6"), u"2147483647");
      EXPECT_EQ(afterPasting(dialog, index, Text(300, u'9')), u"2147483647");
      EXPECT_EQ(afterPasting(dialog, index, Text(10000, u'9')), kDefaults[i]);
      EXPECT_EQ(afterPasting(dialog, index, u"-2147483648"), u"-2147483648");
      EXPECT_EQ(afterPasting(dialog, index, u"-2147483649"), u"-2147483648");
    }
    apply(dialog);
  });
  constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
  EXPECT_EQ(host.value(options::LaybyStartNumber), kLeast);
  EXPECT_EQ(host.value(options::LaybyTermDays), kLeast);
  EXPECT_EQ(host.value(options::LaybyHistoryDays), kLeast);
}

TEST_F(LaybyTest, DaysHaveNoUpperLimitOfTheirOwn) {
  editTab([&](frmOptions& dialog) {
    for (const int index : {LaybyOptions::term, LaybyOptions::history}) {
      select(dialog, index);
      user.type(u"40000");
      user.press(Key::tab);
      EXPECT_EQ(box(dialog, index).text(), u"40000");
    }
  });
  EXPECT_EQ(host.value(options::LaybyTermDays), 40000);
  EXPECT_EQ(host.value(options::LaybyHistoryDays), 40000);
}

TEST_F(LaybyTest, TypedDigitsBeyondTheOptionAreLimited) {
  editTab([&](frmOptions&) { user.type(u"99999999999"); });
  EXPECT_EQ(host.value(options::LaybyStartNumber), std::numeric_limits<std::int32_t>::max());
}

TEST_F(LaybyTest, OkByEnterValidatesAndSaves) {
  openTab([&](frmOptions& dialog) {
    user.type(u"0");
    user.press(Key::enter);
    EXPECT_FALSE(dialog.isShown());
  });
  EXPECT_EQ(host.value(options::LaybyStartNumber), 1);
}

TEST_F(LaybyTest, ApplyValidatesAndTheBoxShowsWhatWasSaved) {
  openTab([&](frmOptions& dialog) {
    user.accessKey(u'l');
    user.type(u"0");
    user.accessKey(u'a');
    EXPECT_EQ(box(dialog, LaybyOptions::history).text(), u"180");
    EXPECT_FALSE(applyEnabled(dialog));
  });
  EXPECT_EQ(host.value(options::LaybyHistoryDays), 180);
}

TEST_F(LaybyTest, CancelSavesAndCorrectsNothing) {
  host.store(options::LaybyStartNumber, 5);
  openTab([&](frmOptions&) {
    user.type(u"0");
    user.press(Key::escape);
  });
  EXPECT_EQ(host.value(options::LaybyStartNumber), 5);
  EXPECT_TRUE(changes.empty());
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(LaybyTest, UntouchedStoredNumbersAreKept) {
  host.store(options::LaybyStartNumber, 0);
  host.store(options::LaybyTermDays, -7);
  host.store(options::LaybyHistoryDays, 0);
  edit([&](frmOptions& dialog) {
    EXPECT_EQ(box(dialog, LaybyOptions::startNumber).text(), u"0");
    EXPECT_EQ(box(dialog, LaybyOptions::term).text(), u"-7");
    user.type(u"x");
  });
  EXPECT_EQ(host.value(options::LaybyStartNumber), 0);
  EXPECT_EQ(host.value(options::LaybyTermDays), -7);
  EXPECT_EQ(host.value(options::LaybyHistoryDays), 0);
}

TEST_F(LaybyTest, LeavingAStoredZeroCorrectsItAndEnablesApply) {
  host.store(options::LaybyStartNumber, 0);
  editTab([&](frmOptions& dialog) {
    user.press(Key::tab);
    EXPECT_EQ(box(dialog, LaybyOptions::startNumber).text(), u"1");
    EXPECT_TRUE(applyEnabled(dialog));
  });
  EXPECT_EQ(host.value(options::LaybyStartNumber), 1);
}

TEST_F(LaybyTest, AStoredEmptyTermsTextIsKept) {
  host.store(options::LaybyTermsText, u"");
  edit([&](frmOptions& dialog) {
    EXPECT_EQ(box(dialog, LaybyOptions::terms).text(), u"");
    user.type(u"x");
  });
  EXPECT_EQ(host.value(options::LaybyTermsText), u"");
}

TEST_F(LaybyTest, ClearedTermsStayEmpty) {
  editTab([&](frmOptions& dialog) {
    user.accessKey(u'e');
    user.press(Key::backspace);
    user.press(Key::tab);
    EXPECT_EQ(box(dialog, LaybyOptions::terms).text(), u"");
  });
  openTab([&](frmOptions& dialog) { EXPECT_EQ(box(dialog, LaybyOptions::terms).text(), u""); });
}

TEST_F(LaybyTest, LongTermsSurvive) {
  Text terms;
  for (int i = 0; i < 1000; ++i) terms += u"Ten marks.\r\n";
  host.store(options::LaybyTermsText, terms);
  edit([&](frmOptions&) { user.type(u"x"); });
  EXPECT_EQ(host.value(options::LaybyTermsText), terms);
}

TEST_F(LaybyTest, EnterMakesALineInTheTerms) {
  editTab([&](frmOptions& dialog) {
    user.accessKey(u'e');
    user.type(u"One");
    user.press(Key::enter);
    user.press(Key::enter);
    user.type(u"Two");
    EXPECT_TRUE(dialog.isShown());
    EXPECT_EQ(box(dialog, LaybyOptions::terms).text(), u"One\r\n\r\nTwo");
  });
  EXPECT_EQ(host.value(options::LaybyTermsText), u"One\r\n\r\nTwo");
}

TEST_F(LaybyTest, OkIsTheDefaultButtonAgainOnceTheTermsAreLeft) {
  openTab([&](frmOptions& dialog) {
    const auto& okButton = dialog.cmdCommand[frmOptions::ok];
    EXPECT_TRUE(okButton.isDefault());
    user.accessKey(u'e');
    EXPECT_FALSE(okButton.isDefault());
    user.press(Key::tab);
    EXPECT_TRUE(okButton.isDefault());
    user.press(Key::tab, {.shift = true});
    EXPECT_FALSE(okButton.isDefault());
    user.press(Key::tab, {.ctrl = true});
    EXPECT_TRUE(okButton.isDefault());
    user.clickTab(dialog.tabOptions, static_cast<int>(TabPage::layby));
    user.press(Key::enter);
    EXPECT_FALSE(dialog.isShown());
  });
}

TEST_F(LaybyTest, ApplyFromTheTermsLeavesOkTheDefaultButton) {
  openTab([&](frmOptions& dialog) {
    user.accessKey(u'e');
    user.type(u"x");
    user.accessKey(u'a');
    EXPECT_TRUE(dialog.isShown());
    EXPECT_TRUE(dialog.cmdCommand[frmOptions::ok].isDefault());
  });
  EXPECT_EQ(host.value(options::LaybyTermsText), u"x");
}

TEST_F(LaybyTest, TheTermsFillThePageWithTheirLeftMarginBelow) {
  openTab([&](frmOptions& dialog) {
    const ui::Size pixel = desk->screen().twipsPerPixel();
    ui::TextBox& terms = box(dialog, LaybyOptions::terms);
    const auto expectStretched = [&] {
      const ui::Rect page = dialog.tabOptions.clientArea();
      const ui::Rect& place = terms.bounds();
      EXPECT_EQ(place.width, page.width - 2 * place.left);
      EXPECT_EQ(place.height, page.height - place.top - pixel.height * (place.left / pixel.width));
    };
    expectStretched();

    const ui::Rect before = terms.bounds();
    enlarge(dialog, {1500, 900});
    expectStretched();
    EXPECT_EQ(terms.bounds().left, before.left);
    EXPECT_EQ(terms.bounds().top, before.top);
    EXPECT_GT(terms.bounds().height, before.height);
  });
}

TEST_F(LaybyTest, CallsTheHostInTheOrderOfTheBoxes) {
  editTab([&](frmOptions&) {
    EXPECT_EQ(host.callsStarting("get Layby"),
              (std::vector<std::string>{
                  "get LaybyOpeningBalanceCaption", "get LaybyClosingBalanceCaption",
                  "get LaybyDateDueCaption", "get LaybyStartNumber", "get LaybyTermDays",
                  "get LaybyTermsText", "get LaybyHistoryDays", "get LaybyCustomerListColumns"}));
    user.type(u"7");
    host.calls.clear();
  });
  const auto written = host.callsStarting("put Layby");
  ASSERT_GE(written.size(), 7U);
  EXPECT_EQ(std::vector<std::string>(written.begin() + 3, written.begin() + 7),
            (std::vector<std::string>{"put LaybyStartNumber", "put LaybyTermDays",
                                      "put LaybyTermsText", "put LaybyHistoryDays"}));
}

TEST_F(LaybyTest, AHostThatFailsEndsTheSaveWithNothingWritten) {
  saveDefaults();
  for (const char* call : {"put LaybyStartNumber", "put LaybyTermsText", "put LaybyHistoryDays"}) {
    host.failingCall = call;
    desk->whenShown([&](ui::Form&) {
      user.type(u"x");
      user.accessKey(u'o');
    });
    FakeHost::expectFailure([&] { options_.ShowOptions(); });
    EXPECT_EQ(host.calls.back(), call);
  }
  EXPECT_EQ(host.value(options::CompanyName), u"");
  EXPECT_EQ(host.value(options::LaybyStartNumber), 1);
  EXPECT_TRUE(changes.empty());
}

TEST_F(LaybyTest, ARefusedSaveKeepsWhatWasTyped) {
  saveDefaults();
  openTab([&](frmOptions& dialog) {
    user.type(u"42");
    user.clickTab(dialog.tabOptions, static_cast<int>(TabPage::lists));
    auto& list = dialog.tabs().listColumns.lstListShow[ListColumns::salesPerson];
    untickAll(list);
    apply(dialog);
    EXPECT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(host.value(options::LaybyStartNumber), 1);
    EXPECT_EQ(box(dialog, LaybyOptions::startNumber).text(), u"42");
    user.clickCheck(list, 0);
    apply(dialog);
  });
  EXPECT_EQ(host.value(options::LaybyStartNumber), 42);
}

}  // namespace
}  // namespace tillora::testing
