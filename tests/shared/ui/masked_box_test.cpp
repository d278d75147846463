// A box with a password character is edited as any other, though its window holds placeholders.
#include <gtest/gtest.h>

#include "tests/testing/desk.h"

namespace tillora::testing {
namespace {

using ui::Key;

class MaskedBoxTest : public ::testing::Test {
 protected:
  class BoxForm final : public ui::Form {
   public:
    explicit BoxForm(ui::Screen& screen) : Form(screen, u"Box") {
      setClientSize({4500, 3000});
      box.setMaxLength(8).setPasswordCharacter(u'*').setBounds({150, 150, 4200, 315});
    }
    ui::TextBox& box{add<ui::TextBox>()};
  };

  void with(TextView text, const std::function<void()>& act) {
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

TEST_F(MaskedBoxTest, TypingInsertsAtTheCaret) {
  with(u"ad", [&] {
    user.press(Key::right);
    user.type(u"bc");
    expect(u"abcd", 3);
    user.press(Key::home);
    user.type(u"x");
    expect(u"xabcd", 1);
    user.press(Key::end);
    user.type(u"y");
    expect(u"xabcdy", 6);
  });
}

TEST_F(MaskedBoxTest, CharactersAreDeletedAndReplacedWhereTheyStand) {
  with(u"abcdef", [&] {
    form.box.setSelection(2, 0);
    user.press(Key::backspace);
    expect(u"acdef", 1);
    user.press(Key::del);
    expect(u"adef", 1);
    form.box.setSelection(1, 2);
    user.type(u"x");
    expect(u"axf", 2);
    form.box.setSelection(0, 1);
    user.press(Key::del);
    expect(u"xf", 0);
    user.selectAll();
    expect(u"xf", 0, 2);
    user.press(Key::backspace);
    expect(u"", 0);
  });
}

TEST_F(MaskedBoxTest, PastedTextIsTakenUpToTheMaximumLength) {
  with(u"ab", [&] {
    user.press(Key::right);
    user.paste(u"0123456789");
    expect(u"a012345b", 7);
    user.type(u"x");
    expect(u"a012345b", 7);
    form.box.setSelection(0, 8);
    user.paste(u"new");
    expect(u"new", 3);
  });
}

TEST_F(MaskedBoxTest, EveryEditRaisesChangeOnce) {
  int changes = 0;
  form.box.change = [&] { ++changes; };
  with(u"", [&] {
    user.type(u"abc");
    EXPECT_EQ(changes, 3);
    user.press(Key::backspace);
    EXPECT_EQ(changes, 4);
    form.box.setText(u"set by code");
    EXPECT_EQ(changes, 5);
    expect(u"set by code", 0);
    user.press(Key::del);
    expect(u"et by code", 0);
    EXPECT_EQ(changes, 6);
  });
}

}  // namespace
}  // namespace tillora::testing
