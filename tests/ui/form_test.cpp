#include "ui/form.h"
#include "tests/testing/function_ref.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "base/error.h"
#include "tests/testing/headless_desk.h"

namespace tillora::testing {
namespace {

using ui::Key;

/// A form with two boxes, a check box, three option buttons and OK and Cancel, that writes down its
/// events.
class SampleForm final : public ui::Form {
 public:
  explicit SampleForm(ui::Screen& screen) : Form(screen, u"Sample") {
    ok.setDefault(true);
    cancel.setCancel();
    note(first, "first");
    note(second, "second");
    ok.click = [this] {
      events.emplace_back("ok");
      if (closesOnOk) unload();
    };
    cancel.click = [this] {
      events.emplace_back("cancel");
      unload();
    };
    first.validate = [this](bool& refuse) {
      events.emplace_back("validate first");
      refuse = first.text() == u"bad";
    };
  }

  void note(ui::Control& control, const std::string& name) {
    control.gotFocus = [this, name] { events.push_back("got " + name); };
    control.lostFocus = [this, name] { events.push_back("lost " + name); };
  }

  void onLoad() override { events.emplace_back("load"); }
  void onQueryUnload(bool& cancel_, ui::UnloadMode mode) override {
    events.emplace_back(mode == ui::UnloadMode::user ? "query user" : "query code");
    cancel_ = staysOpen;
  }
  void onUnload() override { events.emplace_back("unload"); }

  ui::Label& label{add<ui::Label>(u"&First")};
  ui::TextBox& first{add<ui::TextBox>()};
  ui::TextBox& second{add<ui::TextBox>()};
  ui::CheckBox& check{add<ui::CheckBox>(u"Chec&k")};
  ui::Frame& frame{add<ui::Frame>(u"&Group")};
  ui::OptionButton& one{frame.add<ui::OptionButton>(u"&1")};
  ui::OptionButton& two{frame.add<ui::OptionButton>(u"&2")};
  ui::OptionButton& three{frame.add<ui::OptionButton>(u"&3")};
  ui::CommandButton& ok{add<ui::CommandButton>(u"&OK")};
  ui::CommandButton& cancel{add<ui::CommandButton>(u"Cancel")};
  std::vector<std::string> events;
  bool closesOnOk = false;
  bool staysOpen = false;
};

class FormTest : public ::testing::Test {
 protected:
  void show(const FunctionRef<void()>& act) {
    desk.whenShown([&](ui::Form&) {
      form.events.clear();
      act();
    });
    form.showModal();
  }

  HeadlessDesk desk;
  User& user = desk.user();
  SampleForm form{desk.screen()};
  using Events = std::vector<std::string>;
};

TEST_F(FormTest, LoadsOnceShowsAndUnloads) {
  desk.whenShown([&](ui::Form&) {
    EXPECT_TRUE(form.isShown());
    form.unload();
  });
  form.load();
  form.load();
  form.showModal();
  EXPECT_EQ(form.events, (Events{"load", "got first", "query code", "unload"}));
  EXPECT_FALSE(form.isLoaded());
}

TEST_F(FormTest, TheCloseBoxUnloadsForTheUser) {
  show([&] { user.closeWindow(form); });
  EXPECT_EQ(form.events, (Events{"query user", "unload"}));
}

TEST_F(FormTest, AFormCanRefuseToClose) {
  form.staysOpen = true;
  show([&] {
    user.closeWindow(form);
    EXPECT_TRUE(form.isShown());
    form.staysOpen = false;
  });
  EXPECT_EQ(form.events, (Events{"query user", "query user", "unload"}));
}

TEST_F(FormTest, ShowingAShownFormIsAnError) {
  show([&] { EXPECT_THROW(form.showModal(), Error); });
}

TEST_F(FormTest, AFailureInAHandlerEndsTheRun) {
  desk.whenShown([&](ui::Form&) {
    form.check.click = [] { throw Error(1, u"source", u"description"); };
    user.click(form.check);
  });
  EXPECT_THROW(form.showModal(), Error);
  EXPECT_FALSE(form.isShown());
}

TEST_F(FormTest, FocusMovesWithValidateLostAndGot) {
  show([&] {
    user.press(Key::tab);
    EXPECT_EQ(form.events, (Events{"validate first", "lost first", "got second"}));
  });
}

TEST_F(FormTest, ARefusedValidationKeepsTheFocusByEveryWayOut) {
  show([&] {
    user.type(u"bad");
    const std::vector<std::function<void()>> ways = {
        [&] { user.press(Key::tab); },   [&] { user.click(form.second); },
        [&] { user.click(form.check); }, [&] { user.click(form.ok); },
        [&] { user.press(Key::enter); }, [&] { user.accessKey(u'o'); },
        [&] { user.accessKey(u'k'); },   [&] { form.second.setFocus(); },
    };
    for (const auto& leave : ways) {
      form.events.clear();
      leave();
      EXPECT_EQ(form.events, Events{"validate first"});
      EXPECT_TRUE(form.first.hasFocus());
    }
    EXPECT_FALSE(form.check.value());
  });
}

TEST_F(FormTest, CancelEscapeAndTheCloseBoxNeverValidate) {
  const std::vector<std::function<void()>> ways = {
      [&] { user.click(form.cancel); },
      [&] { user.press(Key::escape); },
      [&] { user.closeWindow(form); },
  };
  for (const auto& leave : ways) {
    show([&] {
      form.first.setText(u"bad");
      leave();
      EXPECT_FALSE(form.isShown());
    });
    EXPECT_EQ(std::ranges::count(form.events, "validate first"), 0);
  }
}

TEST_F(FormTest, ValidationStaysPendingWhileCancelHasTheFocus) {
  form.cancel.click = [] {};
  show([&] {
    user.type(u"bad");
    EXPECT_TRUE(form.cancel.setFocus());
    EXPECT_EQ(form.events, Events{"lost first"});
    user.press(Key::tab);
    EXPECT_TRUE(form.first.hasFocus());
    EXPECT_EQ(form.events, (Events{"lost first", "validate first", "got first"}));
  });
}

TEST_F(FormTest, EnterValidatesOnceThenPressesTheDefaultButton) {
  show([&] {
    user.press(Key::enter);
    EXPECT_EQ(form.events, (Events{"validate first", "ok"}));
  });
}

TEST_F(FormTest, ClickingOkValidatesOnce) {
  show([&] {
    user.click(form.ok);
    EXPECT_EQ(form.events, (Events{"validate first", "lost first", "ok"}));
  });
}

TEST_F(FormTest, EnterPressesTheButtonThatHasTheFocus) {
  form.cancel.click = [this] { form.events.emplace_back("cancel"); };
  show([&] {
    form.cancel.setFocus();
    user.press(Key::enter);
    EXPECT_EQ(form.events.back(), "cancel");
  });
}

TEST_F(FormTest, DisabledButtonsCannotBePressed) {
  form.ok.setEnabled(false);
  show([&] {
    user.press(Key::enter);
    user.click(form.ok);
    user.accessKey(u'o');
    EXPECT_EQ(std::ranges::count(form.events, "ok"), 0);
  });
}

TEST_F(FormTest, TabSkipsDisabledHiddenAndUnstoppableControls) {
  form.second.setEnabled(false);
  form.check.setVisible(false);
  form.frame.setEnabled(false);
  show([&] {
    user.press(Key::tab);
    EXPECT_TRUE(form.ok.hasFocus());
    user.press(Key::tab, {.shift = true});
    EXPECT_TRUE(form.first.hasFocus());
  });
}

TEST_F(FormTest, TabReachesTheChosenOptionButtonOnly) {
  form.two.setValue(true);
  show([&] {
    form.check.setFocus();
    user.press(Key::tab);
    EXPECT_TRUE(form.two.hasFocus());
    user.press(Key::tab);
    EXPECT_TRUE(form.ok.hasFocus());
  });
}

TEST_F(FormTest, ArrowsChooseAmongOptionButtons) {
  int clicks = 0;
  form.three.click = [&] { ++clicks; };
  show([&] {
    form.one.setFocus();
    user.press(Key::down);
    EXPECT_TRUE(form.two.value());
    user.press(Key::down);
    EXPECT_TRUE(form.three.value());
    EXPECT_FALSE(form.two.value());
    user.press(Key::down);
    EXPECT_TRUE(form.one.value());
    user.press(Key::up);
    EXPECT_TRUE(form.three.hasFocus());
  });
  EXPECT_EQ(clicks, 2);
}

TEST_F(FormTest, ALabelsAccessKeyReachesTheNextControl) {
  show([&] {
    form.second.setFocus();
    user.accessKey(u'F');
    EXPECT_TRUE(form.first.hasFocus());
  });
}

TEST_F(FormTest, AccessKeysTickChooseAndPress) {
  show([&] {
    user.accessKey(u'k');
    EXPECT_TRUE(form.check.value());
    user.accessKey(u'2');
    EXPECT_TRUE(form.two.value());
    user.accessKey(u'o');
    EXPECT_EQ(std::ranges::count(form.events, "ok"), 1);
  });
}

TEST_F(FormTest, AnAccessKeyOfSeveralControlsWalksAndPressesNothing) {
  form.check.setCaption(u"&Other");
  show([&] {
    user.accessKey(u'o');
    EXPECT_TRUE(form.check.hasFocus());
    EXPECT_FALSE(form.check.value());
    user.accessKey(u'o');
    EXPECT_TRUE(form.ok.hasFocus());
    user.accessKey(u'o');
    EXPECT_TRUE(form.check.hasFocus());
    EXPECT_EQ(std::ranges::count(form.events, "ok"), 0);
  });
}

TEST_F(FormTest, AnUnknownAccessKeyIsNotUsed) {
  show([&] { EXPECT_FALSE(form.userAccessKey(u'z')); });
}

TEST_F(FormTest, ABlankIsNotAnAccessKey) {
  form.check.setCaption(u"Start Smith & Co");
  show([&] {
    EXPECT_FALSE(form.userAccessKey(u' '));
    EXPECT_FALSE(form.check.value());
  });
}

TEST_F(FormTest, AnAccessKeyBeyondAsciiWorksInEitherCase) {
  for (const char16_t* caption : {u"&\u00DCbersicht", u"&\u00FCbersicht"}) {
    form.check.setCaption(caption);
    show([&] {
      for (const char16_t key : {u'\u00FC', u'\u00DC'}) {
        const bool before = form.check.value();
        user.accessKey(key);
        EXPECT_NE(form.check.value(), before) << toUtf8(caption);
      }
    });
  }
}

TEST_F(FormTest, TheAccessKeyOfADecorativeLabelLeadsNowhere) {
  auto& picture = form.add<ui::Label>(u"&Zebra");
  form.add<ui::CheckBox>(u"Behind");
  show([&] {
    EXPECT_TRUE(form.userAccessKey(u'z'));
    form.first.setFocus();
    picture.setDecorative(true);
    EXPECT_FALSE(form.userAccessKey(u'z'));
    EXPECT_TRUE(form.first.hasFocus());
    EXPECT_EQ(picture.caption(), u"&Zebra");
  });
}

TEST_F(FormTest, AButtonDisabledWhileItHasTheFocusHandsItOnButNotToCancel) {
  show([&] {
    form.second.setFocus();
    form.second.setEnabled(false);
    EXPECT_TRUE(form.check.hasFocus());
    form.ok.setFocus();
    form.ok.setEnabled(false);
    EXPECT_TRUE(form.first.hasFocus());
    EXPECT_EQ(form.events.back(), "got first");
  });
}

TEST_F(FormTest, HidingWhatHoldsTheFocusHandsItOn) {
  show([&] {
    form.one.setFocus();
    form.frame.setVisible(false);
    EXPECT_TRUE(form.ok.hasFocus());
  });
}

TEST_F(FormTest, FocusSetBeforeTheFormIsShownIsThereOnceItIs) {
  form.second.setFocus();
  show([&] { EXPECT_TRUE(form.second.hasFocus()); });
}

TEST_F(FormTest, FormsNestToAnyDepth) {
  SampleForm inner(desk.screen());
  SampleForm innermost(desk.screen());
  form.ok.click = [&] { inner.showModal(); };
  inner.ok.click = [&] { innermost.showModal(); };
  desk.whenShown([&](ui::Form&) {
    user.click(form.ok);
    EXPECT_FALSE(inner.isShown());
    EXPECT_TRUE(form.isShown());
    EXPECT_TRUE(form.ok.hasFocus());
  });
  desk.whenShown([&](ui::Form&) {
    user.click(inner.ok);
    EXPECT_TRUE(inner.isShown());
  });
  desk.whenShown([&](ui::Form& top) {
    EXPECT_EQ(&top, &innermost);
    user.type(u"typed");
    EXPECT_EQ(innermost.first.text(), u"typed");
    user.click(form.check);
    EXPECT_FALSE(form.check.value()) << "a form below a modal one was reached";
  });
  form.showModal();
  EXPECT_EQ(form.first.text(), u"");
  EXPECT_EQ(desk.unexpectedForms(), 0);
}

TEST_F(FormTest, BoxesOfLinesKeepEnterOnlyWithoutADefaultButton) {
  form.second.setMultiLine(true);
  show([&] {
    form.second.setFocus();
    user.press(Key::enter);
    EXPECT_EQ(form.events.back(), "ok");
    form.ok.setDefault(false);
    user.press(Key::enter);
    EXPECT_EQ(form.second.text(), u"\r\n");
    form.ok.setDefault(true);
    user.press(Key::enter, {.ctrl = true});
    EXPECT_EQ(form.second.text(), u"\r\n\r\n");
  });
}

}  // namespace
}  // namespace tillora::testing
