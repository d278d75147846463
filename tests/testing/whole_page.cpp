#include "tests/testing/whole_page.h"

#include "ui/buttons.h"
#include "ui/container.h"

namespace tillora::testing {
namespace {

constexpr TextView kTyped = u"1234";  // a number, a name, and long enough for a password

void collectVisible(const ui::Container& container, std::vector<ui::Control*>& controls) {
  for (ui::Control* control : container.children()) {
    if (control->kind() == ui::Kind::frame) {
      collectVisible(static_cast<const ui::Frame&>(*control), controls);
    } else if (control->effectivelyVisible()) {
      controls.push_back(control);
    }
  }
}

int useControl(Desk& desk, ui::Control& control);

void fillInAndAccept(Desk& desk, ui::Form& form) {
  ui::CommandButton* const accept = form.defaultButton();
  for (ui::Control* control : visibleControls(form)) {
    if (control->kind() != ui::Kind::commandButton) useControl(desk, *control);
  }
  if (accept != nullptr && form.isShown()) desk.user().click(*accept);
}

int useControl(Desk& desk, ui::Control& control) {
  User& user = desk.user();
  int opened = 0;
  if (!control.effectivelyVisible() || !control.effectivelyEnabled()) return opened;
  switch (control.kind()) {
    case ui::Kind::textBox:
      user.click(control);
      if (!control.hasFocus()) break;
      user.selectAll();
      user.type(kTyped);
      break;
    case ui::Kind::comboBox: {
      auto& combo = static_cast<ui::ComboBox&>(control);
      if (combo.count() > 0) user.choose(combo, combo.count() - 1);
      break;
    }
    case ui::Kind::checkListBox: {
      auto& list = static_cast<ui::CheckListBox&>(control);
      if (list.count() > 0) user.clickCheck(list, 0);
      break;
    }
    case ui::Kind::listView: {
      auto& list = static_cast<ui::ListView&>(control);
      if (list.count() > 0) user.clickRow(list, 0);
      break;
    }
    case ui::Kind::upDown:
      user.spin(static_cast<ui::UpDown&>(control), +1);
      break;
    case ui::Kind::commandButton:
      desk.whenShown([&](ui::Form& form) {
        ++opened;
        fillInAndAccept(desk, form);
      });
      user.click(control);
      desk.dropSteps();  // not every button opens a dialog
      break;
    default:
      user.click(control);
  }
  return opened;
}

}  // namespace

std::vector<ui::Control*> visibleControls(const ui::Container& container) {
  std::vector<ui::Control*> controls;
  collectVisible(container, controls);
  return controls;
}

int useEverything(Desk& desk, const ui::Container& container) {
  int opened = 0;
  for (ui::Control* control : visibleControls(container)) opened += useControl(desk, *control);
  return opened;
}

}  // namespace tillora::testing
