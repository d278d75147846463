#include "ui/layout.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/testing/headless_desk.h"
#include "ui/buttons.h"
#include "ui/lists.h"
#include "ui/text_box.h"

namespace tillora::testing {
namespace {

using ui::Cell;
using ui::Rect;
using ui::Rows;

// At 96 DPI, 15 twips to the pixel. The text of the headless screen is 90 twips wide for each
// character and 195 high.
class LayoutTest : public ::testing::Test {
 protected:
  LayoutTest() { form.setClientSize({9000, 6000}); }

  HeadlessDesk desk;
  ui::Form form{desk.screen(), u"Layout"};
  Rows& rows = form.rows();
  ui::Label label{u"&Label"};
  ui::TextBox box;
  ui::TextBox second;
  ui::TextBox third;
  ui::ListView list;
  ui::ListView otherList;
  ui::Frame frame;
  ui::Frame otherFrame;
  ui::CommandButton ok{u"&OK"};
  ui::CommandButton cancel{u"&Cancel"};
};

TEST_F(LayoutTest, ARowTakesInItsControlsInTabOrder) {
  rows.field({label, fill(box)});
  rows.row({second, third});
  EXPECT_EQ(form.children(), (std::vector<ui::Control*>{&label, &box, &second, &third}));
  EXPECT_EQ(box.parent(), &form);
  EXPECT_EQ(&box.form(), &form);
}

TEST_F(LayoutTest, AControlThatIsOnTheFormKeepsItsPlaceInTheTabOrder) {
  form.take(box);
  rows.row({second});
  rows.row({box});
  EXPECT_EQ(form.children(), (std::vector<ui::Control*>{&box, &second}));
}

TEST_F(LayoutTest, AFieldFillsTheRowBesideItsLabel) {
  rows.field({label, fill(box)});
  rows.place({100, 200, 5000, 1000});
  EXPECT_EQ(label.bounds().left, 100);
  EXPECT_GT(box.bounds().left, label.bounds().right());
  EXPECT_EQ(box.bounds().right(), 5100);
  EXPECT_EQ(box.bounds().top, 200);
  EXPECT_EQ(box.bounds().height, ui::fieldHeight(form));
}

TEST_F(LayoutTest, TheLabelsOfAllFieldsFormAColumn) {
  ui::Label longer{u"A longer label"};
  rows.field({label, fill(box)});
  rows.row({third});
  rows.field({longer, fill(second)});
  rows.place({0, 0, 5000, 2000});
  EXPECT_EQ(label.bounds().width, longer.bounds().width);
  EXPECT_EQ(box.bounds().left, second.bounds().left);
  EXPECT_EQ(third.bounds().left, 0);
}

TEST_F(LayoutTest, ALabelStandsInTheMiddleOfItsFirstLine) {
  rows.field({label, fill(box)}, 4);
  rows.place({0, 0, 5000, 1000});
  const int middle = label.bounds().top + label.bounds().height / 2;
  const int wanted = ui::fieldHeight(form) / 2;
  EXPECT_LE(std::abs(middle - wanted), 1);
  EXPECT_EQ(box.bounds().height, ui::fieldHeight(form, 4));
}

TEST_F(LayoutTest, FixedAndFillingCellsShareARow) {
  rows.row({wide(second, 600), fill(box), ok});
  rows.place({0, 0, 6000, 1000});
  EXPECT_EQ(second.bounds().width, 600);
  EXPECT_GT(box.bounds().left, second.bounds().right());
  EXPECT_GT(ok.bounds().left, box.bounds().right());
  EXPECT_EQ(ok.bounds().right(), 6000);
}

TEST_F(LayoutTest, RowsDoNotOverlap) {
  rows.row({fill(box)});
  rows.gap();
  rows.row({fill(second)}, 300);
  rows.place({0, 0, 6000, 1000});
  EXPECT_GT(second.bounds().top, box.bounds().bottom());
  EXPECT_EQ(second.bounds().left, 300);
  EXPECT_EQ(second.bounds().right(), 6000);
}

TEST_F(LayoutTest, AShadowStandsOnePixelRightOfAndBelowItsLabel) {
  ui::Label shadow;
  rows.row({engraved(label, shadow), fill(box)});
  rows.place({100, 200, 6000, 1000});
  const Rect& place = label.bounds();
  EXPECT_EQ(shadow.bounds(), (Rect{place.left + 15, place.top + 15, place.width, place.height}));
  EXPECT_FALSE(shadow.visible());
}

TEST_F(LayoutTest, AGroupIsAsHighAsItsRows) {
  rows.group(frame, u"Group").row({fill(box)});
  rows.row({second});
  form.layOut();
  EXPECT_EQ(frame.caption(), u"Group");
  EXPECT_EQ(box.parent(), &frame);
  EXPECT_GT(box.bounds().left, 0);
  EXPECT_LT(box.bounds().right(), frame.bounds().width);
  EXPECT_LT(box.bounds().bottom(), frame.bounds().height);
  EXPECT_GT(second.bounds().top, frame.bounds().bottom());
  EXPECT_EQ(frame.bounds().right(), 9000 - frame.bounds().left);
}

TEST_F(LayoutTest, AListInAGroupCanTakeTheRestOfThePage) {
  Rows& group = rows.group(frame, u"Group");
  group.row({box});
  group.block(list, ui::kRest);
  rows.row({second});
  form.layOut();
  EXPECT_EQ(second.bounds().bottom(), 6000 - 150);
  EXPECT_LT(frame.bounds().bottom(), second.bounds().top);
  EXPECT_EQ(list.bounds().bottom(), frame.bounds().height - 135);
}

TEST_F(LayoutTest, TheRestIsWhatTheOtherRowsLeaveOver) {
  rows.row({fill(box)});
  rows.block(list, ui::kRest);
  rows.row({fill(second)});
  rows.place({0, 0, 6000, 3000});
  EXPECT_EQ(list.bounds(), (Rect{0, 390, 6000, 3000 - 390 - 390}));
  EXPECT_EQ(second.bounds().bottom(), 3000);
}

TEST_F(LayoutTest, ABlockIsAsHighAsItsLines) {
  rows.block(label, ui::lines(3));
  rows.block(box, ui::lines(3));
  rows.place({0, 0, 6000, 3000});
  EXPECT_EQ(label.bounds().height, 585);
  EXPECT_EQ(box.bounds().height, 705);
}

TEST_F(LayoutTest, AFormIsLaidOutWhenItIsLoadedAndWheneverItsSizeChanges) {
  rows.row({fill(box)});
  EXPECT_EQ(box.bounds(), Rect());
  form.load();
  EXPECT_EQ(box.bounds().right(), 9000 - 150);
  form.setClientSize({7000, 6000});
  EXPECT_EQ(box.bounds().right(), 7000 - 150);
}

TEST_F(LayoutTest, TheSameRowsFitAnotherSize) {
  Rows& group = rows.group(frame, u"Group");
  group.field({label, wide(box, 600), fill(second)});
  rows.place({0, 0, 6000, 3000});
  const Rect before = second.bounds();
  rows.place({0, 0, 8000, 3000});
  EXPECT_EQ(second.bounds().width, before.width + 2000);
  rows.place({0, 0, 6000, 3000});
  EXPECT_EQ(second.bounds(), before);
}

TEST_F(LayoutTest, ColumnsShareTheWidthFromTheNextRowOn) {
  ui::TextBox left;
  rows.row({fill(box)});
  const std::vector<Rows*> columns = rows.columns({1500, Cell::kFill, Cell::kFill});
  ASSERT_EQ(columns.size(), 3U);
  columns[0]->row({fill(left)});
  columns[1]->block(list, ui::kRest);
  columns[2]->row({fill(third)});
  rows.place({100, 0, 6000, 3000});
  EXPECT_EQ(left.bounds().left, 100);
  EXPECT_EQ(left.bounds().width, 1500);
  EXPECT_GT(left.bounds().top, box.bounds().bottom());
  EXPECT_GT(list.bounds().left, left.bounds().right());
  EXPECT_GT(third.bounds().left, list.bounds().right());
  EXPECT_EQ(list.bounds().width, third.bounds().width);
  EXPECT_EQ(third.bounds().right(), 6100);
  EXPECT_EQ(list.bounds().top, left.bounds().top);
  EXPECT_EQ(list.bounds().bottom(), 3000);
}

TEST_F(LayoutTest, TheLabelsOfColumnsAreEquallyWide) {
  ui::Label longer{u"A longer label"};
  const std::vector<Rows*> columns = rows.columns({Cell::kFill, Cell::kFill});
  columns[0]->field({label, fill(box)});
  columns[1]->field({longer, fill(second)});
  rows.place({0, 0, 6000, 3000});
  EXPECT_EQ(label.bounds().width, longer.bounds().width);
  EXPECT_EQ(box.bounds().width, second.bounds().width);
}

TEST_F(LayoutTest, GroupsSideBySideEndAtTheSameHeight) {
  const std::vector<Rows*> columns = rows.columns({Cell::kFill, Cell::kFill});
  columns[0]->group(frame, u"Low").row({box});
  Rows& high = columns[1]->group(otherFrame, u"High");
  high.row({second});
  high.row({third});
  form.layOut();
  EXPECT_EQ(frame.bounds().height, otherFrame.bounds().height);
  EXPECT_LT(frame.bounds().bottom(), 6000 / 2);
}

TEST_F(LayoutTest, ATabStripTakesWhatTheButtonsLeaveAndItsPagesFillIt) {
  ui::TabStrip strip;
  strip.addTab(u"One");
  rows.tabs(strip, {&frame, &otherFrame});
  frame.rows().block(list, ui::kRest);
  rows.buttons({&ok, &cancel});
  form.layOut();
  EXPECT_EQ(strip.bounds(), (Rect{120, 120, 8760, 5265}));
  EXPECT_EQ(frame.bounds(), strip.clientArea());
  EXPECT_EQ(otherFrame.bounds(), strip.clientArea());
  EXPECT_LT(list.bounds().bottom(), frame.bounds().height);
}

TEST_F(LayoutTest, ButtonsStandAtTheBottomRightInTheirOrder) {
  rows.block(list, ui::kRest);
  rows.buttons({&ok});
  rows.buttons({&cancel});
  form.layOut();
  EXPECT_EQ(ok.bounds().top, cancel.bounds().top);
  EXPECT_GT(cancel.bounds().left, ok.bounds().right());
  EXPECT_EQ(ok.bounds().top - list.bounds().bottom(), 150);
}

TEST_F(LayoutTest, ControlsHaveThePlatformsSizes) {
  ui::CheckBox tick{u"&Tick"};
  ui::OptionButton choice{u"&Tick"};
  ui::CommandButton wideButton{u"Reset &All Captions"};
  rows.row({label, tick, choice});
  rows.row({ok, wideButton, wide(box, 600)});
  rows.place({0, 0, 9000, 6000});
  EXPECT_EQ(label.bounds(), (Rect{0, 22, 480, 195}));
  EXPECT_EQ(tick.bounds(), (Rect{570, 0, 660, 240}));
  EXPECT_EQ(choice.bounds(), (Rect{1320, 0, 660, 240}));
  EXPECT_EQ(ok.bounds(), (Rect{0, 315, 1125, 345}));
  EXPECT_EQ(wideButton.bounds(), (Rect{1215, 315, 1860, 345}));
  EXPECT_EQ(box.bounds(), (Rect{3165, 315, 600, 345}));
  EXPECT_EQ(rows.height(), 660);
  EXPECT_EQ(ui::fieldHeight(form), 315);
  EXPECT_EQ(ui::fieldHeight(form, 3), 705);
}

TEST_F(LayoutTest, APageKeepsThePlatformsDistances) {
  rows.field({label, fill(box)});
  rows.gap();
  rows.row({wide(second, 1000), fill(third)}, 300);
  rows.block(list, ui::twips(2000));
  form.layOut();
  EXPECT_EQ(label.bounds(), (Rect{150, 210, 480, 195}));
  EXPECT_EQ(box.bounds(), (Rect{720, 150, 8130, 315}));
  EXPECT_EQ(second.bounds(), (Rect{450, 600, 1000, 315}));
  EXPECT_EQ(third.bounds(), (Rect{1540, 600, 7310, 315}));
  EXPECT_EQ(list.bounds(), (Rect{150, 990, 8700, 2000}));
  EXPECT_EQ(rows.height(), 2840);
}

TEST_F(LayoutTest, AGroupKeepsThePlatformsDistances) {
  rows.group(frame, u"Group").row({fill(box)});
  rows.row({second});
  rows.place({100, 200, 5000, 3000});
  EXPECT_EQ(box.bounds(), (Rect{135, 270, 4730, 315}));
  EXPECT_EQ(frame.bounds(), (Rect{100, 200, 5000, 720}));
  EXPECT_EQ(second.bounds().top, 1055);
}

TEST_F(LayoutTest, ColumnsKeepThePlatformsDistances) {
  const std::vector<Rows*> columns = rows.columns({1500, Cell::kFill});
  columns[0]->block(list, ui::kRest);
  columns[1]->block(otherList, ui::kRest);
  rows.place({100, 200, 5000, 3000});
  EXPECT_EQ(list.bounds(), (Rect{100, 200, 1500, 3000}));
  EXPECT_EQ(otherList.bounds(), (Rect{1735, 200, 3365, 3000}));
}

TEST_F(LayoutTest, ColumnsWithoutOneThatFillsKeepTheirWidths) {
  const std::vector<Rows*> columns = rows.columns({1500, 1000});
  columns[0]->block(list, ui::kRest);
  columns[1]->block(otherList, ui::kRest);
  rows.place({0, 0, 5000, 3000});
  EXPECT_EQ(list.bounds().right(), 1500);
  EXPECT_EQ(otherList.bounds().left, 1635);
  EXPECT_EQ(otherList.bounds().width, 1000);
}

TEST_F(LayoutTest, WhatFillsAFullRowHasNoWidth) {
  rows.row({wide(box, 1200), fill(second)});
  rows.place({0, 0, 1000, 3000});
  EXPECT_EQ(box.bounds().width, 1200);
  EXPECT_EQ(second.bounds().width, 0);
}

TEST_F(LayoutTest, ButtonsKeepThePlatformsDistances) {
  rows.buttons({&ok, &cancel});
  form.layOut();
  EXPECT_EQ(cancel.bounds(), (Rect{7725, 5505, 1125, 345}));
  EXPECT_EQ(ok.bounds(), (Rect{6510, 5505, 1125, 345}));
}

}  // namespace
}  // namespace tillora::testing
