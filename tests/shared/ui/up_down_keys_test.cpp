// The keys Up and Down in the box of an up-down: each does what a click on the arrow does.
#include <vector>

#include "identity/fred_link.h"
#include "sales/currency_conversion.h"
#include "tests/testing/options_test.h"
#include "ui/up_down.h"

namespace tillora::testing {
namespace {

using ui::Key;

class UpDownKeys : public OptionsTest {
 protected:
  UpDownKeys() {
    host.dispensingAvailable = true;
    host.store(options::FREDLinkActive, true);
  }
  /// What the box shows after each step: +1 and -1 are arrows, 0 types `typed` over the text.
  using Texts = std::vector<Text>;
  Texts textsAfter(TabPage page, const std::vector<int>& steps, TextView typed, bool byKeys) {
    Texts texts;
    openOn(page, [&](frmOptions& dialog) {
      const bool fred = page == TabPage::fred;
      ui::TextBox& box = fred ? dialog.tabs().fredLink.txtDispense[FredLink::seconds]
                              : dialog.tabs().currencyConversion.txtCurrencyConversion[0];
      ui::UpDown& upDown = fred ? dialog.tabs().fredLink.udFRED
                                : dialog.tabs().currencyConversion.udCurrencyConversion;
      user.click(box);
      for (const int step : steps) {
        if (step == 0) {
          user.selectAll();
          user.type(typed);
        } else if (byKeys) {
          user.press(step > 0 ? Key::up : Key::down);
        } else {
          user.spin(upDown, step);
        }
        texts.push_back(box.text());
        EXPECT_TRUE(box.hasFocus());
        if (step != 0) {
          EXPECT_EQ(box.selText(), box.text());
        }
      }
      texts.push_back(applyEnabled(dialog) ? u"edited" : u"not edited");
      user.click(dialog.cmdCommand[frmOptions::cancel]);
    });
    return texts;
  }
  void expectAsClicks(TabPage page, const std::vector<int>& steps, TextView typed,
                      const Texts& expected) {
    EXPECT_EQ(textsAfter(page, steps, typed, true), expected);
    EXPECT_EQ(textsAfter(page, steps, typed, false), expected);
  }
};

TEST_F(UpDownKeys, TheIntervalOfFredMovesByASecond) {
  host.store(options::FREDPollSeconds, 15);
  expectAsClicks(TabPage::fred, {+1, +1, -1}, u"", {u"16", u"17", u"16", u"edited"});
}

TEST_F(UpDownKeys, TheIntervalOfFredEndsAtItsLimits) {
  host.store(options::FREDPollSeconds, 60);
  expectAsClicks(TabPage::fred, {+1, -1}, u"", {u"60", u"59", u"edited"});
  expectAsClicks(TabPage::fred, {+1}, u"", {u"60", u"not edited"});
  host.store(options::FREDPollSeconds, 5);
  expectAsClicks(TabPage::fred, {-1}, u"", {u"5", u"not edited"});
  host.store(options::FREDPollSeconds, 300);
  expectAsClicks(TabPage::fred, {-1}, u"", {u"59", u"edited"});
}

TEST_F(UpDownKeys, WhatWasTypedIsValidatedFirst) {
  expectAsClicks(TabPage::fred, {0, -1}, u"99", {u"99", u"59", u"edited"});
  expectAsClicks(TabPage::fred, {0, +1}, u"1", {u"1", u"6", u"edited"});
  host.store(options::DefaultCurrencyMargin, 2.5F);
  expectAsClicks(TabPage::currency, {0, +1, -1}, u"7.25", {u"7.25", u"7.30", u"7.20", u"edited"});
}

TEST_F(UpDownKeys, TheMarginMovesByATenthOfAPercent) {
  host.store(options::DefaultCurrencyMargin, 2.55F);
  expectAsClicks(TabPage::currency, {+1, +1}, u"", {u"2.60", u"2.70", u"edited"});
  expectAsClicks(TabPage::currency, {-1}, u"", {u"2.50", u"edited"});
  host.store(options::DefaultCurrencyMargin, -99.99F);
  expectAsClicks(TabPage::currency, {-1}, u"", {u"-99.99", u"not edited"});
  host.store(options::DefaultCurrencyMargin, 0.0F);
  expectAsClicks(TabPage::currency, {-1, +1}, u"", {u"-0.10", u"0.00", u"edited"});
}

TEST_F(UpDownKeys, WhatTheKeysChoseIsSaved) {
  openOn(TabPage::currency, [&](frmOptions&) {
    for (int i = 0; i < 3; ++i) user.press(Key::up);
    user.press(Key::enter);
  });
  EXPECT_EQ(host.value(options::DefaultCurrencyMargin), 0.3F);
}

TEST_F(UpDownKeys, OtherBoxesKeepTheirKeys) {
  open([&](frmOptions& dialog) {
    user.type(u"ab");
    EXPECT_FALSE(dialog.userKeyDown(Key::up, {}));
    EXPECT_FALSE(dialog.userKeyDown(Key::down, {}));
    user.clickTab(dialog.tabOptions, static_cast<int>(TabPage::currency));
    user.press(Key::tab);
    EXPECT_TRUE(dialog.userKeyDown(Key::up, {}));
    EXPECT_FALSE(dialog.userKeyDown(Key::left, {}));
    EXPECT_FALSE(dialog.userKeyDown(Key::pageUp, {}));
    EXPECT_FALSE(dialog.userKeyDown(Key::up, {.alt = true}));
  });
}

/// A box with an up-down, each as a test wants it.
class UpDownForm final : public ui::Form {
 public:
  explicit UpDownForm(ui::Screen& screen) : Form(screen, u"Up-down") {
    setClientSize({3000, 1500});
    box.setBounds({150, 150, 900, 345});
    upDown.setRange(0, 10).setBuddy(box).setBounds({1050, 150, 255, 345});
  }
  ui::TextBox& box{add<ui::TextBox>()};
  ui::UpDown& upDown{add<ui::UpDown>()};
};

TEST_F(UpDownKeys, AnUpDownThatIsDisabledDoesNotMove) {
  UpDownForm form(desk->screen());
  desk->whenShown([&](ui::Form&) {
    form.upDown.setEnabled(false);
    user.press(Key::up);
    EXPECT_EQ(form.upDown.value(), 0);
    form.upDown.setEnabled(true);
    user.press(Key::up);
    EXPECT_EQ(form.upDown.value(), 1);
  });
  form.showModal();
}

TEST_F(UpDownKeys, ARefusedTextKeepsTheUpDownWhereItIs) {
  UpDownForm form(desk->screen());
  form.box.validate = [&](bool& refuse) { refuse = form.box.text() == u"bad"; };
  desk->whenShown([&](ui::Form&) {
    user.type(u"bad");
    user.press(Key::up);
    EXPECT_EQ(form.upDown.value(), 0);
    user.press(Key::backspace);
    user.press(Key::up);
    EXPECT_EQ(form.upDown.value(), 1);
  });
  form.showModal();
}

TEST_F(UpDownKeys, TheBoxGetsThePressedKeyFirst) {
  UpDownForm form(desk->screen());
  form.box.keyDown = [](Key& key, ui::Modifiers) {
    if (key == Key::up) key = Key::none;
  };
  desk->whenShown([&](ui::Form&) {
    user.press(Key::up);
    EXPECT_EQ(form.upDown.value(), 0);
    user.press(Key::down);
    EXPECT_EQ(form.upDown.value(), 0);
    form.upDown.setValue(5);
    user.press(Key::down);
    EXPECT_EQ(form.upDown.value(), 4);
  });
  form.showModal();
}

}  // namespace
}  // namespace tillora::testing
