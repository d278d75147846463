#include "identity/start_up_entry.h"

#include <algorithm>

#include "identity/company_details.h"
#include "identity/ledvane_link.h"
#include "sales/list_columns.h"
#include "tests/testing/options_test.h"

namespace tillora::testing {
namespace {

using ui::Key;
using Values = std::vector<std::pair<Text, Text>>;

class StartUpEntryTest : public OptionsTest {
 protected:
  static ui::CheckBox& box(frmOptions& dialog) { return dialog.tabs().startUpEntry.chkShortcut; }
  void apply(frmOptions& dialog) { user.click(dialog.cmdCommand[frmOptions::apply]); }
  bool tickedAtLoad() {
    bool ticked = false;
    open([&](frmOptions& dialog) {
      ticked = box(dialog).value();
      EXPECT_FALSE(applyEnabled(dialog));
    });
    return ticked;
  }
  /// Leaves the box alone and saves.
  void saveSomethingElse() {
    edit([&](frmOptions&) { user.type(u"x"); });
  }

  Values& values = machine.registry.values;
  const Text kName = u"Tillora Administrator";
  const Text kData = u"\"C:\\Tillora\\Tillora Administrator.exe\"";
  const std::pair<Text, Text> kOther{u"Other program", u"other.exe"};
};

TEST_F(StartUpEntryTest, TheCaptionNamesTheHostProgram) {
  for (const Text title : {u"Tillora Administrator", u"Shop", u"Smith & Co Administrator"}) {
    host.title = title;
    open([&](frmOptions& dialog) {
      EXPECT_EQ(box(dialog).caption(), u"Start " + title + u" when Windows starts up");
    });
  }
}

TEST_F(StartUpEntryTest, AnAmpersandOfTheTitleIsShownAndIsNotAnAccessKey) {
  host.title = u"Smith & Co Administrator";
  open([&](frmOptions& dialog) {
    EXPECT_EQ(box(dialog).accessKey(), std::nullopt);
    EXPECT_EQ(ui::withoutAccessKey(box(dialog).caption()),
              u"Start Smith & Co Administrator when Windows starts up");
    EXPECT_FALSE(dialog.userAccessKey(u' '));
    EXPECT_FALSE(box(dialog).value());
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(StartUpEntryTest, TickingAndApplyingWritesTheQuotedPathAndUntickingRemovesIt) {
  values = {kOther};
  open([&](frmOptions& dialog) {
    user.click(box(dialog));
    EXPECT_TRUE(applyEnabled(dialog));
    EXPECT_EQ(values, Values{kOther});
    apply(dialog);
    EXPECT_EQ(values, (Values{kOther, {kName, kData}}));
    user.click(box(dialog));
    apply(dialog);
    EXPECT_EQ(values, Values{kOther});
  });
}

TEST_F(StartUpEntryTest, TheEntryIsThereWhenTheDialogOpensAgain) {
  EXPECT_FALSE(tickedAtLoad());
  edit([&](frmOptions& dialog) { user.click(box(dialog)); });
  EXPECT_TRUE(tickedAtLoad());
  edit([&](frmOptions& dialog) { user.click(box(dialog)); });
  EXPECT_FALSE(tickedAtLoad());
}

TEST_F(StartUpEntryTest, AValueWithOtherDataCountsAsPresentAndIsReplacedByTheNextSave) {
  values = {{kName, u"C:\\Old\\Tillora.exe /hidden"}, kOther};
  EXPECT_TRUE(tickedAtLoad());
  EXPECT_EQ(values[0].second, u"C:\\Old\\Tillora.exe /hidden");
  saveSomethingElse();
  EXPECT_EQ(values, (Values{{kName, kData}, kOther}));
}

TEST_F(StartUpEntryTest, NamesAreComparedExactly) {
  for (const Text name : {u"tillora administrator", u"TILLORA ADMINISTRATOR", u"Tillora",
                          u" Tillora Administrator", u"Tillora Administrator "}) {
    values = {{name, kData}};
    EXPECT_FALSE(tickedAtLoad());
    saveSomethingElse();
    EXPECT_EQ(values, (Values{{name, kData}})) << "what is not there is not removed";
  }
}

TEST_F(StartUpEntryTest, ANameInOtherLetterCaseIsReplaced) {
  values = {{u"TILLORA administrator", u"x"}, kOther};
  edit([&](frmOptions& dialog) { user.click(box(dialog)); });
  EXPECT_EQ(values, (Values{kOther, {kName, kData}}));
  EXPECT_TRUE(tickedAtLoad());
}

TEST_F(StartUpEntryTest, UntickedAndAbsentRemovesNothing) {
  values = {kOther};
  saveSomethingElse();
  EXPECT_EQ(values, Values{kOther});
}

TEST_F(StartUpEntryTest, AKeyThatCannotBeOpenedLoadsUntickedAndSavesNothing) {
  values = {{kName, u"x"}};
  machine.registry.key.clear();
  EXPECT_FALSE(tickedAtLoad());
  edit([&](frmOptions& dialog) {
    user.type(u"Corner Shop");
    user.click(box(dialog));
  });
  EXPECT_EQ(values, (Values{{kName, u"x"}}));
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_EQ(host.value(options::CompanyName), u"Corner Shop");
  EXPECT_EQ(host.sent.size(), 1U);
}

TEST_F(StartUpEntryTest, AReadOnlyKeyShowsItsEntryAndDoesNotStopASave) {
  values = {{kName, u"x"}};
  machine.registry.readOnly = true;
  EXPECT_TRUE(tickedAtLoad());
  edit([&](frmOptions& dialog) {
    user.type(u"Corner Shop");
    user.click(box(dialog));
  });
  EXPECT_EQ(values, (Values{{kName, u"x"}}));
  EXPECT_EQ(host.value(options::CompanyName), u"Corner Shop");
  EXPECT_TRUE(tickedAtLoad());
}

TEST_F(StartUpEntryTest, ARegistryThatFailsDoesNotStopASave) {
  machine.registry.writesFail = true;
  const Values before = {{kName, u"x"}};
  values = before;
  for (int i = 0; i < 2; ++i) {  // with the box ticked, then unticked
    edit([&](frmOptions& dialog) {
      user.type(u"Corner Shop");
      EXPECT_TRUE(box(dialog).value());
      if (i == 1) user.click(box(dialog));
    });
    EXPECT_EQ(values, before);
  }
  EXPECT_EQ(host.value(options::CompanyName), u"Corner Shop");
  EXPECT_EQ(host.sent.size(), 2U);
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(StartUpEntryTest, TheChoiceIsAppliedBeforeAnythingElseOfTheSave) {
  open([&](frmOptions& dialog) {
    user.click(box(dialog));
    host.calls.clear();
    host.onCall = [&](const std::string& call) {
      EXPECT_EQ(values.empty(), call == "Title" || call == "Path") << call;
    };
    apply(dialog);
    host.onCall = nullptr;
    ASSERT_GE(host.calls.size(), 3U);
    EXPECT_EQ(std::vector<std::string>(host.calls.begin(), host.calls.begin() + 3),
              (std::vector<std::string>{"Title", "Path", "OptionsRecord"}));
  });
}

TEST_F(StartUpEntryTest, ARefusedSaveHasAppliedIt) {
  open([&](frmOptions& dialog) {
    user.click(box(dialog));
    user.clickTab(dialog.tabOptions, 2);
    auto& currencies = dialog.tabs().listColumns.lstListShow[ListColumns::currency];
    for (int row = 0; row < currencies.count(); ++row) user.clickCheck(currencies, row);
    apply(dialog);
    EXPECT_EQ(boxes.shown.size(), 1U);
    EXPECT_TRUE(applyEnabled(dialog));
    EXPECT_EQ(values, (Values{{kName, kData}}));
    user.press(Key::escape);
  });
  EXPECT_TRUE(host.stored.empty());
  EXPECT_TRUE(tickedAtLoad());
}

TEST_F(StartUpEntryTest, OkWithoutAnEditAndCancelLeaveTheRegistryAlone) {
  values = {{kName, u"x"}};
  open([&](frmOptions&) { user.accessKey(u'o'); });
  open([&](frmOptions& dialog) {
    user.click(box(dialog));
    user.press(Key::escape);
  });
  EXPECT_EQ(values, (Values{{kName, u"x"}}));
}

TEST_F(StartUpEntryTest, FirstUseKeepsWhatIsThere) {
  saveDefaults();
  EXPECT_TRUE(values.empty());
  values = {{kName, kData}};
  saveDefaults();
  EXPECT_EQ(values, (Values{{kName, kData}}));
}

TEST_F(StartUpEntryTest, FailuresOfTheHostReachTheCaller) {
  desk->whenShown([&](ui::Form& form) {
    user.click(box(dynamic_cast<frmOptions&>(form)));
    host.failingCall = "Path";
    user.accessKey(u'o');
  });
  EXPECT_THROW(options_.ShowOptions(), Error);
  EXPECT_TRUE(values.empty());
  EXPECT_EQ(host.calls.back(), "Path");
}

TEST_F(StartUpEntryTest, TheBoxIsTheLastOfThePage) {
  open([&](frmOptions& dialog) {
    user.click(dialog.tabs().ledvaneLink.chkLedvane[0]);
    for (int i = 0; i < 3; ++i) user.press(Key::tab);
    EXPECT_TRUE(box(dialog).hasFocus());
    user.press(Key::space);
    EXPECT_TRUE(box(dialog).value());
    user.press(Key::tab);
    EXPECT_TRUE(dialog.cmdCommand[frmOptions::ok].hasFocus());
  });
}

TEST_F(StartUpEntryTest, ThePartsOfThePageStandBelowEachOtherAndFit) {
  open([&](frmOptions& dialog) {
    const ui::Frame& page = dialog.fraFrame[0];
    int bottom = 0;
    for (const ui::Control* part : std::initializer_list<const ui::Control*>{
             &dialog.tabs().companyDetails.fraGeneral, &dialog.tabs().ledvaneLink.fraGeneral,
             &box(dialog)}) {
      EXPECT_GT(part->bounds().top, bottom);
      EXPECT_LE(part->bounds().right(), page.clientSize().width);
      bottom = part->bounds().bottom();
    }
    EXPECT_LE(bottom, page.clientSize().height);

    const auto& inside = dialog.tabs().ledvaneLink.fraGeneral;
    for (const auto& control : inside.children()) {
      EXPECT_LE(control->bounds().right(), inside.clientSize().width);
      EXPECT_LE(control->bounds().bottom(), inside.clientSize().height);
    }
  });
}

}  // namespace
}  // namespace tillora::testing
