#include <algorithm>
#include <set>

#include "component/frmOptions.h"
#include "identity/company_details.h"
#include "identity/ledvane_link.h"
#include "sales/frmBrowseItems.h"
#include "sales/rounding.h"
#include "support/dialog.h"
#include "tests/testing/function_ref.h"
#include "tests/testing/options_test.h"

// What may happen while the host lets messages pass in one of its calls, and how the dialog ends.
namespace tillora::testing {
namespace {

using ui::Key;

class DialogLifeTest : public OptionsTest {
 protected:
  ui::TextBox& nameBox(frmOptions& dialog) {
    return dialog.tabs().companyDetails.txtCompanyDetails[CompanyDetails::name];
  }
  /// Everything by which a person could edit, save, or leave the page.
  void tryEverything(frmOptions& dialog) {
    user.click(nameBox(dialog));
    user.type(u"lost");
    user.press(Key::backspace);
    user.click(dialog.tabs().startUpEntry.chkShortcut);
    user.click(dialog.cmdCommand[frmOptions::apply]);
    user.click(dialog.cmdCommand[frmOptions::ok]);
    user.accessKey(u'a');
    user.press(Key::enter);
    user.press(Key::tab, {.ctrl = true});
    user.clickTab(dialog.tabOptions, 3);
    user.press(Key::f1);
  }
  /// The calls of a save in which the tests let messages pass: each kind, and each step of it.
  static bool isSample(const std::string& call) {
    const bool isOption = call.starts_with("put") || call.starts_with("get");
    return !isOption || call == "put CompanyName" || call == "put PasswordGlobalOverride";
  }
};

TEST_F(DialogLifeTest, NothingCanBeEditedOrSavedInsideAnyCallOfASave) {
  host.dispensingAvailable = true;
  host.grades = {{{u"GradeNumber", std::int32_t{1}},
                  {u"Product", Text(u"Fuel:ULP")},
                  {u"Caption", Text(u"Unleaded")}}};
  saveDefaults();
  std::set<std::string> tried;
  open([&](frmOptions& dialog) {
    user.type(u"One");
    host.onCall = [&](const std::string& call) {
      if (!isSample(call) || !tried.insert(call).second) return;
      tryEverything(dialog);
      EXPECT_EQ(nameBox(dialog).text(), u"One") << call;
      EXPECT_EQ(dialog.tabOptions.selected(), 1) << call;
    };
    host.calls.clear();
    user.click(dialog.cmdCommand[frmOptions::apply]);
    host.onCall = nullptr;
    EXPECT_TRUE(dialog.isShown());
    EXPECT_EQ(nameBox(dialog).text(), u"One");
    EXPECT_FALSE(applyEnabled(dialog));
    EXPECT_FALSE(dialog.tabs().startUpEntry.chkShortcut.value());
    EXPECT_EQ(host.callsStarting("OptionsRecord").size(), 1U);
    EXPECT_EQ(host.callsStarting("commit").size(), 1U);

    user.click(nameBox(dialog));
    user.type(u"Two");
    EXPECT_TRUE(applyEnabled(dialog));
    user.click(dialog.cmdCommand[frmOptions::ok]);
    EXPECT_FALSE(dialog.isShown());
  });
  for (const char* call : {"Title", "OptionsRecord", "put CompanyName", "commit", "send"}) {
    EXPECT_TRUE(tried.contains(call)) << call;
  }
  EXPECT_TRUE(machine.help.topics.empty());
  EXPECT_EQ(host.value(options::CompanyName), u"Two");
  EXPECT_EQ(changes, (std::vector<std::int32_t>{0, 0}));
}

TEST_F(DialogLifeTest, NothingCanBeEditedInsideTheChangeEventEither) {
  saveDefaults();
  open([&](frmOptions& dialog) {
    options_.OptionsChanged = [&](std::int32_t& mask) {
      changes.push_back(mask);
      tryEverything(dialog);
      user.closeWindow(dialog);
      EXPECT_TRUE(dialog.isShown());
      EXPECT_EQ(nameBox(dialog).text(), u"One");
    };
    user.type(u"One");
    user.click(dialog.cmdCommand[frmOptions::apply]);
    EXPECT_FALSE(dialog.isShown()) << "the close follows the save";
  });
  EXPECT_EQ(changes.size(), 1U);
  EXPECT_EQ(host.callsStarting("commit").size(), 1U);
  EXPECT_EQ(host.value(options::CompanyName), u"One");
}

TEST_F(DialogLifeTest, ACloseInAFailingSaveLeavesTheFailureToTheHost) {
  host.failingCall = "commit";
  desk->whenShown([&](ui::Form& form) {
    host.onCall = [&](const std::string& call) {
      if (call == "put CompanyName") user.closeWindow(form);
    };
    user.type(u"x");
    user.accessKey(u'a');
  });
  FakeHost::expectFailure([&] { options_.ShowOptions(); });
  host.onCall = nullptr;
}

TEST_F(DialogLifeTest, ShowOptionsInAnyCallOfALoadIsAnErrorThere) {
  options_.FirstUse = true;
  std::size_t refused = 0;
  std::size_t calls = 0;
  host.onCall = [&](const std::string& call) {
    ++calls;
    try {
      options_.ShowOptions();
      ADD_FAILURE() << call;
    } catch (const Error& failure) {
      if (failure.number() == error::alreadyShown) ++refused;
    }
  };
  open([&](frmOptions& dialog) {
    host.onCall = nullptr;
    EXPECT_TRUE(dialog.isShown());
  });
  EXPECT_GT(calls, 200U);
  EXPECT_EQ(refused, calls);
}

TEST_F(DialogLifeTest, NoSecondDialogIsOpenedWhileTheHostGivesTheFirstItsRows) {
  host.items = {{u"OTHC", u"200", u"Charges", u"Rounding", u"Rounding of sales", u"Income"}};
  host.accounts = {
      {{u"Name", Text(u"Income")}, {u"Inactive", false}, {u"AccountType", Text(u"INC")}}};
  int browsers = 0;
  openOn(TabPage::rounding, [&](frmOptions& dialog) {
    ui::CommandButton& browse = dialog.tabs().rounding.cmdBrowse;
    std::set<std::string> tried;
    host.onCall = [&](const std::string& call) {
      if (!tried.insert(call).second) return;
      user.click(browse);
      user.closeWindow(dialog);
      EXPECT_TRUE(dialog.isShown()) << call;
    };
    desk->whenShown([&](ui::Form& form) {
      host.onCall = nullptr;
      ++browsers;
      EXPECT_NE(dynamic_cast<frmBrowseItems*>(&form), nullptr);
      user.closeWindow(form);
      EXPECT_FALSE(form.isShown());
    });
    user.click(browse);
    EXPECT_TRUE(tried.contains("ItemList"));
    EXPECT_FALSE(dialog.isShown()) << "the close follows the browser";
  });
  EXPECT_EQ(browsers, 1);
}

TEST_F(DialogLifeTest, TheMessageIsSentBeforeApplyIsDisabled) {
  open([&](frmOptions& dialog) {
    bool sent = false;
    host.onCall = [&](const std::string& call) {
      if (call != "commit" && call != "send") return;
      EXPECT_TRUE(applyEnabled(dialog)) << call;
      sent = sent || call == "send";
    };
    user.type(u"x");
    user.click(dialog.cmdCommand[frmOptions::apply]);
    host.onCall = nullptr;
    EXPECT_TRUE(sent);
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(DialogLifeTest, UntilTheEndOfAFirstUseNoEditEnablesApply) {
  frmOptions dialog(machine.platform(desk->screen(), boxes));
  dialog.FirstUse = true;
  dialog.setHost(host.objects());
  std::size_t edits = 0;
  const auto edit = [&] {
    nameBox(dialog).setText(Text(++edits, u'x'));
    EXPECT_FALSE(applyEnabled(dialog));
  };
  host.onCall = [&](const std::string& call) {
    if (call == "string 20000" || call == "commit" || call == "send") edit();
  };
  dialog.changed = [&](std::int32_t&) { edit(); };
  dialog.load();
  host.onCall = nullptr;
  EXPECT_EQ(edits, 4U);
  EXPECT_FALSE(applyEnabled(dialog));
  nameBox(dialog).setText(u"after the load");
  EXPECT_TRUE(applyEnabled(dialog));
}

/// What ShowOptions reports about the data file when it fails.
class FailedDialogTest : public DialogLifeTest {
 protected:
  void chooseDataFile(frmOptions& dialog, TextView file) {
    machine.fileDialogs.answers = {Text(file)};
    user.click(dialog.tabs().ledvaneLink.cmdLedvane);
  }
  /// A dialog whose commit fails after `act`.
  void fail(const FunctionRef<void(frmOptions&)>& act) {
    desk->whenShown([&](ui::Form& form) {
      auto& dialog = dynamic_cast<frmOptions&>(form);
      act(dialog);
      host.failingCall = "commit";
      user.click(nameBox(dialog));
      user.type(u"x");
      user.click(dialog.cmdCommand[frmOptions::apply]);
    });
    FakeHost::expectFailure([&] { options_.ShowOptions(); });
    host.failingCall.clear();
  }
};

TEST_F(FailedDialogTest, ACommittedDataFileIsReportedThoughALaterSaveFails) {
  fail([&](frmOptions& dialog) {
    chooseDataFile(dialog, u"C:\\Ledvane\\Other.ldv");
    user.click(dialog.cmdCommand[frmOptions::apply]);
    EXPECT_FALSE(applyEnabled(dialog));
  });
  EXPECT_TRUE(options_.ChangedDataFile());
}

TEST_F(FailedDialogTest, ACommittedDataFileIsReportedThoughTheMessageAfterItFails) {
  host.failingCall = "send";
  desk->whenShown([&](ui::Form& form) {
    chooseDataFile(dynamic_cast<frmOptions&>(form), u"C:\\Ledvane\\Other.ldv");
    user.accessKey(u'a');
  });
  FakeHost::expectFailure([&] { options_.ShowOptions(); });
  host.failingCall.clear();
  EXPECT_TRUE(options_.ChangedDataFile());
}

TEST_F(FailedDialogTest, WithoutACommittedDataFileTheFormerValueStays) {
  fail([](frmOptions&) {});
  EXPECT_FALSE(options_.ChangedDataFile());
  fail([&](frmOptions& dialog) { chooseDataFile(dialog, u"C:\\Ledvane\\Other.ldv"); });
  EXPECT_FALSE(options_.ChangedDataFile()) << "its commit failed";

  edit([&](frmOptions& dialog) { chooseDataFile(dialog, u"C:\\Ledvane\\Third.ldv"); });
  ASSERT_TRUE(options_.ChangedDataFile());
  fail([](frmOptions&) {});
  EXPECT_TRUE(options_.ChangedDataFile());
  open([](frmOptions&) {});
  EXPECT_FALSE(options_.ChangedDataFile());
}

/// A dialog of the kind that edits values, with OK alone.
class Editor final : public EditDialog {
 public:
  explicit Editor(ui::Screen& screen) : EditDialog(screen, u"Editor") {
    setClientSize({2000, 1000});
    okButton.setBounds({120, 120, 1200, 375});
    okButton.click = [this] { acceptAndClose(); };
  }
  ui::CommandButton& okButton{add<ui::CommandButton>(u"OK")};
};

TEST_F(DialogLifeTest, ADialogThatEditsValuesStartsNotCancelledEachTimeItIsShown) {
  Editor editor(desk->screen());
  EXPECT_FALSE(editor.Cancelled());
  const auto show = [&](bool accept) {
    desk->whenShown([&, accept](ui::Form&) {
      EXPECT_FALSE(editor.Cancelled());
      if (accept) {
        user.click(editor.okButton);
      } else {
        user.closeWindow(editor);
      }
    });
    editor.showModal();
    EXPECT_EQ(editor.Cancelled(), !accept);
  };
  show(false);
  show(true);
  show(false);
  show(false);
}

TEST_F(DialogLifeTest, ADialogThatEndsWithItsWindowIsCancelled) {
  Editor editor(desk->screen());
  desk->whenShown([&](ui::Form&) {
    editor.end();
    EXPECT_FALSE(editor.isShown());
  });
  editor.showModal();
  EXPECT_TRUE(editor.Cancelled());
  EXPECT_FALSE(editor.isLoaded());
}

TEST_F(DialogLifeTest, OptionsThatEndDuringASaveLetItFinish) {
  saveDefaults();
  open([&](frmOptions& dialog) {
    user.type(u"One");
    host.onCall = [&](const std::string& call) {
      if (call != "commit") return;
      dialog.end();
      EXPECT_FALSE(dialog.isShown());
      EXPECT_TRUE(dialog.isLoaded()) << "the host's objects are still in use";
    };
    user.click(dialog.cmdCommand[frmOptions::ok]);
    host.onCall = nullptr;
    EXPECT_FALSE(dialog.isLoaded());
    EXPECT_EQ(options_.DBJetObject.use_count(), 1);
    EXPECT_EQ(options_.AppObject.use_count(), 1);
    EXPECT_EQ(options_.SettingsObject.use_count(), 1);
  });
  EXPECT_EQ(host.value(options::CompanyName), u"One");
  EXPECT_EQ(host.sent.size(), 1U);
  EXPECT_EQ(changes.size(), 1U);
}

}  // namespace
}  // namespace tillora::testing
