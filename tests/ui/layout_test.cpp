#include "ui/layout.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/testing/headless_desk.h"
#include "ui/buttons.h"
#include "ui/lists.h"
#include "ui/text_box.h"
#include "ui/up_down.h"

namespace tillora::testing {
namespace {

using ui::kNatural;
using ui::kRest;
using ui::Rect;
using ui::Rows;
using ui::twips;

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
  rows.row({wide(second, twips(600)), fill(box), ok});
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
  group.block(list, kRest);
  rows.row({second});
  form.layOut();
  EXPECT_EQ(second.bounds().bottom(), 6000 - 150);
  EXPECT_LT(frame.bounds().bottom(), second.bounds().top);
  EXPECT_EQ(list.bounds().bottom(), frame.bounds().height - 135);
}

TEST_F(LayoutTest, TheRestIsWhatTheOtherRowsLeaveOver) {
  rows.row({fill(box)});
  rows.block(list, kRest);
  rows.row({fill(second)});
  rows.place({0, 0, 6000, 3000});
  EXPECT_EQ(list.bounds(), (Rect{0, 420, 6000, 3000 - 420 - 420}));
  EXPECT_EQ(second.bounds().bottom(), 3000);
}

TEST_F(LayoutTest, ABlockIsAsHighAsItsLines) {
  rows.block(label, ui::lines(3));
  rows.block(box, ui::lines(3));
  rows.place({0, 0, 6000, 3000});
  EXPECT_EQ(label.bounds().height, 585);
  EXPECT_EQ(box.bounds().height, 735);
}

TEST_F(LayoutTest, AFormIsLaidOutWhenItIsLoadedAndWheneverItsSizeChanges) {
  rows.row({fill(box)});
  EXPECT_EQ(box.bounds(), Rect());
  form.load();
  EXPECT_EQ(form.clientSize(), (ui::Size{2295, 645}));
  EXPECT_EQ(box.bounds(), (Rect{150, 150, 1995, 345}));
  form.setClientSize({7000, 6000});
  EXPECT_EQ(box.bounds().right(), 7000 - 150);
}

TEST_F(LayoutTest, AFormIsAsLargeAsItsRowsNeed) {
  ui::CheckBox longest{u"A caption that is longer than anything else"};
  rows.row({wide(second, ui::characters(3))});
  rows.group(frame, u"Group").row({fill(longest)});
  rows.block(list, ui::restFromLines(4), ui::characters(5));
  rows.buttons({&ok, &cancel});
  form.load();
  const int inGroup = 43 * 90 + 77 + 300;
  EXPECT_EQ(form.clientSize().width, inGroup + 2 * 135 + 2 * 150);
  EXPECT_EQ(longest.bounds().width, inGroup);
  EXPECT_EQ(second.bounds().width, 4 * 90 + 105);
  EXPECT_EQ(list.bounds().height, list.heightFor(4));
  EXPECT_EQ(ok.bounds().top - list.bounds().bottom(), 150);
  EXPECT_EQ(cancel.bounds().bottom(), form.clientSize().height - 150);
}

TEST_F(LayoutTest, AFormIsAsWideAsItsButtonsAtLeast) {
  rows.row({wide(second, ui::characters(1))});
  rows.buttons({&ok, &cancel});
  form.load();
  EXPECT_EQ(ok.bounds().left, 150);
  EXPECT_EQ(cancel.bounds().left, ok.bounds().right() + 90);
  EXPECT_EQ(cancel.bounds().right(), form.clientSize().width - 150);
}

TEST_F(LayoutTest, AFormThatScrollsIsMeasuredAtTheWidthOfItsTexts) {
  ui::Label note{u"A note of several lines, whose number depends on how wide the form is"};
  rows.block(note, ui::kWrapped, twips(2000));
  form.load();
  const ui::Size natural = form.clientSize();
  form.setClientSize({natural.width, natural.height - 15});
  EXPECT_EQ(form.scrolling().content.height,
            note.bounds().top + note.bounds().height + 150 + form.scrolling().position.y);
  EXPECT_EQ(note.bounds().height, desk.screen().wrappedHeight(note.caption(), note.bounds().width));
}

TEST_F(LayoutTest, ATextThatIsWrappedIsAsHighAsTheWidthDemands) {
  ui::Label note{u"A note that is too long for one line of this narrow form"};
  rows.row({wide(box, twips(2000))});
  rows.block(note, ui::kWrapped, twips(2000));
  form.load();
  EXPECT_EQ(note.bounds().width, 2000);
  EXPECT_EQ(note.bounds().height, desk.screen().wrappedHeight(note.caption(), 2000));
  EXPECT_GT(note.bounds().height, 195);
}

TEST_F(LayoutTest, AGroupsLabelsStandInTheColumnOfItsPage) {
  ui::Label longer{u"A longer label"};
  rows.group(frame, u"Group").field({longer, fill(box)});
  rows.group(otherFrame, u"Other group").field({label, fill(second)});
  form.load();
  EXPECT_EQ(label.bounds().width, longer.bounds().width);
  EXPECT_EQ(box.bounds().left, second.bounds().left);
}

TEST_F(LayoutTest, AnUpDownTouchesItsBox) {
  ui::UpDown upDown;
  rows.row({wide(box, ui::characters(4)), joined(upDown), label});
  form.load();
  EXPECT_EQ(upDown.bounds().left, box.bounds().right());
  EXPECT_EQ(upDown.bounds().height, box.bounds().height);
  EXPECT_GT(label.bounds().left, upDown.bounds().right());
}

TEST_F(LayoutTest, AnUpDownIsAsHighAsABoxOfOneLine) {
  ui::UpDown upDown;
  rows.row({upDown});
  rows.place({0, 0, 5000, 3000});
  EXPECT_EQ(upDown.bounds().height, 345);
}

TEST_F(LayoutTest, ADropDownListIsAsWideAsItsLongestItem) {
  ui::ComboBox combo;
  combo.addItem(u"Each");
  combo.addItem(u"A much longer item");
  rows.row({combo});
  form.load();
  EXPECT_EQ(combo.bounds().width, 19 * 90 + 105 + 255);
}

TEST_F(LayoutTest, AnAreaThatIsLargeEnoughDoesNotScroll) {
  rows.row({wide(box, twips(2000))});
  form.load();
  EXPECT_FALSE(form.scrolling().across());
  EXPECT_FALSE(form.scrolling().down());
  form.scrollTo({100, 100});
  EXPECT_EQ(form.scrolling().position, ui::Point());
  EXPECT_EQ(box.bounds(), (Rect{150, 150, 2000, 345}));
}

TEST_F(LayoutTest, AFormThatIsTooLowScrollsDown) {
  rows.row({wide(box, twips(2000))});
  rows.row({wide(second, twips(2000))});
  rows.row({wide(third, twips(2000))});
  form.load();
  const ui::Size natural = form.clientSize();
  form.setClientSize({natural.width + 255, natural.height - 300});
  EXPECT_TRUE(form.scrolling().down());
  EXPECT_FALSE(form.scrolling().across());
  EXPECT_EQ(form.scrolling().seen, (ui::Size{natural.width, natural.height - 300}));
  EXPECT_EQ(form.scrolling().content, natural);
  form.scrollTo({0, 100000});
  EXPECT_EQ(form.scrolling().position, (ui::Point{0, 300}));
  EXPECT_EQ(box.bounds().top, 150 - 300);
  EXPECT_EQ(third.bounds().bottom(), natural.height - 150 - 300);
  form.scrollTo({0, -5});
  EXPECT_EQ(box.bounds().top, 150);
}

TEST_F(LayoutTest, TheScrollBarOfOneDirectionMayMakeTheOtherNecessary) {
  rows.row({wide(box, twips(2000))});
  rows.row({wide(second, twips(2000))});
  form.load();
  const ui::Size natural = form.clientSize();
  form.setClientSize({natural.width, natural.height - 15});
  EXPECT_TRUE(form.scrolling().down());
  EXPECT_TRUE(form.scrolling().across());
  form.setClientSize({natural.width - 15, natural.height});
  EXPECT_TRUE(form.scrolling().down());
  EXPECT_TRUE(form.scrolling().across());
  form.setClientSize(natural);
  EXPECT_FALSE(form.scrolling().down());
  EXPECT_FALSE(form.scrolling().across());
  EXPECT_EQ(second.bounds().bottom(), natural.height - 150);
}

TEST_F(LayoutTest, TheControlWithTheFocusIsScrolledIntoView) {
  rows.row({wide(box, twips(2000))});
  rows.group(frame, u"Group").row({wide(second, twips(2000))});
  rows.row({wide(third, twips(2000))});
  desk.whenShown([&](ui::Form&) {
    form.setClientSize({form.clientSize().width, 900});
    const auto isInView = [&](const ui::Control& control, int above) {
      return control.bounds().top + above >= 0 &&
             control.bounds().bottom() + above <= form.scrolling().seen.height;
    };
    second.setFocus();
    EXPECT_TRUE(isInView(second, frame.bounds().top));
    third.setFocus();
    EXPECT_TRUE(isInView(third, 0));
    box.setFocus();
    EXPECT_TRUE(isInView(box, 0));
  });
  form.showModal();
}

TEST_F(LayoutTest, AGroupNeverScrolls) {
  rows.group(frame, u"Group").row({wide(box, twips(2000))});
  form.load();
  form.setClientSize({1000, 600});
  EXPECT_TRUE(form.scrolling().down());
  EXPECT_FALSE(frame.scrolling().down());
  EXPECT_EQ(box.bounds().width, 2000);
}

TEST_F(LayoutTest, BehindATabStripThePagesScrollAndTheButtonsStay) {
  ui::TabStrip strip;
  strip.addTab(u"One");
  ui::Frame page{Text(), ui::Frame::Border::none};
  rows.tabs(strip, {&page});
  for (ui::TextBox* each : {&box, &second, &third}) page.rows().row({wide(*each, twips(4000))});
  page.rows().block(list, ui::restFromLines(20));
  rows.buttons({&ok, &cancel});
  form.load();
  EXPECT_FALSE(page.scrolling().down());
  EXPECT_EQ(list.bounds().height, list.heightFor(20));
  const ui::Size natural = form.clientSize();
  form.setClientSize({natural.width, natural.height - 2000});
  EXPECT_TRUE(page.scrolling().down());
  EXPECT_FALSE(form.scrolling().down());
  EXPECT_EQ(page.bounds(), strip.clientArea());
  EXPECT_EQ(ok.bounds().bottom(), natural.height - 2000 - 150);
}

TEST_F(LayoutTest, APageThatGrowsNoLongerScrollsAndIsSeenFromItsTop) {
  rows.row({wide(box, twips(2000))});
  rows.row({wide(second, twips(2000))});
  form.load();
  const ui::Size natural = form.clientSize();
  form.setClientSize({natural.width + 255, natural.height - 200});
  form.scrollTo({0, 200});
  form.setClientSize({natural.width + 255, natural.height});
  EXPECT_EQ(form.scrolling().position, ui::Point());
  EXPECT_EQ(box.bounds().top, 150);
}

TEST_F(LayoutTest, TheSameRowsFitAnotherSize) {
  Rows& group = rows.group(frame, u"Group");
  group.field({label, wide(box, twips(600)), fill(second)});
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
  const std::vector<Rows*> columns = rows.columns({twips(1500), kRest, kRest});
  ASSERT_EQ(columns.size(), 3U);
  columns[0]->row({fill(left)});
  columns[1]->block(list, kRest);
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
  const std::vector<Rows*> columns = rows.columns({kRest, kRest});
  columns[0]->field({label, fill(box)});
  columns[1]->field({longer, fill(second)});
  rows.place({0, 0, 6000, 3000});
  EXPECT_EQ(label.bounds().width, longer.bounds().width);
  EXPECT_EQ(box.bounds().width, second.bounds().width);
}

TEST_F(LayoutTest, GroupsSideBySideEndAtTheSameHeight) {
  const std::vector<Rows*> columns = rows.columns({kRest, kRest});
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
  frame.rows().block(list, kRest);
  rows.buttons({&ok, &cancel});
  form.layOut();
  EXPECT_EQ(strip.bounds(), (Rect{120, 120, 8760, 5265}));
  EXPECT_EQ(frame.bounds(), strip.clientArea());
  EXPECT_EQ(otherFrame.bounds(), strip.clientArea());
  EXPECT_LT(list.bounds().bottom(), frame.bounds().height);
}

TEST_F(LayoutTest, ButtonsStandAtTheBottomRightInTheirOrder) {
  rows.block(list, kRest);
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
  rows.row({ok, wideButton, wide(box, twips(600))});
  rows.place({0, 0, 9000, 6000});
  EXPECT_EQ(label.bounds(), (Rect{0, 22, 489, 195}));
  EXPECT_EQ(tick.bounds(), (Rect{579, 0, 667, 240}));
  EXPECT_EQ(choice.bounds(), (Rect{1336, 0, 667, 240}));
  EXPECT_EQ(ok.bounds(), (Rect{0, 315, 1125, 345}));
  EXPECT_EQ(wideButton.bounds(), (Rect{1215, 315, 1892, 345}));
  EXPECT_EQ(box.bounds(), (Rect{3197, 315, 600, 345}));
  EXPECT_EQ(rows.height(8700), 660);
  EXPECT_EQ(ui::fieldHeight(form), 345);
  EXPECT_EQ(ui::fieldHeight(form, 3), 735);
}

TEST_F(LayoutTest, APageKeepsThePlatformsDistances) {
  rows.field({label, fill(box)});
  rows.gap();
  rows.row({wide(second, twips(1000)), fill(third)}, 300);
  rows.block(list, twips(2000));
  form.layOut();
  EXPECT_EQ(label.bounds(), (Rect{150, 225, 489, 195}));
  EXPECT_EQ(box.bounds(), (Rect{729, 150, 8121, 345}));
  EXPECT_EQ(second.bounds(), (Rect{450, 630, 1000, 345}));
  EXPECT_EQ(third.bounds(), (Rect{1540, 630, 7310, 345}));
  EXPECT_EQ(list.bounds(), (Rect{150, 1050, 8700, 2000}));
  EXPECT_EQ(rows.height(8700), 2900);
}

TEST_F(LayoutTest, AGroupKeepsThePlatformsDistances) {
  rows.group(frame, u"Group").row({fill(box)});
  rows.row({second});
  rows.place({100, 200, 5000, 3000});
  EXPECT_EQ(box.bounds(), (Rect{135, 270, 4730, 345}));
  EXPECT_EQ(frame.bounds(), (Rect{100, 200, 5000, 750}));
  EXPECT_EQ(second.bounds().top, 1085);
}

TEST_F(LayoutTest, ColumnsKeepThePlatformsDistances) {
  const std::vector<Rows*> columns = rows.columns({twips(1500), kRest});
  columns[0]->block(list, kRest);
  columns[1]->block(otherList, kRest);
  rows.place({100, 200, 5000, 3000});
  EXPECT_EQ(list.bounds(), (Rect{100, 200, 1500, 3000}));
  EXPECT_EQ(otherList.bounds(), (Rect{1735, 200, 3365, 3000}));
}

TEST_F(LayoutTest, ColumnsWithoutOneThatFillsKeepTheirWidths) {
  const std::vector<Rows*> columns = rows.columns({twips(1500), twips(1000)});
  columns[0]->block(list, kRest);
  columns[1]->block(otherList, kRest);
  rows.place({0, 0, 5000, 3000});
  EXPECT_EQ(list.bounds().right(), 1500);
  EXPECT_EQ(otherList.bounds().left, 1635);
  EXPECT_EQ(otherList.bounds().width, 1000);
}

TEST_F(LayoutTest, OfTwoThatFillARowTheFirstTakesTheRest) {
  rows.row({fill(box), fill(second)});
  rows.place({0, 0, 5000, 3000});
  EXPECT_EQ(second.bounds().width, second.naturalSize().width);
  EXPECT_EQ(second.bounds().right(), 5000);
}

TEST_F(LayoutTest, WhatFillsAFullRowHasNoWidth) {
  rows.row({wide(box, twips(1200)), fill(second)});
  rows.place({0, 0, 1000, 3000});
  EXPECT_EQ(box.bounds().width, 1200);
  EXPECT_EQ(second.bounds().width, 0);
}

TEST_F(LayoutTest, ButtonsKeepThePlatformsDistances) {
  rows.buttons({&ok, &cancel});
  form.layOut();
  EXPECT_EQ(cancel.bounds(), (Rect{7725, 5505, 1125, 345}));
  EXPECT_EQ(ok.bounds(), (Rect{6510, 5505, 1125, 345}));
  EXPECT_EQ(rows.height(8700), 345);
}

}  // namespace
}  // namespace tillora::testing
