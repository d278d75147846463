#include "ui/buttons.h"

#include <utility>

#include "ui/form.h"

namespace tillora::ui {

CheckBox::CheckBox(Container* parent, Text caption)
    : Control(parent), caption_(std::move(caption)) {}

void CheckBox::setCaption(Text caption) {
  caption_ = std::move(caption);
  notify(Property::text);
}

void CheckBox::setValue(bool value) {
  if (value_ == value) return;
  value_ = value;
  notify(Property::value);
  edited();
  click.raise();
}

OptionButton::OptionButton(Container* parent, Text caption)
    : Control(parent), caption_(std::move(caption)) {}

void OptionButton::setValue(bool value) {
  if (value_ == value) return;
  value_ = value;
  notify(Property::value);
  if (!value) return;
  for (const auto& sibling : parent()->children()) {
    if (sibling.get() == this || sibling->kind() != Kind::optionButton) continue;
    static_cast<OptionButton&>(*sibling).setValue(false);
  }
  edited();
  click.raise();
}

CommandButton::CommandButton(Container* parent, Text caption)
    : Control(parent), caption_(std::move(caption)) {}

bool CommandButton::isDefault() const { return form().defaultButton() == this; }

void CommandButton::setDefault(bool isDefault) {
  if (isDefault) {
    form().setDefaultButton(this);
  } else if (this->isDefault()) {
    form().setDefaultButton(nullptr);
  }
}

bool CommandButton::isCancel() const { return form().cancelButton() == this; }

CommandButton& CommandButton::setCancel() {
  form().cancel_ = this;
  setCausesValidation(false);
  return *this;
}

void CommandButton::press() {
  if (!effectivelyEnabled() || !effectivelyVisible()) return;
  if (causesValidation() && !form().validatePending()) return;
  click.raise();
}

}  // namespace tillora::ui
