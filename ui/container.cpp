#include "ui/container.h"

#include "ui/form.h"
#include "ui/layout.h"

namespace tillora::ui {

Container::Container() = default;

Container::~Container() = default;

void Container::take(Control& control) {
  control.parent_ = this;
  control.form_ = form_;
  children_.push_back(&control);
}

Rows& Container::rows() {
  if (!rows_) rows_ = std::make_unique<Rows>(*this);
  return *rows_;
}

void Container::layOut() {
  if (!rows_) return;
  const Margins around = margins();
  const Size size = clientSize();
  rows_->place({around.left, around.top, size.width - around.left - around.right,
                size.height - around.top - around.bottom});
}

bool Container::contains(const Control& control) const {
  for (const Container* holder = control.parent(); holder != nullptr; holder = holder->parent()) {
    if (holder == this) return true;
  }
  return false;
}

Frame::Frame(Text caption, Border border) : caption_(std::move(caption)), border_(border) {}

Frame& Frame::setCaption(Text caption) {
  caption_ = std::move(caption);
  notify(Property::text);
  return *this;
}

}  // namespace tillora::ui
