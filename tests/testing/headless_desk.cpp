#include "tests/testing/headless_desk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "base/letter_case.h"
#include "tests/testing/edit_text.h"
#include "tests/testing/function_ref.h"

namespace tillora::testing {
namespace {

using ui::Key;

constexpr int kTabHeight = 330;
constexpr int kBesideTab = 90;
constexpr int kBorder = 60;

bool isLetterOrDigit(Key key) {
  const auto code = static_cast<char16_t>(key);
  return (code >= u'0' && code <= u'9') || (code >= u'A' && code <= u'Z');
}

char16_t characterOf(Key key, ui::Modifiers modifiers) {
  if (key == Key::backspace && modifiers.ctrl) return ui::kDeleteCharacter;
  const auto code = static_cast<char16_t>(key);
  const bool types = key == Key::backspace || key == Key::escape || key == Key::space ||
                     key == Key::enter || key == Key::tab;
  if (types) return code;
  if (!isLetterOrDigit(key)) return 0;
  if (modifiers.ctrl) return code >= u'A' ? static_cast<char16_t>(code - u'A' + 1) : u'\0';
  return modifiers.shift || code <= u'9' ? code : lowerCase(code);
}

/// The row that a typed character leads to: the next one that begins with it; -1 for none.
int rowTyped(const ui::ListView& list, char16_t character) {
  for (int step = 1; step <= list.count(); ++step) {
    const int row = (list.selectedRow() + step) % list.count();
    const Text text = list.text(row, list.searchColumn());
    if (!text.empty() && lowerCase(text.front()) == lowerCase(character)) return row;
  }
  return -1;
}

// The kind that the platform edits by itself.
ui::TextBox* asTextBox(ui::Control& control) { return dynamic_cast<ui::TextBox*>(&control); }

}  // namespace

void HeadlessScreen::runModal(ui::Form& form) {
  shown.push_back(&form);
  const auto leave = [&] { shown.pop_back(); };
  try {
    form.shown();
    if (steps.empty()) {
      ++unexpected;
    } else {
      const auto step = std::move(steps.front());
      steps.pop_front();
      step(form);
    }
    if (form.isShown()) form.userClose();
  } catch (...) {
    leave();
    throw;
  }
  leave();
}

int HeadlessScreen::wrappedHeight(TextView caption, int width) const {
  return (textWidth(ui::withoutAccessKey(caption)) / std::max(1, width) + 1) * lineHeight();
}

int HeadlessScreen::tabRowWidth(const std::vector<Text>& tabs) const {
  int width = 0;
  for (const Text& tab : tabs) width += textWidth(tab) + 2 * kBesideTab;
  return width;
}

ui::Margins HeadlessScreen::tabMargins(const std::vector<Text>& tabs, int width) const {
  const int rows = (tabRowWidth(tabs) + width - 1) / std::max(1, width);
  return {kBorder, std::max(1, rows) * kTabHeight, kBorder, kBorder};
}

std::vector<std::size_t> HeadlessScreen::listOrder(std::span<const TextView> texts) const {
  std::vector<std::size_t> order(texts.size());
  std::iota(order.begin(), order.end(), 0);
  std::ranges::stable_sort(order, {}, [&](std::size_t i) { return lowerCase(texts[i]); });
  return order;
}

ui::Form* HeadlessUser::form() const {
  return screen_.shown.empty() ? nullptr : screen_.shown.back();
}

bool HeadlessUser::reach(ui::Control& control) const {
  if (form() != &control.form() || !control.effectivelyEnabled()) return false;
  EXPECT_TRUE(control.effectivelyVisible()) << "the control is not on a visible page";
  if (!control.effectivelyVisible()) return false;
  return form()->userMouseDown(control);
}

void HeadlessUser::mouse(ui::Control& control, const FunctionRef<void()>& act) {
  if (reach(control)) control.form().userDoes(act);
}

void HeadlessUser::press(Key key, ui::Modifiers modifiers) {
  ui::Form* top = form();
  if (top == nullptr) return;
  if (modifiers.alt && key == Key::f4) {
    top->userClose();
    return;
  }
  if (modifiers.alt && isLetterOrDigit(key)) {
    accessKey(static_cast<char16_t>(key));
    return;
  }
  if (key == Key::f1) {
    top->userHelp();
    return;
  }
  ui::Control* target = top->activeControl();
  if (top->userKeyDown(key, modifiers) || target == nullptr) return;
  if (ui::TextBox* box = asTextBox(*target)) {
    useKey(*box, key, modifiers);
  } else {
    top->userDoes([&] { target->userKey(key); });
  }
}

void HeadlessUser::useKey(ui::TextBox& box, Key key, ui::Modifiers modifiers) {
  if (key == Key::del) {
    box.form().userDoes([&] { deleteForward(box); });
  } else if (const char16_t character = characterOf(key, modifiers)) {
    typeCharacter(character);
  } else {
    moveCaret(box, key, modifiers);
  }
}

void HeadlessUser::typeCharacter(char16_t character) {
  if (form() == nullptr || form()->activeControl() == nullptr) return;
  // The handler may move the focus; the character still goes where it was typed.
  ui::Control& target = *form()->activeControl();
  character = form()->userCharacter(character);
  if (auto* list = dynamic_cast<ui::ListView*>(&target)) {
    const int row = rowTyped(*list, character);
    if (row >= 0) target.form().userDoes([&] { list->setSelectedRow(row); });
    return;
  }
  ui::TextBox* box = asTextBox(target);
  if (character == 0 || box == nullptr) return;
  if (character == 1) {
    box->userSelected(0, static_cast<int>(box->text().size()));
  } else if (character == 0x16) {
    target.form().userDoes([&] {
      bool used = false;
      if (!box->locked()) box->paste.raise(clipboard_, used);
      if (!used) pasteInto(*box, clipboard_);
    });
  } else {
    target.form().userDoes([&] { typeInto(*box, character); });
  }
}

void HeadlessUser::type(TextView text) {
  for (const char16_t character : text) {
    if (form() == nullptr) return;
    typeCharacter(character);
  }
}

void HeadlessUser::paste(TextView text) {
  clipboard_ = text;
  press(static_cast<Key>('V'), {.ctrl = true});
}

void HeadlessUser::accessKey(char16_t letter) {
  if (form() != nullptr) form()->userAccessKey(letter);
}

void HeadlessUser::click(ui::Control& control) {
  mouse(control, [&] { control.press(); });
}

void HeadlessUser::clickTab(ui::TabStrip& tabs, int tab) {
  mouse(tabs, [&] { tabs.setSelected(tab); });
}

void HeadlessUser::clickRow(ui::ListView& list, int row) {
  mouse(list, [&] { list.setSelectedRow(row); });
}

void HeadlessUser::doubleClickRow(ui::ListView& list, int row) {
  clickRow(list, row);
  if (list.selectedRow() != row) return;
  int y = 0;
  while (list.hitTest({0, y}) != row) y += 15;
  mouse(list, [&] {
    list.mouse.raise({0, y});
    list.doubleClick.raise();
  });
}

void HeadlessUser::doubleClickBelow(ui::ListView& list) {
  mouse(list, [&] {
    list.mouse.raise({0, 1000000});
    list.doubleClick.raise();
  });
}

void HeadlessUser::clickCheck(ui::CheckListBox& list, int row) {
  mouse(list, [&] { list.userChecked(row, !list.checked(row)); });
}

void HeadlessUser::choose(ui::ComboBox& combo, int item) {
  mouse(combo, [&] { combo.userChose(item); });
}

void HeadlessUser::spin(ui::UpDown& upDown, int direction) {
  mouse(upDown, [&] { upDown.spin(direction); });
}

void HeadlessUser::closeWindow(ui::Form& form) {
  if (this->form() == &form) form.userClose();
}

#ifndef _WIN32
std::unique_ptr<Desk> makeDesk() { return std::make_unique<HeadlessDesk>(); }
#endif

}  // namespace tillora::testing
