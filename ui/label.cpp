#include "ui/label.h"

#include <utility>

#include "ui/form.h"

namespace tillora::ui {

Label::Label(Text caption) : caption_(std::move(caption)) {}

int Label::heightFor(int lines) const { return lines * form().screen().lineHeight(); }

Label& Label::setCaption(Text caption) {
  caption_ = std::move(caption);
  notify(Property::text);
  return *this;
}

Label& Label::setAlignment(Alignment alignment) {
  alignment_ = alignment;
  notify(Property::text);
  return *this;
}

Label& Label::setBold(bool bold) {
  bold_ = bold;
  return *this;
}

std::optional<char16_t> Label::accessKey() const {
  return decorative_ ? std::nullopt : Control::accessKey();
}

Picture::Picture(PictureId picture) : picture_(picture) {}

}  // namespace tillora::ui
