// The form's dialog keeping: focus, validation, tab order, default button and access keys.
#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "ui/form.h"
#include "ui/tab_strip.h"
#include "ui/text_box.h"
#include "ui/up_down.h"

namespace tillora::ui {
namespace {

// Tab reaches one option button of a group: the chosen one, or the first where none is chosen.
bool isTabStop(const Control& control) {
  if (!control.tabStop() || !control.canFocus()) return false;
  if (control.kind() != Kind::optionButton) return true;
  const OptionButton* stop = nullptr;
  for (Control* sibling : control.parent()->children()) {
    if (sibling->kind() != Kind::optionButton || !sibling->canFocus()) continue;
    const auto& option = static_cast<const OptionButton&>(*sibling);
    if (stop == nullptr || option.value()) stop = &option;
    if (option.value()) break;
  }
  return stop == &control;
}

void appendInOrder(const Container& holder, std::vector<Control*>& order) {
  for (Control* control : holder.children()) {
    order.push_back(control);
    if (control->kind() == Kind::frame) appendInOrder(static_cast<const Frame&>(*control), order);
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
  // From the place after `from` once around; from the first place where `from` is none.
  std::ranges::rotate(order, here == order.end() ? order.begin() : here + 1);
  const auto next = std::ranges::find_if(order, [](const Control* c) { return isTabStop(*c); });
  return next != order.end() ? *next : nullptr;
}

Control* Form::firstOnPage(const TabStrip& tabs) const {
  Control* first = nextInTabOrder(&tabs);
  for (const Control* holder = first; holder != nullptr; holder = holder->parent()) {
    if (holder->kind() != Kind::frame) continue;
    Control* chosen = static_cast<const Frame&>(*holder).firstFocus();
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
  // From one of the form's buttons (Apply) to its default button, so that Enter goes on making
  // sense.
  const bool besideDefault = default_ != nullptr && active_->kind() == Kind::commandButton &&
                             default_->parent() == active_->parent();
  Control* next = besideDefault && default_->canFocus() ? default_ : nextInTabOrder(active_);
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
    Control* next = nextInTabOrder(active_, !modifiers.shift);
    if (next != nullptr) setFocus(*next);
    return true;
  }
  if (key == Key::enter && !modifiers.alt && pressOnEnter(modifiers)) return true;
  if (key == Key::escape && !modifiers.ctrl && !modifiers.alt && cancel_ != nullptr) {
    cancel_->press();
    return true;
  }
  if (active_ == nullptr) return false;
  if (isArrow(key) && moveByArrow(key)) return true;
  active_->keyDown.raise(key, modifiers);
  return key == Key::none || (!modifiers.alt && stepUpDown(key));
}

bool Form::pressOnEnter(Modifiers modifiers) {
  if (active_ != nullptr && active_->kind() == Kind::commandButton) {
    static_cast<CommandButton&>(*active_).press();
    return true;
  }
  const bool wantsLine = active_ != nullptr && active_->kind() == Kind::textBox &&
                         static_cast<TextBox&>(*active_).multiLine();
  if (wantsLine && (default_ == nullptr || modifiers.ctrl)) return false;
  if (default_ != nullptr) default_->press();
  return true;
}

bool Form::moveByArrow(Key key) {
  if (active_->kind() == Kind::checkBox || active_->kind() == Kind::commandButton) {
    Control* next = nextInTabOrder(active_, isForward(key));
    if (next != nullptr) setFocus(*next);
    return true;
  }
  if (active_->kind() != Kind::optionButton) return false;
  std::vector<OptionButton*> group;
  for (Control* sibling : active_->parent()->children()) {
    if (sibling->kind() == Kind::optionButton && sibling->canFocus()) {
      group.push_back(static_cast<OptionButton*>(sibling));
    }
  }
  const auto here = std::ranges::find(group, active_) - group.begin();
  const auto count = static_cast<std::ptrdiff_t>(group.size());
  OptionButton& next =
      *group[static_cast<std::size_t>((here + (isForward(key) ? 1 : count - 1)) % count)];
  if (setFocus(next)) next.setValue(true);
  return true;
}

bool Form::stepUpDown(Key key) {
  if ((key != Key::up && key != Key::down) || active_ == nullptr) return false;
  for (Control* control : inTabOrder()) {
    if (control->kind() != Kind::upDown) continue;
    auto& upDown = static_cast<UpDown&>(*control);
    if (upDown.buddy() != active_) continue;
    if (upDown.effectivelyEnabled() && validatePending()) upDown.spin(key == Key::up ? 1 : -1);
    return true;
  }
  return false;
}

bool Form::switchTab(bool forward) {
  const std::vector<Control*> order = inTabOrder();
  const auto strip = std::ranges::find_if(order, [](const Control* control) {
    return control->kind() == Kind::tabStrip && control->canFocus();
  });
  if (strip == order.end()) return false;
  auto& tabs = static_cast<TabStrip&>(**strip);
  const bool onStrip = active_ == &tabs;
  const int before = tabs.selected();
  tabs.setSelected((before + (forward ? 0 : tabs.count() - 2)) % tabs.count() + 1);
  if (!onStrip && tabs.selected() != before) {
    if (Control* first = firstOnPage(tabs)) setFocus(*first);
  }
  return true;
}

char16_t Form::userCharacter(char16_t character) { return userCharacter(active_, character); }

char16_t Form::userCharacter(Control* control, char16_t character) {
  const bool done = userDoes([&] {
    if (control != nullptr) control->keyPress.raise(character);
  });
  // Ctrl+Backspace types it, and no text means it.
  return !done || character == kDeleteCharacter ? char16_t{0} : character;
}

bool Form::userAccessKey(char16_t character) {
  bool used = true;
  userDoes([&] { used = accessKey(character); });
  return used;
}

bool Form::accessKey(char16_t character) {
  const std::optional<char16_t> key = accessKeyOf(Text{u'&', character});
  const std::vector<Control*> order = inTabOrder();
  std::vector<Control*> owners;
  std::ranges::copy_if(order, std::back_inserter(owners), [&](Control* control) {
    return key && control->accessKey() == key && control->effectivelyEnabled() &&
           control->effectivelyVisible() && accessTarget(*control) != nullptr;
  });
  if (owners.empty()) return false;
  if (owners.size() == 1) {
    useAccessKey(*owners.front());
    return true;
  }
  const auto isAfterActive = [&](Control* owner) {
    return std::ranges::find(order, accessTarget(*owner)) > std::ranges::find(order, active_);
  };
  const auto next = std::ranges::find_if(owners, isAfterActive);
  setFocus(*accessTarget(next != owners.end() ? **next : *owners.front()));
  return true;
}

Control* Form::accessTarget(Control& owner) const {
  const bool leadsOn = owner.kind() == Kind::label || owner.kind() == Kind::frame;
  Control* target = leadsOn ? nextInTabOrder(&owner) : &owner;
  return target != nullptr && target->canFocus() ? target : nullptr;
}

void Form::useAccessKey(Control& owner) {
  if (!setFocus(*accessTarget(owner))) return;
  if (owner.kind() == Kind::commandButton) {
    static_cast<CommandButton&>(owner).press();
  } else if (owner.kind() == Kind::checkBox) {
    auto& box = static_cast<CheckBox&>(owner);
    box.setValue(!box.value());
  } else if (owner.kind() == Kind::optionButton) {
    static_cast<OptionButton&>(owner).setValue(true);
  }
}

bool Form::userMouseDown(Control& control) {
  bool seen = false;
  userDoes([&] {
    if (!control.effectivelyEnabled()) {
      seen = true;
    } else if (control.kind() == Kind::upDown) {
      seen = validatePending();
    } else {
      seen = !control.canFocus() || setFocus(control);
    }
  });
  return seen;
}

}  // namespace tillora::ui
