#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "ui/control.h"

namespace tillora::ui {

/// A control that holds others: a form or a frame. It owns them.
class Container : public Control {
 public:
  /// Makes a control of type T, the last of this container and thereby of its part of the tab
  /// order. The reference stays good as long as the form lives.
  template <class T, class... Args>
  T& add(Args&&... args) {
    auto owned = std::make_unique<T>(this, std::forward<Args>(args)...);
    T& control = *owned;
    children_.push_back(std::move(owned));
    return control;
  }

  /// In order of creation, which is their tab order.
  const std::vector<std::unique_ptr<Control>>& children() const override { return children_; }
  /// The control in it that starts with the focus; null for the first in the tab order.
  virtual Control* firstFocus() const { return nullptr; }
  /// Size of the area that holds the children, twips.
  virtual Size clientSize() const { return {bounds().width, bounds().height}; }
  bool contains(const Control& control) const;

 protected:
  using Control::Control;

 private:
  std::vector<std::unique_ptr<Control>> children_;
};

/// A group of controls: with a border and a caption, or without either (a tab's page).
class Frame final : public Container {
 public:
  enum class Border : std::uint8_t { none, etched };

  explicit Frame(Container* parent, Text caption = {}, Border border = Border::etched);

  Kind kind() const override { return Kind::frame; }
  const Text& caption() const override { return caption_; }
  Border border() const { return border_; }
  /// The control that gets the focus when a tab shows this page; null for the first in the tab
  /// order.
  Control* firstFocus() const override { return firstFocus_; }
  void setFirstFocus(Control& control) { firstFocus_ = &control; }

  /// It has another size.
  Event<> resized;

 private:
  void sizeChanged() override { resized.raise(); }

  Text caption_;
  Border border_;
  Control* firstFocus_ = nullptr;
};

}  // namespace tillora::ui
