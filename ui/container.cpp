#include "ui/container.h"

#include "ui/form.h"

namespace tillora::ui {

bool Container::contains(const Control& control) const {
  for (const Container* holder = control.parent(); holder != nullptr; holder = holder->parent()) {
    if (holder == this) return true;
  }
  return false;
}

Frame::Frame(Container* parent, Text caption, Border border)
    : Container(parent), caption_(std::move(caption)), border_(border) {}

}  // namespace tillora::ui
