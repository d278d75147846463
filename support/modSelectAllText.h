#pragma once

#include "ui/text_box.h"

namespace tillora {

/// Selects the whole text of a box; what every text box does when it receives the focus.
void selectAllText(ui::TextBox& box);

}  // namespace tillora
