// What keys do in each kind of control.
#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "tests/testing/headless_desk.h"
#include "ui/tab_strip.h"

namespace tillora::testing {
namespace {

using ui::Key;

class ControlKeys : public ::testing::Test {
 protected:
  void pressIn(ui::Control& control, const std::vector<Key>& keys) {
    desk.whenShown([&](ui::Form&) {
      control.setFocus();
      for (const Key key : keys) desk.user().press(key);
    });
    form.showModal();
  }
  template <class Position>
  void expectAfterEachKey(ui::Control& control, const Position& position,
                          const std::vector<std::pair<Key, int>>& expected) {
    desk.whenShown([&](ui::Form&) {
      control.setFocus();
      for (const auto& [key, reached] : expected) {
        desk.user().press(key);
        EXPECT_EQ(position(), reached);
      }
    });
    form.showModal();
  }

  HeadlessDesk desk;
  ui::Form form{desk.screen(), u"Keys"};
};

TEST_F(ControlKeys, SpaceTicksAndUnticksACheckBox) {
  auto& box = form.add<ui::CheckBox>(u"Box");
  pressIn(box, {Key::space});
  EXPECT_TRUE(box.value());
  pressIn(box, {Key::space});
  EXPECT_FALSE(box.value());
}

TEST_F(ControlKeys, SpaceChoosesAnOptionButtonOnce) {
  auto& option = form.add<ui::OptionButton>(u"Option");
  int clicks = 0;
  option.click = [&] { ++clicks; };
  pressIn(option, {Key::space, Key::space});
  EXPECT_TRUE(option.value());
  EXPECT_EQ(clicks, 1);
}

TEST_F(ControlKeys, SpaceAndEnterPressTheButtonWithTheFocus) {
  auto& pressed = form.add<ui::CommandButton>(u"Pressed");
  form.add<ui::CommandButton>(u"Default").setDefault(true);
  int clicks = 0;
  pressed.click = [&] { ++clicks; };
  pressIn(pressed, {Key::space, Key::enter});
  EXPECT_EQ(clicks, 2);
}

TEST_F(ControlKeys, ArrowsWalkAroundTheButtonsOfAContainer) {
  auto& group = form.add<ui::Frame>(u"Group");
  auto& first = group.add<ui::CheckBox>(u"First");
  auto& button = group.add<ui::CommandButton>(u"Button");
  auto& disabled = group.add<ui::CheckBox>(u"Disabled");
  auto& last = group.add<ui::CheckBox>(u"Last");
  group.add<ui::TextBox>();
  form.add<ui::CheckBox>(u"Outside");
  auto& ok = form.add<ui::CommandButton>(u"OK");
  auto& cancel = form.add<ui::CommandButton>(u"Cancel");
  disabled.setEnabled(false);
  bool seen = false;
  first.keyDown = last.keyDown = button.keyDown =
      ok.keyDown = [&](Key&, ui::Modifiers) { seen = true; };
  desk.whenShown([&](ui::Form&) {
    EXPECT_TRUE(first.hasFocus());
    for (const Key key : {Key::down, Key::right, Key::up, Key::left}) {
      ui::CheckBox& next = first.hasFocus() ? last : first;
      desk.user().press(key);
      EXPECT_TRUE(next.hasFocus());
    }
    button.setFocus();
    desk.user().press(Key::down);
    EXPECT_TRUE(button.hasFocus()) << "the only one of its group";
    ok.setFocus();
    desk.user().press(Key::left);
    EXPECT_TRUE(cancel.hasFocus());
    desk.user().press(Key::right);
    EXPECT_TRUE(ok.hasFocus());
  });
  form.showModal();
  EXPECT_FALSE(seen);
  for (const ui::CheckBox* box : {&first, &last}) EXPECT_FALSE(box->value());
}

TEST_F(ControlKeys, AComboBoxMovesAmongItsItems) {
  auto& combo = form.add<ui::ComboBox>();
  for (const char16_t* item : {u"a", u"b", u"c"}) combo.addItem(item);
  expectAfterEachKey(combo, [&] { return combo.listIndex(); },
                     {{Key::down, 0},
                      {Key::up, 0},
                      {Key::end, 2},
                      {Key::down, 2},
                      {Key::up, 1},
                      {Key::left, 1},
                      {Key::home, 0}});
}

TEST_F(ControlKeys, AListMovesAmongItsRows) {
  auto& list = form.add<ui::ListView>();
  for (const char16_t* text : {u"a", u"b", u"c"}) list.addRow({{text}});
  expectAfterEachKey(list, [&] { return list.selectedRow(); },
                     {{Key::down, 0}, {Key::end, 2}, {Key::down, 2}, {Key::up, 1}, {Key::home, 0}});
}

TEST_F(ControlKeys, AnEmptyListSelectsNothing) {
  auto& combo = form.add<ui::ComboBox>();
  auto& checks = form.add<ui::CheckListBox>();
  auto& list = form.add<ui::ListView>();
  const std::vector<Key> keys{Key::down, Key::up, Key::home, Key::end, Key::space};
  for (ui::Control* control : std::vector<ui::Control*>{&combo, &checks, &list}) {
    pressIn(*control, keys);
  }
  EXPECT_EQ(combo.listIndex(), -1);
  EXPECT_EQ(checks.listIndex(), -1);
  EXPECT_EQ(list.selectedRow(), -1);
}

TEST_F(ControlKeys, SpaceTicksTheRowOfACheckListThatTheArrowsReached) {
  auto& list = form.add<ui::CheckListBox>();
  for (const char16_t* text : {u"a", u"b", u"c"}) list.addRow(text, 0);
  pressIn(list, {Key::down, Key::space});
  EXPECT_FALSE(list.checked(0));
  EXPECT_TRUE(list.checked(1));
  pressIn(list, {Key::space, Key::end, Key::space});
  EXPECT_FALSE(list.checked(1));
  EXPECT_TRUE(list.checked(2));
}

TEST_F(ControlKeys, TheKeysOfACheckListStartAtItsFirstRow) {
  auto& list = form.add<ui::CheckListBox>();
  for (const char16_t* text : {u"a", u"b"}) list.addRow(text, 0);
  pressIn(list, {Key::space});
  EXPECT_TRUE(list.checked(0));
  EXPECT_FALSE(list.checked(1));
}

TEST_F(ControlKeys, AClickOnATickTakesTheSelectionBarAlong) {
  auto& list = form.add<ui::CheckListBox>();
  for (const char16_t* text : {u"a", u"b"}) list.addRow(text, 0);
  desk.whenShown([&](ui::Form&) {
    desk.user().clickCheck(list, 1);
    EXPECT_EQ(list.listIndex(), 1);
    desk.user().press(Key::space);
  });
  form.showModal();
  EXPECT_FALSE(list.checked(1));
}

TEST_F(ControlKeys, LeftAndRightMoveAlongATabStripToItsEnds) {
  auto& tabs = form.add<ui::TabStrip>();
  for (const char16_t* caption : {u"One", u"Two"}) tabs.addTab(caption);
  expectAfterEachKey(
      tabs, [&] { return tabs.selected(); },
      {{Key::left, 1}, {Key::right, 2}, {Key::right, 2}, {Key::down, 2}, {Key::left, 1}});
}

}  // namespace
}  // namespace tillora::testing
