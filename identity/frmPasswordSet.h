#pragma once

#include <cstdint>
#include <initializer_list>

#include "base/secret_text.h"
#include "component/contract/messages.h"
#include "support/dialog.h"
#include "ui/control_array.h"
#include "ui/label.h"
#include "ui/text_box.h"

namespace tillora {

/// Sets or changes one password. The caller sets Password and the caption and shows the dialog
/// modally.
class frmPasswordSet final : public Dialog {
 public:
  /// Indexes of txtPassword and lblPassword.
  enum Box : std::uint8_t { oldPassword, newPassword, confirmPassword };
  enum Command : std::uint8_t { ok, cancel };

  frmPasswordSet(ui::Screen& screen, Messages& messages);

  /// In: the present password. Out: the one that OK accepted, in lower case and possibly empty;
  /// else as it was, in lower case if OK was pressed.
  SecretText Password;

  ui::Picture imgPassword{ui::PictureId::key};
  ui::ControlArray<ui::Label> lblPassword;
  ui::ControlArray<ui::TextBox> txtPassword;
  ui::ControlArray<ui::CommandButton> cmdCommand;  ///< by Command

 private:
  ui::TextBox& box(Box index);
  void onLoad() override;

  void validate(int index, bool& cancel);
  void accept();
  /// Shows the warning, empties these boxes and moves the focus to the first.
  void askAgain(TextView text, TextView title, std::initializer_list<int> boxes);

  Messages& messages_;
};

}  // namespace tillora
