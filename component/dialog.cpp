#include "component/dialog.h"

#include "support/modSelectAllText.h"

namespace tillora {

void Dialog::onFocus(ui::Control& control) {
  if (control.kind() == ui::Kind::textBox) selectAllText(static_cast<ui::TextBox&>(control));
}

}  // namespace tillora
