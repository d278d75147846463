#include "tests/testing/win32/gallery.h"

namespace tillora::testing {
namespace {

template <class T>
T& at(T& control, ui::Rect bounds) {
  control.setBounds(bounds);
  return control;
}

}  // namespace

Gallery::Gallery(ui::Screen& screen)
    : Form(screen, u"Gallery"),
      tabs(at(add<ui::TabStrip>(), {120, 120, 8760, 5400})),
      firstPage(add<ui::Frame>(Text{}, ui::Frame::Border::none)),
      nameLabel(at(firstPage.add<ui::Label>(u"&Name:"), {120, 180, 1500, 225})),
      name(at(firstPage.add<ui::TextBox>(), {1800, 120, 2700, 345})),
      shadowedLabel(at(firstPage.add<ui::Label>(u"Engra&ved"), {120, 600, 1500, 225})),
      shadow(at(firstPage.add<ui::Label>(u"Engra&ved"), {135, 615, 1500, 225})),
      notes(at(firstPage.add<ui::TextBox>(), {1800, 540, 2700, 1200})),
      secret(at(firstPage.add<ui::TextBox>(), {1800, 1860, 2700, 345})),
      check(at(firstPage.add<ui::CheckBox>(u"&Tick"), {120, 1260, 1500, 255})),
      group(at(firstPage.add<ui::Frame>(u"Choice"), {4800, 60, 2400, 1200})),
      first(at(group.add<ui::OptionButton>(u"F&irst"), {180, 330, 1800, 255})),
      second(at(group.add<ui::OptionButton>(u"&Second"), {180, 690, 1800, 255})),
      combo(at(firstPage.add<ui::ComboBox>(), {4800, 1440, 2400, 345})),
      amount(at(firstPage.add<ui::TextBox>(), {4800, 1980, 1200, 345})),
      upDown(at(firstPage.add<ui::UpDown>(), {6000, 1980, 255, 345})),
      picture(at(firstPage.add<ui::Picture>(ui::PictureId::key), {7500, 180, 720, 720})),
      secondPage(add<ui::Frame>(Text{}, ui::Frame::Border::none)),
      list(at(secondPage.add<ui::ListView>(), {120, 120, 4200, 3000})),
      checks(at(secondPage.add<ui::CheckListBox>(), {4500, 120, 2700, 3000})),
      pill(at(secondPage.add<ui::Picture>(ui::PictureId::dispensing), {7500, 180, 720, 720})),
      ok(at(add<ui::CommandButton>(u"OK"), {5040, 5640, 1215, 375})),
      cancel(at(add<ui::CommandButton>(u"Cancel"), {6360, 5640, 1215, 375})),
      apply(at(add<ui::CommandButton>(u"&Apply"), {7680, 5640, 1215, 375})) {
  setClientSize({9000, 6135});
  tabs.addTab(u"General");
  tabs.addTab(u"Lists");
  const ui::Rect page = tabs.clientArea();
  firstPage.setBounds(page);
  secondPage.setBounds(page);
  secondPage.setVisible(false);
  tabs.click = [this] {
    (tabs.selected() == 1 ? secondPage : firstPage).setVisible(false);
    (tabs.selected() == 1 ? firstPage : secondPage).setVisible(true);
  };
  shadow.setForeColour(ui::kButtonHighlight);
  shadowedLabel.setEnabled(false);
  shadowedLabel.bringToFront();
  name.setToolTip(u"A name of your choice");
  notes.setMultiLine(true).setText(u"First line\r\nSecond line");
  secret.setPasswordCharacter(u'*').setText(u"secret");
  for (const char16_t* item : {u"Daily", u"Weekly", u"Monthly"}) combo.addItem(item);
  amount.setAlignment(ui::Alignment::right).setText(u"5");
  upDown.setRange(0, 60);
  list.setSmallIcons(images);
  list.addColumn(u"Code", 1200);
  list.addColumn(u"Description", 2700);
  list.setAccessibleName(u"Items");
  for (int i = 0; i < 5; ++i) {
    const Text digit{static_cast<char16_t>(u'0' + i)};
    list.addRow({{u"A" + digit, u"Article " + digit},
                 i % 2 == 0 ? ui::PictureId::active : ui::PictureId::inactive});
    checks.addRow(u"Column " + digit, i);
  }
  cancel.setCancel();
  ok.setDefault(true);
  ok.click = [this] { unload(); };
  cancel.click = [this] { unload(); };
}

void Gallery::onLoad() { first.setValue(true); }

void Gallery::onQueryUnload(bool& cancel, ui::UnloadMode /*mode*/) { cancel = stays; }

}  // namespace tillora::testing
