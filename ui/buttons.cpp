#include "ui/buttons.h"

#include <algorithm>
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

bool CheckBox::moveByArrow(bool forward) {
  form().moveInTabOrder(forward);
  return true;
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

std::vector<OptionButton*> OptionButton::group() const {
  std::vector<OptionButton*> found;
  for (const auto& sibling : parent()->children()) {
    if (sibling->kind() != Kind::optionButton || !sibling->canFocus()) continue;
    found.push_back(static_cast<OptionButton*>(sibling.get()));
  }
  return found;
}

bool OptionButton::isTabStop() const {
  if (!Control::isTabStop()) return false;
  const std::vector<OptionButton*> choices = group();
  const auto chosen = std::ranges::find_if(choices, &OptionButton::value);
  return this == (chosen != choices.end() ? *chosen : choices.front());
}

bool OptionButton::moveByArrow(bool forward) {
  std::vector<OptionButton*> choices = group();
  if (!forward) std::ranges::reverse(choices);
  std::ranges::rotate(choices, std::ranges::find(choices, this));
  OptionButton& next = *choices[1 % choices.size()];
  if (next.setFocus()) next.setValue(true);
  return true;
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

Control* CommandButton::focusHeir() const {
  CommandButton* other = form().defaultButton();
  const bool isBeside = other != nullptr && other->parent() == parent();
  return isBeside && other->canFocus() ? other : Control::focusHeir();
}

bool CommandButton::moveByArrow(bool forward) {
  form().moveInTabOrder(forward);
  return true;
}

}  // namespace tillora::ui
