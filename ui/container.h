#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "ui/control.h"

namespace tillora::ui {

class Rows;

/// A control that holds others: a form or a frame.
class Container : public Control {
 public:
  ~Container() override;

  /// Adds a control that is owned elsewhere and lives as long as the form is used. It becomes the
  /// last of this container, and so of its part of the tab order.
  void take(Control& control);
  /// Makes a control without a name, which the container owns, and adds it.
  template <class T, class... Args>
  T& add(Args&&... args) {
    auto owned = std::make_unique<T>(std::forward<Args>(args)...);
    T& control = *owned;
    owned_.push_back(std::move(owned));
    take(control);
    return control;
  }

  /// In the order in which they were added, which is their tab order.
  const std::vector<Control*>& children() const override { return children_; }
  /// The control in it that starts with the focus; null for the first in the tab order.
  virtual Control* firstFocus() { return nullptr; }
  /// Size of the area that holds the children, twips.
  virtual Size clientSize() const { return {bounds().width, bounds().height}; }
  bool contains(const Control& control) const;

  /// What the container shows, from top to bottom.
  Rows& rows();
  /// Places what is in rows() for the present size and font. A container does this by itself
  /// whenever its size changes.
  void layOut();
  /// Distances between its edges and its rows, twips.
  virtual Margins margins() const;

 protected:
  Container();
  void sizeChanged() override { layOut(); }

 private:
  std::vector<Control*> children_;
  std::vector<std::unique_ptr<Control>> owned_;
  std::unique_ptr<Rows> rows_;
};

/// A group of controls: with a border and a caption, or without either (a tab's page).
class Frame final : public Container {
 public:
  enum class Border : std::uint8_t { none, etched };

  explicit Frame(Text caption = {}, Border border = Border::etched);

  Kind kind() const override { return Kind::frame; }
  const Text& caption() const override { return caption_; }
  /// Fixed once the frame is shown.
  Frame& setCaption(Text caption);
  Border border() const { return border_; }
  /// The control that gets the focus when a tab shows this page; null for the first in the tab
  /// order.
  Control* firstFocus() override { return firstFocus_; }
  Frame& setFirstFocus(Control& control) {
    firstFocus_ = &control;
    return *this;
  }

  Margins margins() const override;

 private:
  Text caption_;
  Border border_;
  Control* firstFocus_ = nullptr;
};

}  // namespace tillora::ui
