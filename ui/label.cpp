#include "ui/label.h"

#include <utility>

namespace tillora::ui {

Label::Label(Container* parent, Text caption) : Control(parent), caption_(std::move(caption)) {}

void Label::setCaption(Text caption) {
  caption_ = std::move(caption);
  notify(Property::text);
}

void Label::setAlignment(Alignment alignment) {
  alignment_ = alignment;
  notify(Property::text);
}

Label& Label::setBold(bool bold) {
  bold_ = bold;
  return *this;
}

std::optional<char16_t> Label::accessKey() const {
  return decorative_ ? std::nullopt : Control::accessKey();
}

Picture::Picture(Container* parent, PictureId picture) : Control(parent), picture_(picture) {}

}  // namespace tillora::ui
