#include "operations/random_price.h"

#include <algorithm>
#include <limits>

#include "operations/clsRandomPrice.h"
#include "operations/frmRandomPrice.h"
#include "sales/list_columns.h"
#include "tests/testing/function_ref.h"
#include "tests/testing/options_test.h"

namespace tillora::testing {
namespace {

using ui::Key;
using Editor = frmRandomPrice;

constexpr TextView kFormat1 = u"6 Product; No Price Check Digit; 4 Price; 1 Check Digit";
constexpr TextView kFormat3 = u"5 Product; 1 Price Check Digit; 4 Price; 1 Check Digit";

FakeRow row(std::int32_t prefix, std::int32_t format, std::int32_t bits, TextView unit,
            TextView priceUnit, bool inactive) {
  return {{u"Prefix", prefix},     {u"FormatID", format},
          {u"OptionBits", bits},   {u"UOMUnitCaption", Text(unit)},
          {u"Inactive", inactive}, {u"UOMPriceUnitCaption", Text(priceUnit)}};
}
FakeRow fresh(std::int32_t prefix) {
  return row(prefix, prefix == 2 ? 3 : 1, 1, u"kg", u"/kg", true);
}
std::vector<FakeRow> freshTable() {
  std::vector<FakeRow> rows;
  for (std::int32_t prefix = 20; prefix <= 29; ++prefix) rows.push_back(fresh(prefix));
  rows.push_back(fresh(2));
  return rows;
}

class RandomPriceTest : public OptionsTest {
 protected:
  static RandomPrice& tab(frmOptions& dialog) { return dialog.tabs().randomPrice; }
  static ui::ListView& list(frmOptions& dialog) { return tab(dialog).ltvRandomPrice; }
  static ui::CheckBox& active(frmOptions& dialog) { return tab(dialog).chkRandomPrice[0]; }
  void openTab(const FunctionRef<void(frmOptions&)>& act) { openOn(TabPage::scanning, act); }
  /// Opens the tab and presses OK after `act`.
  void editTab(const FunctionRef<void(frmOptions&)>& act) {
    openTab([&](frmOptions& dialog) {
      act(dialog);
      user.accessKey(u'o');
    });
  }
  /// What the person does in the editor that the next action opens.
  void whenEditorShown(const std::function<void(Editor&)>& act) {
    desk->whenShown([act](ui::Form& form) { act(dynamic_cast<Editor&>(form)); });
  }
  /// Selects a row, presses Edit and, after `act`, OK in the editor.
  void editRow(frmOptions& dialog, int row, const FunctionRef<void(Editor&)>& act) {
    user.clickRow(list(dialog), row);
    whenEditorShown([&](Editor& editor) {
      act(editor);
      user.click(editor.cmdCommand[Editor::ok]);
    });
    user.click(tab(dialog).cmdRandomPrice);
  }
  static std::vector<Text> texts(frmOptions& dialog, int row) {
    std::vector<Text> cells;
    for (int column = 0; column < 7; ++column) cells.push_back(list(dialog).text(row, column));
    return cells;
  }
  static std::vector<Text> prefixes(frmOptions& dialog) {
    std::vector<Text> shown;
    for (int i = 0; i < list(dialog).count(); ++i) {
      shown.push_back(list(dialog).text(i, RandomPrice::prefix));
    }
    return shown;
  }
  static ui::PictureId iconOf(frmOptions& dialog, int row) {
    return list(dialog).rows()[static_cast<std::size_t>(row)].smallIcon;
  }
  /// An edit that changes nothing that is stored about formats.
  void touch(frmOptions& dialog) {
    user.click(active(dialog));
    user.click(active(dialog));
  }
};

TEST(RandomPriceRecordTest, HasItsSixFieldsInOrder) {
  const auto [inactive, formatId, prefix, optionBits, unit, priceUnit] =
      clsRandomPrice{true, 5, 20, 3, u"kg", u"/kg"};
  const clsRandomPrice record{inactive, formatId, prefix, optionBits, unit, priceUnit};
  EXPECT_TRUE(record.mbInactive);
  EXPECT_EQ(record.mlFormatID, 5);
  EXPECT_EQ(record.mlPrefix, 20);
  EXPECT_EQ(record.mlOptionBits, 3);
  EXPECT_EQ(record.msUOMUnitCaption, u"kg");
  EXPECT_EQ(record.msUOMPriceUnitCaption, u"/kg");
  const clsRandomPrice empty;
  EXPECT_FALSE(empty.mbInactive);
  EXPECT_EQ(empty.mlFormatID, 0);
  EXPECT_EQ(empty.msUOMUnitCaption, u"");
}

TEST_F(RandomPriceTest, TheTextsOfThePage) {
  openTab([&](frmOptions& dialog) {
    EXPECT_EQ(tab(dialog).fraRandomPrice.caption(), u"EAN-13 Random Pricing");
    EXPECT_EQ(active(dialog).caption(), u"Ac&tivate random price barcode scanning");
    EXPECT_EQ(tab(dialog).lblRandomPrice.caption(), u"&Barcode Formats");
    EXPECT_EQ(tab(dialog).cmdRandomPrice.caption(), u"&Edit");
    EXPECT_EQ(tab(dialog).cmdRandomPrice.toolTip(), u"Edit the selected barcode format");
    std::vector<Text> headers;
    for (const auto& column : list(dialog).columns()) headers.push_back(column.header);
    EXPECT_EQ(headers, (std::vector<Text>{u"", u"Prefix", u"Format", u"Price Inc. Tax",
                                          u"Calculate UOM", u"UOM Unit", u"UOM Price Per Unit"}));
  });
}

TEST_F(RandomPriceTest, AnEmptyTableGetsElevenFormats) {
  openTab([&](frmOptions& dialog) {
    EXPECT_EQ(prefixes(dialog), (std::vector<Text>{u"20", u"21", u"22", u"23", u"24", u"25", u"26",
                                                   u"27", u"28", u"29", u"02"}));
    EXPECT_EQ(texts(dialog, 0),
              (std::vector<Text>{u"", u"20", Text(kFormat1), u"Yes", u"No", u"kg", u"/kg"}));
    EXPECT_EQ(texts(dialog, 10),
              (std::vector<Text>{u"", u"02", Text(kFormat3), u"Yes", u"No", u"kg", u"/kg"}));
    for (int i = 0; i < 11; ++i) EXPECT_EQ(iconOf(dialog, i), ui::PictureId::inactive);
    EXPECT_FALSE(applyEnabled(dialog));
  });
  EXPECT_EQ(host.randomPrices, freshTable());
}

TEST_F(RandomPriceTest, TheFormatsThatTheLoadAddsStayAfterCancel) {
  openTab([&](frmOptions&) { user.press(Key::escape); });
  EXPECT_EQ(host.randomPrices, freshTable());
  EXPECT_TRUE(host.stored.empty());
  EXPECT_TRUE(changes.empty());
  host.calls.clear();
  openTab([&](frmOptions& dialog) { EXPECT_EQ(list(dialog).count(), 11); });
  EXPECT_TRUE(host.callsStarting("update RandomPriceTable").empty());
}

TEST_F(RandomPriceTest, ATableThatIsLeftAtItsEndIsNotTakenForAnEmptyOne) {
  host.keepsTables = true;
  host.randomPrices = {fresh(2), fresh(45)};
  const std::vector<FakeRow> before = host.randomPrices;
  for (int i = 0; i < 2; ++i) {
    openTab([&](frmOptions& dialog) {
      EXPECT_EQ(prefixes(dialog), (std::vector<Text>{u"02", u"45"}));
    });
    EXPECT_EQ(host.randomPrices, before);
  }
}

TEST_F(RandomPriceTest, ATableWithoutPrefix2GetsThatAlone) {
  const FakeRow other = row(45, 4, 2, u"each", u"/each", false);
  host.randomPrices = {other};
  openTab(
      [&](frmOptions& dialog) { EXPECT_EQ(prefixes(dialog), (std::vector<Text>{u"45", u"02"})); });
  EXPECT_EQ(host.randomPrices, (std::vector<FakeRow>{other, fresh(2)}));
}

TEST_F(RandomPriceTest, ATableWithPrefix2StaysAsItIs) {
  const std::vector<FakeRow> only = {row(2, 1, 0, u"", u"", false)};
  host.randomPrices = only;
  openTab([&](frmOptions& dialog) { EXPECT_EQ(prefixes(dialog), std::vector<Text>{u"02"}); });
  EXPECT_EQ(host.randomPrices, only);
}

TEST_F(RandomPriceTest, ARowSaysWhatTheFormatIs) {
  host.randomPrices = {row(7, 2, 0, u"", u"", false), row(2, 4, 2, u"lb", u"per lb", true),
                       row(0, 5, 3, u"kg", u"/kg", false)};
  openTab([&](frmOptions& dialog) {
    EXPECT_EQ(
        texts(dialog, 0),
        (std::vector<Text>{u"", u"07", u"5 Product; No Price Check Digit; 5 Price; 1 Check Digit",
                           u"No", u"No", u"", u""}));
    EXPECT_EQ(
        texts(dialog, 1),
        (std::vector<Text>{u"", u"02", u"4 Product; 1 Price Check Digit; 5 Price; 1 Check Digit",
                           u"No", u"Yes", u"lb", u"per lb"}));
    EXPECT_EQ(
        texts(dialog, 2),
        (std::vector<Text>{u"", u"00", u"4 Product; 2 Price Check Digits; 4 Price; 1 Check Digit",
                           u"Yes", u"Yes", u"kg", u"/kg"}));
    EXPECT_EQ(iconOf(dialog, 0), ui::PictureId::active);
    EXPECT_EQ(iconOf(dialog, 1), ui::PictureId::inactive);
    EXPECT_EQ(iconOf(dialog, 2), ui::PictureId::active);
  });
}

TEST_F(RandomPriceTest, FieldsWithoutAValueAreEmpty) {
  host.randomPrices = {{{u"Prefix", std::int32_t{2}}}};
  openTab([&](frmOptions& dialog) {
    EXPECT_EQ(texts(dialog, 0), (std::vector<Text>{u"", u"02", u"", u"No", u"No", u"", u""}));
    EXPECT_EQ(iconOf(dialog, 0), ui::PictureId::active);
  });
}

TEST_F(RandomPriceTest, ColumnsFitTheirTextsAndTheIconItsOwn) {
  const auto width = [](frmOptions& dialog, int column) {
    return list(dialog).columns()[static_cast<std::size_t>(column)].width;
  };
  openTab([&](frmOptions& dialog) {
    const ui::Screen& screen = desk->screen();
    EXPECT_EQ(width(dialog, 0), 18 * 15);
    EXPECT_GT(width(dialog, RandomPrice::format), screen.textWidth(kFormat1));
    EXPECT_GT(width(dialog, RandomPrice::priceUnitCaption),
              screen.textWidth(u"UOM Price Per Unit"));
    EXPECT_LT(width(dialog, RandomPrice::prefix), screen.textWidth(u"UOM Price Per Unit"));

    const Text longer(60, u'x');
    editRow(dialog, 0, [&](Editor& editor) {
      user.click(editor.chkRandomPrice[Editor::calculateUnitOfMeasure]);
      user.click(editor.txtRandomPrice[Editor::priceUnitCaption]);
      user.type(longer);
    });
    EXPECT_GT(width(dialog, RandomPrice::priceUnitCaption), screen.textWidth(longer));
    EXPECT_EQ(width(dialog, 0), 18 * 15);
    EXPECT_TRUE(list(dialog).columns().back().fills);
    EXPECT_FALSE(list(dialog).columns().front().fills);
  });
}

TEST_F(RandomPriceTest, AllColumnsAreSeenWhenTheDialogOpens) {
  openTab([](frmOptions& dialog) {
    int width = 0;
    for (const ui::ListColumn& column : list(dialog).columns()) width += column.width;
    EXPECT_LT(width, list(dialog).bounds().width);
  });
}

TEST_F(RandomPriceTest, TheSwitchIsBitOneOfItsFlags) {
  openTab([&](frmOptions& dialog) { EXPECT_FALSE(active(dialog).value()); });
  for (const std::int32_t flags : {1, 3, -1}) {
    host.store(options::RandomPriceScanningFlags, flags);
    openTab([&](frmOptions& dialog) { EXPECT_TRUE(active(dialog).value()); });
  }
  for (const std::int32_t flags : {0, 2, -2}) {
    host.store(options::RandomPriceScanningFlags, flags);
    openTab([&](frmOptions& dialog) { EXPECT_FALSE(active(dialog).value()); });
  }
}

TEST_F(RandomPriceTest, TheSwitchEnablesApplyAndIsSaved) {
  editTab([&](frmOptions& dialog) {
    EXPECT_FALSE(applyEnabled(dialog));
    user.click(active(dialog));
    EXPECT_TRUE(applyEnabled(dialog));
  });
  EXPECT_EQ(host.value(options::RandomPriceScanningFlags), 1);
  editTab([&](frmOptions& dialog) {
    EXPECT_TRUE(active(dialog).value());
    user.accessKey(u't');
  });
  EXPECT_EQ(host.value(options::RandomPriceScanningFlags), 0);
}

TEST_F(RandomPriceTest, FlagsAreWrittenAsZeroAndThenBitByBitAndOthersAreNotKept) {
  host.store(options::RandomPriceScanningFlags, -2);
  saveDefaults();
  editTab([&](frmOptions& dialog) { user.click(active(dialog)); });
  const auto first = std::ranges::find(host.calls, "put RandomPriceScanningFlags");
  ASSERT_GE(host.calls.end() - first, 4);
  EXPECT_EQ(
      std::vector<std::string>(first, first + 4),
      (std::vector<std::string>{"put RandomPriceScanningFlags", "get RandomPriceScanningFlags",
                                "put RandomPriceScanningFlags", "RandomPriceTable"}));
  EXPECT_EQ(host.value(options::RandomPriceScanningFlags), 1);
}

TEST_F(RandomPriceTest, ASaveRaisesNoBit) {
  saveDefaults();
  editTab([&](frmOptions& dialog) {
    user.click(active(dialog));
    editRow(dialog, 0, [&](Editor& editor) { user.choose(editor.cboRandomPrice, 3); });
  });
  EXPECT_EQ(changes, std::vector<std::int32_t>{0});
}

TEST_F(RandomPriceTest, TheEditorGetsTheFormatOfTheSelectedRow) {
  host.randomPrices = {row(2, 1, 0, u"", u"", false), row(33, 4, 2, u"lb", u"/lb", true)};
  openTab([&](frmOptions& dialog) {
    user.clickRow(list(dialog), 1);
    whenEditorShown([&](Editor& editor) {
      EXPECT_EQ(editor.Prefix, 33);
      EXPECT_EQ(editor.FormatID, 4);
      EXPECT_TRUE(editor.Inactive);
      EXPECT_EQ(editor.OptionBits, 2);
      EXPECT_EQ(editor.UOMUnitCaption, u"lb");
      EXPECT_EQ(editor.UOMPriceUnitCaption, u"/lb");
      ASSERT_EQ(editor.FormatDescriptions.size(), 6U);
      EXPECT_EQ(editor.FormatDescriptions[0], u"");
      EXPECT_EQ(editor.FormatDescriptions[1], kFormat1);
      EXPECT_EQ(editor.FormatDescriptions[3], kFormat3);
    });
    user.click(tab(dialog).cmdRandomPrice);
  });
}

TEST_F(RandomPriceTest, OkInTheEditorShowsTheFormatAnewAndEnablesApply) {
  openTab([&](frmOptions& dialog) {
    EXPECT_FALSE(applyEnabled(dialog));
    editRow(dialog, 3, [&](Editor& editor) {
      user.choose(editor.cboRandomPrice, 4);
      user.click(editor.chkRandomPrice[Editor::inactive]);
      user.click(editor.chkRandomPrice[Editor::priceIncludesTax]);
      user.click(editor.chkRandomPrice[Editor::calculateUnitOfMeasure]);
      user.click(editor.txtRandomPrice[Editor::unitCaption]);
      user.type(u"lb");
      user.click(editor.txtRandomPrice[Editor::priceUnitCaption]);
      user.type(u"per lb");
    });
    EXPECT_TRUE(applyEnabled(dialog));
    EXPECT_EQ(list(dialog).selectedRow(), 3);
    EXPECT_EQ(iconOf(dialog, 3), ui::PictureId::active);
    EXPECT_EQ(
        texts(dialog, 3),
        (std::vector<Text>{u"", u"23", u"4 Product; 2 Price Check Digits; 4 Price; 1 Check Digit",
                           u"No", u"Yes", u"lb", u"per lb"}));
    EXPECT_EQ(texts(dialog, 4)[1], u"24");
    EXPECT_EQ(iconOf(dialog, 4), ui::PictureId::inactive);
    EXPECT_EQ(host.randomPrices, freshTable());
    user.click(dialog.cmdCommand[frmOptions::apply]);
    EXPECT_FALSE(applyEnabled(dialog));
  });
  std::vector<FakeRow> expected = freshTable();
  expected[3] = row(23, 5, 2, u"lb", u"per lb", false);
  EXPECT_EQ(host.randomPrices, expected);
  openTab([&](frmOptions& dialog) {
    EXPECT_EQ(texts(dialog, 3)[RandomPrice::priceUnitCaption], u"per lb");
    EXPECT_EQ(iconOf(dialog, 3), ui::PictureId::active);
  });
}

TEST_F(RandomPriceTest, OkInTheEditorWithoutAChangeEnablesApply) {
  openTab([&](frmOptions& dialog) {
    editRow(dialog, 0, [](Editor&) {});
    EXPECT_TRUE(applyEnabled(dialog));
    EXPECT_EQ(texts(dialog, 0),
              (std::vector<Text>{u"", u"20", Text(kFormat1), u"Yes", u"No", u"kg", u"/kg"}));
  });
}

TEST_F(RandomPriceTest, AnythingButOkInTheEditorLeavesTheFormat) {
  const std::vector<std::function<void(Editor&)>> ways = {
      [&](Editor& editor) { user.click(editor.cmdCommand[Editor::cancel]); },
      [&](Editor&) { user.press(Key::escape); }, [&](Editor& editor) { user.closeWindow(editor); }};
  for (const auto& leave : ways) {
    openTab([&](frmOptions& dialog) {
      const std::vector<Text> before = texts(dialog, 0);
      user.clickRow(list(dialog), 0);
      whenEditorShown([&](Editor& editor) {
        user.choose(editor.cboRandomPrice, 4);
        user.click(editor.chkRandomPrice[Editor::inactive]);
        leave(editor);
      });
      user.click(tab(dialog).cmdRandomPrice);
      EXPECT_EQ(texts(dialog, 0), before);
      EXPECT_EQ(iconOf(dialog, 0), ui::PictureId::inactive);
      EXPECT_FALSE(applyEnabled(dialog));
      whenEditorShown([](Editor& editor) { EXPECT_EQ(editor.FormatID, 1); });
      user.click(tab(dialog).cmdRandomPrice);
      touch(dialog);
      user.click(dialog.cmdCommand[frmOptions::apply]);
    });
    EXPECT_EQ(host.randomPrices, freshTable());
  }
}

TEST_F(RandomPriceTest, TheRowOfPrefix02EditsTheFormatOfPrefix2) {
  editTab([&](frmOptions& dialog) {
    editRow(dialog, 10, [&](Editor& editor) {
      EXPECT_EQ(editor.Prefix, 2);
      EXPECT_EQ(editor.txtRandomPrice[Editor::example].text(), u"0211111233334");
      user.choose(editor.cboRandomPrice, 4);
      EXPECT_EQ(editor.txtRandomPrice[Editor::example].text(), u"0211112233334");
    });
    EXPECT_EQ(texts(dialog, 10)[1], u"02");
  });
  std::vector<FakeRow> expected = freshTable();
  expected[10][u"FormatID"] = std::int32_t{5};
  EXPECT_EQ(host.randomPrices, expected);
}

TEST_F(RandomPriceTest, CaptionsAreKeptAndSavedWithTheUnitOfMeasureUnticked) {
  editTab([&](frmOptions& dialog) {
    editRow(dialog, 0, [&](Editor&) {
      user.accessKey(u'u');
      user.accessKey(u'a');
      user.type(u"pound");
      user.accessKey(u'u');
    });
    EXPECT_EQ(texts(dialog, 0)[RandomPrice::calculateUnitOfMeasure], u"No");
    EXPECT_EQ(texts(dialog, 0)[RandomPrice::unitCaption], u"pound");
  });
  EXPECT_EQ(host.randomPrices[0], row(20, 1, 1, u"pound", u"/kg", true));
}

TEST_F(RandomPriceTest, ADoubleClickEditsTheRow) {
  openTab([&](frmOptions& dialog) {
    whenEditorShown([&](Editor& editor) {
      EXPECT_EQ(editor.Prefix, 25);
      user.choose(editor.cboRandomPrice, 1);
      user.press(Key::enter);
    });
    user.doubleClickRow(list(dialog), 5);
    EXPECT_TRUE(list(dialog).hasFocus());
    EXPECT_EQ(texts(dialog, 5)[RandomPrice::format],
              u"5 Product; No Price Check Digit; 5 Price; 1 Check Digit");
    EXPECT_TRUE(applyEnabled(dialog));
  });
}

TEST_F(RandomPriceTest, WithoutASelectedRowNothingIsEdited) {
  openTab([&](frmOptions& dialog) {
    EXPECT_EQ(list(dialog).selectedRow(), 0);
    list(dialog).setSelectedRow(-1);
    user.click(tab(dialog).cmdRandomPrice);
    user.doubleClickBelow(list(dialog));
    EXPECT_FALSE(applyEnabled(dialog));
  });
  EXPECT_EQ(desk->unexpectedForms(), 0);
}

TEST_F(RandomPriceTest, TheEditorIsModalAndGivesTheFocusBackToTheButton) {
  openTab([&](frmOptions& dialog) {
    whenEditorShown([&](Editor& editor) {
      user.click(active(dialog));
      user.click(dialog.cmdCommand[frmOptions::cancel]);
      EXPECT_TRUE(dialog.isShown());
      EXPECT_FALSE(active(dialog).value());
      EXPECT_TRUE(editor.isShown());
      user.press(Key::escape);
      EXPECT_FALSE(editor.isShown());
    });
    user.click(tab(dialog).cmdRandomPrice);
    EXPECT_TRUE(tab(dialog).cmdRandomPrice.hasFocus());
    user.click(active(dialog));
    EXPECT_TRUE(active(dialog).value());
  });
}

TEST_F(RandomPriceTest, AFormatIsChangedByKeyboardAlone) {
  openTab([&](frmOptions& dialog) {
    user.accessKey(u'b');
    EXPECT_TRUE(list(dialog).hasFocus());
    user.press(Key::down);
    whenEditorShown([&](Editor& editor) {
      EXPECT_EQ(editor.Prefix, 21);
      user.accessKey(u'b');
      user.press(Key::down);
      user.press(Key::down);
      user.accessKey(u'r');
      user.press(Key::enter);
    });
    user.accessKey(u'e');
    EXPECT_TRUE(tab(dialog).cmdRandomPrice.hasFocus());
    user.accessKey(u'a');
    user.press(Key::escape);
  });
  EXPECT_EQ(host.randomPrices[1], row(21, 3, 1, u"kg", u"/kg", false));
}

TEST_F(RandomPriceTest, TabWalksThroughThePageInOrder) {
  openTab([&](frmOptions& dialog) {
    const std::vector<ui::Control*> order = {&active(dialog), &list(dialog),
                                             &tab(dialog).cmdRandomPrice,
                                             &dialog.cmdCommand[frmOptions::ok]};
    expectTabOrder(order);
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(RandomPriceTest, EachFormatIsSoughtByItsPrefixAndWritten) {
  host.randomPrices = {row(2, 1, 0, u"", u"", false), row(20, 1, 0, u"", u"", false),
                       row(0, 1, 0, u"", u"", false)};
  openTab([&](frmOptions& dialog) {
    touch(dialog);
    host.calls.clear();
    host.writes.clear();
    user.accessKey(u'o');
  });
  const std::vector<std::string> oneRow = {
      "edit RandomPriceTable",
      "set RandomPriceTable FormatID",
      "set RandomPriceTable OptionBits",
      "set RandomPriceTable UOMUnitCaption",
      "set RandomPriceTable UOMPriceUnitCaption",
      "set RandomPriceTable Inactive",
      "update RandomPriceTable",
  };
  std::vector<std::string> threeRows = oneRow;
  for (int i = 0; i < 2; ++i) threeRows.insert(threeRows.end(), oneRow.begin(), oneRow.end());
  EXPECT_EQ(host.writesOf("RandomPriceTable"), threeRows);
  const auto first = std::ranges::find(host.calls, "RandomPriceTable");
  ASSERT_GE(host.calls.end() - first, 7);
  EXPECT_EQ(std::vector<std::string>(first, first + 7),
            (std::vector<std::string>{
                "RandomPriceTable", "find RandomPriceTable [Prefix] = 2", "update RandomPriceTable",
                "find RandomPriceTable [Prefix] = 20", "update RandomPriceTable",
                "find RandomPriceTable [Prefix] = 0", "update RandomPriceTable"}));
  EXPECT_EQ(host.callsStarting("update RandomPriceTable").size(), 3U);
  EXPECT_TRUE(host.callsStarting("delete").empty());
}

TEST_F(RandomPriceTest, AFormatWhoseRowIsGoneIsAddedAgainAndNewRowsAreLeftAlone) {
  const FakeRow strange = row(55, 2, 3, u"a", u"b", false);
  editTab([&](frmOptions& dialog) {
    host.randomPrices = {strange, fresh(20)};
    host.writes.clear();
    editRow(dialog, 10, [&](Editor& editor) { user.choose(editor.cboRandomPrice, 0); });
  });
  ASSERT_EQ(host.randomPrices.size(), 12U);
  EXPECT_EQ(host.randomPrices[0], strange);
  EXPECT_EQ(host.randomPrices[1], fresh(20));
  EXPECT_EQ(host.randomPrices[2], fresh(21));
  EXPECT_EQ(host.randomPrices[11], row(2, 1, 1, u"kg", u"/kg", true));
  const auto added = std::ranges::find(host.writes, "add RandomPriceTable");
  ASSERT_GE(host.writes.end() - added, 8);
  EXPECT_EQ(added - host.writes.begin(), 7);  // after the one row that is edited
  EXPECT_EQ(std::vector<std::string>(added, added + 8),
            (std::vector<std::string>{
                "add RandomPriceTable", "set RandomPriceTable Prefix",
                "set RandomPriceTable FormatID", "set RandomPriceTable OptionBits",
                "set RandomPriceTable UOMUnitCaption", "set RandomPriceTable UOMPriceUnitCaption",
                "set RandomPriceTable Inactive", "update RandomPriceTable"}));
}

TEST_F(RandomPriceTest, AFormatIdOutOfRangeShowsAnEmptyCellAndIsKeptUntilOneIsChosen) {
  const std::vector<std::int32_t> ids = {0,
                                         6,
                                         9,
                                         -1,
                                         std::numeric_limits<std::int32_t>::max(),
                                         std::numeric_limits<std::int32_t>::min()};
  for (const std::int32_t id : ids) {
    host.randomPrices = {row(2, id, 1, u"kg", u"/kg", false)};
    const std::vector<FakeRow> before = host.randomPrices;
    editTab([&](frmOptions& dialog) {
      EXPECT_EQ(texts(dialog, 0)[RandomPrice::format], u"");
      touch(dialog);
    });
    EXPECT_EQ(host.randomPrices, before);
    editTab([&](frmOptions& dialog) {
      editRow(dialog, 0, [](Editor& editor) { EXPECT_EQ(editor.cboRandomPrice.listIndex(), -1); });
      EXPECT_EQ(texts(dialog, 0)[RandomPrice::format], u"");
    });
    EXPECT_EQ(host.randomPrices, before);
    editTab([&](frmOptions& dialog) {
      editRow(dialog, 0, [&](Editor& editor) { user.choose(editor.cboRandomPrice, 0); });
      EXPECT_EQ(texts(dialog, 0)[RandomPrice::format], kFormat1);
    });
    EXPECT_EQ(host.randomPrices, std::vector<FakeRow>{row(2, 1, 1, u"kg", u"/kg", false)});
  }
}

TEST_F(RandomPriceTest, PrefixesOutOfRangeAreListedAndFoundAgain) {
  const std::vector<std::pair<std::int32_t, Text>> strange = {
      {100, u"100"},
      {-5, u"-05"},
      {std::numeric_limits<std::int32_t>::max(), u"2147483647"},
      {std::numeric_limits<std::int32_t>::min(), u"-2147483648"}};
  for (const auto& [number, shown] : strange) {
    host.randomPrices = {fresh(2), fresh(number)};
    editTab([&, prefix = number, &text = shown](frmOptions& dialog) {
      EXPECT_EQ(prefixes(dialog), (std::vector<Text>{u"02", text}));
      editRow(dialog, 1, [&](Editor& editor) {
        EXPECT_EQ(editor.Prefix, prefix);
        EXPECT_EQ(editor.txtRandomPrice[Editor::example].text(), text + u"11111133334");
        user.choose(editor.cboRandomPrice, 1);
      });
    });
    EXPECT_EQ(host.randomPrices,
              (std::vector<FakeRow>{fresh(2), row(number, 2, 1, u"kg", u"/kg", true)}));
  }
}

TEST_F(RandomPriceTest, OfRowsWithOnePrefixTheFirstIsListedAndTheOthersAreLeftAlone) {
  const FakeRow second = row(20, 4, 3, u"second", u"/second", false);
  const FakeRow third = row(20, 5, 0, u"third", u"/third", false);
  host.randomPrices = {row(20, 1, 1, u"first", u"/first", true), second, fresh(2), third};
  editTab([&](frmOptions& dialog) {
    EXPECT_EQ(prefixes(dialog), (std::vector<Text>{u"20", u"02"}));
    EXPECT_EQ(texts(dialog, 0)[RandomPrice::unitCaption], u"first");
    editRow(dialog, 0, [&](Editor& editor) { user.choose(editor.cboRandomPrice, 2); });
  });
  EXPECT_EQ(host.randomPrices, (std::vector<FakeRow>{row(20, 3, 1, u"first", u"/first", true),
                                                     second, fresh(2), third}));
}

TEST_F(RandomPriceTest, ARowWithoutAPrefixIsNotListedAndStays) {
  FakeRow nameless = row(0, 2, 3, u"no", u"prefix", false);
  nameless.erase(u"Prefix");
  FakeRow worded = nameless;
  worded[u"Prefix"] = Text(u"twenty");
  const std::vector<FakeRow> before = {nameless, fresh(2), fresh(0), worded};
  host.randomPrices = before;
  editTab([&](frmOptions& dialog) {
    EXPECT_EQ(prefixes(dialog), (std::vector<Text>{u"02", u"00"}));
    touch(dialog);
  });
  EXPECT_EQ(host.randomPrices, before);
}

TEST_F(RandomPriceTest, OptionBitsWithoutABoxAreKeptUntilTheFormatIsAccepted) {
  const std::int32_t bits = 0x40000006;
  host.randomPrices = {row(2, 1, bits, u"kg", u"/kg", false)};
  editTab([&](frmOptions& dialog) {
    EXPECT_EQ(texts(dialog, 0)[RandomPrice::priceIncludesTax], u"No");
    EXPECT_EQ(texts(dialog, 0)[RandomPrice::calculateUnitOfMeasure], u"Yes");
    touch(dialog);
  });
  EXPECT_EQ(host.randomPrices[0].at(u"OptionBits"), Value(bits));
  editTab([&](frmOptions& dialog) { editRow(dialog, 0, [](Editor&) {}); });
  EXPECT_EQ(host.randomPrices[0].at(u"OptionBits"), Value(std::int32_t{2}));
}

TEST_F(RandomPriceTest, CancelDropsEditsAndKeepsWhatWasApplied) {
  openTab([&](frmOptions& dialog) {
    editRow(dialog, 0, [&](Editor& editor) { user.choose(editor.cboRandomPrice, 1); });
    user.click(dialog.cmdCommand[frmOptions::apply]);
    editRow(dialog, 0, [&](Editor& editor) { user.choose(editor.cboRandomPrice, 2); });
    user.click(dialog.cmdCommand[frmOptions::cancel]);
  });
  EXPECT_EQ(host.randomPrices[0].at(u"FormatID"), Value(std::int32_t{2}));
  openTab([&](frmOptions& dialog) {
    editRow(dialog, 0, [&](Editor& editor) {
      EXPECT_EQ(editor.FormatID, 2);
      user.choose(editor.cboRandomPrice, 3);
    });
    user.press(Key::escape);
  });
  EXPECT_EQ(host.randomPrices[0].at(u"FormatID"), Value(std::int32_t{2}));
}

TEST_F(RandomPriceTest, ARefusedSaveWritesNothingAndKeepsTheEdits) {
  openTab([&](frmOptions& dialog) {
    editRow(dialog, 0, [&](Editor& editor) { user.choose(editor.cboRandomPrice, 1); });
    user.clickTab(dialog.tabOptions, static_cast<int>(TabPage::lists));
    auto& columns = dialog.tabs().listColumns.lstListShow[ListColumns::currency];
    for (int i = 0; i < columns.count(); ++i) user.clickCheck(columns, i);
    user.click(dialog.cmdCommand[frmOptions::ok]);
    EXPECT_TRUE(dialog.isShown());
    EXPECT_EQ(host.randomPrices, freshTable());

    user.clickCheck(columns, 0);
    user.click(dialog.cmdCommand[frmOptions::ok]);
  });
  EXPECT_EQ(boxes.shown.size(), 1U);
  EXPECT_EQ(host.randomPrices[0], row(20, 2, 1, u"kg", u"/kg", true));
}

TEST_F(RandomPriceTest, FirstUseStoresTheFormatsAndTheSwitch) {
  saveDefaults();
  EXPECT_EQ(host.randomPrices, freshTable());
  EXPECT_EQ(host.value(options::RandomPriceScanningFlags), 0);
}

TEST_F(RandomPriceTest, FailuresOfALoadReachTheCallerAndNothingFollows) {
  for (const std::string call : {"get RandomPriceScanningFlags", "RandomPriceTable",
                                 "update RandomPriceTable", "find RandomPriceTable [Prefix] = 2"}) {
    host.randomPrices = {fresh(45)};
    host.calls.clear();
    host.failingCall = call;
    FakeHost::expectFailure([&] { options_.ShowOptions(); });
    EXPECT_EQ(host.calls.back(), call);
  }
}

TEST_F(RandomPriceTest, FormatsThatCannotAllBeWrittenAreTakenBackAndWrittenByTheNextOpening) {
  openTab([](frmOptions&) {});
  const std::vector<std::string> calls = host.calls;
  const int steps = host.tableSteps;
  const auto failToOpen = [&] {
    host.randomPrices.clear();
    host.calls.clear();
    host.tableSteps = 0;
    FakeHost::expectFailure([&] { options_.ShowOptions(); });
    host.failingNumber = host.failingStep = -1;
  };
  int writes = 0;
  for (std::size_t number = 0; number < calls.size(); ++number) {
    if (calls[number] != "update RandomPriceTable") continue;
    ++writes;
    host.failingNumber = static_cast<int>(number);
    failToOpen();
    EXPECT_TRUE(host.randomPrices.empty()) << "write " << writes;
  }
  EXPECT_EQ(writes, 11);
  int incomplete = 0;
  for (int step = 0; step < steps; ++step) {
    host.failingStep = step;
    failToOpen();
    if (host.randomPrices.empty()) {
      ++incomplete;
    } else {
      EXPECT_EQ(host.randomPrices, freshTable()) << "step " << step;
    }
  }
  EXPECT_GT(incomplete, 11);
  openTab([](frmOptions&) {});
  EXPECT_EQ(host.randomPrices, freshTable());
}

TEST_F(RandomPriceTest, FailuresOfASaveReachTheCallerAndNothingFollows) {
  openTab([](frmOptions&) {});
  for (const std::string call :
       {"put RandomPriceScanningFlags", "RandomPriceTable", "find RandomPriceTable [Prefix] = 21",
        "update RandomPriceTable"}) {
    desk->whenShown([&](ui::Form& form) {
      auto& dialog = dynamic_cast<frmOptions&>(form);
      user.clickTab(dialog.tabOptions, static_cast<int>(TabPage::scanning));
      user.click(active(dialog));
      host.failingCall = call;
      user.accessKey(u'o');
    });
    host.failingCall.clear();
    FakeHost::expectFailure([&] { options_.ShowOptions(); });
    EXPECT_EQ(host.calls.back(), call);
    EXPECT_TRUE(host.stored.empty()) << call;
    EXPECT_EQ(host.randomPrices, freshTable()) << call;
  }
}

}  // namespace
}  // namespace tillora::testing
