#include "ui/form.h"

#include <utility>

#include "base/error.h"

namespace tillora::ui {

Form::Form(Screen& screen, Text caption) : screen_(screen), caption_(std::move(caption)) {
  form_ = this;
}

Form& Form::setCaption(Text caption) {
  caption_ = std::move(caption);
  notify(Property::text);
  return *this;
}

Form& Form::setClientSize(Size size) {
  clientSize_ = size;
  notify(Property::bounds);
  if (loaded_) layOut();
  return *this;
}

Size Form::measure() { return measured_ = naturalSize(); }

void Form::load() {
  if (loaded_) return;
  loaded_ = true;
  try {
    onLoad();
    if (loaded_) setClientSize(measure());
  } catch (...) {
    loaded_ = false;
    throw;
  }
}

void Form::showModal() {
  if (shown_) {
    throw Error(error::alreadyShown, u"The form is already shown.");
  }
  closing_.reset();
  onShowModal();
  load();
  if (!loaded_) return;
  shown_ = true;
  try {
    screen_.runModal(*this);
  } catch (...) {
    hide();
    throw;
  }
  hide();
}

void Form::shown() {
  if (!shown_) return;
  Control* first = std::exchange(active_, nullptr);
  if (first == nullptr || !first->canFocus()) first = firstFocus();
  if (first != nullptr) moveFocus(first);
}

void Form::hide() {
  if (!shown_) return;
  shown_ = false;
  active_ = unvalidated_ = nullptr;
  notify(Property::visible);
}

void Form::unload(UnloadMode mode) {
  if (!loaded_) return;
  bool cancel = false;
  onQueryUnload(cancel, mode);
  if (cancel) return;
  hide();
  loaded_ = false;
  onUnload();
}

void Form::end() {
  hide();
  if (isBusy()) {
    closing_ = UnloadMode::system;
  } else {
    unload(UnloadMode::system);
  }
}

void Form::onQueryUnload(bool& /*cancel*/, UnloadMode /*mode*/) {}

void Form::edited(Control& /*control*/) {}

void Form::onFocus(Control& /*control*/) {}

Form& Form::setDefaultButton(CommandButton* button) {
  if (default_ == button) return *this;
  CommandButton* before = std::exchange(default_, button);
  if (before != nullptr) before->notify(Property::defaultness);
  if (button != nullptr) button->notify(Property::defaultness);
  return *this;
}

void Form::closeIfAsked() {
  if (const auto mode = std::exchange(closing_, std::nullopt)) unload(*mode);
}

void Form::userClose() {
  if (isBusy()) {
    closing_ = UnloadMode::user;
  } else {
    unload(UnloadMode::user);
  }
}

void Form::userHelp() {
  userDoes([this] { help.raise(); });
}

}  // namespace tillora::ui
