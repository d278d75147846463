#include "ui/layout.h"

#include <gtest/gtest.h>

#include "tests/testing/headless_desk.h"
#include "ui/label.h"

namespace tillora::testing {
namespace {

using ui::Cell;
using ui::Rows;

class LayoutTest : public ::testing::Test {
 protected:
  LayoutTest() { form.setClientSize({9000, 6000}); }

  HeadlessDesk desk;
  ui::Form form{desk.screen(), u"Layout"};
  ui::Label& label = form.add<ui::Label>(u"&Label");
  ui::TextBox& box = form.add<ui::TextBox>();
};

TEST_F(LayoutTest, AFieldFillsTheRowBesideItsLabel) {
  Rows rows(form, {100, 200, 5000, 1000});
  rows.labelColumn({&label});
  rows.field(label, {{box, Cell::kFill}});
  EXPECT_EQ(label.bounds().left, 100);
  EXPECT_GT(box.bounds().left, label.bounds().right());
  EXPECT_EQ(box.bounds().right(), 5100);
  EXPECT_EQ(box.bounds().top, 200);
  EXPECT_EQ(box.bounds().height, ui::fieldHeight(form));
  EXPECT_GT(rows.bottom(), box.bounds().bottom());
}

TEST_F(LayoutTest, ALabelStandsInTheMiddleOfItsFirstLine) {
  Rows rows(form, {0, 0, 5000, 1000});
  rows.field(label, {{box, Cell::kFill}}, 4);
  const int middle = label.bounds().top + label.bounds().height / 2;
  EXPECT_NEAR(middle, ui::fieldHeight(form) / 2, 1);
  EXPECT_EQ(box.bounds().height, ui::fieldHeight(form, 4));
}

TEST_F(LayoutTest, FixedAndFillingCellsShareARow) {
  auto& narrow = form.add<ui::TextBox>();
  auto& button = form.add<ui::CommandButton>(u"&Browse...");
  Rows rows(form, {0, 0, 6000, 1000});
  rows.row({{narrow, 600}, {box, Cell::kFill}, {button}});
  EXPECT_EQ(narrow.bounds().width, 600);
  EXPECT_GT(box.bounds().left, narrow.bounds().right());
  EXPECT_GT(button.bounds().left, box.bounds().right());
  EXPECT_EQ(button.bounds().right(), 6000);
}

TEST_F(LayoutTest, RowsDoNotOverlap) {
  auto& second = form.add<ui::TextBox>();
  Rows rows(form, {0, 0, 6000, 1000});
  rows.row({{box, Cell::kFill}});
  rows.gap();
  rows.row({{second, Cell::kFill}}, 300);
  EXPECT_GT(second.bounds().top, box.bounds().bottom());
  EXPECT_EQ(second.bounds().left, 300);
  EXPECT_EQ(second.bounds().right(), 6000);
}

TEST_F(LayoutTest, AGroupIsAsHighAsItsRows) {
  auto& frame = form.add<ui::Frame>(u"Group");
  auto& inside = frame.add<ui::TextBox>();
  Rows page = Rows::onPage(form);
  Rows rows = page.group(frame);
  rows.row({{inside, Cell::kFill}});
  page.endGroup(frame, rows);
  EXPECT_GT(inside.bounds().left, 0);
  EXPECT_LT(inside.bounds().right(), frame.bounds().width);
  EXPECT_LT(inside.bounds().bottom(), frame.bounds().height);
  EXPECT_GT(page.bottom(), frame.bounds().bottom());
  EXPECT_EQ(frame.bounds().right(), 9000 - frame.bounds().left);
}

TEST_F(LayoutTest, ThePartsOfAPageStandBelowEachOther) {
  auto& page = form.add<ui::Frame>(Text(), ui::Frame::Border::none);
  page.setBounds({0, 0, 9000, 6000});
  auto& first = page.add<ui::TextBox>();
  auto& list = page.add<ui::ListView>();
  Rows alone = Rows::restOfPage(page);
  EXPECT_EQ(alone.bottom(), Rows::onPage(page).bottom());
  alone.row({{first, Cell::kFill}});
  Rows rest = Rows::restOfPage(page);
  EXPECT_GT(rest.bottom(), alone.bottom());
  rest.block(list, 0);
  EXPECT_EQ(list.bounds().left, first.bounds().left);
  EXPECT_EQ(6000 - list.bounds().bottom(), first.bounds().top);
}

TEST_F(LayoutTest, ABlockOfNoHeightTakesTheRest) {
  Rows rows(form, {0, 0, 6000, 3000});
  rows.row({{box, Cell::kFill}});
  auto& list = form.add<ui::ListView>();
  rows.block(list, 0);
  EXPECT_EQ(list.bounds().width, 6000);
  EXPECT_EQ(list.bounds().bottom(), 3000);
}

TEST_F(LayoutTest, ColumnsShareTheWidthFromTheNextRowOn) {
  auto& left = form.add<ui::TextBox>();
  auto& middle = form.add<ui::TextBox>();
  auto& right = form.add<ui::TextBox>();
  Rows rows(form, {100, 0, 6000, 3000});
  rows.row({{box, Cell::kFill}});
  std::vector<Rows> columns = rows.columns({1500, Cell::kFill, Cell::kFill});
  ASSERT_EQ(columns.size(), 3U);
  columns[0].row({{left, Cell::kFill}});
  columns[1].block(middle, 0);
  columns[2].row({{right, Cell::kFill}});
  EXPECT_EQ(left.bounds().left, 100);
  EXPECT_EQ(left.bounds().width, 1500);
  EXPECT_GT(left.bounds().top, box.bounds().bottom());
  EXPECT_GT(middle.bounds().left, left.bounds().right());
  EXPECT_GT(right.bounds().left, middle.bounds().right());
  EXPECT_EQ(middle.bounds().width, right.bounds().width);
  EXPECT_EQ(right.bounds().right(), 6100);
  EXPECT_EQ(middle.bounds().top, left.bounds().top);
  EXPECT_EQ(middle.bounds().bottom(), 3000);
}

TEST_F(LayoutTest, ButtonsStandAtTheBottomRightInTheirOrder) {
  auto& ok = form.add<ui::CommandButton>(u"&OK");
  auto& cancel = form.add<ui::CommandButton>(u"&Cancel");
  const int top = Rows::buttonRow(form, {&ok, &cancel});
  EXPECT_EQ(ok.bounds().top, top);
  EXPECT_GT(cancel.bounds().left, ok.bounds().right());
  EXPECT_LT(cancel.bounds().right(), 9000);
  EXPECT_LT(cancel.bounds().bottom(), 6000);
}

// At 96 DPI, 15 twips to the pixel. The text of the headless screen is 90 twips wide for each
// character and 195 high.
TEST_F(LayoutTest, ControlsHaveThePlatformsSizes) {
  auto& tick = form.add<ui::CheckBox>(u"&Tick");
  auto& choice = form.add<ui::OptionButton>(u"&Tick");
  auto& ok = form.add<ui::CommandButton>(u"&OK");
  auto& wide = form.add<ui::CommandButton>(u"Reset &All Captions");
  Rows rows(form, {0, 0, 9000, 6000});
  rows.row({{label}, {tick}, {choice}});
  rows.row({{ok}, {wide}, {box, 600}});
  EXPECT_EQ(label.bounds(), (ui::Rect{0, 22, 480, 195}));
  EXPECT_EQ(tick.bounds(), (ui::Rect{570, 0, 660, 240}));
  EXPECT_EQ(choice.bounds(), (ui::Rect{1320, 0, 660, 240}));
  EXPECT_EQ(ok.bounds(), (ui::Rect{0, 315, 1125, 345}));
  EXPECT_EQ(wide.bounds(), (ui::Rect{1215, 315, 1860, 345}));
  EXPECT_EQ(box.bounds(), (ui::Rect{3165, 315, 600, 345}));
  EXPECT_EQ(rows.bottom(), 735);
  EXPECT_EQ(ui::fieldHeight(form), 315);
  EXPECT_EQ(ui::fieldHeight(form, 3), 705);
}

TEST_F(LayoutTest, APageKeepsThePlatformsDistances) {
  auto& second = form.add<ui::TextBox>();
  auto& third = form.add<ui::TextBox>();
  auto& list = form.add<ui::ListView>();
  Rows rows = Rows::onPage(form);
  rows.labelColumn({&label});
  rows.field(label, {{box, Cell::kFill}});
  rows.gap();
  rows.row({{second, 1000}, {third, Cell::kFill}}, 300);
  rows.block(list, 2000);
  EXPECT_EQ(label.bounds(), (ui::Rect{150, 210, 480, 195}));
  EXPECT_EQ(box.bounds(), (ui::Rect{720, 150, 8130, 315}));
  EXPECT_EQ(second.bounds(), (ui::Rect{450, 600, 1000, 315}));
  EXPECT_EQ(third.bounds(), (ui::Rect{1540, 600, 7310, 315}));
  EXPECT_EQ(list.bounds(), (ui::Rect{150, 990, 8700, 2000}));
  EXPECT_EQ(rows.bottom(), 3065);
  EXPECT_EQ(Rows::restOfPage(form).bottom(), 3125);
}

TEST_F(LayoutTest, AGroupKeepsThePlatformsDistances) {
  auto& frame = form.add<ui::Frame>(u"Group");
  auto& inside = frame.add<ui::TextBox>();
  Rows page(form, {100, 200, 5000, 3000});
  Rows rows = page.group(frame);
  rows.row({{inside, Cell::kFill}});
  page.endGroup(frame, rows);
  EXPECT_EQ(inside.bounds(), (ui::Rect{135, 270, 4730, 315}));
  EXPECT_EQ(frame.bounds(), (ui::Rect{100, 200, 5000, 720}));
  EXPECT_EQ(page.bottom(), 1055);
}

TEST_F(LayoutTest, ColumnsKeepThePlatformsDistances) {
  auto& left = form.add<ui::ListView>();
  auto& right = form.add<ui::ListView>();
  Rows rows(form, {100, 200, 5000, 3000});
  std::vector<Rows> columns = rows.columns({1500, Cell::kFill});
  columns[0].block(left, 0);
  columns[1].block(right, 0);
  EXPECT_EQ(left.bounds(), (ui::Rect{100, 200, 1500, 3000}));
  EXPECT_EQ(right.bounds(), (ui::Rect{1735, 200, 3365, 3000}));
}

TEST_F(LayoutTest, ColumnsWithoutOneThatFillsKeepTheirWidths) {
  auto& left = form.add<ui::ListView>();
  auto& right = form.add<ui::ListView>();
  std::vector<Rows> columns = Rows(form, {0, 0, 5000, 3000}).columns({1500, 1000});
  columns[0].block(left, 0);
  columns[1].block(right, 0);
  EXPECT_EQ(left.bounds().right(), 1500);
  EXPECT_EQ(right.bounds().left, 1635);
  EXPECT_EQ(right.bounds().width, 1000);
}

TEST_F(LayoutTest, WhatFillsAFullRowHasNoWidth) {
  auto& second = form.add<ui::TextBox>();
  Rows rows(form, {0, 0, 1000, 3000});
  rows.row({{box, 1200}, {second, Cell::kFill}});
  EXPECT_EQ(box.bounds().width, 1200);
  EXPECT_EQ(second.bounds().width, 0);
}

TEST_F(LayoutTest, ButtonsKeepThePlatformsDistances) {
  auto& ok = form.add<ui::CommandButton>(u"&OK");
  auto& cancel = form.add<ui::CommandButton>(u"&Cancel");
  EXPECT_EQ(Rows::buttonRow(form, {&ok, &cancel}), 5505);
  EXPECT_EQ(cancel.bounds(), (ui::Rect{7725, 5505, 1125, 345}));
  EXPECT_EQ(ok.bounds(), (ui::Rect{6510, 5505, 1125, 345}));
}

}  // namespace
}  // namespace tillora::testing
