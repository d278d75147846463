#include "identity/passwords.h"

#include <algorithm>

#include "identity/company_details.h"
#include "identity/frmPasswordSet.h"
#include "sales/list_columns.h"
#include "tests/testing/function_ref.h"
#include "tests/testing/options_test.h"

namespace tillora::testing {
namespace {

using ui::Key;

struct Protection {
  int index;
  TextView frame;
  TextView caption;
  TextView buttonCaption;
  TextView dialogCaption;
  const Option<OptionType::Long>* bits;
  std::int32_t bit;
  const Option<OptionType::Text>* password;
};

constexpr TextView kAdministrator = u"Ledvane Point of Sale Administrator";
constexpr TextView kTerminal = u"Ledvane Point of Sale Terminal";

const std::vector<Protection> kProtections = {
    {0, kAdministrator, u"Password required to start &Ledvane Point of Sale Administrator",
     u"&Password...", u"Password to start Tillora Administrator", &options::AdminSecurityBits, 32,
     &options::PasswordStartAdmin},
    {1, kAdministrator, u"Password required to &Transfer Data from Ledvane", u"Pa&ssword...",
     u"Password for Transfer Data", &options::AdminSecurityBits, 1, &options::PasswordTransferData},
    {2, kAdministrator, u"Password required to Post Tra&nsactions to Ledvane", u"Pass&word...",
     u"Password to Post Transactions", &options::AdminSecurityBits, 2,
     &options::PasswordPostTransactions},
    {3, kAdministrator, u"Password required to Co&mpact the Database", u"Passwo&rd...",
     u"Password to Compact the Database", &options::AdminSecurityBits, 4,
     &options::PasswordCompactDatabase},
    {4, kAdministrator, u"Password req&uired to access the Options window", u"Passwor&d...",
     u"Password to access Options", &options::AdminSecurityBits, 8, &options::PasswordAdminOptions},
    {5, kAdministrator, u"Password required to De&lete a Terminal", u"Password&...",
     u"Password to Delete a Terminal", &options::AdminSecurityBits, 16,
     &options::PasswordDeleteTerminal},
    {6, kAdministrator, u"Password required to C&hange Prices", u"&Password...",
     u"Password to Change Prices", &options::AdminSecurityBits, 64, &options::PasswordChangePrices},
    {7, kAdministrator, u"Password required to access Promot&ions", u"Pa&ssword...",
     u"Password to access Promotions", &options::AdminSecurityBits, 128,
     &options::PasswordPromotions},
    {8, kTerminal, u"Password required to perform &End Of Day processing", u"Pass&word...",
     u"Password for End Of Day", &options::TerminalSecurityBits, 1, &options::PasswordEndOfDay},
    {9, kTerminal, u"Password required to access the Opt&ions window", u"Passwo&rd...",
     u"Password to access Options", &options::TerminalSecurityBits, 2,
     &options::PasswordTerminalOptions},
    {10, kTerminal, u"Use &Global Manager Override Password", u"Passwor&d...",
     u"Global Manager Override Password", &options::TerminalSecurityBits, 4,
     &options::PasswordGlobalOverride},
};

class PasswordsTest : public OptionsTest {
 protected:
  static ui::CheckBox& box(frmOptions& dialog, int index) {
    return dialog.tabs().passwords.chkSecurity[index];
  }
  static ui::CommandButton& button(frmOptions& dialog, int index) {
    return dialog.tabs().passwords.cmdSecurity[index];
  }
  static std::vector<int> ticked(frmOptions& dialog) {
    std::vector<int> rows;
    for (const auto& [index, box] : dialog.tabs().passwords.chkSecurity) {
      EXPECT_EQ(button(dialog, index).enabled(), box->value()) << index;
      if (box->value()) rows.push_back(index);
    }
    return rows;
  }
  static std::vector<int> allRows() { return {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10}; }

  void openTab(const FunctionRef<void(frmOptions&)>& act) { openOn(TabPage::security, act); }
  /// Opens the tab and presses OK after `act`.
  void editTab(const FunctionRef<void(frmOptions&)>& act) {
    openTab([&](frmOptions& dialog) {
      act(dialog);
      user.accessKey(u'o');
    });
  }
  /// Presses the row's button and acts in the password dialog.
  void openDialog(frmOptions& dialog, int row, const FunctionRef<void(frmPasswordSet&)>& act) {
    desk->whenShown([&](ui::Form& form) { act(dynamic_cast<frmPasswordSet&>(form)); });
    user.click(button(dialog, row));
  }
  /// Types the texts into the boxes, from the one with the focus on, and presses Enter.
  void enter(const std::vector<TextView>& texts) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
      if (i > 0) user.press(Key::tab);
      user.type(texts[i]);
    }
    user.press(Key::enter);
  }
  void setPassword(frmOptions& dialog, int row, const std::vector<TextView>& texts) {
    openDialog(dialog, row, [&](frmPasswordSet& form) {
      enter(texts);
      EXPECT_FALSE(form.isShown());
    });
  }
  /// An edit elsewhere.
  void touch(frmOptions& dialog) {
    user.clickTab(dialog.tabOptions, 1);
    user.click(dialog.tabs().companyDetails.txtCompanyDetails[CompanyDetails::name]);
    user.type(u"Corner Shop");
  }
  /// A password of its own for each row, stored, with all protections on.
  void storeAll() {
    host.store(options::AdminSecurityBits, 255);
    host.store(options::TerminalSecurityBits, 7);
    for (const Protection& row : kProtections) host.store(*row.password, passwordOf(row.index));
  }
  static Text passwordOf(int row) { return u"secret" + Text(1, static_cast<char16_t>(u'a' + row)); }
};

TEST_F(PasswordsTest, ShowsEachProtectionWithItsButtonInItsFrame) {
  openTab([&](frmOptions& dialog) {
    const auto& tab = dialog.tabs().passwords;
    ASSERT_EQ(tab.fraSecurity.count(), 2);
    ASSERT_EQ(tab.chkSecurity.count(), 11);
    ASSERT_EQ(tab.cmdSecurity.count(), 11);
    EXPECT_TRUE(tab.fraSecurity[0].effectivelyVisible());
    for (const Protection& row : kProtections) {
      EXPECT_EQ(box(dialog, row.index).caption(), row.caption);
      EXPECT_EQ(box(dialog, row.index).parent()->caption(), row.frame);
      EXPECT_EQ(button(dialog, row.index).parent(), box(dialog, row.index).parent());
      EXPECT_EQ(button(dialog, row.index).caption(), row.buttonCaption);
      EXPECT_EQ(button(dialog, row.index).toolTip(), u"Show the set password window");
      EXPECT_FALSE(button(dialog, row.index).enabled());
    }
  });
}

TEST_F(PasswordsTest, RowsStandBelowEachOtherInsideTheirFrames) {
  openTab([&](frmOptions& dialog) {
    const auto& tab = dialog.tabs().passwords;
    const ui::Screen& screen = desk->screen();
    for (const auto& [index, check] : tab.chkSecurity) {
      const ui::Rect& place = check->bounds();
      const ui::Rect& beside = button(dialog, index).bounds();
      const ui::Rect& frame = check->parent()->bounds();
      EXPECT_GT(place.width, screen.textWidth(ui::withoutAccessKey(check->caption())) + 200);
      EXPECT_LE(place.right(), beside.left) << index;
      EXPECT_LE(beside.right(), frame.width) << index;
      EXPECT_LE(beside.bottom(), frame.height) << index;
      const int above = index - 1;
      if (index == 0 || tab.chkSecurity[above].parent() != check->parent()) continue;
      EXPECT_GE(beside.top, button(dialog, above).bounds().bottom()) << index;
    }
    EXPECT_GE(tab.fraSecurity[1].bounds().top, tab.fraSecurity[0].bounds().bottom());
    EXPECT_LE(tab.fraSecurity[1].bounds().bottom(),
              tab.fraSecurity[1].parent()->clientSize().height);
  });
}

TEST_F(PasswordsTest, NothingIsProtectedWhenNothingIsStored) {
  openTab([&](frmOptions& dialog) {
    EXPECT_TRUE(ticked(dialog).empty());
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(PasswordsTest, AMissingAdministratorValueClearsItsEightBoxes) {
  frmOptions dialog(machine.platform(desk->screen(), boxes));
  dialog.setHost(host.objects());
  host.store(options::TerminalSecurityBits, 7);
  for (const int row : allRows()) box(dialog, row).setValue(true);
  dialog.load();
  EXPECT_EQ(ticked(dialog), (std::vector<int>{8, 9, 10}));
}

TEST_F(PasswordsTest, EachBitTicksItsOwnRowAndNoOther) {
  for (const Protection& row : kProtections) {
    host.stored.clear();
    host.store(*row.bits, row.bit);
    openTab([&](frmOptions& dialog) {
      EXPECT_EQ(ticked(dialog), std::vector<int>{row.index});
      EXPECT_FALSE(applyEnabled(dialog));
    });
  }
}

TEST_F(PasswordsTest, EachRowIsSavedAsItsOwnBitAndNoOther) {
  for (const Protection& row : kProtections) {
    host.stored.clear();
    editTab([&](frmOptions& dialog) { user.click(box(dialog, row.index)); });
    const bool isAdmin = row.bits == &options::AdminSecurityBits;
    EXPECT_EQ(host.value(options::AdminSecurityBits), isAdmin ? row.bit : 0) << row.index;
    EXPECT_EQ(host.value(options::TerminalSecurityBits), isAdmin ? 0 : row.bit) << row.index;
  }
}

TEST_F(PasswordsTest, AMissingValueOfOneProgramLeavesTheOther) {
  host.store(options::TerminalSecurityBits, 7);
  openTab([&](frmOptions& dialog) { EXPECT_EQ(ticked(dialog), (std::vector<int>{8, 9, 10})); });
  host.stored.clear();
  host.store(options::AdminSecurityBits, 255);
  openTab([&](frmOptions& dialog) {
    EXPECT_EQ(ticked(dialog), (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7}));
  });
}

TEST_F(PasswordsTest, AMissingTerminalValueClearsTwoBoxesAndLeavesTheOverride) {
  const auto load = [&] {
    frmOptions dialog(machine.platform(desk->screen(), boxes));
    dialog.setHost(host.objects());
    for (const int row : allRows()) box(dialog, row).setValue(true);
    dialog.load();
    return ticked(dialog);
  };
  EXPECT_EQ(load(), std::vector<int>{10});
  host.store(options::TerminalSecurityBits, 0);
  EXPECT_EQ(load(), std::vector<int>{});
  host.store(options::TerminalSecurityBits, 2);
  EXPECT_EQ(load(), std::vector<int>{9});
}

TEST_F(PasswordsTest, BitsThatNoRowOwnsAreGoneAfterASave) {
  host.store(options::AdminSecurityBits, -1);
  host.store(options::TerminalSecurityBits, -1);
  editTab([&](frmOptions& dialog) {
    EXPECT_EQ(ticked(dialog), allRows());
    touch(dialog);
  });
  EXPECT_EQ(host.value(options::AdminSecurityBits), 255);
  EXPECT_EQ(host.value(options::TerminalSecurityBits), 7);
}

TEST_F(PasswordsTest, AClickOnABoxEnablesItsButtonAndApply) {
  for (const int row : allRows()) {
    openTab([&](frmOptions& dialog) {
      EXPECT_FALSE(applyEnabled(dialog));
      user.click(box(dialog, row));
      EXPECT_TRUE(applyEnabled(dialog));
      EXPECT_EQ(ticked(dialog), std::vector<int>{row});
      user.click(box(dialog, row));
      EXPECT_TRUE(ticked(dialog).empty());
    });
  }
}

TEST_F(PasswordsTest, TheButtonOfAnUntickedBoxDoesNothing) {
  openTab([&](frmOptions& dialog) {
    for (const int row : allRows()) {
      EXPECT_FALSE(button(dialog, row).enabled()) << row;
      // Past what a person can reach: the button itself refuses, too.
      button(dialog, row).press();
      EXPECT_FALSE(button(dialog, row).setFocus());
    }
    user.click(button(dialog, 4));
    EXPECT_FALSE(applyEnabled(dialog));
    // Pressed as a person would press it, it would have shown a dialog.
    user.click(box(dialog, 4));
    openDialog(dialog, 4, [](frmPasswordSet& form) { EXPECT_TRUE(form.isShown()); });
  });
}

TEST_F(PasswordsTest, ApplyIsEnabledByAButtonThoughThePasswordStays) {
  storeAll();
  openTab([&](frmOptions& dialog) {
    EXPECT_FALSE(applyEnabled(dialog));
    openDialog(dialog, 4, [&](frmPasswordSet&) {
      EXPECT_TRUE(applyEnabled(dialog));
      user.press(Key::escape);
    });
    EXPECT_TRUE(applyEnabled(dialog));
    user.accessKey(u'o');
  });
  EXPECT_EQ(host.value(options::PasswordAdminOptions), passwordOf(4));
}

TEST_F(PasswordsTest, EachDialogIsNamedAfterItsProtection) {
  storeAll();
  openTab([&](frmOptions& dialog) {
    for (const Protection& row : kProtections) {
      openDialog(dialog, row.index, [&](frmPasswordSet& form) {
        EXPECT_EQ(form.caption(), row.dialogCaption);
        EXPECT_EQ(form.Password.text(), passwordOf(row.index));
      });
    }
    host.title = u"Back Office";
    host.calls.clear();
    openDialog(dialog, 0, [&](frmPasswordSet& form) {
      EXPECT_EQ(form.caption(), u"Password to start Back Office");
    });
    EXPECT_EQ(host.calls, std::vector<std::string>{"Title"});
    openDialog(dialog, 1, [](frmPasswordSet&) {});
    EXPECT_EQ(host.calls.size(), 1U);
  });
}

TEST_F(PasswordsTest, EachPasswordGoesToItsOwnSettingInLowerCase) {
  editTab([&](frmOptions& dialog) {
    for (const int row : allRows()) {
      user.click(box(dialog, row));
      Text capitals = passwordOf(row);
      capitals.front() = u'S';
      setPassword(dialog, row, {capitals, passwordOf(row)});
    }
  });
  for (const Protection& row : kProtections) {
    EXPECT_EQ(host.value(*row.password), passwordOf(row.index)) << row.index;
  }
  EXPECT_EQ(host.value(options::AdminSecurityBits), 255);
  EXPECT_EQ(host.value(options::TerminalSecurityBits), 7);
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(PasswordsTest, TheSameLettersInCapitalsAreTheOldPassword) {
  editTab([&](frmOptions& dialog) {
    user.click(box(dialog, 3));
    setPassword(dialog, 3, {u"OpenSesame", u"openSESAME"});
  });
  EXPECT_EQ(host.value(options::PasswordCompactDatabase), u"opensesame");
  editTab([&](frmOptions& dialog) { setPassword(dialog, 3, {u"OPENSESAME", u"Other", u"Other"}); });
  EXPECT_EQ(host.value(options::PasswordCompactDatabase), u"other");
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(PasswordsTest, APasswordCanBeClearedWhileItsProtectionStays) {
  storeAll();
  editTab([&](frmOptions& dialog) { setPassword(dialog, 8, {passwordOf(8), u"", u""}); });
  EXPECT_EQ(host.value(options::PasswordEndOfDay), u"");
  EXPECT_EQ(host.value(options::TerminalSecurityBits), 7);
  openTab([&](frmOptions& dialog) {
    EXPECT_TRUE(box(dialog, 8).value());
    openDialog(dialog, 8, [](frmPasswordSet& form) { EXPECT_TRUE(form.txtPassword[0].locked()); });
  });
}

TEST_F(PasswordsTest, UntickingARowErasesItsPasswordAndItsBitAtTheSave) {
  storeAll();
  editTab([&](frmOptions& dialog) { user.click(box(dialog, 4)); });
  EXPECT_EQ(host.value(options::AdminSecurityBits), 255 - 8);
  for (const Protection& row : kProtections) {
    EXPECT_EQ(host.value(*row.password), row.index == 4 ? Text() : passwordOf(row.index));
  }
  openTab([&](frmOptions& dialog) {
    user.click(box(dialog, 4));
    openDialog(dialog, 4, [](frmPasswordSet& form) { EXPECT_TRUE(form.txtPassword[0].locked()); });
  });
}

TEST_F(PasswordsTest, TickingAgainStartsAfreshOnlyAfterASave) {
  storeAll();
  openTab([&](frmOptions& dialog) {
    const auto passwordNow = [&] {
      Text now;
      openDialog(dialog, 10, [&](frmPasswordSet& form) { now = form.Password.text(); });
      return now;
    };
    user.click(box(dialog, 10));
    user.click(box(dialog, 10));
    EXPECT_EQ(passwordNow(), passwordOf(10));
    user.click(box(dialog, 10));
    user.click(dialog.cmdCommand[frmOptions::apply]);
    user.click(box(dialog, 10));
    EXPECT_EQ(passwordNow(), u"");
  });
}

TEST_F(PasswordsTest, ARefusedSaveKeepsThePasswordOfAnUntickedRow) {
  storeAll();
  host.store(options::SalesPersonListColumns, 0);
  editTab([&](frmOptions& dialog) {
    user.click(box(dialog, 6));
    user.click(dialog.cmdCommand[frmOptions::apply]);
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(boxes.shown[0].title, u"Not enough columns");
    EXPECT_EQ(host.value(options::PasswordChangePrices), passwordOf(6));

    user.clickCheck(dialog.tabs().listColumns.lstListShow[ListColumns::salesPerson], 0);
    user.clickTab(dialog.tabOptions, static_cast<int>(TabPage::security));
    user.click(box(dialog, 6));
    openDialog(dialog, 6,
               [](frmPasswordSet& form) { EXPECT_EQ(form.Password.text(), passwordOf(6)); });
  });
  EXPECT_EQ(host.value(options::PasswordChangePrices), passwordOf(6));
  EXPECT_EQ(host.value(options::AdminSecurityBits), 255);
}

TEST_F(PasswordsTest, NothingIsWrittenBeforeTheSaveAndCancelDropsAll) {
  storeAll();
  const auto stored = host.stored;
  openTab([&](frmOptions& dialog) {
    host.calls.clear();
    setPassword(dialog, 7, {passwordOf(7), u"other", u"other"});
    setPassword(dialog, 8, {passwordOf(8), u"", u""});
    user.click(box(dialog, 9));
    EXPECT_TRUE(host.calls.empty());
    user.click(dialog.cmdCommand[frmOptions::cancel]);
  });
  EXPECT_EQ(host.stored, stored);
  openTab([&](frmOptions& dialog) {
    openDialog(dialog, 7,
               [](frmPasswordSet& form) { EXPECT_EQ(form.Password.text(), passwordOf(7)); });
  });
}

TEST_F(PasswordsTest, UntouchedPasswordsSurviveASave) {
  storeAll();
  host.store(options::PasswordPromotions, u"KEPT AS IT IS");
  host.store(options::PasswordEndOfDay, u"a password of more than sixteen characters");
  const auto stored = host.stored;
  editTab([&](frmOptions& dialog) { touch(dialog); });
  EXPECT_EQ(host.value(options::CompanyName), u"Corner Shop");
  for (const Protection& row : kProtections) {
    EXPECT_EQ(host.stored.at(row.password->id), stored.at(row.password->id)) << row.index;
  }
}

TEST_F(PasswordsTest, ACancelledDialogKeepsThePasswordAndARefusedOneItsLowerCase) {
  host.store(options::AdminSecurityBits, 255);
  host.store(options::PasswordTransferData, u"SECRET");
  host.store(options::PasswordPostTransactions, u"SECRET");
  editTab([&](frmOptions& dialog) {
    openDialog(dialog, 1, [&](frmPasswordSet&) { user.press(Key::escape); });
    openDialog(dialog, 2, [&](frmPasswordSet&) {
      enter({u"wrong", u"other", u"other"});
      user.press(Key::escape);
    });
  });
  EXPECT_EQ(host.value(options::PasswordTransferData), u"SECRET");
  EXPECT_EQ(host.value(options::PasswordPostTransactions), u"secret");
}

TEST_F(PasswordsTest, TheSaveWritesRowByRow) {
  storeAll();
  host.store(options::AdminSecurityBits, 32 | 8);
  host.store(options::TerminalSecurityBits, 4);
  openTab([&](frmOptions& dialog) {
    touch(dialog);
    host.calls.clear();
    user.click(dialog.cmdCommand[frmOptions::apply]);
  });
  const std::vector<std::string> expected = {
      "put AdminSecurityBits",       "get AdminSecurityBits",      "put AdminSecurityBits",
      "put PasswordStartAdmin",      "put PasswordTransferData",   "put PasswordPostTransactions",
      "put PasswordCompactDatabase", "get AdminSecurityBits",      "put AdminSecurityBits",
      "put PasswordAdminOptions",    "put PasswordDeleteTerminal", "put PasswordChangePrices",
      "put PasswordPromotions",      "put TerminalSecurityBits",   "put PasswordEndOfDay",
      "put PasswordTerminalOptions", "get TerminalSecurityBits",   "put TerminalSecurityBits",
      "put PasswordGlobalOverride"};
  const auto from = std::ranges::find(host.calls, expected.front());
  ASSERT_GE(host.calls.end() - from, static_cast<std::ptrdiff_t>(expected.size()));
  EXPECT_EQ(std::vector<std::string>(from, from + static_cast<std::ptrdiff_t>(expected.size())),
            expected);
}

TEST_F(PasswordsTest, PasswordsRaiseNoBit) {
  saveDefaults();
  editTab([&](frmOptions& dialog) {
    user.click(box(dialog, 0));
    setPassword(dialog, 0, {u"secret", u"secret"});
  });
  EXPECT_EQ(changes, std::vector<std::int32_t>{0});
}

TEST_F(PasswordsTest, AFirstUseStoresThatNothingIsProtected) {
  saveDefaults();
  EXPECT_EQ(host.value(options::AdminSecurityBits), 0);
  EXPECT_EQ(host.value(options::TerminalSecurityBits), 0);
  for (const Protection& row : kProtections) EXPECT_EQ(host.value(*row.password), u"");
}

TEST_F(PasswordsTest, APasswordIsSetByKeysAlone) {
  openTab([&](frmOptions& dialog) {
    user.accessKey(u'e');
    EXPECT_TRUE(box(dialog, 8).value());
    user.press(Key::tab);
    EXPECT_TRUE(button(dialog, 8).hasFocus());
    desk->whenShown([&](ui::Form&) { enter({u"secret", u"secret"}); });
    user.press(Key::space);
    user.accessKey(u'g');
    EXPECT_TRUE(box(dialog, 10).value());
    desk->whenShown([&](ui::Form&) { enter({u"override", u"override"}); });
    user.accessKey(u'd');
    user.press(Key::tab);  // from the last control of the page to OK
    user.press(Key::enter);
    EXPECT_FALSE(dialog.isShown());
  });
  EXPECT_EQ(host.value(options::PasswordEndOfDay), u"secret");
  EXPECT_EQ(host.value(options::PasswordGlobalOverride), u"override");
  EXPECT_EQ(host.value(options::TerminalSecurityBits), 5);
}

TEST_F(PasswordsTest, AManagerIsRefusedThreeWaysAndThenChangesThePassword) {
  storeAll();
  editTab([&](frmOptions& dialog) {
    openDialog(dialog, 4, [&](frmPasswordSet& form) {
      enter({u"wrong"});
      enter({passwordOf(4), u"other", u"another"});
      enter({u"abc"});
      user.selectAll();
      enter({u"better", u"better"});
      EXPECT_FALSE(form.isShown());
    });
    openDialog(dialog, 4,
               [&](frmPasswordSet& form) { EXPECT_EQ(form.Password.text(), u"better"); });
  });
  std::vector<Text> titles;
  for (const ShownMessage& message : boxes.shown) {
    titles.push_back(message.title);
    EXPECT_TRUE(message.settingsGiven);
  }
  EXPECT_EQ(titles, (std::vector<Text>{u"Old Password incorrect", u"Passwords do not match",
                                       u"Password not valid"}));
  EXPECT_EQ(host.value(options::PasswordAdminOptions), u"better");
}

TEST_F(PasswordsTest, AFailingHostIsRaisedAsItCameAndNothingIsStored) {
  storeAll();
  const auto stored = host.stored;
  for (const std::string call : {"put PasswordAdminOptions", "get TerminalSecurityBits"}) {
    host.failingCall.clear();
    desk->whenShown([&](ui::Form& form) {
      touch(dynamic_cast<frmOptions&>(form));
      host.failingCall = call;
      user.accessKey(u'o');
    });
    FakeHost::expectFailure([&] { options_.ShowOptions(); });
    EXPECT_EQ(host.calls.back(), call);
    EXPECT_EQ(host.stored, stored);
  }
}

TEST_F(PasswordsTest, AnApplicationWithoutATitleEndsTheDialog) {
  storeAll();
  options_.SelectedTab = static_cast<std::int16_t>(TabPage::security);
  desk->whenShown([&](ui::Form& form) {
    host.failingCall = "Title";
    user.click(button(dynamic_cast<frmOptions&>(form), 0));
  });
  EXPECT_THROW(options_.ShowOptions(), Error);
  EXPECT_EQ(host.calls.back(), "Title");
}

}  // namespace
}  // namespace tillora::testing
