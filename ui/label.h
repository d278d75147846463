#pragma once

#include "ui/container.h"

namespace tillora::ui {

/// Text on a form. Its access key moves the focus to the next control in the tab order.
class Label final : public Control {
 public:
  explicit Label(Text caption = {});

  Kind kind() const override { return Kind::label; }
  int heightFor(int lines) const override;
  const Text& caption() const override { return caption_; }
  Label& setCaption(Text caption);
  Alignment alignment() const { return alignment_; }
  Label& setAlignment(Alignment alignment);
  /// Fixed once the label is shown: bold text.
  bool bold() const { return bold_; }
  Label& setBold(bool bold);
  /// Places it one pixel right of and below where another label is.
  void placeAsShadow(const Rect& label);
  /// Drawn like any other label, but its access key leads nowhere, and screen readers do not read
  /// it.
  bool decorative() const { return decorative_; }
  Label& setDecorative(bool decorative);
  std::optional<char16_t> accessKey() const override;

 private:
  Text caption_;
  Alignment alignment_ = Alignment::left;
  bool bold_ = false;
  bool decorative_ = false;
};

/// The pictures that the component owns; the view draws them.
enum class PictureId : std::uint8_t { none, active, inactive, key, dispensing };

/// What a picture says, for those who do not see it.
TextView meaningOf(PictureId picture);

/// A picture on a form.
class Picture final : public Control {
 public:
  explicit Picture(PictureId picture);

  Kind kind() const override { return Kind::picture; }
  PictureId picture() const { return picture_; }
  Text accessibleName() const override { return Text(meaningOf(picture_)); }

 private:
  PictureId picture_;
};

}  // namespace tillora::ui
