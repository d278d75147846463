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
  /// Places what is in rows(), and in the containers in it, for the present size and font.
  void layOut();
  /// Distances between its edges and its rows, twips.
  virtual Margins margins() const;
  /// The size in which its rows are seen in full, twips.
  Size naturalSize() const override;
  /// The height in which its rows are seen in full in this width, twips.
  int heightIn(int width) const;

  /// What is scrolled of a container that is too small for its rows, twips.
  struct Scrolling {
    Size content;    ///< of all that it shows
    Size seen;       ///< of the part that is seen, beside the scroll bars
    Point position;  ///< of that part in the content

    bool across() const { return content.width > seen.width; }
    bool down() const { return content.height > seen.height; }
    friend bool operator==(const Scrolling&, const Scrolling&) = default;
  };
  const Scrolling& scrolling() const { return scrolling_; }
  /// Limited to what there is to scroll.
  void scrollTo(Point position);
  /// Scrolls as little as needed to show a control in it.
  void scrollIntoView(const Control& control);

 protected:
  Container();
  /// Scrolls when it is too small. Others are always as large as their rows need.
  virtual bool canScroll() const { return false; }

 private:
  void makeRoom(const Margins& around);

  std::vector<Control*> children_;
  std::vector<std::unique_ptr<Control>> owned_;
  std::unique_ptr<Rows> rows_;
  Scrolling scrolling_;
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

 protected:
  bool canScroll() const override { return border_ == Border::none; }

 private:
  Text caption_;
  Border border_;
  Control* firstFocus_ = nullptr;
};

}  // namespace tillora::ui
