#include "ui/buttons.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "ui/form.h"

namespace tillora::ui {
namespace {

// At 96 DPI, in twips.
constexpr int kMarkWidth = 300;  // the mark of a check box and the blanks around its caption
constexpr int kMarkHeight = 240;
constexpr int kButtonMargin = 240;  // beside a button's caption, both sides together
constexpr int kButtonWidth = 1125;

Size sizeWithMark(const Control& control) {
  return {control.captionWidth() + kMarkWidth,
          std::max(control.form().screen().lineHeight(), kMarkHeight)};
}

// The controls of this kind in the same container that can have the focus. The arrow keys stay
// among them.
std::vector<Control*> groupOf(const Control& control) {
  std::vector<Control*> group;
  std::ranges::copy_if(control.parent()->children(), std::back_inserter(group),
                       [&](const Control* sibling) {
                         return sibling->kind() == control.kind() && sibling->canFocus();
                       });
  return group;
}

// The next one of the group, wrapping around at its ends; the control itself if it is alone.
Control& neighbour(const Control& control, bool forward) {
  std::vector<Control*> group = groupOf(control);
  if (!forward) std::ranges::reverse(group);
  std::ranges::rotate(group, std::ranges::find(group, &control));
  return *group[1 % group.size()];
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
  neighbour(*this, forward).setFocus();
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

bool OptionButton::isTabStop() const {
  if (!Control::isTabStop()) return false;
  const std::vector<Control*> choices = groupOf(*this);
  const auto chosen = std::ranges::find_if(choices, [](const Control* choice) {
    return static_cast<const OptionButton*>(choice)->value();
  });
  return this == (chosen != choices.end() ? *chosen : choices.front());
}

bool OptionButton::moveByArrow(bool forward) {
  auto& next = static_cast<OptionButton&>(neighbour(*this, forward));
  if (next.setFocus()) next.setValue(true);
  return true;
}

CommandButton::CommandButton(Text caption) : caption_(std::move(caption)) {}

Size CommandButton::naturalSize() const {
  return {std::max(captionWidth() + kButtonMargin, kButtonWidth), heightFor(1)};
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
  neighbour(*this, forward).setFocus();
  return true;
}

}  // namespace tillora::ui
