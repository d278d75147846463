#include "ui/tab_strip.h"

#include <utility>

#include "base/error.h"
#include "ui/form.h"

namespace tillora::ui {

void TabStrip::addTab(Text caption) {
  tabs_.push_back(std::move(caption));
  if (selected_ == 0) selected_ = 1;
  notify(Property::items);
}

TabStrip& TabStrip::setSelected(int tab) {
  if (tab < 1 || tab > count()) {
    throw Error(error::indexOutOfBounds, u"Index out of bounds");
  }
  if (tab == selected_) return *this;
  bool cancel = false;
  beforeClick.raise(cancel);
  if (!cancel) selected_ = tab;
  notify(Property::value);
  if (!cancel) click.raise();
  return *this;
}

void TabStrip::userKey(Key key) {
  if (key == Key::left && selected_ > 1) setSelected(selected_ - 1);
  if (key == Key::right && selected_ < count()) setSelected(selected_ + 1);
}

bool TabStrip::switchPage(bool forward) {
  if (!canFocus()) return false;
  const bool onStrip = hasFocus();
  const int before = selected_;
  setSelected((before + (forward ? 0 : count() - 2)) % count() + 1);
  if (!onStrip && selected_ != before) {
    if (Control* first = form().firstOnPage(*this)) first->setFocus();
  }
  return true;
}

Size TabStrip::naturalSize() const {
  const int width = form().screen().tabRowWidth(tabs_);
  const Margins around = marginsIn(width);
  return {width, around.top + around.bottom};
}

Rect TabStrip::clientArea() const {
  const Rect& strip = bounds();
  const Margins around = marginsIn(strip.width);
  return {strip.left + around.left, strip.top + around.top,
          strip.width - around.left - around.right, strip.height - around.top - around.bottom};
}

Margins TabStrip::marginsIn(int width) const { return form().screen().tabMargins(tabs_, width); }

}  // namespace tillora::ui
