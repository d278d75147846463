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

Label& Label::setDecorative(bool decorative) {
  if (decorative_ == decorative) return *this;
  decorative_ = decorative;
  notify(Property::text);
  return *this;
}

void Label::placeAsShadow(const Rect& label) {
  const Size pixel = form().screen().twipsPerPixel();
  setBounds({label.left + pixel.width, label.top + pixel.height, label.width, label.height});
}

std::optional<char16_t> Label::accessKey() const {
  return decorative_ ? std::nullopt : Control::accessKey();
}

TextView meaningOf(PictureId picture) {
  switch (picture) {
    case PictureId::active:
      return u"Active";
    case PictureId::inactive:
      return u"Inactive";
    case PictureId::key:
      return u"Key";
    case PictureId::dispensing:
      return u"Dispensing";
    default:
      return {};
  }
}

Picture::Picture(PictureId picture) : picture_(picture) {}

}  // namespace tillora::ui
