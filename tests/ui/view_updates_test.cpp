// Every visible change of a control is reported to its view exactly once.
#include <gtest/gtest.h>

#include <ostream>
#include <utility>
#include <vector>

#include "tests/testing/function_ref.h"
#include "tests/testing/headless_desk.h"
#include "ui/screen.h"
#include "ui/up_down.h"

namespace tillora::ui {

void PrintTo(Property property, std::ostream* out) { *out << static_cast<int>(property); }

}  // namespace tillora::ui

namespace tillora::testing {
namespace {

using ui::Property;
using Updates = std::vector<std::pair<const ui::Control*, Property>>;

class ViewUpdatesTest : public ::testing::Test, private ui::FormView {
 protected:
  ViewUpdatesTest() { form.attach(this); }
  ~ViewUpdatesTest() override { form.attach(nullptr); }

  void expectUpdates(const Updates& expected, const FunctionRef<void()>& change) {
    updates_.clear();
    change();
    EXPECT_EQ(updates_, expected);
  }
  void expectUpdate(const ui::Control& control, Property what, const FunctionRef<void()>& change) {
    expectUpdates({{&control, what}}, change);
  }

  HeadlessDesk desk;
  ui::Form form{desk.screen(), u"Form"};

 private:
  void changed(const ui::Control& control, Property what) override {
    updates_.emplace_back(&control, what);
  }
  void focusMoved() override {}
  int hitTest(const ui::ListView& /*list*/, ui::Point /*point*/) const override { return -1; }

  Updates updates_;
};

TEST_F(ViewUpdatesTest, Captions) {
  auto& check = form.add<ui::CheckBox>(u"Check");
  auto& button = form.add<ui::CommandButton>(u"Button");
  auto& frame = form.add<ui::Frame>(u"Frame");
  auto& label = form.add<ui::Label>(u"Label");
  expectUpdate(form, Property::text, [&] { form.setCaption(u"Other"); });
  expectUpdate(check, Property::text, [&] { check.setCaption(u"Other"); });
  expectUpdate(button, Property::text, [&] { button.setCaption(u"Other"); });
  expectUpdate(frame, Property::text, [&] { frame.setCaption(u"Other"); });
  expectUpdate(label, Property::text, [&] { label.setCaption(u"Other"); });
}

TEST_F(ViewUpdatesTest, PropertiesOfEveryControl) {
  auto& first = form.add<ui::Label>(u"First");
  auto& second = form.add<ui::Label>(u"Second");
  expectUpdate(first, Property::enabled, [&] { first.setEnabled(false); });
  expectUpdate(first, Property::visible, [&] { first.setVisible(false); });
  expectUpdate(first, Property::bounds, [&] { first.setBounds({15, 30, 45, 60}); });
  expectUpdate(first, Property::toolTip, [&] { first.setToolTip(u"Tip"); });
  expectUpdate(first, Property::colours, [&] { first.setForeColour(ui::kWindowText); });
  expectUpdate(second, Property::colours, [&] { second.setBackColour(ui::kWindowBackground); });
  expectUpdate(second, Property::stacking, [&] { second.bringToFront(); });
  expectUpdate(form, Property::bounds, [&] { form.setClientSize({1500, 1500}); });
}

TEST_F(ViewUpdatesTest, SettingTheSameValueIsNotReported) {
  auto& check = form.add<ui::CheckBox>(u"Check");
  check.setToolTip(u"Tip");
  expectUpdates({}, [&] {
    check.setEnabled(true);
    check.setVisible(true);
    check.setToolTip(u"Tip");
    check.setValue(false);
  });
}

TEST_F(ViewUpdatesTest, Buttons) {
  auto& check = form.add<ui::CheckBox>(u"Check");
  auto& one = form.add<ui::OptionButton>(u"One");
  auto& two = form.add<ui::OptionButton>(u"Two");
  auto& okay = form.add<ui::CommandButton>(u"OK");
  expectUpdate(check, Property::value, [&] { check.setValue(true); });
  expectUpdate(one, Property::value, [&] { one.setValue(true); });
  expectUpdates({{&two, Property::value}, {&one, Property::value}}, [&] { two.setValue(true); });
  expectUpdate(okay, Property::defaultness, [&] { okay.setDefault(true); });
}

TEST_F(ViewUpdatesTest, TextBoxes) {
  auto& box = form.add<ui::TextBox>();
  expectUpdate(box, Property::text, [&] { box.setText(u"Text"); });
  expectUpdate(box, Property::selection, [&] { box.setSelection(1, 2); });
  expectUpdate(box, Property::text, [&] { box.setSelText(u"x"); });
  expectUpdate(box, Property::text, [&] { box.reformat(u"Formatted"); });
  expectUpdate(box, Property::editing, [&] { box.setMaxLength(20); });
  expectUpdates({{&box, Property::colours}, {&box, Property::editing}},
                [&] { box.setLocked(true); });
}

TEST_F(ViewUpdatesTest, Labels) {
  auto& label = form.add<ui::Label>(u"Label");
  expectUpdate(label, Property::text, [&] { label.setAlignment(ui::Alignment::right); });
  expectUpdate(label, Property::text, [&] { label.setDecorative(true); });
}

TEST_F(ViewUpdatesTest, DropDownLists) {
  auto& combo = form.add<ui::ComboBox>();
  expectUpdate(combo, Property::items, [&] { combo.addItem(u"Item"); });
  expectUpdate(combo, Property::value, [&] { combo.setListIndex(0); });
  expectUpdate(combo, Property::value, [&] { combo.userChose(0); });
  expectUpdate(combo, Property::items, [&] { combo.clear(); });
}

TEST_F(ViewUpdatesTest, CheckLists) {
  auto& list = form.add<ui::CheckListBox>();
  expectUpdate(list, Property::items, [&] { list.addRow(u"Row", 1); });
  expectUpdate(list, Property::checks, [&] { list.setChecked(0, true); });
  expectUpdate(list, Property::value, [&] { list.setListIndex(-1); });
}

TEST_F(ViewUpdatesTest, ListsInColumns) {
  auto& list = form.add<ui::ListView>();
  expectUpdate(list, Property::columns, [&] { list.addColumn(u"Column"); });
  expectUpdate(list, Property::columns, [&] { list.setColumnHeader(0, u"Other"); });
  expectUpdate(list, Property::columns, [&] { list.setColumnWidth(0, 1500); });
  expectUpdate(list, Property::columns, [&] { list.setHeaderStyle(0); });
  expectUpdate(list, Property::items, [&] { list.setRows({{{u"One"}}, {{u"Two"}}}); });
  expectUpdate(list, Property::items, [&] { list.addRow({{u"Three"}}); });
  expectUpdate(list, Property::items, [&] { list.setRow(2, {{u"Four"}}); });
  expectUpdate(list, Property::value, [&] { list.setSelectedRow(1); });
  expectUpdate(list, Property::value, [&] { list.ensureVisible(2); });
  expectUpdates({{&list, Property::items}, {&list, Property::value}}, [&] { list.removeRow(0); });
}

TEST_F(ViewUpdatesTest, TabsAndUpDowns) {
  auto& tabs = form.add<ui::TabStrip>();
  auto& upDown = form.add<ui::UpDown>();
  upDown.setRange(0, 10);
  expectUpdate(tabs, Property::items, [&] { tabs.addTab(u"First"); });
  tabs.addTab(u"Second");
  expectUpdate(tabs, Property::value, [&] { tabs.setSelected(2); });
  expectUpdate(upDown, Property::value, [&] { upDown.setValue(5); });
}

}  // namespace
}  // namespace tillora::testing
