#pragma once

#include "component/contract/options_tab.h"

namespace tillora {

/// Makes the records that a new shop starts with: its default currencies, named by the host's
/// strings from 20000 on. Existing records are not made again. Failures of the host are ignored: a
/// new shop can be set up without these records.
void prepareFirstUse(const OptionsDialog& dialog);

}  // namespace tillora
