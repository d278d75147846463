// Text that is pasted into a box with a handler for it, in every way that the platform has.
#include <gtest/gtest.h>

#include "tests/testing/function_ref.h"
#include "tests/testing/win32/gallery.h"
#include "tests/testing/win32/windows_desk.h"

namespace tillora::testing {
namespace {

using ui::Key;

class PasteTest : public ::testing::Test {
 protected:
  void show(const FunctionRef<void()>& step) {
    desk.whenShown([&](ui::Form&) {
      user.click(box);
      step();
    });
    gallery.showModal();
  }
  void listen(bool keepsFromBox) {
    box.paste = [this, keepsFromBox](TextView text, bool& used) {
      offered.emplace_back(text);
      used = keepsFromBox;
    };
  }

  WindowsDesk desk;
  Gallery gallery{desk.screen()};
  ui::TextBox& box = gallery.name;
  User& user = desk.user();
  std::vector<Text> offered;
};

TEST_F(PasteTest, EveryWayOffersTheTextFirst) {
  listen(true);
  show([&] {
    user.paste(u"one \u4e2d");
    user.press(Key::insert, {.shift = true});
    SendMessageW(desk.windows().windowOf(box), WM_PASTE, 0, 0);
    EXPECT_EQ(offered, std::vector<Text>(3, u"one \u4e2d"));
    EXPECT_EQ(box.text(), u"");
  });
}

TEST_F(PasteTest, WhatTheOwnerLeavesIsPasted) {
  listen(false);
  show([&] {
    user.paste(u"one");
    EXPECT_EQ(box.text(), u"one");
    EXPECT_EQ(offered, std::vector<Text>{u"one"});
  });
}

TEST_F(PasteTest, ALockedBoxIsOfferedNothing) {
  listen(true);
  box.setLocked(true);
  show([&] {
    user.paste(u"one");
    EXPECT_TRUE(offered.empty());
    EXPECT_EQ(box.text(), u"");
  });
}

TEST_F(PasteTest, AnEmptyClipboardOffersAnEmptyText) {
  listen(false);
  show([&] {
    user.paste(u"one");
    ASSERT_TRUE(OpenClipboard(desk.windows().windowOf(box)));
    EmptyClipboard();
    CloseClipboard();
    user.press(Key::insert, {.shift = true});
    EXPECT_EQ(offered, (std::vector<Text>{u"one", u""}));
    EXPECT_EQ(box.text(), u"one");
  });
}

TEST_F(PasteTest, TheOwnerKnowsTheSelectionThatIsToBeReplaced) {
  box.setText(u"abc");
  std::pair<int, int> selection;
  box.paste = [&](TextView, bool&) { selection = {box.selStart(), box.selLength()}; };
  show([&] {
    user.press(Key::home);
    user.press(Key::right, {.shift = true});
    user.paste(u"x");
    EXPECT_EQ(selection, (std::pair{0, 1}));
    EXPECT_EQ(box.text(), u"xbc");
  });
}

}  // namespace
}  // namespace tillora::testing
