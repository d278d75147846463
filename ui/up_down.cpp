#include "ui/up_down.h"

#include <algorithm>

#include "ui/form.h"

namespace tillora::ui {

Size UpDown::naturalSize() const { return {form().screen().scrollBars().width, heightFor(1)}; }

UpDown& UpDown::setValue(int value) {
  value = std::clamp(value, minimum_, maximum_);
  if (value_ == value) return *this;
  value_ = value;
  notify(Property::value);
  edited();
  change.raise();
  return *this;
}

UpDown& UpDown::setRange(int minimum, int maximum, int increment) {
  minimum_ = minimum;
  maximum_ = maximum;
  increment_ = increment;
  return *this;
}

UpDown& UpDown::setBuddy(const TextBox& box) {
  buddy_ = &box;
  return *this;
}

Text UpDown::accessibleName() const {
  return buddy_ == nullptr ? Control::accessibleName() : buddy_->spokenName() + u", arrows";
}

void UpDown::spin(int direction) {
  const int wanted = value_ + direction * increment_;
  if (std::clamp(wanted, minimum_, maximum_) == value_) {
    pressedAtEnd.raise();
  } else {
    setValue(wanted);
  }
}

bool UpDown::stepFor(const Control& box, int direction) {
  if (buddy_ != &box) return false;
  if (effectivelyEnabled() && form().validatePending()) spin(direction);
  return true;
}

bool UpDown::mouseDown() { return form().validatePending(); }

}  // namespace tillora::ui
