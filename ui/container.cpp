#include "ui/container.h"

#include <algorithm>

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

Size Container::naturalSize() const {
  if (!rows_) return clientSize();
  const Margins around = margins();
  const int width = rows_->width();
  return {around.left + width + around.right, around.top + rows_->height(width) + around.bottom};
}

int Container::heightIn(int width) const {
  if (!rows_) return 0;
  const Margins around = margins();
  const int inside = std::max(rows_->width(), width - around.left - around.right);
  return around.top + rows_->height(inside) + around.bottom;
}

void Container::layOut() {
  if (!rows_) return;
  const Margins around = margins();
  const Scrolling before = scrolling_;
  scrolling_.content = scrolling_.seen = clientSize();
  if (canScroll()) makeRoom(around);
  const Size rest{scrolling_.content.width - scrolling_.seen.width,
                  scrolling_.content.height - scrolling_.seen.height};
  scrolling_.position = {std::clamp(scrolling_.position.x, 0, rest.width),
                         std::clamp(scrolling_.position.y, 0, rest.height)};
  rows_->place({around.left - scrolling_.position.x, around.top - scrolling_.position.y,
                scrolling_.content.width - around.left - around.right,
                scrolling_.content.height - around.top - around.bottom});
  if (scrolling_ != before) notify(Property::scrolling);
}

// A scroll bar takes room from the other direction, which may then need one as well.
void Container::makeRoom(const Margins& around) {
  const Size bars = form().screen().scrollBars();
  const int least = around.left + rows_->leastWidth() + around.right;
  Size& seen = scrolling_.seen;
  const auto height = [&] {
    const int inside = std::max(seen.width, least) - around.left - around.right;
    return around.top + rows_->leastHeight(inside) + around.bottom;
  };
  const bool down = height() > seen.height;
  if (down) seen.width -= bars.width;
  const bool across = least > seen.width;
  if (across) seen.height -= bars.height;
  if (!down && height() > seen.height) seen.width -= bars.width;
  scrolling_.content = {std::max(seen.width, least), std::max(seen.height, height())};
}

void Container::scrollTo(Point position) {
  scrolling_.position = position;
  layOut();
}

void Container::scrollIntoView(const Control& control) {
  if (!scrolling_.across() && !scrolling_.down()) return;
  Rect place = control.bounds();
  for (const Container* holder = control.parent(); holder != this; holder = holder->parent()) {
    place.left += holder->bounds().left;
    place.top += holder->bounds().top;
  }
  const auto moved = [](int position, int start, int end, int seen) {
    if (end > seen) position += std::min(end - seen, start);
    return start < 0 ? position + start : position;
  };
  scrollTo({moved(scrolling_.position.x, place.left, place.right(), scrolling_.seen.width),
            moved(scrolling_.position.y, place.top, place.bottom(), scrolling_.seen.height)});
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
