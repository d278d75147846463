#pragma once

#include "component/contract/options_tab.h"

namespace tillora {

/// Makes the records that a new shop starts with: its default currencies, named by the host's
/// strings from 20000 on. What exists is not made again. Failures of the host are caught: a new
/// shop can be set up without these records.
void prepareFirstUse(const OptionsDialog& dialog);

}  // namespace tillora
