#pragma once

#include "ui/buttons.h"
#include "ui/form.h"

namespace tillora {

/// A dialog of the component. Its text boxes select their whole text when they receive the focus,
/// before their own gotFocus.
class Dialog : public ui::Form {
 protected:
  using Form::Form;
  void onFocus(ui::Control& control) override;
  /// The last buttons of the dialog, which Enter and Esc press, with their tool tips.
  void okAndCancel(ui::CommandButton& ok, Text okToolTip, ui::CommandButton& cancel,
                   Text cancelToolTip);
};

/// A dialog that edits values of its caller. The caller sets them, shows the dialog modally, and
/// takes them back unless it was cancelled.
class EditDialog : public Dialog {
 public:
  /// The dialog was closed by anything but acceptAndClose(), the close box included. False from
  /// each showModal() until then.
  bool Cancelled() const { return cancelled_; }

 protected:
  using Dialog::Dialog;
  void acceptAndClose();
  void cancelAndClose();
  void onShowModal() override { cancelled_ = false; }
  void onQueryUnload(bool& cancel, ui::UnloadMode mode) override;

 private:
  bool cancelled_ = false;
};

}  // namespace tillora
