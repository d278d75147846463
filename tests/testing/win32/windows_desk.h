#pragma once

#include <deque>

#include "tests/testing/desk.h"
#include "tests/testing/win32/driven_screen.h"
#include "ui/win32/handles.h"

namespace tillora::testing {

/// Keys and mouse buttons sent to real windows, as hardware would. Each action returns when
/// everything that follows from it has been processed, including forms shown and closed.
class WindowsUser final : public User {
 public:
  explicit WindowsUser(DrivenScreen& screen) : screen_(screen) {}

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

  /// Processes every event of the display about windows that were there before.
  void settle();

 private:
  /// The window where the mouse can reach the control: visible, on the form on top. Null otherwise.
  HWND reach(const ui::Control& control) const;
  /// Moves the pointer to a point of the screen; false if that is not on the window's form.
  bool moveTo(HWND window, POINT at);
  /// Clicks at a point of the window's client area.
  void clickAt(HWND window, POINT point, int times = 1);

  DrivenScreen& screen_;
};

/// A desk with real windows: a host window, and forms in front of it.
class WindowsDesk final : public Desk {
 public:
  WindowsDesk();

  ui::Screen& screen() override { return screen_; }
  User& user() override { return user_; }
  bool hasWindows() const override { return true; }
  void whenShown(std::function<void(ui::Form&)> step) override {
    steps_.push_back(std::move(step));
  }
  int unexpectedForms() const override { return unexpected_; }
  int unusedSteps() const override { return static_cast<int>(steps_.size()); }
  void dropSteps() override { steps_.clear(); }

  DrivenScreen& windows() { return screen_; }
  HWND host() const { return host_.get(); }

 private:
  void shown(ui::Form& form);

  ui::win32::Window host_;
  DrivenScreen screen_;
  WindowsUser user_{screen_};
  std::deque<std::function<void(ui::Form&)>> steps_;
  int unexpected_ = 0;
};

}  // namespace tillora::testing
