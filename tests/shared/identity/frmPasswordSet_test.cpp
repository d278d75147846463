#include "identity/frmPasswordSet.h"

#include <gtest/gtest.h>

#include "tests/testing/desk.h"
#include "tests/testing/fake_host.h"
#include "tests/testing/function_ref.h"

namespace tillora::testing {
namespace {

using ui::Key;

constexpr TextView kTooShort =
    u"Password must be no less than 4 characters and no more than 16 characters.\r\n\r\n"
    u"Please re-enter the password.";

class FrmPasswordSetTest : public ::testing::Test {
 protected:
  FrmPasswordSetTest() { messages.setSettings(host.objects().settings); }
  void TearDown() override {
    EXPECT_EQ(desk->unexpectedForms(), 0);
    EXPECT_EQ(desk->unusedSteps(), 0);
  }

  /// Shows the dialog for this password; returns the one that comes out.
  Text show(TextView password, const FunctionRef<void()>& act) {
    dialog.Password = SecretText(Text(password));
    desk->whenShown([&](ui::Form&) { act(); });
    dialog.showModal();
    return dialog.Password.text();
  }
  ui::TextBox& box(int index) { return dialog.txtPassword[index]; }
  /// Types into the boxes from the one with the focus on, with Tab between them.
  void fill(std::initializer_list<TextView> texts) {
    const TextView* last = texts.end() - 1;
    for (const TextView& text : texts) {
      user.type(text);
      if (&text != last) user.press(Key::tab);
    }
  }
  void expectOneMessage(TextView text, TextView title) {
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(boxes.shown[0].text, text);
    EXPECT_EQ(boxes.shown[0].title, title);
    EXPECT_EQ(boxes.shown[0].style, 48);
    EXPECT_EQ(boxes.shown[0].secondaryText, u"");
    EXPECT_TRUE(boxes.shown[0].settingsGiven);
    boxes.shown.clear();
  }
  void expectTexts(TextView old, TextView fresh, TextView confirmed) {
    EXPECT_EQ(box(0).text(), old);
    EXPECT_EQ(box(1).text(), fresh);
    EXPECT_EQ(box(2).text(), confirmed);
  }

  std::unique_ptr<Desk> desk = makeDesk();
  User& user = desk->user();
  FakeHost host;
  ScriptedMessageBoxes boxes{desk->screen()};
  Messages messages{desk->screen(), boxes};
  frmPasswordSet dialog{desk->screen(), messages};
};

TEST_F(FrmPasswordSetTest, HasThreeMaskedBoxesAndTwoButtons) {
  ASSERT_EQ(dialog.txtPassword.count(), 3);
  for (const auto& [index, box] : dialog.txtPassword) {
    EXPECT_EQ(box->passwordCharacter(), u'*');
    EXPECT_EQ(box->maxLength(), 16);
    EXPECT_EQ(box->text(), u"");
  }
  EXPECT_EQ(dialog.lblPassword[0].caption(), u"O&ld password");
  EXPECT_EQ(dialog.lblPassword[1].caption(), u"&New password");
  EXPECT_EQ(dialog.lblPassword[2].caption(), u"Con&firm password");
  const auto& command = dialog.cmdCommand;
  ASSERT_EQ(command.count(), 2);
  EXPECT_EQ(command[0].caption(), u"&OK");
  EXPECT_EQ(command[0].toolTip(), u"Accept the entered password and close this window");
  EXPECT_TRUE(command[0].isDefault());
  EXPECT_EQ(command[1].caption(), u"&Cancel");
  EXPECT_EQ(command[1].toolTip(), u"Discard changes and close this window");
  EXPECT_TRUE(command[1].isCancel());
}

TEST_F(FrmPasswordSetTest, WithoutAPasswordTheOldBoxIsLockedGreyAndNotATabStop) {
  EXPECT_EQ(show(u"",
                 [&] {
                   EXPECT_TRUE(box(0).locked());
                   EXPECT_FALSE(box(0).tabStop());
                   EXPECT_EQ(box(0).backColour(), ui::kButtonFace);
                   EXPECT_TRUE(box(1).hasFocus());
                   user.press(Key::tab, {.shift = true});
                   user.press(Key::tab);
                   EXPECT_TRUE(box(1).hasFocus());
                   user.press(Key::tab);
                   user.press(Key::tab);
                   user.press(Key::tab);
                   EXPECT_TRUE(dialog.cmdCommand[1].hasFocus());
                   user.press(Key::tab);
                   EXPECT_TRUE(box(1).hasFocus());
                   user.click(box(0));
                   user.type(u"abcd");
                   expectTexts(u"", u"", u"");
                   user.accessKey(u'n');
                   fill({u"four", u"four"});
                   user.press(Key::enter);
                   EXPECT_FALSE(dialog.isShown());
                 }),
            u"four");
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(FrmPasswordSetTest, WithAPasswordTheOldBoxIsTheFirst) {
  show(u"secret", [&] {
    EXPECT_FALSE(box(0).locked());
    EXPECT_EQ(box(0).backColour(), ui::kWindowBackground);
    expectTexts(u"", u"", u"");
    for (ui::Control* next :
         {static_cast<ui::Control*>(&box(0)), static_cast<ui::Control*>(&box(1)),
          static_cast<ui::Control*>(&box(2)), static_cast<ui::Control*>(&dialog.cmdCommand[0]),
          static_cast<ui::Control*>(&dialog.cmdCommand[1])}) {
      EXPECT_TRUE(next->hasFocus());
      user.press(Key::tab);
    }
    EXPECT_TRUE(box(0).hasFocus());
  });
}

TEST_F(FrmPasswordSetTest, TheOldBoxIsFreeAgainWhenThereIsAPasswordAgain) {
  show(u"", [] {});
  show(u"secret", [&] {
    EXPECT_FALSE(box(0).locked());
    EXPECT_TRUE(box(0).tabStop());
    EXPECT_EQ(box(0).backColour(), ui::kWindowBackground);
  });
}

TEST_F(FrmPasswordSetTest, ANewPasswordBecomesLowerCase) {
  EXPECT_EQ(show(u"",
                 [&] {
                   fill({u"MiXeD \u00C4\u03A9\u0416", u"mIxEd \u00E4\u03C9\u0436"});
                   user.click(dialog.cmdCommand[0]);
                 }),
            u"mixed \u00E4\u03C9\u0436");
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(FrmPasswordSetTest, LetterCaseDoesNotMatterInAnyAlphabet) {
  const std::vector<std::pair<Text, Text>> passwords = {
      {u"\u01AF\u01A0NG", u"\u01B0\u01A1ng"},                       // Vietnamese
      {u"\u018FLIF", u"\u0259lif"},                                 // Azerbaijani
      {u"\u0540\u0531\u0545\u0550", u"\u0570\u0561\u0575\u0580"},   // Armenian
      {u"\uFF21\uFF22\uFF23\uFF24", u"\uFF41\uFF42\uFF43\uFF44"}};  // full-width
  for (const auto& [capitals, small] : passwords) {
    frmPasswordSet another(desk->screen(), messages);
    another.Password = SecretText(capitals);
    desk->whenShown([&](ui::Form&) {
      fill({small, capitals, small});
      user.press(Key::enter);
    });
    another.showModal();
    EXPECT_EQ(another.Password.text(), small);
    EXPECT_TRUE(boxes.shown.empty()) << toUtf8(small);
  }
}

TEST_F(FrmPasswordSetTest, LetterCaseDoesNotMatterInTheOldPassword) {
  for (const TextView stored : {u"secret", u"SECRET", u"Secret"}) {
    frmPasswordSet another(desk->screen(), messages);
    another.Password = SecretText(Text(stored));
    desk->whenShown([&](ui::Form&) {
      fill({u"SeCRET", u"other", u"OTHER"});
      user.accessKey(u'o');
    });
    another.showModal();
    EXPECT_EQ(another.Password.text(), u"other");
  }
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(FrmPasswordSetTest, AWrongOldPasswordIsEmptiedAndAskedAgain) {
  EXPECT_EQ(show(u"secret",
                 [&] {
                   fill({u"secrets", u"Other", u"Other"});
                   user.press(Key::enter);
                   expectOneMessage(
                       u"The Old Password you entered is incorrect.\r\n\r\n"
                       u"Please re-enter the Old Password.",
                       u"Old Password incorrect");
                   EXPECT_TRUE(dialog.isShown());
                   EXPECT_TRUE(box(0).hasFocus());
                   expectTexts(u"", u"other", u"other");
                   user.type(u"secret");
                   user.press(Key::enter);
                 }),
            u"other");
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(FrmPasswordSetTest, AnOldPasswordLeftEmptyIsWrongToo) {
  show(u"secret", [&] {
    fill({u"", u"other", u"other"});
    user.press(Key::enter);
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(boxes.shown[0].title, u"Old Password incorrect");
    EXPECT_TRUE(box(0).hasFocus());
  });
}

TEST_F(FrmPasswordSetTest, PasswordsThatDoNotMatchAreEmptiedAndAskedAgain) {
  EXPECT_EQ(show(u"secret",
                 [&] {
                   fill({u"secret", u"other", u"another"});
                   user.click(dialog.cmdCommand[0]);
                   expectOneMessage(
                       u"The  New and Confirmed Passwords you entered do not match.\r\n\r\n"
                       u"Please re-enter the Passwords.",
                       u"Passwords do not match");
                   EXPECT_TRUE(dialog.isShown());
                   EXPECT_TRUE(box(1).hasFocus());
                   expectTexts(u"secret", u"", u"");
                   fill({u"other", u"other"});
                   user.press(Key::enter);
                 }),
            u"other");
}

TEST_F(FrmPasswordSetTest, AnEmptyConfirmationDoesNotMatch) {
  show(u"", [&] {
    fill({u"other"});
    user.press(Key::enter);
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(boxes.shown[0].title, u"Passwords do not match");
  });
}

TEST_F(FrmPasswordSetTest, OfTwoFaultsTheOldPasswordIsTheOneReported) {
  show(u"secret", [&] {
    fill({u"wrong", u"other", u"another"});
    user.press(Key::enter);
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(boxes.shown[0].title, u"Old Password incorrect");
    expectTexts(u"", u"other", u"another");
  });
}

TEST_F(FrmPasswordSetTest, NewAndConfirmedPasswordBothEmptyClearIt) {
  EXPECT_EQ(show(u"secret",
                 [&] {
                   fill({u"secret", u"", u""});
                   user.press(Key::enter);
                 }),
            u"");
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(FrmPasswordSetTest, FourToSixteenCharactersAreAccepted) {
  for (const TextView text : {u"abcd", u"    ", u"0123456789abcdef"}) {
    frmPasswordSet another(desk->screen(), messages);
    desk->whenShown([&](ui::Form&) {
      fill({text, text});
      user.press(Key::enter);
    });
    another.showModal();
    EXPECT_EQ(another.Password.text(), text);
  }
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(FrmPasswordSetTest, ASeventeenthCharacterCanBeNeitherTypedNorPasted) {
  show(u"", [&] {
    user.type(u"0123456789abcdefg");
    EXPECT_EQ(box(1).text(), u"0123456789abcdef");
    user.press(Key::tab);
    user.paste(u"ghijklmnopqrstuvwxyz");
    EXPECT_EQ(box(2).text(), u"ghijklmnopqrstuv");
    user.type(u"w");
    EXPECT_EQ(box(2).text(), u"ghijklmnopqrstuv");
  });
}

TEST_F(FrmPasswordSetTest, OneToThreeCharactersCannotBeLeft) {
  const std::vector<std::function<void()>> ways = {[&] { user.press(Key::tab); },
                                                   [&] { user.click(box(2)); },
                                                   [&] { user.click(box(0)); },
                                                   [&] { user.accessKey(u'f'); },
                                                   [&] { user.click(dialog.cmdCommand[0]); },
                                                   [&] { user.accessKey(u'o'); },
                                                   [&] { user.press(Key::enter); }};
  for (const TextView text : {u"A", u"Ab", u"Abc"}) {
    show(u"secret", [&] {
      user.accessKey(u'n');
      user.selectAll();
      user.type(text);
      for (const auto& leave : ways) {
        leave();
        expectOneMessage(kTooShort, u"Password not valid");
        EXPECT_TRUE(box(1).hasFocus());
        EXPECT_EQ(box(1).text(), text);
        EXPECT_EQ(box(1).selText(), text);
        box(1).setSelection(0, 0);
        EXPECT_TRUE(dialog.isShown());
      }
    });
    EXPECT_EQ(dialog.Password.text(), u"secret");
  }
}

TEST_F(FrmPasswordSetTest, EveryBoxRefusesOneToThreeCharacters) {
  for (int index = 0; index < 3; ++index) {
    frmPasswordSet another(desk->screen(), messages);
    another.Password = SecretText(u"secret");
    desk->whenShown([&](ui::Form&) {
      user.click(another.txtPassword[index]);
      user.type(u"abc");
      user.press(Key::tab);
      expectOneMessage(kTooShort, u"Password not valid");
      EXPECT_TRUE(another.txtPassword[index].hasFocus());
      EXPECT_EQ(another.txtPassword[index].selLength(), 3);
      user.type(u"wxyz");
      EXPECT_EQ(another.txtPassword[index].text(), u"wxyz");
      user.press(Key::tab);
      EXPECT_FALSE(another.txtPassword[index].hasFocus());
      EXPECT_TRUE(boxes.shown.empty());
    });
    another.showModal();
  }
}

TEST_F(FrmPasswordSetTest, OkChecksAllBoxesInTheirOrder) {
  show(u"secret", [&] {
    box(2).setText(u"xyz");
    box(1).setText(u"ABC");
    user.click(dialog.cmdCommand[0]);
    expectOneMessage(kTooShort, u"Password not valid");
    EXPECT_TRUE(box(1).hasFocus());
    EXPECT_EQ(box(1).selText(), u"abc");
    expectTexts(u"", u"abc", u"xyz");
    EXPECT_TRUE(dialog.isShown());
  });
}

TEST_F(FrmPasswordSetTest, ABoxThatCannotBeLeftStillLetsTheUserCancel) {
  const std::vector<std::function<void(frmPasswordSet&)>> ways = {
      [&](frmPasswordSet&) { user.press(Key::escape); },
      [&](frmPasswordSet& form) { user.click(form.cmdCommand[1]); },
      [&](frmPasswordSet&) { user.accessKey(u'c'); },
      [&](frmPasswordSet& form) { user.closeWindow(form); },
      [&](frmPasswordSet&) { user.press(Key::f4, {.alt = true}); }};
  for (const auto& leave : ways) {
    frmPasswordSet another(desk->screen(), messages);
    another.Password = SecretText(u"Secret");
    desk->whenShown([&](ui::Form&) {
      user.type(u"abc");
      leave(another);
      EXPECT_FALSE(another.isShown());
    });
    another.showModal();
    EXPECT_EQ(another.Password.text(), u"Secret");
    EXPECT_TRUE(boxes.shown.empty());
  }
}

TEST_F(FrmPasswordSetTest, OkAfterTheFocusWentToCancelStillRefuses) {
  show(u"secret", [&] {
    user.type(u"abc");
    user.press(Key::tab, {.shift = true});
    EXPECT_TRUE(dialog.cmdCommand[1].hasFocus());
    EXPECT_TRUE(boxes.shown.empty());
    user.click(dialog.cmdCommand[0]);
    expectOneMessage(kTooShort, u"Password not valid");
    EXPECT_TRUE(box(0).hasFocus());
  });
}

TEST_F(FrmPasswordSetTest, EnteringABoxSelectsItsText) {
  show(u"secret", [&] {
    fill({u"secret", u"other"});
    user.press(Key::tab, {.shift = true});
    EXPECT_EQ(box(0).selStart(), 0);
    EXPECT_EQ(box(0).selLength(), 6);
    user.type(u"wxyz");
    EXPECT_EQ(box(0).text(), u"wxyz");
  });
}

TEST_F(FrmPasswordSetTest, CancelAfterARefusedOkLeavesThePasswordInLowerCase) {
  EXPECT_EQ(show(u"SECRET",
                 [&] {
                   fill({u"wrong", u"other", u"other"});
                   user.press(Key::enter);
                   user.press(Key::escape);
                 }),
            u"secret");
}

TEST_F(FrmPasswordSetTest, NoMessageOrToolTipRevealsAPassword) {
  show(u"secret", [&] {
    fill({u"wrongone", u"othertwo", u"otherthree"});
    user.press(Key::enter);
    fill({u"secret", u"othertwo", u"otherthree"});
    user.press(Key::enter);
    user.type(u"abc");
    user.press(Key::enter);
  });
  ASSERT_EQ(boxes.shown.size(), 3U);
  for (const TextView password : {u"secret", u"wrongone", u"othertwo", u"otherthree", u"abc"}) {
    for (const ShownMessage& message : boxes.shown) {
      EXPECT_EQ((message.text + message.title).find(password), Text::npos);
    }
    for (const auto& control : dialog.children()) {
      EXPECT_EQ(control->toolTip().find(password), Text::npos);
    }
  }
}

TEST_F(FrmPasswordSetTest, SmallFormsOfOneCapitalAreTheSameLetter) {
  // A Greek word ends with another small sigma than the one that a capital becomes.
  const Text capitals = u"\u039F\u0394\u039F\u03A3";
  const Text small = u"\u03BF\u03B4\u03BF\u03C2";
  const Text lowered = u"\u03BF\u03B4\u03BF\u03C3";
  const auto accepted = [&](TextView password, std::initializer_list<TextView> texts) {
    frmPasswordSet another(desk->screen(), messages);
    another.Password = SecretText(Text(password));
    desk->whenShown([&](ui::Form& form) {
      fill(texts);
      user.press(Key::enter);
      EXPECT_FALSE(form.isShown());
    });
    another.showModal();
    return another.Password.text();
  };
  EXPECT_EQ(accepted(small, {capitals, u"", u""}), u"");
  EXPECT_EQ(accepted(lowered, {small, u"", u""}), u"");
  // Stored as it was entered, in lower case.
  EXPECT_EQ(accepted(u"", {small, capitals}), small);
  EXPECT_EQ(accepted(u"", {capitals, small}), lowered);
  EXPECT_TRUE(boxes.shown.empty());
}

}  // namespace
}  // namespace tillora::testing
