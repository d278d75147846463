#include "identity/frmWebSite.h"

#include "tests/testing/function_ref.h"
#include "tests/testing/options_test.h"

namespace tillora::testing {
namespace {

using ui::Key;

class WebSiteDialogTest : public OptionsTest {
 protected:
  WebSiteDialogTest() { messages.setSettings(options_.SettingsObject); }
  void TearDown() override {
    messages.setSettings(nullptr);
    OptionsTest::TearDown();
  }
  void show(const FunctionRef<void()>& act) {
    desk->whenShown([&](ui::Form&) { act(); });
    form.showModal();
  }
  void showEntry(const FunctionRef<void()>& act) {
    form.EditMode = true;
    form.Description = u"News";
    form.URL = u"http://news";
    form.Inactive = true;
    show(act);
  }
  ui::TextBox& description() { return form.txtWebSite[frmWebSite::description]; }
  ui::TextBox& url() { return form.txtWebSite[frmWebSite::url]; }
  ui::CommandButton& command(int index) { return form.cmdWebSite[index]; }

  Messages messages{desk->screen(), boxes};
  Platform platform = machine.platform(desk->screen(), boxes);
  frmWebSite form{platform, messages};
};

TEST_F(WebSiteDialogTest, TheTextsOfTheDialog) {
  show([&] {
    EXPECT_EQ(form.caption(), u"Enter Web Site Information");
    EXPECT_EQ(form.lblWebSite[0].caption(), u"Enter the description and URL for the Web site.");
    EXPECT_EQ(form.lblWebSite[1].caption(), u"&Description");
    EXPECT_EQ(form.lblWebSite[2].caption(), u"&URL");
    EXPECT_EQ(form.chkInactive.caption(), u"This Web site is Inactive");
    EXPECT_EQ(command(0).caption(), u"&OK");
    EXPECT_EQ(command(0).toolTip(), u"Accept all changes then close this window");
    EXPECT_TRUE(command(0).isDefault());
    EXPECT_EQ(command(1).caption(), u"&Cancel");
    EXPECT_EQ(command(1).toolTip(), u"Cancel all changes and close this window");
    EXPECT_TRUE(command(1).isCancel());
    EXPECT_EQ(command(2).caption(), u"&Browse...");
    EXPECT_EQ(command(2).toolTip(), u"Browse for a URL Information file");
    EXPECT_EQ(description().maxLength(), 0);
    EXPECT_EQ(url().maxLength(), 0);
  });
  showEntry([&] {
    EXPECT_EQ(form.caption(), u"Edit Web Site Information");
    EXPECT_EQ(form.lblWebSite[0].caption(), u"Edit the description and URL for the Web site.");
  });
}

TEST_F(WebSiteDialogTest, ShowsTheCallersValues) {
  showEntry([&] {
    EXPECT_EQ(description().text(), u"News");
    EXPECT_EQ(url().text(), u"http://news");
    EXPECT_TRUE(form.chkInactive.value());
    EXPECT_FALSE(form.Changed);
  });
}

TEST_F(WebSiteDialogTest, BoxesSelectTheirTextAndTabsLeadOn) {
  showEntry([&] {
    EXPECT_EQ(description().selText(), u"News");
    const std::vector<ui::Control*> order = {&description(),    &url(),      &command(2),
                                             &form.chkInactive, &command(0), &command(1)};
    for (const ui::Control* control : order) {
      EXPECT_EQ(form.activeControl(), control);
      user.press(Key::tab);
    }
    user.accessKey(u'u');
    EXPECT_EQ(url().selText(), u"http://news");
    user.accessKey(u'd');
    EXPECT_TRUE(description().hasFocus());
  });
}

TEST_F(WebSiteDialogTest, EditingABoxMarksTheDialogAsChanged) {
  showEntry([&] {
    user.press(Key::tab);
    user.click(form.chkInactive);
    EXPECT_FALSE(form.Changed);
    user.click(url());
    user.type(u"x");
    EXPECT_TRUE(form.Changed);
  });
  showEntry([&] {
    EXPECT_FALSE(form.Changed);
    user.type(u"x");
    EXPECT_TRUE(form.Changed);
  });
}

TEST_F(WebSiteDialogTest, OkHandsBackTheValues) {
  const std::vector<std::function<void()>> ways = {[&] { user.press(Key::enter); },
                                                   [&] { user.click(command(frmWebSite::ok)); },
                                                   [&] { user.accessKey(u'o'); }};
  for (const auto& accept : ways) {
    showEntry([&] {
      user.type(u" O'Neil ");
      user.click(form.chkInactive);
      user.click(url());
      user.type(u" u;|");
      accept();
      EXPECT_FALSE(form.isShown());
    });
    EXPECT_FALSE(form.Cancelled());
    EXPECT_EQ(form.Description, u" O'Neil ");
    EXPECT_EQ(form.URL, u" u;|");
    EXPECT_FALSE(form.Inactive);
  }
}

TEST_F(WebSiteDialogTest, EveryWayOutButOkCancels) {
  const std::vector<std::function<void()>> ways = {
      [&] { user.click(command(frmWebSite::cancel)); }, [&] { user.accessKey(u'c'); },
      [&] { user.press(Key::escape); }, [&] { user.closeWindow(form); },
      [&] { user.press(Key::f4, {.alt = true}); }};
  for (const auto& leave : ways) {
    showEntry([&] {
      user.type(u"x");
      leave();
      EXPECT_FALSE(form.isShown());
    });
    EXPECT_TRUE(form.Cancelled());
    EXPECT_EQ(form.Description, u"News");
    EXPECT_EQ(form.URL, u"http://news");
  }
  showEntry([&] { user.press(Key::enter); });
  EXPECT_FALSE(form.Cancelled());
}

TEST_F(WebSiteDialogTest, TheInactiveBoxSetsThePropertyAtOnce) {
  show([&] {
    user.click(form.chkInactive);
    EXPECT_TRUE(form.Inactive);
    user.click(form.chkInactive);
    EXPECT_FALSE(form.Inactive);
  });
}

TEST_F(WebSiteDialogTest, BothTextsAreRequired) {
  const std::vector<std::pair<Text, Text>> incomplete = {{u"", u""}, {u"News", u""}, {u"", u"u"}};
  for (const auto& [name, address] : incomplete) {
    boxes.shown.clear();
    form.Description = name;
    form.URL = address;
    show([&] {
      user.press(Key::enter);
      ASSERT_EQ(boxes.shown.size(), 1U);
      EXPECT_EQ(boxes.shown[0].text,
                u"You must enter values for both the description and the URL for the website.");
      EXPECT_EQ(boxes.shown[0].title, u"Web site details missing");
      EXPECT_EQ(boxes.shown[0].style, 48);
      EXPECT_TRUE(boxes.shown[0].settingsGiven);
      EXPECT_TRUE(form.isShown());
      EXPECT_EQ(description().text(), name);
      EXPECT_EQ(url().text(), address);
    });
    EXPECT_TRUE(form.Cancelled());
    EXPECT_EQ(form.Description, name);
  }
}

TEST_F(WebSiteDialogTest, ABlankIsNotEmpty) {
  form.Description = form.URL = u" ";
  show([&] { user.press(Key::enter); });
  EXPECT_FALSE(form.Cancelled());
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(WebSiteDialogTest, BrowseTakesTheUrlOfAShortcutFile) {
  const Text file = u"C:\\Favoriten\\B\u00fccher \u4e2d.url";
  machine.fileDialogs.answers = {file};
  machine.files.profile[file + u"|InternetShortcut|URL"] = u"http://books.example/?a=1&b='2'";
  showEntry([&] {
    user.click(command(frmWebSite::browse));
    ASSERT_EQ(machine.fileDialogs.shown.size(), 1U);
    EXPECT_EQ(machine.fileDialogs.shown[0].title, u"Select the Internet Explorer shortcut file.");
    EXPECT_EQ(machine.fileDialogs.shown[0].filter, u"Internet Explorer shortcut (*.URL)");
    EXPECT_EQ(machine.fileDialogs.shown[0].pattern, u"*.URL");
    EXPECT_TRUE(machine.fileDialogs.shown[0].keepsShortcuts);
    EXPECT_EQ(url().text(), u"http://books.example/?a=1&b='2'");
    EXPECT_EQ(description().text(), u"News");
    EXPECT_TRUE(form.Changed);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(form.URL, u"http://news");
  });
}

TEST_F(WebSiteDialogTest, ACancelledFileDialogChangesNothing) {
  showEntry([&] {
    user.accessKey(u'b');
    EXPECT_EQ(url().text(), u"http://news");
    EXPECT_FALSE(form.Changed);
    EXPECT_TRUE(boxes.shown.empty());
  });
}

TEST_F(WebSiteDialogTest, AFileThatIsNotAShortcutIsRefusedByName) {
  const Text file = u"C:\\O'Neil & Co\\notes.url";
  machine.fileDialogs.answers = {file};
  machine.files.profile[file + u"|InternetShortcut|IconFile"] = u"x";
  machine.files.profile[file + u"|Other|URL"] = u"http://wrong";
  showEntry([&] {
    user.click(command(frmWebSite::browse));
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(boxes.shown[0].text,
              u"The file 'C:\\O'Neil & Co\\notes.url' is not a valid Internet Explorer shortcut "
              u"file.\r\n\r\nPlease select a valid file.");
    EXPECT_EQ(boxes.shown[0].title, u"Not a valid Internet Explorer shortcut file");
    EXPECT_EQ(boxes.shown[0].style, 48);
    EXPECT_TRUE(boxes.shown[0].settingsGiven);
    EXPECT_TRUE(form.isShown());
    EXPECT_EQ(url().text(), u"http://news");
    EXPECT_EQ(description().text(), u"News");
  });
}

}  // namespace
}  // namespace tillora::testing
