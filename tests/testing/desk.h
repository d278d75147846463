#pragma once

#include <functional>
#include <memory>

#include "ui/form.h"
#include "ui/lists.h"
#include "ui/tab_strip.h"
#include "ui/text_box.h"
#include "ui/up_down.h"

namespace tillora::testing {

/// A person at the dialog. What a person cannot do (click a disabled button, type into a box that
/// has no focus) has no effect here either.
class User {
 public:
  virtual ~User() = default;

  /// One key stroke with everything that follows from it, the typed character included.
  virtual void press(ui::Key key, ui::Modifiers modifiers = {}) = 0;
  /// Types characters into whatever has the focus.
  virtual void type(TextView text) = 0;
  /// Ctrl+V with this text on the clipboard.
  virtual void paste(TextView text) = 0;
  /// Alt and a letter.
  virtual void accessKey(char16_t letter) = 0;

  /// Presses a button, ticks a box, chooses an option button, puts the focus into any other.
  virtual void click(ui::Control& control) = 0;
  virtual void clickTab(ui::TabStrip& tabs, int tab) = 0;
  virtual void clickRow(ui::ListView& list, int row) = 0;
  virtual void doubleClickRow(ui::ListView& list, int row) = 0;
  /// Double-click on the blank below the last row.
  virtual void doubleClickBelow(ui::ListView& list) = 0;
  /// Changes the tick of a row.
  virtual void clickCheck(ui::CheckListBox& list, int row) = 0;
  /// Drops the list down and chooses an item.
  virtual void choose(ui::ComboBox& combo, int item) = 0;
  /// One click on the upper (+1) or lower (-1) arrow.
  virtual void spin(ui::UpDown& upDown, int direction) = 0;
  /// The window's close box.
  virtual void closeWindow(ui::Form& form) = 0;

  void selectAll() { press(static_cast<ui::Key>('A'), {.ctrl = true}); }
};

/// What a test sits at: a screen that shows forms, and the person in front of it.
class Desk {
 public:
  virtual ~Desk() = default;
  virtual ui::Screen& screen() = 0;
  virtual User& user() = 0;
  /// Whether forms are shown in windows.
  virtual bool hasWindows() const = 0;

  /// What the person does when the next modal form has been shown. A form shown inside a step takes
  /// the step queued next. A form that is still open when its step ends is closed by its close box;
  /// a form shown with no step left is closed at once and counted as unexpected.
  virtual void whenShown(std::function<void(ui::Form&)> step) = 0;
  /// Forms shown without a step, and steps that no form was shown for.
  virtual int unexpectedForms() const = 0;
  virtual int unusedSteps() const = 0;
  /// Forgets the steps that no form was shown for.
  virtual void dropSteps() = 0;
};

/// The desk of this test program: headless natively, real windows on the platform.
std::unique_ptr<Desk> makeDesk();

}  // namespace tillora::testing
