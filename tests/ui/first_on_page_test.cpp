// Which control gets the focus when a page behind tabs is opened by keyboard.
#include <gtest/gtest.h>

#include "tests/testing/function_ref.h"
#include "tests/testing/headless_desk.h"
#include "ui/tab_strip.h"

namespace tillora::testing {
namespace {

using ui::Key;

/// Two pages: a box on the first; a box and a group with a check box on the second, which opens in
/// the check box.
class PagesForm final : public ui::Form {
 public:
  explicit PagesForm(ui::Screen& screen) : Form(screen, u"Pages") {
    tabs.addTab(u"One");
    tabs.addTab(u"Two");
    second.setVisible(false);
    second.setFirstFocus(check);
    tabs.click = [this] {
      (tabs.selected() == 1 ? first : second).setVisible(true);
      (tabs.selected() == 1 ? second : first).setVisible(false);
    };
  }
  ui::Control* firstFocus() override { return firstOnPage(tabs); }

  ui::TabStrip& tabs{add<ui::TabStrip>()};
  ui::Frame& first{add<ui::Frame>()};
  ui::TextBox& name{first.add<ui::TextBox>()};
  ui::Frame& second{add<ui::Frame>()};
  ui::TextBox& notes{second.add<ui::TextBox>()};
  ui::Frame& group{second.add<ui::Frame>(u"Group")};
  ui::CheckBox& check{group.add<ui::CheckBox>(u"Check")};
  ui::CommandButton& ok{add<ui::CommandButton>(u"OK")};
};

class FirstOnPage : public ::testing::Test {
 protected:
  void show(const FunctionRef<void()>& act) {
    desk.whenShown([&](ui::Form&) { act(); });
    form.showModal();
  }
  void nextPage() { desk.user().press(Key::tab, {.ctrl = true}); }

  HeadlessDesk desk;
  PagesForm form{desk.screen()};
};

TEST_F(FirstOnPage, IsTheFirstInTheTabOrderIfThePageNamesNone) {
  show([&] {
    EXPECT_TRUE(form.name.hasFocus());
    nextPage();
    nextPage();
    EXPECT_TRUE(form.name.hasFocus());
  });
}

TEST_F(FirstOnPage, IsTheOneThatThePageNames) {
  show([&] {
    nextPage();
    EXPECT_TRUE(form.check.hasFocus());
  });
  form.tabs.setSelected(2);
  show([&] { EXPECT_TRUE(form.check.hasFocus()); });
}

TEST_F(FirstOnPage, IsTheFirstInTheTabOrderIfTheNamedOneCannotHaveTheFocus) {
  form.check.setEnabled(false);
  show([&] {
    nextPage();
    EXPECT_TRUE(form.notes.hasFocus());
  });
}

TEST_F(FirstOnPage, IsWhatFollowsThePageIfThatHoldsNothingToFocus) {
  form.notes.setEnabled(false);
  form.check.setEnabled(false);
  show([&] {
    nextPage();
    EXPECT_TRUE(form.ok.hasFocus());
  });
}

TEST_F(FirstOnPage, IsOfAPageWhoseOtherControlsAreDisabled) {
  form.notes.setEnabled(false);
  show([&] {
    nextPage();
    EXPECT_TRUE(form.check.hasFocus());
  });
}

}  // namespace
}  // namespace tillora::testing
