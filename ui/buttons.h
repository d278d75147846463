#pragma once

#include "ui/container.h"

namespace tillora::ui {

/// A box that is ticked or not. Changing the value, by user or code, raises click.
class CheckBox final : public Control {
 public:
  explicit CheckBox(Text caption = {});

  Kind kind() const override { return Kind::checkBox; }
  Size naturalSize() const override;
  const Text& caption() const override { return caption_; }
  CheckBox& setCaption(Text caption);
  bool value() const { return value_; }
  CheckBox& setValue(bool value);
  void press() override { setValue(!value_); }

  Event<> click;

 protected:
  bool focusable() const override { return true; }
  bool moveByArrow(bool forward) override;

 private:
  Text caption_;
  bool value_ = false;
};

/// One of the choices that a container offers. Choosing it, by user or code, clears the other
/// option buttons of the same container and raises click.
class OptionButton final : public Control {
 public:
  explicit OptionButton(Text caption = {});

  Kind kind() const override { return Kind::optionButton; }
  Size naturalSize() const override;
  const Text& caption() const override { return caption_; }
  bool value() const { return value_; }
  OptionButton& setValue(bool value);
  void press() override { setValue(true); }

  Event<> click;

 protected:
  bool focusable() const override { return true; }
  /// Tab reaches only the chosen button of a group, or the first if none is chosen.
  bool isTabStop() const override;
  /// Chooses the next button of the group, wrapping around at its ends.
  bool moveByArrow(bool forward) override;

 private:
  Text caption_;
  bool value_ = false;
};

/// A push button.
class CommandButton final : public Control {
 public:
  explicit CommandButton(Text caption = {});

  Kind kind() const override { return Kind::commandButton; }
  bool fillsRow() const override { return true; }
  Size naturalSize() const override;
  const Text& caption() const override { return caption_; }
  CommandButton& setCaption(Text caption);

  /// The button that Enter presses. Making one the default ends the default state of another.
  bool isDefault() const;
  CommandButton& setDefault(bool isDefault);
  /// The button that Esc presses. It causes no validation.
  bool isCancel() const;
  CommandButton& setCancel();

  /// Presses the button as the user does: runs the pending validation of the control with the
  /// focus, unless this button causes none, then raises click. Does nothing while disabled.
  void press() override;

  Event<> click;

 protected:
  bool focusable() const override { return true; }
  /// The default button if it is beside this one (Apply), so that Enter keeps a useful target.
  Control* focusHeir() const override;
  CommandButton* enterButton() override { return this; }
  bool moveByArrow(bool forward) override;

 private:
  Text caption_;
};

}  // namespace tillora::ui
