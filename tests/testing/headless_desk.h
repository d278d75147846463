#pragma once

#include <deque>
#include <span>
#include <vector>

#include "tests/testing/desk.h"
#include "tests/testing/function_ref.h"

namespace tillora::testing {

/// A screen that shows nothing: a modal form lives as long as the step that is queued for it.
class HeadlessScreen final : public ui::Screen {
 public:
  void runModal(ui::Form& form) override;
  ui::Pointer pointer() const override { return pointer_; }
  void setPointer(ui::Pointer pointer) override { pointer_ = pointer; }
  ui::Size twipsPerPixel() const override { return pixel; }
  int textWidth(TextView text) const override { return static_cast<int>(text.size()) * 90; }
  int lineHeight() const override { return 195; }
  int wrappedHeight(TextView caption, int width) const override;
  ui::Size scrollBars() const override { return {255, 255}; }
  int tabRowWidth(const std::vector<Text>& tabs) const override;
  ui::Margins tabMargins(const std::vector<Text>& tabs, int width) const override;
  std::vector<std::size_t> listOrder(std::span<const TextView> texts) const override;
  void beep() override { ++beeps; }

  std::deque<std::function<void(ui::Form&)>> steps;
  /// The forms that are shown now, the topmost last.
  std::vector<ui::Form*> shown;
  int unexpected = 0;
  int beeps = 0;
  ui::Size pixel{15, 15};

 private:
  ui::Pointer pointer_ = ui::Pointer::standard;
};

/// Keys and mouse for forms without windows. A text box is edited as the platform's edit control
/// does it.
class HeadlessUser final : public User {
 public:
  explicit HeadlessUser(HeadlessScreen& screen) : screen_(screen) {}

  void press(ui::Key key, ui::Modifiers modifiers) override;
  void type(TextView text) override;
  void paste(TextView text) override;
  void accessKey(char16_t letter) override;
  void click(ui::Control& control) override;
  void clickTab(ui::TabStrip& tabs, int tab) override;
  void clickRow(ui::ListView& list, int row) override;
  void doubleClickRow(ui::ListView& list, int row) override;
  void doubleClickBelow(ui::ListView& list) override;
  void clickCheck(ui::CheckListBox& list, int row) override;
  void choose(ui::ComboBox& combo, int item) override;
  void spin(ui::UpDown& upDown, int direction) override;
  void closeWindow(ui::Form& form) override;

 private:
  ui::Form* form() const;
  bool reach(ui::Control& control) const;
  void typeCharacter(char16_t character);
  void mouse(ui::Control& control, const FunctionRef<void()>& act);
  void useKey(ui::TextBox& box, ui::Key key, ui::Modifiers modifiers);

  HeadlessScreen& screen_;
  Text clipboard_;
};

class HeadlessDesk final : public Desk {
 public:
  ui::Screen& screen() override { return screen_; }
  User& user() override { return user_; }
  bool hasWindows() const override { return false; }
  void whenShown(std::function<void(ui::Form&)> step) override {
    screen_.steps.push_back(std::move(step));
  }
  int unexpectedForms() const override { return screen_.unexpected; }
  int unusedSteps() const override { return static_cast<int>(screen_.steps.size()); }
  void dropSteps() override { screen_.steps.clear(); }

 private:
  HeadlessScreen screen_;
  HeadlessUser user_{screen_};
};

}  // namespace tillora::testing
