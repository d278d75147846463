#include <gtest/gtest.h>

#include "support/modEnableLabel.h"
#include "support/modListViewSupport.h"
#include "support/modSelectAllText.h"
#include "tests/testing/headless_desk.h"

namespace tillora::testing {
namespace {

class ControlHelpers : public ::testing::Test {
 protected:
  HeadlessDesk desk;
  ui::Form form{desk.screen(), u"Helpers"};
};

TEST_F(ControlHelpers, SelectAllSelectsTheWholeText) {
  auto& box = form.add<ui::TextBox>();
  selectAllText(box);
  EXPECT_EQ(box.selLength(), 0);
  box.setText(u"a\r\nb");
  box.setSelection(2, 0);
  selectAllText(box);
  EXPECT_EQ(box.selStart(), 0);
  EXPECT_EQ(box.selLength(), 4);
}

class EnableLabel : public ControlHelpers {
 protected:
  ui::Label& shadow = form.add<ui::Label>();
  ui::Label& label = form.add<ui::Label>(u"&Label");
};

TEST_F(EnableLabel, ADisabledLabelHasALightShadowOnePixelOff) {
  label.setBounds({100, 200, 900, 195});
  label.setAlignment(ui::Alignment::right);
  enableLabel(label, shadow, false);
  EXPECT_FALSE(label.enabled());
  EXPECT_TRUE(shadow.visible());
  EXPECT_EQ(shadow.bounds(), (ui::Rect{115, 215, 900, 195}));
  EXPECT_EQ(shadow.caption(), u"&Label");
  EXPECT_EQ(shadow.alignment(), ui::Alignment::right);
  EXPECT_EQ(shadow.foreColour(), 0x80000014);
}

TEST_F(EnableLabel, TheLabelIsDrawnAboveItsShadow) {
  auto& later = form.add<ui::Label>();
  enableLabel(label, later, false);
  EXPECT_GT(label.stacking(), later.stacking());
  enableLabel(label, shadow, false);
  EXPECT_GT(label.stacking(), shadow.stacking());
}

TEST_F(EnableLabel, TheShadowFollowsWhatChangedMeanwhile) {
  enableLabel(label, shadow, false);
  enableLabel(label, shadow, true);
  label.setCaption(u"&Other");
  label.setAlignment(ui::Alignment::centre);
  label.setBounds({0, 0, 300, 195});
  enableLabel(label, shadow, false);
  EXPECT_EQ(shadow.caption(), u"&Other");
  EXPECT_EQ(shadow.alignment(), ui::Alignment::centre);
  EXPECT_EQ(shadow.bounds(), (ui::Rect{15, 15, 300, 195}));
}

TEST_F(EnableLabel, NeitherOfTheTwoHasAnAccessKeyWhileTheLabelIsDisabled) {
  auto& box = form.add<ui::TextBox>();
  auto& elsewhere = form.add<ui::TextBox>();
  desk.whenShown([&](ui::Form&) {
    elsewhere.setFocus();
    enableLabel(label, shadow, false);
    EXPECT_FALSE(form.userAccessKey(u'l'));
    EXPECT_TRUE(elsewhere.hasFocus());
    enableLabel(label, shadow, true);
    EXPECT_TRUE(form.userAccessKey(u'l'));
    EXPECT_TRUE(box.hasFocus());
  });
  form.showModal();
}

TEST_F(EnableLabel, AnEnabledLabelHasNoShadow) {
  enableLabel(label, shadow, false);
  enableLabel(label, shadow, true);
  EXPECT_TRUE(label.enabled());
  EXPECT_FALSE(shadow.visible());
}

class ListViewSupport : public ControlHelpers {
 protected:
  ListViewSupport() {
    list.addColumn(u"Header");
    list.addColumn(u"B");
    list.addRow({{u"a", u"twelve chars"}});
  }
  int width(int column) const { return list.columns()[static_cast<std::size_t>(column)].width; }
  ui::ListView& list = form.add<ui::ListView>();
};

TEST_F(ListViewSupport, ColumnsFitTheirContents) {
  autoSizeColumns(list, 0, ColumnFit::contents);
  EXPECT_EQ(width(0), 90 + 180);
  EXPECT_EQ(width(1), 12 * 90 + 180);
}

TEST_F(ListViewSupport, OrTheWiderOfContentsAndHeader) {
  autoSizeColumns(list, -1, ColumnFit::contentsOrHeader);
  EXPECT_EQ(width(0), 6 * 90 + 255);
  EXPECT_EQ(width(1), 12 * 90 + 180);
}

TEST_F(ListViewSupport, AColumnIsNoWiderThanWhatAListShowsOfAText) {
  list.addRow({{Text(10000, u'x')}});
  autoSizeColumns(list, 1, ColumnFit::contents);
  EXPECT_EQ(width(0), 259 * 90 + 180);
}

TEST_F(ListViewSupport, ANumberedColumnAloneIsSized) {
  autoSizeColumns(list, 2, ColumnFit::contents);
  EXPECT_EQ(width(0), 0);
  EXPECT_EQ(width(1), 12 * 90 + 180);
}

TEST_F(ListViewSupport, AColumnBelowTheMinimumBecomesWide) {
  autoSizeColumns(list, 0, ColumnFit::contents, 1000);
  EXPECT_EQ(width(0), 1830);
  EXPECT_EQ(width(1), 12 * 90 + 180);
}

TEST_F(ListViewSupport, AColumnAsWideAsTheMinimumStays) {
  const int fitting = 90 + 180;
  autoSizeColumns(list, 0, ColumnFit::contents, fitting);
  EXPECT_EQ(width(0), fitting);
  autoSizeColumns(list, 0, ColumnFit::contents, fitting + 1);
  EXPECT_EQ(width(0), 1830);
  EXPECT_EQ(width(1), 12 * 90 + 180);
}

TEST_F(ListViewSupport, EveryColumnBelowTheMinimumBecomesWide) {
  autoSizeColumns(list, 0, ColumnFit::contents, 12 * 90 + 181);
  EXPECT_EQ(width(0), 1830);
  EXPECT_EQ(width(1), 1830);
}

TEST_F(ListViewSupport, WithoutAMinimumANarrowColumnStaysNarrow) {
  list.setRow(0, {{u"", u""}});
  autoSizeColumns(list, 0, ColumnFit::contents, 0);
  EXPECT_EQ(width(0), 180);
  EXPECT_EQ(width(1), 180);
}

TEST_F(ListViewSupport, AColumnThatIsNotThereIsNotSized) {
  autoSizeColumns(list, 3, ColumnFit::contents);
  EXPECT_EQ(width(0), 0);
  EXPECT_EQ(width(1), 0);
}

TEST_F(ListViewSupport, TheLastColumnFillsTheListIfHeadersCountToo) {
  const auto fills = [&](int column) {
    return list.columns()[static_cast<std::size_t>(column)].fills;
  };
  autoSizeColumns(list, 1, ColumnFit::contentsOrHeader);
  EXPECT_FALSE(fills(0));
  EXPECT_FALSE(fills(1));
  autoSizeColumns(list, 2, ColumnFit::contentsOrHeader);
  EXPECT_TRUE(fills(1));
  autoSizeColumns(list, 2, ColumnFit::contents);
  EXPECT_FALSE(fills(1));
  autoSizeColumns(list, 0, ColumnFit::contentsOrHeader);
  EXPECT_FALSE(fills(0));
  EXPECT_TRUE(fills(1));
  EXPECT_EQ(width(1), 12 * 90 + 180);
  list.setColumnWidth(1, 900);
  EXPECT_FALSE(fills(1));
}

TEST_F(ListViewSupport, OtherStylesOfAHeaderStayAndOneWithoutAnyIsNotMade) {
  EXPECT_EQ(list.headerStyle(), ui::kHeaderButtons | ui::kHeaderFullDrag);
  EXPECT_TRUE(toggleHeaderButtons(list));
  EXPECT_EQ(list.headerStyle(), ui::kHeaderFullDrag);
  list.setHeaderStyle(ui::kHeaderButtons);
  EXPECT_TRUE(toggleHeaderButtons(list));
  EXPECT_EQ(list.headerStyle(), ui::kHeaderButtons);
  list.setHeaderStyle(0);
  EXPECT_TRUE(toggleHeaderButtons(list));
  EXPECT_EQ(list.headerStyle(), ui::kHeaderButtons);
}

TEST_F(ListViewSupport, HeaderButtonsAreToggled) {
  EXPECT_TRUE(toggleHeaderButtons(list));
  EXPECT_EQ(list.headerStyle() & ui::kHeaderButtons, 0U);
  EXPECT_TRUE(toggleHeaderButtons(list));
  EXPECT_NE(list.headerStyle() & ui::kHeaderButtons, 0U);
}

TEST_F(ListViewSupport, ASelectedRowIsInView) {
  list.addRow({{u"b"}});
  selectRow(list, 1);
  EXPECT_EQ(list.selectedRow(), 1);
  EXPECT_EQ(list.rowToShow(), 1);
}

TEST_F(ListViewSupport, OnlyADoubleClickOnARowActs) {
  int acted = 0;
  onRowDoubleClick(list, [&] { ++acted; });
  const auto doubleClickAt = [&](ui::Point point) {
    list.mouse.raise(point);
    list.doubleClick.raise();
  };
  int y = 0;
  while (list.hitTest({0, y}) != 0) y += 15;
  doubleClickAt({0, 1000000});
  EXPECT_EQ(acted, 0);
  doubleClickAt({0, y});
  EXPECT_EQ(acted, 1);
  doubleClickAt({0, 0});
  EXPECT_EQ(acted, 1);
}

}  // namespace
}  // namespace tillora::testing
