#pragma once

#include "ui/text_box.h"

namespace tillora::ui {

/// A pair of arrow buttons that change a whole number.
class UpDown final : public Control {
 public:
  Kind kind() const override { return Kind::upDown; }
  Size naturalSize() const override;
  bool fillsRow() const override { return true; }
  int value() const { return value_; }
  /// Limited to minimum() and maximum(). Raises change when the value differs.
  UpDown& setValue(int value);
  int minimum() const { return minimum_; }
  int maximum() const { return maximum_; }
  int increment() const { return increment_; }
  UpDown& setRange(int minimum, int maximum, int increment = 1);

  /// The box that shows the value: Up and Down in it step as a click on an arrow does.
  const TextBox* buddy() const { return buddy_; }
  UpDown& setBuddy(const TextBox& box);
  /// That of its box, and what it is beside it.
  Text accessibleName() const override;

  /// The user pressed the upper (+1) or lower (-1) arrow once.
  void spin(int direction);

  Event<> change;
  /// An arrow was pressed that would move the value past the end of its range.
  Event<> pressedAtEnd;

 protected:
  bool stepFor(const Control& box, int direction) override;
  /// It takes no focus, but what it is about to change must be valid.
  bool mouseDown() override;

 private:
  int value_ = 0;
  int minimum_ = 0;
  int maximum_ = 10;
  int increment_ = 1;
  const TextBox* buddy_ = nullptr;
};

}  // namespace tillora::ui
