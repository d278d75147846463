#pragma once

#include "ui/label.h"

namespace tillora {

/// Enables or disables a label with the engraved look of disabled text: the shadow, a light copy
/// one pixel right of and below the label, shows only while the label is disabled. Its access key
/// leads nowhere.
void enableLabel(ui::Label& label, ui::Label& shadow, bool enabled);

}  // namespace tillora
