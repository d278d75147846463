#include "ui/text_box.h"

#include <algorithm>

#include "ui/form.h"

namespace tillora::ui {

TextBox::TextBox() {
  setForeColour(kWindowText);
  setBackColour(kWindowBackground);
}

Size TextBox::naturalSize() const {
  constexpr int kMost = 20;
  return {widthFor(maxLength_ > 0 ? std::min(maxLength_, kMost) : kMost), heightFor(1)};
}

TextBox& TextBox::setText(Text text) {
  if (!show(text)) return *this;
  edited();
  change.raise();
  return *this;
}

void TextBox::reformat(Text text) { show(text); }

bool TextBox::show(Text& text) {
  const bool differs = text != text_.text();
  text_.take(text);
  if (!differs) return false;
  selStart_ = selLength_ = 0;
  notify(Property::text);
  return true;
}

TextBox& TextBox::setMaxLength(int maxLength) {
  maxLength_ = maxLength;
  notify(Property::editing);
  return *this;
}

TextBox& TextBox::setLocked(bool locked) {
  locked_ = locked;
  setBackColour(locked ? kButtonFace : kWindowBackground);
  notify(Property::editing);
  return *this;
}

TextBox& TextBox::setMultiLine(bool multiLine) {
  multiLine_ = multiLine;
  return *this;
}

TextBox& TextBox::setPasswordCharacter(char16_t character) {
  passwordCharacter_ = character;
  return *this;
}

TextBox& TextBox::setAlignment(Alignment alignment) {
  alignment_ = alignment;
  return *this;
}

Text TextBox::selText() const {
  return text_.text().substr(static_cast<std::size_t>(selStart_),
                             static_cast<std::size_t>(selLength_));
}

TextBox& TextBox::setSelText(TextView text) {
  const TextView before = text_.text();
  Text whole;
  whole.reserve(before.size() - static_cast<std::size_t>(selLength_) + text.size());
  whole.append(before.substr(0, static_cast<std::size_t>(selStart_))).append(text);
  whole.append(
      before.substr(static_cast<std::size_t>(selStart_) + static_cast<std::size_t>(selLength_)));
  text_.take(whole);
  userSelected(selStart_ + static_cast<int>(text.size()), 0);
  notify(Property::text);
  edited();
  change.raise();
  return *this;
}

TextBox& TextBox::setSelection(int start, int length) {
  userSelected(start, length);
  notify(Property::selection);
  return *this;
}

void TextBox::userEdited(Text text, int selStart, int selLength) {
  text_.take(text);
  userSelected(selStart, selLength);
  edited();
  change.raise();
}

void TextBox::userSelected(int selStart, int selLength) {
  const int size = static_cast<int>(text_.text().size());
  selStart_ = std::clamp(selStart, 0, size);
  selLength_ = std::clamp(selLength, 0, size - selStart_);
}

bool TextBox::keepsEnter(Modifiers modifiers) const {
  return multiLine_ && (modifiers.ctrl || form().defaultButton() == nullptr);
}

}  // namespace tillora::ui
