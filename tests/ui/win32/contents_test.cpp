#include <gtest/gtest.h>

#include <string>

#include "com/wide_text.h"
#include "tests/testing/function_ref.h"
#include "tests/testing/win32/gallery.h"
#include "tests/testing/win32/holdings.h"
#include "tests/testing/win32/windows_desk.h"
#include "ui/win32/window_text.h"

namespace tillora::testing {
namespace {

using ui::Key;

class ContentsTest : public ::testing::Test {
 protected:
  void show(const FunctionRef<void()>& step) {
    desk.whenShown([&](ui::Form&) { step(); });
    gallery.showModal();
  }
  HWND windowOf(const ui::Control& control) { return desk.windows().windowOf(control); }
  static Text textIn(HWND window) { return win32::fromWide(ui::win32::windowText(window).c_str()); }
  Text shownIn(const ui::Control& control) { return textIn(windowOf(control)); }
  int shownRow(const ui::ListView& list) {
    return static_cast<int>(
        SendMessageW(windowOf(list), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
  }
  bool shownTick(const ui::Control& control) {
    return SendMessageW(windowOf(control), BM_GETCHECK, 0, 0) == BST_CHECKED;
  }

  WindowsDesk desk;
  Gallery gallery{desk.screen()};
  User& user = desk.user();
};

TEST_F(ContentsTest, WindowsAreMadeWhenTheirPageIsFirstSeen) {
  show([&] {
    const HWND dialog = desk.windows().topWindow();
    EXPECT_EQ(windowOf(gallery.secondPage), nullptr);
    EXPECT_EQ(windowOf(gallery.list), nullptr);
    const int before = childWindows(dialog);
    user.clickTab(gallery.tabs, 2);
    EXPECT_NE(windowOf(gallery.list), nullptr);
    // The page, the list with its header, the check list with its header, and the picture.
    EXPECT_EQ(childWindows(dialog), before + 6);
    user.clickTab(gallery.tabs, 1);
    user.clickTab(gallery.tabs, 2);
    EXPECT_EQ(childWindows(dialog), before + 6);
  });
}

TEST_F(ContentsTest, WhatWasSetBeforeAWindowIsMadeShowsInIt) {
  gallery.list.setSelectedRow(3);
  gallery.checks.setChecked(2, true);
  show([&] {
    user.clickTab(gallery.tabs, 2);
    EXPECT_EQ(shownRow(gallery.list), 3);
    EXPECT_TRUE(ListView_GetCheckState(windowOf(gallery.checks), 2));
    EXPECT_FALSE(ListView_GetCheckState(windowOf(gallery.checks), 1));
  });
}

TEST_F(ContentsTest, WindowsAreInOrderOfCreationButPagesPrecedeTheirStrip) {
  show([&] {
    EXPECT_EQ(GetWindow(windowOf(gallery.nameLabel), GW_HWNDNEXT), windowOf(gallery.name));
    EXPECT_EQ(GetWindow(windowOf(gallery.firstPage), GW_HWNDNEXT), windowOf(gallery.tabs));
    user.clickTab(gallery.tabs, 2);
    EXPECT_EQ(GetWindow(windowOf(gallery.secondPage), GW_HWNDNEXT), windowOf(gallery.tabs));
    EXPECT_EQ(GetWindow(windowOf(gallery.tabs), GW_HWNDNEXT), windowOf(gallery.ok));
  });
}

TEST_F(ContentsTest, AnAmpersandBeforeABlankIsDrawnAndOneBeforeALetterMarksIt) {
  gallery.check.setCaption(u"Smith & &Co");
  auto& frame = gallery.firstPage.add<ui::Frame>(u"Profit & Loss");
  frame.setBounds({4800, 2700, 2400, 600});
  show([&] {
    EXPECT_EQ(shownIn(gallery.check), u"Smith && &Co");
    EXPECT_EQ(shownIn(frame), u"Profit && Loss");
    gallery.check.setCaption(u"Profit & Loss");
    EXPECT_EQ(shownIn(gallery.check), u"Profit && Loss");
    EXPECT_EQ(gallery.check.caption(), u"Profit & Loss");
  });
}

TEST_F(ContentsTest, AnAccessKeyBeyondAsciiWorksWithAndWithoutShift) {
  gallery.check.setCaption(u"&\u00DCbersicht");
  show([&] {
    bool ticked = gallery.check.value();
    for (const WPARAM key : {WPARAM{0xFC}, WPARAM{0xDC}}) {
      PostMessageW(GetFocus(), WM_SYSCHAR, key, LPARAM{1} << 29);
      desk.windows().pumpUntilIdle();
      EXPECT_NE(gallery.check.value(), ticked);
      ticked = gallery.check.value();
    }
  });
}

TEST_F(ContentsTest, ABoxOfSeveralLinesHasAScrollBar) {
  show([&] {
    EXPECT_NE(GetWindowLongPtrW(windowOf(gallery.notes), GWL_STYLE) & WS_VSCROLL, 0);
    EXPECT_EQ(GetWindowLongPtrW(windowOf(gallery.name), GWL_STYLE) & WS_VSCROLL, 0);
  });
}

TEST_F(ContentsTest, TypedTextReachesTheBox) {
  int changes = 0;
  gallery.name.change = [&] { ++changes; };
  show([&] {
    user.click(gallery.name);
    user.type(u"K\u00E4se \u20AC5");
    EXPECT_EQ(gallery.name.text(), u"K\u00E4se \u20AC5");
    EXPECT_EQ(shownIn(gallery.name), gallery.name.text());
    EXPECT_EQ(changes, 7);
  });
}

TEST_F(ContentsTest, TheWindowOfAMaskedBoxDoesNotHoldItsText) {
  show([&] {
    user.click(gallery.secret);
    user.press(Key::end);
    user.type(u"s!");
    EXPECT_EQ(gallery.secret.text(), u"secrets!");
    const Text shown = shownIn(gallery.secret);
    EXPECT_EQ(shown.size(), 8U);
    EXPECT_EQ(shown.find_first_of(gallery.secret.text()), Text::npos);
  });
}

TEST_F(ContentsTest, AMaskedBoxCannotUndo) {
  show([&] {
    user.click(gallery.secret);
    user.type(u"ab");
    EXPECT_EQ(SendMessageW(windowOf(gallery.secret), EM_CANUNDO, 0, 0), 0);
    SendMessageW(windowOf(gallery.secret), EM_UNDO, 0, 0);
    EXPECT_EQ(gallery.secret.text(), u"absecret");
    EXPECT_EQ(shownIn(gallery.secret).size(), 8U);
  });
}

TEST_F(ContentsTest, TextSetByCodeShowsAndIsNotTakenForAnEdit) {
  int changes = 0;
  gallery.name.setMaxLength(3);
  gallery.name.change = [&] { ++changes; };
  show([&] {
    gallery.name.setText(u"longer than that");
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(shownIn(gallery.name), u"longer than that");
    EXPECT_EQ(gallery.name.text(), u"longer than that");
  });
}

TEST_F(ContentsTest, LoneLineFeedsSurviveShowingAndEditing) {
  const Text text = u"one\ntwo\r\nthree";
  gallery.notes.setText(text);
  show([&] {
    user.click(gallery.notes);
    user.click(gallery.name);
    EXPECT_EQ(gallery.notes.text(), text);
    user.click(gallery.notes);
    user.press(Key::home, {.ctrl = true});
    user.type(u"x");
    EXPECT_EQ(gallery.notes.text(), u"x" + text);
  });
}

TEST_F(ContentsTest, ACharacterThatAHandlerReplacesIsTyped) {
  gallery.name.keyPress = [](char16_t& key) {
    if (key == u'a') key = u'b';
    if (key == u'x') key = 0;
  };
  show([&] {
    user.click(gallery.name);
    user.type(u"axa");
    EXPECT_EQ(gallery.name.text(), u"bb");
  });
}

TEST_F(ContentsTest, ACharacterLandsWhereItWasTypedThoughItsHandlerMovesTheFocus) {
  gallery.name.keyPress = [&](char16_t&) { gallery.secret.setFocus(); };
  show([&] {
    user.click(gallery.name);
    user.type(u"ab");
    EXPECT_EQ(gallery.name.text(), u"a");
    EXPECT_EQ(gallery.secret.text(), u"bsecret");
  });
}

TEST_F(ContentsTest, AKeyThatAHandlerTakesDoesNothing) {
  gallery.name.keyDown = [](Key& key, ui::Modifiers) {
    if (key == Key::backspace) key = Key::none;
  };
  show([&] {
    user.click(gallery.name);
    user.type(u"ab");
    user.press(Key::backspace, {});
    EXPECT_EQ(gallery.name.text(), u"ab");
    user.press(Key::left, {});
    EXPECT_EQ(gallery.name.selStart(), 1);
  });
}

TEST_F(ContentsTest, EnterPressesTheDefaultButtonOrMakesALineIfThereIsNone) {
  show([&] {
    user.click(gallery.notes);
    gallery.ok.setDefault(false);
    user.press(Key::enter, {});
    EXPECT_EQ(gallery.notes.text(), u"\r\nFirst line\r\nSecond line");
    EXPECT_TRUE(gallery.isShown());
    gallery.ok.setDefault(true);
    user.press(Key::enter, {});
    EXPECT_FALSE(gallery.isShown());
  });
}

TEST_F(ContentsTest, ALockedBoxShowsItsTextButCannotBeEdited) {
  gallery.name.setText(u"fixed");
  gallery.name.setLocked(true);
  show([&] {
    user.click(gallery.name);
    user.type(u"x");
    user.paste(u"y");
    EXPECT_EQ(gallery.name.text(), u"fixed");
    user.selectAll();
    EXPECT_EQ(gallery.name.selLength(), 5);
  });
}

TEST_F(ContentsTest, PastedTextIsAnEdit) {
  show([&] {
    user.click(gallery.name);
    user.paste(u"caf\u00E9");
    EXPECT_EQ(gallery.name.text(), u"caf\u00E9");
    user.press(static_cast<Key>('Z'), {.ctrl = true});
    EXPECT_EQ(gallery.name.text(), u"");
  });
}

TEST_F(ContentsTest, ButtonsAreDrivenByMouseAndKeys) {
  int ticks = 0;
  int presses = 0;
  gallery.check.click = [&] { ++ticks; };
  gallery.apply.click = [&] { ++presses; };
  show([&] {
    user.click(gallery.check);
    EXPECT_TRUE(shownTick(gallery.check));
    user.press(Key::space, {});
    EXPECT_FALSE(gallery.check.value());
    EXPECT_FALSE(shownTick(gallery.check));
    EXPECT_EQ(ticks, 2);
    user.click(gallery.apply);
    user.press(Key::space, {});
    user.press(Key::enter, {});
    EXPECT_EQ(presses, 3);
  });
}

TEST_F(ContentsTest, OptionButtonsAreChosenByMouseAndArrowsNotByTheFocusAlone) {
  show([&] {
    gallery.first.setValue(false);
    user.click(gallery.check);
    user.press(Key::tab, {});
    EXPECT_EQ(gallery.activeControl(), &gallery.first);
    EXPECT_FALSE(gallery.first.value());
    user.press(Key::down, {});
    EXPECT_TRUE(gallery.second.value());
    EXPECT_TRUE(shownTick(gallery.second));
    user.click(gallery.first);
    EXPECT_TRUE(shownTick(gallery.first));
    EXPECT_FALSE(shownTick(gallery.second));
  });
}

TEST_F(ContentsTest, ADropDownListIsChosenFromByMouseAndKeys) {
  int clicks = 0;
  gallery.combo.click = [&] { ++clicks; };
  show([&] {
    user.choose(gallery.combo, 1);
    EXPECT_EQ(gallery.combo.listIndex(), 1);
    user.press(Key::down, {});
    EXPECT_EQ(gallery.combo.listIndex(), 2);
    EXPECT_EQ(clicks, 2);
    gallery.combo.setListIndex(0);
    EXPECT_EQ(shownIn(gallery.combo), u"Daily");
  });
}

TEST_F(ContentsTest, ChoosingTheItemThatIsShownCountsButAKeyThatCannotMoveDoesNot) {
  int clicks = 0;
  gallery.combo.click = [&] { ++clicks; };
  const int last = gallery.combo.count() - 1;
  show([&] {
    user.choose(gallery.combo, last);
    EXPECT_EQ(clicks, 1);
    user.choose(gallery.combo, last);
    EXPECT_EQ(gallery.combo.listIndex(), last);
    EXPECT_EQ(clicks, 2);
    user.press(Key::down, {});
    EXPECT_EQ(gallery.combo.listIndex(), last);
    EXPECT_EQ(clicks, 2);
    user.press(Key::f4, {});
    ASSERT_TRUE(SendMessageW(windowOf(gallery.combo), CB_GETDROPPEDSTATE, 0, 0));
    user.press(Key::enter, {});
    EXPECT_EQ(clicks, 3);
    user.press(Key::f4, {});
    user.press(Key::escape, {});
    EXPECT_EQ(clicks, 3);
    EXPECT_EQ(gallery.combo.listIndex(), last);
  });
}

TEST_F(ContentsTest, EscClosesAnOpenDropDownListOnly) {
  show([&] {
    user.choose(gallery.combo, 1);
    // A pointer over an open list selects what is below it.
    SetCursorPos(0, 0);
    desk.windows().pumpUntilIdle();
    user.press(Key::f4, {});
    ASSERT_TRUE(SendMessageW(windowOf(gallery.combo), CB_GETDROPPEDSTATE, 0, 0));
    user.press(Key::down, {});
    user.press(Key::escape, {});
    EXPECT_FALSE(SendMessageW(windowOf(gallery.combo), CB_GETDROPPEDSTATE, 0, 0));
    EXPECT_TRUE(gallery.isShown());
    EXPECT_EQ(gallery.combo.listIndex(), 1);
    EXPECT_EQ(shownIn(gallery.combo), u"Weekly");
    user.press(Key::f4, {});
    user.press(Key::down, {});
    user.press(Key::enter, {});
    EXPECT_TRUE(gallery.isShown());
    EXPECT_EQ(gallery.combo.listIndex(), 2);
  });
}

TEST_F(ContentsTest, TabsAreSwitchedByMouseAndKeys) {
  show([&] {
    user.clickTab(gallery.tabs, 2);
    EXPECT_EQ(gallery.tabs.selected(), 2);
    user.press(Key::left, {});
    EXPECT_EQ(gallery.tabs.selected(), 1);
    user.press(Key::tab, {.ctrl = true});
    EXPECT_EQ(gallery.tabs.selected(), 2);
    EXPECT_EQ(SendMessageW(windowOf(gallery.tabs), TCM_GETCURSEL, 0, 0), 1);
    user.press(Key::pageUp, {.ctrl = true});
    EXPECT_EQ(gallery.tabs.selected(), 1);
    user.press(Key::pageDown, {.ctrl = true});
    EXPECT_EQ(gallery.tabs.selected(), 2);
  });
}

TEST_F(ContentsTest, ATabThatIsRefusedIsNotShownSelected) {
  gallery.tabs.beforeClick = [](bool& cancel) { cancel = true; };
  show([&] {
    user.clickTab(gallery.tabs, 2);
    EXPECT_EQ(gallery.tabs.selected(), 1);
    EXPECT_EQ(SendMessageW(windowOf(gallery.tabs), TCM_GETCURSEL, 0, 0), 0);
  });
}

TEST_F(ContentsTest, TicksOfAListFollowMouseAndSpace) {
  int row = -1;
  gallery.checks.itemCheck = [&](int changed) { row = changed; };
  show([&] {
    user.clickTab(gallery.tabs, 2);
    user.clickCheck(gallery.checks, 3);
    EXPECT_TRUE(gallery.checks.checked(3));
    EXPECT_EQ(row, 3);
    user.press(Key::space, {});
    user.press(Key::up, {});
    user.press(Key::space, {});
    EXPECT_TRUE(gallery.checks.checked(2));
    EXPECT_EQ(gallery.checks.listIndex(), 2);
  });
}

TEST_F(ContentsTest, TheUpDownCountsOneByOneTowardsItsLimits) {
  gallery.upDown.setRange(0, 2);
  show([&] {
    for (int i = 0; i < 3; ++i) user.spin(gallery.upDown, 1);
    EXPECT_EQ(gallery.upDown.value(), 2);
    for (int i = 0; i < 3; ++i) user.spin(gallery.upDown, -1);
    EXPECT_EQ(gallery.upDown.value(), 0);
  });
}

TEST_F(ContentsTest, WhatComesAfterANulIsShown) {
  const Text odd(u"a\0 &b 100%", 10);
  const Text shown = u"a  &b 100%";
  gallery.setCaption(odd);
  gallery.nameLabel.setCaption(odd);
  gallery.name.setText(odd);
  show([&] {
    EXPECT_EQ(shownIn(gallery), shown);
    EXPECT_EQ(shownIn(gallery.nameLabel), shown);
    EXPECT_EQ(shownIn(gallery.name), shown);
    EXPECT_EQ(gallery.name.text(), odd);  // it was not edited
    user.click(gallery.name);
    user.press(Key::end);
    user.type(u"!");
    EXPECT_EQ(gallery.name.text(), shown + u"!");
  });
}

TEST_F(ContentsTest, CaptionsFollow) {
  show([&] {
    gallery.setCaption(u"Other");
    gallery.nameLabel.setCaption(u"&Given name:");
    EXPECT_EQ(shownIn(gallery), u"Other");
    EXPECT_EQ(shownIn(gallery.nameLabel), u"&Given name:");
  });
}

}  // namespace
}  // namespace tillora::testing
