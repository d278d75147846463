#include "support/modSelectAllText.h"

namespace tillora {

void selectAllText(ui::TextBox& box) { box.setSelection(0, static_cast<int>(box.text().size())); }

}  // namespace tillora
