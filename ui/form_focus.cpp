// What makes a form a dialog: focus, validation, tab order, default button and access keys.
#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "ui/form.h"
#include "ui/tab_strip.h"

namespace tillora::ui {
namespace {

void appendInOrder(const Control& holder, std::vector<Control*>& order) {
  for (Control* control : holder.children()) {
    order.push_back(control);
    appendInOrder(*control, order);
  }
}

bool isArrow(Key key) {
  return key == Key::left || key == Key::right || key == Key::up || key == Key::down;
}

bool isForward(Key key) { return key == Key::right || key == Key::down; }

}  // namespace

std::vector<Control*> Form::inTabOrder() const {
  std::vector<Control*> order;
  appendInOrder(*this, order);
  return order;
}

Control* Form::nextInTabOrder(const Control* from, bool forward) const {
  std::vector<Control*> order = inTabOrder();
  if (!forward) std::ranges::reverse(order);
  const auto here = std::ranges::find(order, from);
  // Once around, starting after `from`, or at the first place if there is no `from`.
  std::ranges::rotate(order, here == order.end() ? order.begin() : here + 1);
  const auto next = std::ranges::find_if(order, [](const Control* c) { return c->isTabStop(); });
  return next != order.end() ? *next : nullptr;
}

void Form::moveInTabOrder(bool forward) {
  if (Control* next = nextInTabOrder(active_, forward)) setFocus(*next);
}

Control* Form::firstOnPage(const TabStrip& tabs) const {
  Control* first = nextInTabOrder(&tabs);
  if (first == nullptr) return nullptr;
  for (Container* holder = first->parent(); holder != this; holder = holder->parent()) {
    Control* chosen = holder->firstFocus();
    if (chosen != nullptr && chosen->canFocus()) return chosen;
  }
  return first;
}

bool Form::setFocus(Control& control) {
  if (!control.canFocus()) return false;
  if (!shown_) {
    active_ = &control;
    return true;
  }
  if (&control == active_) return true;
  if (control.causesValidation() && !validatePending()) return false;
  if (!control.canFocus()) return false;
  moveFocus(&control);
  return true;
}

bool Form::validatePending() {
  if (validating_ || unvalidated_ == nullptr) return true;
  Control& control = *unvalidated_;
  bool cancel = false;
  validating_ = true;
  try {
    control.validate.raise(cancel);
  } catch (...) {
    validating_ = false;
    throw;
  }
  validating_ = false;
  if (!cancel || !control.canFocus()) return true;
  moveFocus(&control);
  return false;
}

void Form::moveFocus(Control* to) {
  if (to == active_) return;
  Control* from = std::exchange(active_, to);
  if (to != nullptr && to->causesValidation()) unvalidated_ = to;
  if (to != nullptr) {
    for (Container* holder = to->parent(); holder != nullptr; holder = holder->parent()) {
      holder->scrollIntoView(*to);
    }
  }
  if (view_ != nullptr) view_->focusMoved();
  if (from != nullptr) from->lostFocus.raise();
  if (to == nullptr || active_ != to) return;
  onFocus(*to);
  to->gotFocus.raise();
}

void Form::releaseFocus() {
  if (!shown_) return;
  if (unvalidated_ != nullptr && !unvalidated_->canFocus()) unvalidated_ = nullptr;
  if (active_ == nullptr || active_->canFocus()) return;
  Control* next = active_->focusHeir();
  if (next != nullptr && next == cancel_) next = nextInTabOrder(cancel_);
  moveFocus(next == cancel_ ? nullptr : next);
}

bool Form::userKeyDown(Key key, Modifiers modifiers) {
  bool used = true;
  userDoes([&] { used = keyDown(key, modifiers); });
  return used;
}

bool Form::keyDown(Key key, Modifiers modifiers) {
  if (key == Key::tab && !modifiers.alt) {
    if (modifiers.ctrl) return switchTab(!modifiers.shift);
    moveInTabOrder(!modifiers.shift);
    return true;
  }
  if (key == Key::enter && !modifiers.alt && pressOnEnter(modifiers)) return true;
  if (key == Key::escape && !modifiers.ctrl && !modifiers.alt && cancel_ != nullptr) {
    cancel_->press();
    return true;
  }
  if (active_ == nullptr) return false;
  if (isArrow(key) && active_->moveByArrow(isForward(key))) return true;
  active_->keyDown.raise(key, modifiers);
  return key == Key::none || (!modifiers.alt && stepUpDown(key));
}

CommandButton* Form::enterButton() {
  return active_ != nullptr ? active_->enterButton() : default_;
}

bool Form::pressOnEnter(Modifiers modifiers) {
  if (active_ != nullptr && active_->keepsEnter(modifiers)) return false;
  if (CommandButton* button = enterButton()) button->press();
  return true;
}

bool Form::stepUpDown(Key key) {
  if ((key != Key::up && key != Key::down) || active_ == nullptr) return false;
  const int direction = key == Key::up ? 1 : -1;
  return std::ranges::any_of(inTabOrder(), [&, box = active_](Control* control) {
    return control->stepFor(*box, direction);
  });
}

bool Form::switchTab(bool forward) {
  return std::ranges::any_of(inTabOrder(),
                             [&](Control* control) { return control->switchPage(forward); });
}

char16_t Form::userCharacter(char16_t character) { return userCharacter(active_, character); }

char16_t Form::userCharacter(Control* control, char16_t character) {
  const bool done = userDoes([&] {
    if (control != nullptr) control->keyPress.raise(character);
  });
  // Ctrl+Backspace types this character, which belongs in no text.
  return !done || character == kDeleteCharacter ? char16_t{0} : character;
}

bool Form::userAccessKey(char16_t character) {
  bool used = true;
  userDoes([&] { used = followAccessKey(character); });
  return used;
}

bool Form::followAccessKey(char16_t character) {
  const std::optional<char16_t> key = accessKeyOf(Text{u'&', character});
  const std::vector<Control*> order = inTabOrder();
  std::vector<Control*> owners;
  std::ranges::copy_if(order, std::back_inserter(owners), [&](Control* control) {
    return key && control->accessKey() == key && control->effectivelyEnabled() &&
           control->effectivelyVisible() && control->accessTarget() != nullptr;
  });
  if (owners.empty()) return false;
  if (owners.size() == 1) {
    Control& owner = *owners.front();
    if (setFocus(*owner.accessTarget())) owner.press();
    return true;
  }
  const auto isAfterActive = [&](Control* owner) {
    return std::ranges::find(order, owner->accessTarget()) > std::ranges::find(order, active_);
  };
  const auto next = std::ranges::find_if(owners, isAfterActive);
  setFocus(*(next != owners.end() ? *next : owners.front())->accessTarget());
  return true;
}

bool Form::userMouseDown(Control& control) {
  bool seen = false;
  userDoes([&] { seen = !control.effectivelyEnabled() || control.mouseDown(); });
  return seen;
}

}  // namespace tillora::ui
