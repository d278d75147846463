#include "support/dialog.h"

#include <utility>

#include "support/modSelectAllText.h"
#include "ui/layout.h"

namespace tillora {

void Dialog::onFocus(ui::Control& control) {
  if (control.kind() == ui::Kind::textBox) selectAllText(static_cast<ui::TextBox&>(control));
}

void Dialog::okAndCancel(ui::CommandButton& ok, Text okToolTip, ui::CommandButton& cancel,
                         Text cancelToolTip) {
  ok.setToolTip(std::move(okToolTip));
  cancel.setToolTip(std::move(cancelToolTip));
  rows().buttons({&ok, &cancel});
  ok.setDefault(true);
  cancel.setCancel();
}

void EditDialog::acceptAndClose() {
  cancelled_ = false;
  unload();
}

void EditDialog::cancelAndClose() {
  cancelled_ = true;
  unload();
}

void EditDialog::onQueryUnload(bool& /*cancel*/, ui::UnloadMode mode) {
  if (mode != ui::UnloadMode::code) cancelled_ = true;
}

}  // namespace tillora
