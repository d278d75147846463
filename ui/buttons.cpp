#include "ui/buttons.h"

#include <algorithm>
#include <utility>

#include "ui/form.h"

namespace tillora::ui {
namespace {

// At 96 DPI, in twips.
constexpr int kMarkWidth = 300;  // the mark of a check box and the blanks around its caption
constexpr int kMarkHeight = 240;
constexpr int kButtonMargin = 240;  // beside a button's caption, both sides together
constexpr int kButtonWidth = 1125;

int captionWidth(const Control& control) {
  return control.form().screen().textWidth(withoutAccessKey(control.caption()));
}

Size sizeWithMark(const Control& control) {
  return {captionWidth(control) + kMarkWidth,
          std::max(control.form().screen().lineHeight(), kMarkHeight)};
}

}  // namespace

CheckBox::CheckBox(Text caption) : caption_(std::move(caption)) {}

Size CheckBox::naturalSize() const { return sizeWithMark(*this); }

CheckBox& CheckBox::setCaption(Text caption) {
  caption_ = std::move(caption);
  notify(Property::text);
  return *this;
}

CheckBox& CheckBox::setValue(bool value) {
  if (value_ == value) return *this;
  value_ = value;
  notify(Property::value);
  edited();
  click.raise();
  return *this;
}

bool CheckBox::moveByArrow(bool forward) {
  form().moveInTabOrder(forward);
  return true;
}

OptionButton::OptionButton(Text caption) : caption_(std::move(caption)) {}

Size OptionButton::naturalSize() const { return sizeWithMark(*this); }

OptionButton& OptionButton::setValue(bool value) {
  if (value_ == value) return *this;
  value_ = value;
  notify(Property::value);
  if (!value) return *this;
  for (const auto& sibling : parent()->children()) {
    if (sibling == this || sibling->kind() != Kind::optionButton) continue;
    static_cast<OptionButton&>(*sibling).setValue(false);
  }
  edited();
  click.raise();
  return *this;
}

std::vector<OptionButton*> OptionButton::group() const {
  std::vector<OptionButton*> found;
  for (Control* sibling : parent()->children()) {
    if (sibling->kind() != Kind::optionButton || !sibling->canFocus()) continue;
    found.push_back(static_cast<OptionButton*>(sibling));
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

CommandButton::CommandButton(Text caption) : caption_(std::move(caption)) {}

Size CommandButton::naturalSize() const {
  return {std::max(captionWidth(*this) + kButtonMargin, kButtonWidth), heightFor(1)};
}

CommandButton& CommandButton::setCaption(Text caption) {
  caption_ = std::move(caption);
  notify(Property::text);
  return *this;
}

bool CommandButton::isDefault() const { return form().defaultButton() == this; }

CommandButton& CommandButton::setDefault(bool isDefault) {
  if (isDefault) {
    form().setDefaultButton(this);
  } else if (this->isDefault()) {
    form().setDefaultButton(nullptr);
  }
  return *this;
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
