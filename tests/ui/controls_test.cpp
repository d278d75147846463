#include <gtest/gtest.h>

#include "base/error.h"
#include "tests/testing/headless_desk.h"
#include "ui/control_array.h"

namespace tillora::testing {
namespace {

class ControlsTest : public ::testing::Test {
 protected:
  class CountingForm final : public ui::Form {
   public:
    explicit CountingForm(ui::Screen& screen) : Form(screen, u"Controls") {}
    void edited(ui::Control&) override { ++edits; }
    int edits = 0;
  };

  HeadlessDesk desk;
  CountingForm form{desk.screen()};
  int events = 0;
  const std::function<void()> count = [this] { ++events; };
};

TEST_F(ControlsTest, SettingACheckBoxFiresItsClickOncePerChange) {
  auto& box = form.add<ui::CheckBox>(u"Box");
  box.click = count;
  box.setValue(true);
  box.setValue(true);
  box.setValue(false);
  EXPECT_EQ(events, 2);
  EXPECT_EQ(form.edits, 2);
}

TEST_F(ControlsTest, ChoosingAnOptionButtonClearsTheOthersOfItsContainer) {
  auto& frame = form.add<ui::Frame>(u"Frame");
  auto& one = form.add<ui::OptionButton>(u"One");
  auto& two = form.add<ui::OptionButton>(u"Two");
  auto& other = frame.add<ui::OptionButton>(u"Other");
  one.click = count;
  other.setValue(true);
  one.setValue(true);
  two.setValue(true);
  EXPECT_FALSE(one.value());
  EXPECT_TRUE(two.value());
  EXPECT_TRUE(other.value());
  EXPECT_EQ(events, 1);
}

TEST(CellTextsTest, EachCellHasItsTextHoweverLong) {
  const Text text(70000, u'b');
  const ui::CellTexts cells{u"a", text, u"", u"c"};
  ASSERT_EQ(cells.size(), 4U);
  EXPECT_EQ(cells[0], u"a");
  EXPECT_EQ(cells[1], text);
  EXPECT_EQ(cells[2], u"");
  EXPECT_EQ(cells[3], u"c");
  EXPECT_EQ(cells[4], u"");
  EXPECT_EQ(ui::CellTexts().size(), 0U);
  EXPECT_EQ(ui::CellTexts()[0], u"");
}

TEST_F(ControlsTest, AListInColumnsHasRoomForItsHeaderAndItsBorders) {
  const auto& list = form.add<ui::ListView>();
  const int pixel = desk.screen().twipsPerPixel().height;
  // Eight pixels around the text of the header, four of the borders.
  EXPECT_GE(list.heightFor(0), desk.screen().lineHeight() + 12 * pixel);
  EXPECT_GE(list.heightFor(3), list.heightFor(0) + 3 * desk.screen().lineHeight());
}

TEST_F(ControlsTest, SettingTextRaisesChangeIfItDiffers) {
  auto& box = form.add<ui::TextBox>();
  box.change = count;
  box.setText(u"a");
  box.setText(u"a");
  EXPECT_EQ(events, 1);
}

TEST_F(ControlsTest, ReformattingATextIsNotAnEdit) {
  auto& box = form.add<ui::TextBox>();
  box.change = count;
  box.reformat(u"5.00%");
  EXPECT_EQ(box.text(), u"5.00%");
  EXPECT_EQ(events + form.edits, 0);
}

TEST_F(ControlsTest, ASelectionIsLimitedToTheText) {
  auto& box = form.add<ui::TextBox>();
  box.setText(u"abc");
  box.setSelection(2, 10);
  EXPECT_EQ(box.selText(), u"c");
  box.setSelection(-1, 2);
  EXPECT_EQ(box.selText(), u"ab");
  box.setSelection(9, 1);
  EXPECT_EQ(box.selStart(), 3);
  EXPECT_EQ(box.selLength(), 0);
}

TEST_F(ControlsTest, AComboBoxRefusesPositionsItDoesNotHave) {
  auto& combo = form.add<ui::ComboBox>();
  combo.addItem(u"a");
  combo.click = count;
  EXPECT_THROW(combo.setListIndex(1), Error);
  EXPECT_THROW(combo.setListIndex(-2), Error);
  EXPECT_EQ(combo.text(), u"");
  combo.setListIndex(0);
  combo.setListIndex(0);
  EXPECT_EQ(combo.text(), u"a");
  EXPECT_EQ(events, 1);
  combo.clear();
  EXPECT_EQ(combo.listIndex(), -1);
  EXPECT_EQ(events, 1);
}

TEST_F(ControlsTest, AUsersChoiceOfTheSelectedItemRaisesClickAgain) {
  auto& combo = form.add<ui::ComboBox>();
  combo.addItem(u"a");
  combo.addItem(u"b");
  combo.click = count;
  combo.userChose(1);
  combo.userChose(1);
  EXPECT_EQ(combo.text(), u"b");
  EXPECT_EQ(events, 2);
  EXPECT_THROW(combo.userChose(2), Error);
  EXPECT_THROW(combo.userChose(-1), Error);
  EXPECT_EQ(events, 2);
}

TEST_F(ControlsTest, TheFirstRowOfACheckListGetsTheSelectionBar) {
  auto& list = form.add<ui::CheckListBox>();
  EXPECT_EQ(list.listIndex(), -1);
  list.addRow(u"a", 1);
  EXPECT_EQ(list.listIndex(), 0);
  list.addRow(u"b", 2);
  EXPECT_EQ(list.listIndex(), 0);
}

TEST_F(ControlsTest, ACheckListReportsWhichRowWasTicked) {
  auto& list = form.add<ui::CheckListBox>();
  list.addRow(u"a", 1);
  list.addRow(u"b", 2);
  std::vector<int> rows;
  list.itemCheck = [&](int row) { rows.push_back(row); };
  list.setChecked(1, true);
  list.setChecked(1, true);
  list.setChecked(0, false);
  EXPECT_EQ(rows, std::vector<int>{1});
}

TEST_F(ControlsTest, RemovingTheSelectedRowSelectsTheOneThatTakesItsPlace) {
  auto& list = form.add<ui::ListView>();
  for (const char16_t* text : {u"a", u"b", u"c"}) list.addRow({{text}});
  list.setSelectedRow(1);
  list.removeRow(1);
  EXPECT_EQ(list.text(list.selectedRow(), 0), u"c");
  list.removeRow(1);
  EXPECT_EQ(list.text(list.selectedRow(), 0), u"a");
  list.removeRow(0);
  EXPECT_EQ(list.selectedRow(), -1);
}

TEST_F(ControlsTest, RemovingARowAboveKeepsTheSelectedOne) {
  auto& list = form.add<ui::ListView>();
  for (const char16_t* text : {u"a", u"b", u"c"}) list.addRow({{text}});
  list.setSelectedRow(2);
  list.removeRow(0);
  EXPECT_EQ(list.text(list.selectedRow(), 0), u"c");
  list.setSelectedRow(0);
  list.removeRow(1);
  EXPECT_EQ(list.selectedRow(), 0);
}

TEST_F(ControlsTest, ControlsThatHoldTextHaveTheColoursOfAWindow) {
  const auto expectWindowColours = [](const ui::Control& control) {
    EXPECT_EQ(control.foreColour(), ui::kWindowText);
    EXPECT_EQ(control.backColour(), ui::kWindowBackground);
  };
  expectWindowColours(form.add<ui::ListView>());
  expectWindowColours(form.add<ui::TextBox>());
}

TEST_F(ControlsTest, AListRefusesRowsItDoesNotHave) {
  auto& list = form.add<ui::ListView>();
  list.addRow({{u"a"}});
  for (const int row : {-1, 1}) {
    EXPECT_THROW(list.setRow(row, {{u"b"}}), Error) << row;
    EXPECT_THROW(list.removeRow(row), Error) << row;
    EXPECT_THROW(list.ensureVisible(row), Error) << row;
  }
  EXPECT_THROW(list.setSelectedRow(-2), Error);
  EXPECT_THROW(list.setSelectedRow(1), Error);
  EXPECT_EQ(list.count(), 1);
  EXPECT_EQ(list.text(0, 0), u"a");
  EXPECT_EQ(list.selectedRow(), -1);
  EXPECT_EQ(list.rowToShow(), -1);
}

TEST_F(ControlsTest, RowsArePutIntoTheGivenOrderAndNoneIsSelected) {
  auto& list = form.add<ui::ListView>();
  list.setRows({{{u"One"}}, {{u"Two"}}, {{u"Three"}}});
  list.setSelectedRow(1);
  list.putInOrder({2, 0, 1});
  EXPECT_EQ(list.text(0, 0), u"Three");
  EXPECT_EQ(list.text(1, 0), u"One");
  EXPECT_EQ(list.text(2, 0), u"Two");
  EXPECT_EQ(list.count(), 3);
  EXPECT_EQ(list.selectedRow(), -1);
}

TEST_F(ControlsTest, AMissingCellIsEmpty) {
  auto& list = form.add<ui::ListView>();
  list.addRow({{u"a"}});
  EXPECT_EQ(list.text(0, 3), u"");
}

TEST_F(ControlsTest, ACaptionIsSpokenEvenAfterALabel) {
  form.add<ui::Label>(u"&Label");
  EXPECT_EQ(form.add<ui::CheckBox>(u"&Tick").spokenName(), u"Tick");
  form.add<ui::Label>(u"&Label");
  EXPECT_EQ(form.add<ui::TextBox>().spokenName(), u"Label");
}

TEST_F(ControlsTest, AFormWithoutACaptionHasNoSpokenName) {
  form.setCaption({});
  EXPECT_EQ(form.spokenName(), u"");
}

TEST_F(ControlsTest, AnUpDownKeepsToItsRange) {
  auto& upDown = form.add<ui::UpDown>().setRange(5, 60, 10);
  upDown.change = count;
  upDown.setValue(50);
  upDown.spin(1);
  EXPECT_EQ(upDown.value(), 60);
  upDown.spin(1);
  EXPECT_EQ(upDown.value(), 60);
  upDown.setValue(-100);
  EXPECT_EQ(upDown.value(), 5);
  EXPECT_EQ(events, 3);
}

TEST_F(ControlsTest, AnImageListNumbersItsPicturesFromOne) {
  const ui::ImageList images({ui::PictureId::inactive, ui::PictureId::active});
  EXPECT_EQ(images.indexOf(ui::PictureId::inactive), 1);
  EXPECT_EQ(images.indexOf(ui::PictureId::active), 2);
  EXPECT_EQ(images.indexOf(ui::PictureId::key), 0);
  EXPECT_EQ(images.indexOf(ui::PictureId::none), 0);
}

TEST_F(ControlsTest, ASelectedTextIsReplacedAsAnEditWhateverTheMaximumLength) {
  auto& box = form.add<ui::TextBox>();
  box.setText(u"abcd");
  box.setMaxLength(4);
  box.change = count;
  form.edits = 0;
  box.setSelection(1, 2);
  box.setSelText(u"xyz");
  EXPECT_EQ(box.text(), u"axyzd");
  EXPECT_EQ(box.selStart(), 4);
  EXPECT_EQ(box.selLength(), 0);
  box.setSelText(u"");
  EXPECT_EQ(box.text(), u"axyzd");
  EXPECT_EQ(events, 2);
  EXPECT_EQ(form.edits, 2);
}

TEST_F(ControlsTest, ATabStripAsksBeforeItSwitches) {
  auto& tabs = form.add<ui::TabStrip>();
  tabs.addTab(u"a");
  tabs.addTab(u"b");
  bool refuse = true;
  tabs.beforeClick = [&](bool& cancel) { cancel = refuse; };
  tabs.click = count;
  tabs.setSelected(2);
  EXPECT_EQ(tabs.selected(), 1);
  refuse = false;
  tabs.setSelected(2);
  tabs.setSelected(2);
  EXPECT_EQ(tabs.selected(), 2);
  EXPECT_EQ(events, 1);
  EXPECT_THROW(tabs.setSelected(3), Error);
  EXPECT_THROW(tabs.setSelected(0), Error);
}

TEST_F(ControlsTest, AnArraysHandlerGetsTheIndex) {
  ui::ControlArray<ui::CheckBox> boxes;
  for (const int index : {0, 3, 7}) form.take(boxes.add(index, u"Box"));
  std::vector<int> clicked;
  boxes.on(&ui::CheckBox::click, [&](int index) { clicked.push_back(index); });
  boxes[7].setValue(true);
  boxes[0].setValue(true);
  EXPECT_EQ(clicked, (std::vector<int>{7, 0}));
  EXPECT_EQ(boxes.count(), 3);
  EXPECT_EQ(boxes.upperBound(), 7);
  EXPECT_THROW(boxes[1], std::out_of_range);
}

TEST(AccessKey, IsTheCharacterAfterASingleAmpersand) {
  EXPECT_EQ(ui::accessKeyOf(u"Na&me"), u'm');
  EXPECT_EQ(ui::accessKeyOf(u"&Name"), u'n');
  EXPECT_EQ(ui::accessKeyOf(u"Copies && &More"), u'm');
  EXPECT_EQ(ui::accessKeyOf(u"Change&..."), u'.');
  EXPECT_EQ(ui::accessKeyOf(u"Salt && Pepper"), std::nullopt);
  EXPECT_EQ(ui::accessKeyOf(u"Trailing&"), std::nullopt);
  EXPECT_EQ(ui::accessKeyOf(u""), std::nullopt);
}

TEST(AccessKey, IsNotABlank) {
  EXPECT_EQ(ui::accessKeyOf(u"Profit & Loss"), std::nullopt);
  EXPECT_EQ(ui::accessKeyOf(u"Profit & &Loss"), u'l');
  EXPECT_EQ(ui::accessKeyOf(u"& "), std::nullopt);
}

TEST(AccessKey, IsALetterOfAnyAlphabetInLowerCase) {
  EXPECT_EQ(ui::accessKeyOf(u"&\u00DCbersicht"), u'\u00FC');
  EXPECT_EQ(ui::accessKeyOf(u"&\u00FCbersicht"), u'\u00FC');
  EXPECT_EQ(ui::accessKeyOf(u"\u0418&\u0422\u041E\u0413"), u'\u0442');
}

TEST(WithoutAccessKey, ShowsTheCaptionAsItIsDrawn) {
  EXPECT_EQ(ui::withoutAccessKey(u"Na&me"), u"Name");
  EXPECT_EQ(ui::withoutAccessKey(u"Salt && Pepper"), u"Salt & Pepper");
  EXPECT_EQ(ui::withoutAccessKey(u"Trailing&"), u"Trailing");
  EXPECT_EQ(ui::withoutAccessKey(u"&Profit & Loss && more"), u"Profit & Loss & more");
}

TEST(WithPlainAmpersandsDoubled, LeavesAccessKeysAndWhatIsDoubled) {
  EXPECT_EQ(ui::withPlainAmpersandsDoubled(u"&Profit & Loss"), u"&Profit && Loss");
  EXPECT_EQ(ui::withPlainAmpersandsDoubled(u"Salt && Pepper"), u"Salt && Pepper");
  EXPECT_EQ(ui::withPlainAmpersandsDoubled(u"& & &a&"), u"&& && &a&");
  EXPECT_EQ(ui::withPlainAmpersandsDoubled(u""), u"");
}

}  // namespace
}  // namespace tillora::testing
