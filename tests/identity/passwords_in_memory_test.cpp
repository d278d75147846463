// No copy of a password is left on the heap once the dialogs that knew it have ended.
#include <algorithm>

#include "identity/frmPasswordSet.h"
#include "identity/passwords.h"
#include "tests/testing/freed_memory.h"
#include "tests/testing/function_ref.h"
#include "tests/testing/options_test.h"

namespace tillora::testing {
namespace {

using ui::Key;

// One is long enough for a text to keep it on the heap, the other is not.
constexpr TextView kStored = u"zq8wx4kv7jt5yb3n";
constexpr TextView kTyped = u"Pf6Hd2GmLc9RsVxA";
constexpr TextView kOther = u"TN0EIU1OYBQKWZ";
constexpr TextView kShort = u"J5qX";

class PasswordsInMemoryTest : public OptionsTest {
 protected:
  PasswordsInMemoryTest() { host.storesReversed = true; }
  void SetUp() override {
    if (!FreedMemory::canBeWatched()) GTEST_SKIP() << "needs the address sanitizer";
  }

  static ui::CommandButton& button(frmOptions& dialog) {
    return dialog.tabs().passwords.cmdSecurity[Passwords::adminOptions];
  }
  void store(TextView password) {
    Text reversed(password);
    std::ranges::reverse(reversed);
    host.store(options::AdminSecurityBits, 8);
    host.store(options::PasswordAdminOptions, reversed);
  }
  void enter(std::initializer_list<TextView> texts) {
    for (const TextView& text : texts) {
      if (&text != texts.begin()) user.press(Key::tab);
      user.type(text);
    }
    user.press(Key::enter);
  }
  /// Presses the button of the protection that has a password, and acts in its dialog.
  void openDialog(frmOptions& dialog, const FunctionRef<void()>& act) {
    desk->whenShown([&](ui::Form&) { act(); });
    user.click(button(dialog));
  }
  void refuseThreeTimes(TextView right) {
    enter({kOther});
    enter({right, kTyped, kOther});
    enter({u"Pf6"});
    user.selectAll();
  }
};

TEST_F(PasswordsInMemoryTest, ATextThatIsNotWipedIsSeen) {
  const FreedMemory memory({kStored});
  {
    const Text plain(kStored);
  }
  EXPECT_EQ(memory.blocksWithSecrets(), 1);
  {
    const SecretText secret{Text(kStored)};
  }
  EXPECT_EQ(memory.blocksWithSecrets(), 1);
  {
    // A part of it, in other letters, in the middle of a block.
    const Text plain(u"something else, and then WX4KV");
  }
  EXPECT_EQ(memory.blocksWithSecrets(), 2);
}

TEST_F(PasswordsInMemoryTest, ATextBoxThatGrowsLeavesNothing) {
  ui::Form form(desk->screen(), u"Box");
  auto& box = form.add<ui::TextBox>();
  desk->whenShown([&](ui::Form&) {
    const FreedMemory memory({kTyped});
    user.type(kTyped);
    user.press(Key::home);
    user.type(u"x");
    user.paste(u"y");
    box.reformat(u"z");
    box.setText(Text(kTyped));
    box.setText(Text(kTyped));
    box.setText(u"");
    EXPECT_EQ(memory.blocksWithSecrets(), 0);
  });
  form.showModal();
}

TEST_F(PasswordsInMemoryTest, NothingIsLeftOfPasswordsThatAreSetAndSaved) {
  for (const TextView stored : {kStored, kShort}) {
    store(stored);
    const FreedMemory memory({stored, kTyped, kOther});
    openOn(TabPage::security, [&](frmOptions& dialog) {
      openDialog(dialog, [&] {
        refuseThreeTimes(stored);
        enter({kTyped, kTyped});
      });
      user.click(dialog.cmdCommand[frmOptions::apply]);
      openDialog(dialog, [&] { enter({kTyped, kOther, kOther}); });
      user.accessKey(u'o');
    });
    EXPECT_EQ(memory.blocksWithSecrets(), 0);
  }
  Text saved = host.value(options::PasswordAdminOptions);
  std::ranges::reverse(saved);
  EXPECT_EQ(saved, u"tn0eiu1oybqkwz");
}

TEST_F(PasswordsInMemoryTest, NothingIsLeftOfPasswordsThatAreDropped) {
  store(kStored);
  const FreedMemory memory({kStored, kTyped, kOther});
  openOn(TabPage::security, [&](frmOptions& dialog) {
    openDialog(dialog, [&] {
      user.type(kTyped);
      user.press(Key::escape);
    });
    openDialog(dialog, [&] {
      user.type(kTyped);
      user.press(Key::f4, {.alt = true});
    });
    openDialog(dialog, [&] { enter({kStored, kOther, kOther}); });
    user.accessKey(u'c');
  });
  EXPECT_EQ(memory.blocksWithSecrets(), 0);
}

TEST_F(PasswordsInMemoryTest, NothingIsLeftOfAPasswordThatUntickingErases) {
  store(kStored);
  const FreedMemory memory({kStored});
  openOn(TabPage::security, [&](frmOptions& dialog) {
    user.click(dialog.tabs().passwords.chkSecurity[Passwords::adminOptions]);
    user.accessKey(u'o');
  });
  EXPECT_EQ(memory.blocksWithSecrets(), 0);
  EXPECT_EQ(host.value(options::PasswordAdminOptions), u"");
}

TEST_F(PasswordsInMemoryTest, NothingIsLeftWhenTheHostFails) {
  for (const std::string call :
       {"get PasswordChangePrices", "put PasswordAdminOptions", "commit", "send"}) {
    store(kStored);
    const FreedMemory memory({kStored, kTyped});
    options_.SelectedTab = static_cast<std::int16_t>(TabPage::security);
    desk->whenShown([&](ui::Form& form) {
      openDialog(dynamic_cast<frmOptions&>(form), [&] { enter({kStored, kTyped, kTyped}); });
      user.accessKey(u'o');
    });
    host.failingCall = call;
    EXPECT_THROW(options_.ShowOptions(), Error);
    EXPECT_EQ(memory.blocksWithSecrets(), 0) << call;
    desk->dropSteps();  // if the load failed no dialog was shown
  }
}

}  // namespace
}  // namespace tillora::testing
