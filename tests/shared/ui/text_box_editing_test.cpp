// How a text box behaves under typing, selection, caret, maximum length and locking: the same
// without windows as in the platform's edit control, and in a masked box as in any other.
#include <gtest/gtest.h>

#include "tests/testing/desk.h"
#include "tests/testing/function_ref.h"

namespace tillora::testing {
namespace {

using ui::Key;
using ui::TextBox;

class TextBoxEditing : public ::testing::TestWithParam<char16_t> {
 protected:
  TextBoxEditing() { form.box.setPasswordCharacter(GetParam()); }

  class BoxForm final : public ui::Form {
   public:
    explicit BoxForm(ui::Screen& screen) : Form(screen, u"Box") {
      setClientSize({4500, 3000});
      box.setBounds({150, 150, 4200, 315});
      lines.setMultiLine(true).setBounds({150, 600, 4200, 1200});
    }
    TextBox& box{add<TextBox>()};
    TextBox& lines{add<TextBox>()};
  };

  /// Shows the form with the focus in `box` and this text in it, the caret at its start.
  void with(TextView text, const FunctionRef<void()>& act) {
    form.box.setText(Text(text));
    desk->whenShown([&](ui::Form&) { act(); });
    form.showModal();
    EXPECT_EQ(desk->unexpectedForms(), 0);
  }
  void expect(TextView text, int start, int length = 0) const {
    EXPECT_EQ(form.box.text(), text);
    EXPECT_EQ(form.box.selStart(), start);
    EXPECT_EQ(form.box.selLength(), length);
  }

  std::unique_ptr<Desk> desk = makeDesk();
  User& user = desk->user();
  BoxForm form{desk->screen()};
};

INSTANTIATE_TEST_SUITE_P(Boxes, TextBoxEditing, ::testing::Values(char16_t{0}, u'*'),
                         [](const auto& box) { return box.param == 0 ? "Plain" : "Masked"; });

TEST_P(TextBoxEditing, TypingInsertsAtTheCaretAndMovesIt) {
  with(u"ad", [&] {
    user.press(Key::right);
    user.type(u"bc");
    expect(u"abcd", 3);
  });
}

TEST_P(TextBoxEditing, TypingReplacesTheSelection) {
  with(u"abcd", [&] {
    form.box.setSelection(1, 2);
    user.type(u"x");
    expect(u"axd", 2);
  });
}

TEST_P(TextBoxEditing, BackspaceDeletesBeforeTheCaretOrTheSelection) {
  with(u"abcd", [&] {
    form.box.setSelection(2, 0);
    user.press(Key::backspace);
    expect(u"acd", 1);
    form.box.setSelection(1, 2);
    user.press(Key::backspace);
    expect(u"a", 1);
    form.box.setSelection(0, 0);
    user.press(Key::backspace);
    expect(u"a", 0);
  });
}

TEST_P(TextBoxEditing, DeleteDeletesAfterTheCaretOrTheSelection) {
  with(u"abcd", [&] {
    user.press(Key::del);
    expect(u"bcd", 0);
    form.box.setSelection(1, 2);
    user.press(Key::del);
    expect(u"b", 1);
    user.press(Key::del);
    expect(u"b", 1);
  });
}

TEST_P(TextBoxEditing, ArrowsHomeAndEndMoveTheCaret) {
  with(u"abc", [&] {
    user.press(Key::end);
    expect(u"abc", 3);
    user.press(Key::left);
    expect(u"abc", 2);
    user.press(Key::home);
    expect(u"abc", 0);
    user.press(Key::left);
    expect(u"abc", 0);
    user.press(Key::end);
    user.press(Key::right);
    expect(u"abc", 3);
  });
}

TEST_P(TextBoxEditing, AnArrowGoesOnFromTheCaretAndEndsTheSelection) {
  with(u"abcde", [&] {
    form.box.setSelection(1, 2);
    user.press(Key::left);
    expect(u"abcde", 2);
    form.box.setSelection(1, 2);
    user.press(Key::right);
    expect(u"abcde", 4);
  });
}

TEST_P(TextBoxEditing, ShiftAndArrowsSelect) {
  with(u"abcd", [&] {
    user.press(Key::right, {.shift = true});
    user.press(Key::right, {.shift = true});
    expect(u"abcd", 0, 2);
    user.press(Key::end);
    user.press(Key::home, {.shift = true});
    expect(u"abcd", 0, 4);
  });
}

TEST_P(TextBoxEditing, NothingIsTypedBeyondTheMaximumLength) {
  form.box.setMaxLength(3);
  with(u"ab", [&] {
    user.press(Key::end);
    user.type(u"cd");
    expect(u"abc", 3);
    form.box.setSelection(0, 2);
    user.type(u"xy");
    expect(u"xyc", 2);
  });
}

TEST_P(TextBoxEditing, PastingFillsUpToTheMaximumLength) {
  form.box.setMaxLength(5);
  with(u"ab", [&] {
    form.box.setSelection(1, 1);
    user.paste(u"123456");
    expect(u"a1234", 5);
  });
}

TEST_P(TextBoxEditing, TextSetByCodeIsNotCutToTheMaximumLength) {
  form.box.setMaxLength(3);
  with(u"abcdef", [&] {
    user.press(Key::end);
    user.type(u"g");
    expect(u"abcdef", 6);
    user.press(Key::backspace);
    user.type(u"g");
    expect(u"abcde", 5);
  });
}

TEST_P(TextBoxEditing, ALockedBoxTakesTheFocusButNoText) {
  form.box.setLocked(true);
  with(u"abc", [&] {
    EXPECT_TRUE(form.box.hasFocus());
    user.type(u"x");
    user.press(Key::backspace);
    user.press(Key::del);
    user.paste(u"y");
    EXPECT_EQ(form.box.text(), u"abc");
  });
}

TEST_P(TextBoxEditing, OnlyTheFirstLineIsPastedIntoASingleLine) {
  with(u"", [&] {
    user.paste(u"one\r\ntwo");
    expect(u"one", 3);
  });
}

TEST_P(TextBoxEditing, EnterMakesALineInABoxOfLines) {
  with(u"", [&] {
    user.click(form.lines);
    user.type(u"one");
    user.press(Key::enter);
    user.type(u"two");
    EXPECT_EQ(form.lines.text(), u"one\r\ntwo");
    user.press(Key::home);
    user.press(Key::backspace);
    EXPECT_EQ(form.lines.text(), u"onetwo");
  });
}

TEST_P(TextBoxEditing, EachEditRaisesChangeOnceAndLaterThanItsText) {
  std::vector<Text> seen;
  form.box.change = [&] { seen.push_back(form.box.text()); };
  with(u"", [&] {
    user.type(u"ab");
    user.press(Key::backspace);
    user.press(Key::left);
  });
  EXPECT_EQ(seen, (std::vector<Text>{u"a", u"ab", u"a"}));
}

TEST_P(TextBoxEditing, AHandlerCanDiscardACharacter) {
  form.box.keyPress = [](char16_t& key) {
    if (key == u'b') key = 0;
  };
  with(u"", [&] {
    user.type(u"abc");
    expect(u"ac", 2);
  });
}

TEST_P(TextBoxEditing, AHandlerCanChangeACharacter) {
  form.box.keyPress = [](char16_t& key) {
    if (key == u'b') key = u'B';
  };
  with(u"", [&] {
    user.type(u"abc");
    expect(u"aBc", 3);
  });
}

TEST_P(TextBoxEditing, ACharacterLandsWhereItWasTypedThoughTheFocusMovesOn) {
  form.box.keyPress = [&](char16_t&) { form.lines.setFocus(); };
  with(u"", [&] {
    user.type(u"a");
    EXPECT_EQ(form.box.text(), u"a");
    EXPECT_EQ(form.lines.text(), u"");
    EXPECT_TRUE(form.lines.hasFocus());
    user.type(u"b");
    EXPECT_EQ(form.lines.text(), u"b");
  });
}

TEST_P(TextBoxEditing, TheDeleteCharacterIsNeverTyped) {
  with(u"abc", [&] {
    user.press(Key::end);
    user.press(Key::backspace, {.ctrl = true});
    EXPECT_EQ(form.box.text().find(u'\x7f'), Text::npos);
  });
}

TEST_P(TextBoxEditing, HomeAndEndWithCtrlMoveTheCaretAndTypeNothing) {
  with(u"abcd", [&] {
    user.press(Key::end, {.ctrl = true});
    expect(u"abcd", 4);
    user.press(Key::home, {.ctrl = true});
    expect(u"abcd", 0);
    user.press(Key::end, {.shift = true, .ctrl = true});
    expect(u"abcd", 0, 4);
  });
}

TEST_P(TextBoxEditing, AnyCharacterOfThePlatformCanBeTyped) {
  with(u"", [&] {
    user.type(u"\u00e9\u4e2d\u20ac");
    expect(u"\u00e9\u4e2d\u20ac", 3);
  });
}

}  // namespace
}  // namespace tillora::testing
