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
constexpr int kAboveAndBelowCaption = 150;
constexpr int kButtonHeight = 345;

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

CommandButton::CommandButton(Text caption) : caption_(std::move(caption)) {}

Size CommandButton::naturalSize() const {
  return {std::max(captionWidth(*this) + kButtonMargin, kButtonWidth),
          std::max(form().screen().lineHeight() + kAboveAndBelowCaption, kButtonHeight)};
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

}  // namespace tillora::ui
