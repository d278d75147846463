#include "identity/web_sites.h"

#include <algorithm>

#include "identity/frmWebSite.h"
#include "tests/testing/function_ref.h"
#include "tests/testing/options_test.h"

namespace tillora::testing {
namespace {

using ui::Key;
using Sites = std::vector<FakeRow>;

constexpr TextView kHomePage = u"https://www.ledvane.example/point-of-sale";

class WebSitesTest : public OptionsTest {
 protected:
  static FakeRow site(TextView description, TextView url, bool inactive = false) {
    return {{u"Description", Text(description)}, {u"URL", Text(url)}, {u"Inactive", inactive}};
  }
  static WebSites& tab(frmOptions& dialog) { return dialog.tabs().webSites; }
  static ui::CommandButton& command(frmOptions& dialog, int index) {
    return tab(dialog).cmdWeb[index];
  }
  /// The list as the table would hold it.
  static Sites shown(frmOptions& dialog) {
    Sites sites;
    for (const auto& row : tab(dialog).ltvWeb.rows()) {
      EXPECT_EQ(row.texts.size(), 3U);
      EXPECT_EQ(row.texts[WebSites::icon], u"");
      const bool inactive = row.smallIcon == ui::PictureId::inactive;
      if (!inactive) {
        EXPECT_EQ(row.smallIcon, ui::PictureId::active);
      }
      sites.push_back(site(row.texts[WebSites::description], row.texts[WebSites::url], inactive));
    }
    return sites;
  }
  void openTab(const FunctionRef<void(frmOptions&)>& act) { openOn(TabPage::web, act); }
  /// Opens the tab and presses OK after `act`.
  void editTab(const FunctionRef<void(frmOptions&)>& act) {
    openTab([&](frmOptions& dialog) {
      act(dialog);
      user.accessKey(u'o');
      EXPECT_FALSE(dialog.isShown());
    });
  }
  void whenSiteShown(const std::function<void(frmWebSite&)>& act) {
    desk->whenShown([act](ui::Form& form) { act(dynamic_cast<frmWebSite&>(form)); });
  }
  /// Pastes both texts into the dialog of an entry, over what they replace, and presses Enter.
  void enter(TextView description, TextView url) {
    user.paste(description);
    user.press(Key::tab);
    user.paste(url);
    user.press(Key::enter);
  }
  void addByNew(frmOptions& dialog, TextView description, TextView url) {
    whenSiteShown([&](frmWebSite& form) {
      enter(description, url);
      EXPECT_FALSE(form.isShown());
    });
    user.click(command(dialog, WebSites::add));
  }
  void editRow(frmOptions& dialog, int row, TextView description, TextView url) {
    user.clickRow(tab(dialog).ltvWeb, row);
    whenSiteShown([&](frmWebSite&) { enter(description, url); });
    user.click(command(dialog, WebSites::edit));
  }
  void deleteRow(frmOptions& dialog, int row) {
    boxes.answers = {MessageResult::yes};
    user.clickRow(tab(dialog).ltvWeb, row);
    user.click(command(dialog, WebSites::remove));
  }
  static Text selectedUrl(frmOptions& dialog) {
    const auto& list = tab(dialog).ltvWeb;
    return list.selectedRow() < 0 ? Text(u"<none>") : list.text(list.selectedRow(), WebSites::url);
  }
};

TEST_F(WebSitesTest, TheTextsOfThePage) {
  openTab([&](frmOptions& dialog) {
    auto& part = tab(dialog);
    EXPECT_EQ(part.lblWeb.caption(), u"&Web Sites");
    ASSERT_EQ(part.ltvWeb.columns().size(), 3U);
    EXPECT_EQ(part.ltvWeb.columns()[0].header, u"");
    EXPECT_EQ(part.ltvWeb.columns()[1].header, u"Description");
    EXPECT_EQ(part.ltvWeb.columns()[2].header, u"URL");
    EXPECT_EQ(part.ltvWeb.headerStyle() & ui::kHeaderButtons, 0U);
    EXPECT_EQ(part.cmdWeb[0].caption(), u"&New");
    EXPECT_EQ(part.cmdWeb[0].toolTip(), u"Add a new Web Site");
    EXPECT_EQ(part.cmdWeb[1].caption(), u"&Edit");
    EXPECT_EQ(part.cmdWeb[1].toolTip(), u"Assign or change details of the selected Web Site");
    EXPECT_EQ(part.cmdWeb[2].caption(), u"D&elete");
    EXPECT_EQ(part.cmdWeb[2].toolTip(), u"Delete the selected Web Site from the list");
  });
}

TEST_F(WebSitesTest, TabWalksThroughThePage) {
  host.webSites = {site(u"A", u"a")};
  openTab([&](frmOptions& dialog) {
    auto& part = tab(dialog);
    const std::vector<ui::Control*> order = {&part.ltvWeb, &part.cmdWeb[0], &part.cmdWeb[1],
                                             &part.cmdWeb[2], &dialog.cmdCommand[frmOptions::ok]};
    for (const ui::Control* control : order) {
      EXPECT_EQ(dialog.activeControl(), control);
      user.press(Key::tab);
    }
    user.accessKey(u'w');
    EXPECT_TRUE(part.ltvWeb.hasFocus());
  });
}

TEST_F(WebSitesTest, ListsTheTableWithTheFirstRowSelected) {
  host.webSites = {site(u"B", u"http://b"), site(u"A", u"http://a", true), site(u"", u"")};
  openTab([&](frmOptions& dialog) {
    EXPECT_EQ(shown(dialog), host.webSites);
    EXPECT_EQ(tab(dialog).ltvWeb.selectedRow(), 0);
    for (const auto& [index, button] : tab(dialog).cmdWeb) EXPECT_TRUE(button->enabled());
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(WebSitesTest, ColumnsFitWhatTheyShowWhateverTheyShow) {
  host.webSites = {site(Text(30, u'x'), Text(40, u'y'))};
  openTab([&](frmOptions& dialog) {
    const ui::Screen& screen = desk->screen();
    const auto width = [&](int column) {
      return tab(dialog).ltvWeb.columns()[static_cast<std::size_t>(column)].width;
    };
    EXPECT_EQ(width(0), 270);
    EXPECT_GE(width(1), screen.textWidth(Text(30, u'x')));
    EXPECT_GE(width(2), screen.textWidth(Text(40, u'y')));
    editRow(dialog, 0, Text(60, u'x'), u"u");
    EXPECT_GE(width(1), screen.textWidth(Text(60, u'x')));
    EXPECT_GE(width(2), screen.textWidth(u"URL"));
    EXPECT_TRUE(tab(dialog).ltvWeb.columns()[2].fills);
    EXPECT_FALSE(tab(dialog).ltvWeb.columns()[1].fills);
  });
}

TEST_F(WebSitesTest, ColumnsAreFittedAgainAfterNewAndDelete) {
  host.webSites = {site(u"A", u"a")};
  openTab([&](frmOptions& dialog) {
    const ui::Screen& screen = desk->screen();
    const auto expectFit = [&](TextView description, TextView url) {
      for (const auto& [column, text] : {std::pair{1, description}, std::pair{2, url}}) {
        const int width = tab(dialog).ltvWeb.columns()[static_cast<std::size_t>(column)].width;
        EXPECT_GE(width, screen.textWidth(text)) << column;
        EXPECT_LT(width, screen.textWidth(text) + screen.textWidth(u"xxxxx")) << column;
      }
    };
    expectFit(u"Description", u"URL");
    addByNew(dialog, Text(60, u'x'), Text(70, u'y'));
    expectFit(Text(60, u'x'), Text(70, u'y'));
    deleteRow(dialog, 1);
    expectFit(u"Description", u"URL");
  });
}

TEST_F(WebSitesTest, AnEmptyListCanOnlyBeAddedTo) {
  openTab([&](frmOptions& dialog) {
    EXPECT_EQ(tab(dialog).ltvWeb.count(), 0);
    EXPECT_TRUE(command(dialog, WebSites::add).enabled());
    EXPECT_FALSE(command(dialog, WebSites::edit).enabled());
    EXPECT_FALSE(command(dialog, WebSites::remove).enabled());
    // Neither a double-click nor the buttons' keys, nor their handlers: a dialog that was shown
    // would be unexpected.
    user.doubleClickBelow(tab(dialog).ltvWeb);
    user.accessKey(u'e');
    user.accessKey(u'l');
    tab(dialog).ltvWeb.doubleClick.raise();
    command(dialog, WebSites::edit).click.raise();
    command(dialog, WebSites::remove).click.raise();
    EXPECT_FALSE(applyEnabled(dialog));
    addByNew(dialog, u"A", u"http://a");
    EXPECT_EQ(shown(dialog), Sites{site(u"A", u"http://a")});
  });
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_TRUE(host.webSites.empty());
}

TEST_F(WebSitesTest, AFirstUseOfAnEmptyTableAddsTheHomePage) {
  options_.FirstUse = true;
  openTab([&](frmOptions& dialog) {
    EXPECT_EQ(shown(dialog), Sites{site(u"Ledvane Point of Sale Home Page", kHomePage)});
    EXPECT_EQ(tab(dialog).ltvWeb.selectedRow(), 0);
    EXPECT_TRUE(command(dialog, WebSites::edit).enabled());
    EXPECT_FALSE(applyEnabled(dialog));
  });
  EXPECT_EQ(host.webSites, Sites{site(u"Ledvane Point of Sale Home Page", kHomePage)});
}

TEST_F(WebSitesTest, AFirstUseLeavesATableWithSitesAlone) {
  host.webSites = {site(u"A", u"http://a")};
  options_.FirstUse = true;
  openTab([](frmOptions&) {});
  EXPECT_EQ(host.webSites, Sites{site(u"A", u"http://a")});
}

TEST_F(WebSitesTest, TheHomePageStaysWhenTheFirstSaveIsRefused) {
  host.store(options::CurrencyListColumns, 0);
  options_.FirstUse = true;
  open([&](frmOptions& dialog) { EXPECT_TRUE(applyEnabled(dialog)); });
  EXPECT_EQ(host.webSites.size(), 1U);
  EXPECT_EQ(boxes.shown.size(), 1U);
}

TEST_F(WebSitesTest, ADeletedHomePageDoesNotComeBack) {
  saveDefaults();
  ASSERT_EQ(host.webSites.size(), 1U);
  editTab([&](frmOptions& dialog) { deleteRow(dialog, 0); });
  EXPECT_TRUE(host.webSites.empty());
  openTab([&](frmOptions& dialog) { EXPECT_EQ(tab(dialog).ltvWeb.count(), 0); });
}

TEST_F(WebSitesTest, NewEnablesApplyAtOnceAndAddsTheEntry) {
  host.webSites = {site(u"A", u"http://a")};
  editTab([&](frmOptions& dialog) {
    whenSiteShown([&](frmWebSite& form) {
      EXPECT_TRUE(applyEnabled(dialog));
      EXPECT_EQ(form.caption(), u"Enter Web Site Information");
      EXPECT_EQ(form.txtWebSite[frmWebSite::description].text(), u"");
      EXPECT_EQ(form.txtWebSite[frmWebSite::url].text(), u"");
      EXPECT_FALSE(form.chkInactive.value());
      user.type(u"News");
      user.accessKey(u'u');
      user.type(u"http://news");
      user.click(form.chkInactive);
      user.accessKey(u'o');
    });
    user.click(command(dialog, WebSites::add));
    EXPECT_TRUE(command(dialog, WebSites::add).hasFocus());
    EXPECT_EQ(shown(dialog), (Sites{site(u"A", u"http://a"), site(u"News", u"http://news", true)}));
    EXPECT_EQ(tab(dialog).ltvWeb.selectedRow(), 1);
    EXPECT_EQ(tab(dialog).ltvWeb.rowToShow(), 1);
  });
  EXPECT_EQ(host.webSites, (Sites{site(u"A", u"http://a"), site(u"News", u"http://news", true)}));
}

TEST_F(WebSitesTest, TheFirstEntryEnablesEditAndDelete) {
  openTab([&](frmOptions& dialog) {
    addByNew(dialog, u"A", u"http://a");
    EXPECT_TRUE(command(dialog, WebSites::edit).enabled());
    EXPECT_TRUE(command(dialog, WebSites::remove).enabled());
    EXPECT_EQ(tab(dialog).ltvWeb.selectedRow(), 0);
  });
}

TEST_F(WebSitesTest, ACancelledNewAddsNothingThoughApplyIsEnabled) {
  openTab([&](frmOptions& dialog) {
    whenSiteShown([&](frmWebSite& form) {
      user.type(u"A");
      user.click(form.chkInactive);
      user.press(Key::escape);
    });
    user.click(command(dialog, WebSites::add));
    EXPECT_EQ(tab(dialog).ltvWeb.count(), 0);
    EXPECT_FALSE(command(dialog, WebSites::edit).enabled());
    EXPECT_TRUE(applyEnabled(dialog));
  });
}

TEST_F(WebSitesTest, EditShowsTheSelectedEntryAndReplacesIt) {
  host.webSites = {site(u"A", u"http://a"), site(u"B", u"http://b", true)};
  editTab([&](frmOptions& dialog) {
    user.clickRow(tab(dialog).ltvWeb, 1);
    whenSiteShown([&](frmWebSite& form) {
      EXPECT_EQ(form.caption(), u"Edit Web Site Information");
      EXPECT_EQ(form.txtWebSite[frmWebSite::description].text(), u"B");
      EXPECT_EQ(form.txtWebSite[frmWebSite::url].text(), u"http://b");
      EXPECT_TRUE(form.chkInactive.value());
      EXPECT_FALSE(applyEnabled(dialog));
      user.click(form.chkInactive);
      user.click(form.txtWebSite[frmWebSite::description]);
      user.type(u"Bee");
      user.press(Key::enter);
    });
    user.click(command(dialog, WebSites::edit));
    EXPECT_TRUE(command(dialog, WebSites::edit).hasFocus());
    EXPECT_TRUE(applyEnabled(dialog));
    EXPECT_EQ(shown(dialog), (Sites{site(u"A", u"http://a"), site(u"Bee", u"http://b")}));
    EXPECT_EQ(tab(dialog).ltvWeb.selectedRow(), 1);
  });
  EXPECT_EQ(host.webSites, (Sites{site(u"A", u"http://a"), site(u"Bee", u"http://b")}));
}

TEST_F(WebSitesTest, ACancelledEditChangesNothing) {
  host.webSites = {site(u"A", u"http://a")};
  openTab([&](frmOptions& dialog) {
    whenSiteShown([&](frmWebSite& form) {
      user.type(u"x");
      user.click(form.chkInactive);
      user.click(form.cmdWebSite[frmWebSite::cancel]);
    });
    user.click(command(dialog, WebSites::edit));
    EXPECT_EQ(shown(dialog), host.webSites);
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(WebSitesTest, ADoubleClickOnARowEditsItAndOneBelowDoesNothing) {
  host.webSites = {site(u"A", u"http://a"), site(u"B", u"http://b")};
  openTab([&](frmOptions& dialog) {
    whenSiteShown([&](frmWebSite& form) {
      EXPECT_TRUE(form.EditMode);
      EXPECT_EQ(form.Description, u"B");
    });
    user.doubleClickRow(tab(dialog).ltvWeb, 1);
    user.doubleClickBelow(tab(dialog).ltvWeb);
  });
}

TEST_F(WebSitesTest, DeleteAsksAndNoKeepsTheEntry) {
  host.webSites = {site(u"O'Neil & Son", u"http://a?b=1&c='x'")};
  openTab([&](frmOptions& dialog) {
    boxes.answers = {MessageResult::no};
    user.click(command(dialog, WebSites::remove));
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(boxes.shown[0].text,
              u"Are you sure you want to permanently delete web site 'O'Neil & Son "
              u"(http://a?b=1&c='x')' ?");
    EXPECT_EQ(boxes.shown[0].title, u"Delete web site");
    EXPECT_EQ(boxes.shown[0].style, 292);
    EXPECT_TRUE(boxes.shown[0].settingsGiven);
    EXPECT_EQ(shown(dialog), host.webSites);
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(WebSitesTest, DeleteAndInsertInTheListDoWhatTheButtonsDo) {
  host.webSites = {site(u"A", u"a"), site(u"B", u"b")};
  openTab([&](frmOptions& dialog) {
    EXPECT_TRUE(tab(dialog).ltvWeb.hasFocus());
    user.press(Key::del, {.shift = true});
    user.press(Key::insert, {.ctrl = true});
    EXPECT_TRUE(boxes.shown.empty());
    boxes.answers = {MessageResult::no, MessageResult::yes};
    user.press(Key::del);
    EXPECT_EQ(shown(dialog), host.webSites);
    user.press(Key::del);
    ASSERT_EQ(boxes.shown.size(), 2U);
    EXPECT_EQ(boxes.shown[1].title, u"Delete web site");
    EXPECT_EQ(shown(dialog), Sites{site(u"B", u"b")});
    whenSiteShown([&](frmWebSite& form) {
      EXPECT_FALSE(form.EditMode);
      enter(u"C", u"c");
    });
    user.press(Key::insert);
    EXPECT_EQ(shown(dialog), (Sites{site(u"B", u"b"), site(u"C", u"c")}));
    EXPECT_TRUE(tab(dialog).ltvWeb.hasFocus());
  });
}

TEST_F(WebSitesTest, DeleteInAnEmptyListAsksNothing) {
  openTab([&](frmOptions& dialog) {
    EXPECT_TRUE(tab(dialog).ltvWeb.setFocus());
    user.press(Key::del);
  });
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(WebSitesTest, TypingFindsASiteByItsDescription) {
  host.webSites = {site(u"Weather", u"a"), site(u"News", u"b"), site(u"Bank", u"n")};
  openTab([&](frmOptions& dialog) {
    user.type(u"n");
    EXPECT_EQ(selectedUrl(dialog), u"b");
  });
}

TEST_F(WebSitesTest, YesDeletesAndSelectsTheRowThatTakesThePlace) {
  host.webSites = {site(u"A", u"a"), site(u"B", u"b"), site(u"C", u"c")};
  openTab([&](frmOptions& dialog) {
    deleteRow(dialog, 0);
    EXPECT_TRUE(applyEnabled(dialog));
    EXPECT_EQ(selectedUrl(dialog), u"b");
    deleteRow(dialog, 1);
    EXPECT_EQ(selectedUrl(dialog), u"b");
    deleteRow(dialog, 0);
    EXPECT_EQ(selectedUrl(dialog), u"<none>");
    EXPECT_FALSE(command(dialog, WebSites::edit).enabled());
    EXPECT_FALSE(command(dialog, WebSites::remove).enabled());
    ASSERT_NE(dialog.activeControl(), nullptr);
    EXPECT_TRUE(dialog.activeControl()->canFocus());
    EXPECT_NE(dialog.activeControl(), &dialog.cmdCommand[frmOptions::cancel]);
  });
  EXPECT_EQ(host.webSites.size(), 3U);
}

TEST_F(WebSitesTest, ASaveLeavesWhatIsListed) {
  host.webSites = {site(u"A", u"a"), site(u"B", u"b"), site(u"C", u"c")};
  editTab([&](frmOptions& dialog) {
    deleteRow(dialog, 1);
    editRow(dialog, 0, u"A", u"a2");
    addByNew(dialog, u"D", u"d");
  });
  EXPECT_EQ(host.webSites, (Sites{site(u"C", u"c"), site(u"A", u"a2"), site(u"D", u"d")}));
  EXPECT_EQ(
      host.callsStarting("find WebSiteTable"),
      (std::vector<std::string>{"find WebSiteTable [URL] = 'a2'", "find WebSiteTable [URL] = 'c'",
                                "find WebSiteTable [URL] = 'd'"}));
}

TEST_F(WebSitesTest, EveryFieldOfAFoundAndOfANewRowIsWritten) {
  host.webSites = {site(u"A", u"a")};
  editTab([&](frmOptions& dialog) {
    editRow(dialog, 0, u"Bee", u"b");
    host.webSites.push_back(site(u"Other", u"b"));
    host.writes.clear();
    user.click(dialog.cmdCommand[frmOptions::apply]);
    editRow(dialog, 0, u"Cee", u"c");
  });
  const auto row = [](const std::string& begin) {
    return std::vector<std::string>{begin + " WebSiteTable", "set WebSiteTable Description",
                                    "set WebSiteTable URL",  "set WebSiteTable Inactive",
                                    "update WebSiteTable",   "delete WebSiteTable"};
  };
  std::vector<std::string> expected = row("edit");
  std::ranges::copy(row("add"), std::back_inserter(expected));
  EXPECT_EQ(host.writesOf("WebSiteTable"), expected);
  EXPECT_EQ(host.webSites, Sites{site(u"Cee", u"c")});
}

TEST_F(WebSitesTest, SitesOfOtherProgramsStayAndOursGo) {
  host.webSites = {site(u"A", u"a"), site(u"B", u"b")};
  openTab([&](frmOptions& dialog) {
    host.webSites.push_back(site(u"Theirs", u"t"));
    host.webSites.push_back(site(u"Theirs again", u"t"));
    deleteRow(dialog, 0);
    addByNew(dialog, u"N", u"n");
    user.click(dialog.cmdCommand[frmOptions::apply]);
    EXPECT_EQ(host.webSites, (Sites{site(u"B", u"b"), site(u"Theirs", u"t"),
                                    site(u"Theirs again", u"t"), site(u"N", u"n")}));
    // What was saved here is ours now; what was deleted here no longer is.
    host.webSites.push_back(site(u"A of others", u"a"));
    deleteRow(dialog, 1);
    user.click(dialog.cmdCommand[frmOptions::apply]);
    EXPECT_EQ(host.webSites, (Sites{site(u"B", u"b"), site(u"Theirs", u"t"),
                                    site(u"Theirs again", u"t"), site(u"A of others", u"a")}));
  });
}

TEST_F(WebSitesTest, ASiteThatAnotherProgramDeletedComesBackAsListed) {
  host.webSites = {site(u"A", u"a"), site(u"B", u"b")};
  editTab([&](frmOptions& dialog) {
    host.webSites.erase(host.webSites.begin());
    editRow(dialog, 1, u"Bee", u"b");
  });
  EXPECT_EQ(host.webSites, (Sites{site(u"Bee", u"b"), site(u"A", u"a")}));
}

TEST_F(WebSitesTest, TwoRowsWithOneUrlEndAsOneWithTheLaterValues) {
  editTab([&](frmOptions& dialog) {
    addByNew(dialog, u"First", u"http://a");
    addByNew(dialog, u"Second", u"http://a");
    EXPECT_EQ(tab(dialog).ltvWeb.count(), 2);
  });
  EXPECT_EQ(host.webSites, Sites{site(u"Second", u"http://a")});
  openTab([&](frmOptions& dialog) { EXPECT_EQ(tab(dialog).ltvWeb.count(), 1); });
}

TEST_F(WebSitesTest, TwoStoredRowsWithOneUrlAreBothListedAndEndAsOne) {
  host.webSites = {site(u"First", u"a"), site(u"B", u"b"), site(u"Second", u"a", true)};
  editTab([&](frmOptions& dialog) {
    EXPECT_EQ(shown(dialog), host.webSites);
    editRow(dialog, 1, u"Bee", u"b");
  });
  EXPECT_EQ(host.webSites, (Sites{site(u"Second", u"a", true), site(u"Bee", u"b")}));
}

TEST_F(WebSitesTest, ARowWithoutAUrlIsNotListedAndStays) {
  FakeRow nameless = site(u"A", u"");
  nameless.erase(u"URL");
  host.webSites = {nameless, site(u"B", u"b")};
  editTab([&](frmOptions& dialog) {
    EXPECT_EQ(tab(dialog).ltvWeb.count(), 1);
    deleteRow(dialog, 0);
  });
  EXPECT_EQ(host.webSites, Sites{nameless});
}

TEST_F(WebSitesTest, AnyTextIsSavedFoundAgainAndDeleted) {
  const std::vector<Text> texts = {u"http://a?q=O'Neil",
                                   u"a;b|c'd",
                                   u"'",
                                   u"''",
                                   u"x' AND [Inactive] = 'y",
                                   u"' & Chr$(39) & '",
                                   u"http://\u4e2d\u6587.example/\u00fc?\U0001f6d2",
                                   u"file:///C:/My Sites/a&b.htm",
                                   u"C:\\\"x\"",
                                   u" blanks ",
                                   u"http://a/" + Text(5000, u'p')};
  Sites expected;
  editTab([&](frmOptions& dialog) {
    for (const Text& text : texts) {
      addByNew(dialog, text, text);
      expected.push_back(site(text, text));
    }
  });
  EXPECT_EQ(host.webSites, expected);
  EXPECT_EQ(host.callsStarting("find WebSiteTable")[1],
            "find WebSiteTable [URL] = 'a' & Chr$(59) & 'b' & Chr$(124) & 'c' & Chr$(39) & 'd'");

  editTab([&](frmOptions& dialog) {
    EXPECT_EQ(shown(dialog), expected);
    editRow(dialog, 0, u"new", texts[0]);
  });
  expected[0] = site(u"new", texts[0]);
  EXPECT_EQ(host.webSites, expected);

  editTab([&](frmOptions& dialog) {
    while (tab(dialog).ltvWeb.count() > 0) deleteRow(dialog, 0);
  });
  EXPECT_TRUE(host.webSites.empty());
}

TEST_F(WebSitesTest, AHostsTextsStayTextInQuestionsAndCriteria) {
  const std::vector<Text> texts = {u"100% %s %1 %n", u"&File && <b>", u"a\r\nb\tc",
                                   Text(u"x\0y", 3), u"http://a/" + Text(10000, u'%')};
  for (const Text& text : texts) {
    host.webSites = {site(text, text), site(u"Other", u"other")};
    editTab([&](frmOptions& dialog) {
      editRow(dialog, 1, u"Edited", u"edited");
      boxes.shown.clear();
      boxes.answers = {MessageResult::no};
      user.clickRow(tab(dialog).ltvWeb, 0);
      user.click(command(dialog, WebSites::remove));
      EXPECT_EQ(boxes.shown.at(0).text, u"Are you sure you want to permanently delete web site '" +
                                            text + u" (" + text + u")' ?");
    });
    EXPECT_EQ(host.webSites, (Sites{site(text, text), site(u"Edited", u"edited")}));
    EXPECT_EQ(host.callsStarting("find WebSiteTable [URL] = '" + toUtf8(text) + "'").size(), 1U);
    host.calls.clear();
  }
}

TEST_F(WebSitesTest, AnEntryWithoutAStateIsActive) {
  host.webSites = {site(u"A", u"a", true), site(u"B", u"b")};
  host.webSites[1].erase(u"Inactive");
  openTab([&](frmOptions& dialog) {
    EXPECT_EQ(shown(dialog), (Sites{site(u"A", u"a", true), site(u"B", u"b", false)}));
  });
}

TEST_F(WebSitesTest, CancelLeavesTheTableAsItWas) {
  host.webSites = {site(u"A", u"a"), site(u"B", u"b")};
  const auto before = host.webSites;
  openTab([&](frmOptions& dialog) {
    deleteRow(dialog, 0);
    addByNew(dialog, u"C", u"c");
  });
  EXPECT_EQ(host.webSites, before);
}

TEST_F(WebSitesTest, NothingOnThePageRaisesAChangeBit) {
  saveDefaults();
  editTab([&](frmOptions& dialog) { addByNew(dialog, u"A", u"a"); });
  EXPECT_EQ(changes, std::vector<std::int32_t>{0});
}

TEST_F(WebSitesTest, ARefusedSaveWritesNoSite) {
  saveDefaults();
  host.store(options::CurrencyListColumns, 0);
  openTab([&](frmOptions& dialog) {
    addByNew(dialog, u"A", u"a");
    user.click(dialog.cmdCommand[frmOptions::apply]);
    EXPECT_TRUE(applyEnabled(dialog));
    EXPECT_EQ(host.webSites.size(), 1U);
  });
}

TEST_F(WebSitesTest, AddsASiteFromAShortcutByKeyboardAlone) {
  machine.fileDialogs.answers = {u"C:\\Links\\News.url"};
  machine.files.profile[u"C:\\Links\\News.url|InternetShortcut|URL"] = u"http://news.example/";
  editTab([&](frmOptions&) {
    whenSiteShown([&](frmWebSite&) {
      user.type(u"News");
      user.accessKey(u'b');
      user.press(Key::tab);
      user.press(Key::space);
      user.press(Key::enter);
    });
    user.accessKey(u'n');
  });
  EXPECT_EQ(host.webSites, Sites{site(u"News", u"http://news.example/", true)});
}

TEST_F(WebSitesTest, TheHostCallsOfASaveGrowWithTheNumberOfSites) {
  // A site is found, edited and stored once and looked at once more, whether it stays, is new, or
  // goes.
  const auto callsOfASave = [&](int count) {
    host.webSites.clear();
    for (int i = 0; i < count; ++i) {
      const std::string number = std::to_string(i);
      host.webSites.push_back(site(u"Site", u"http://" + Text(number.begin(), number.end())));
    }
    int calls = 0;
    openTab([&](frmOptions& dialog) {
      editRow(dialog, 0, u"Other", u"http://other");
      host.calls.clear();
      host.tableSteps = 0;
      user.click(dialog.cmdCommand[frmOptions::apply]);
      const auto expected = static_cast<std::size_t>(count);
      EXPECT_EQ(host.callsStarting("find WebSiteTable").size(), expected);
      EXPECT_EQ(host.callsStarting("update WebSiteTable").size(), expected);
      EXPECT_EQ(host.callsStarting("delete WebSiteTable").size(), 1U);
      calls = static_cast<int>(host.calls.size()) + host.tableSteps;
    });
    EXPECT_EQ(host.webSites.size(), static_cast<std::size_t>(count));
    return calls;
  };
  const int none = callsOfASave(250) - callsOfASave(125);
  EXPECT_EQ(callsOfASave(500) - callsOfASave(250), 2 * none);
  EXPECT_EQ(callsOfASave(1000) - callsOfASave(500), 4 * none);
  EXPECT_LE(none, 125 * 10);
}

TEST_F(WebSitesTest, AFailureOfTheHostEndsTheDialogAndNothingMoreIsWritten) {
  for (const std::string call :
       {"find WebSiteTable [URL] = 'b'", "update WebSiteTable", "delete WebSiteTable"}) {
    host.webSites = {site(u"A", u"a"), site(u"B", u"b")};
    expectFailureAt(call, TabPage::web, [&](frmOptions& dialog) {
      deleteRow(dialog, 0);
      user.accessKey(u'o');
    });
  }
}

TEST_F(WebSitesTest, AFailureWhileTheHomePageIsAddedIsRaised) {
  host.failingCall = "update WebSiteTable";
  options_.FirstUse = true;
  EXPECT_THROW(options_.ShowOptions(), Error);
  EXPECT_TRUE(host.webSites.empty());
}

}  // namespace
}  // namespace tillora::testing
