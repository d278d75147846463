#include "support/dialog.h"

#include "support/modSelectAllText.h"

namespace tillora {

void Dialog::onFocus(ui::Control& control) {
  if (control.kind() == ui::Kind::textBox) selectAllText(static_cast<ui::TextBox&>(control));
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
