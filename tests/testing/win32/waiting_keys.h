#pragma once

#include <windows.h>

#include <vector>

namespace tillora::testing {

/// Strikes keys, from another thread of the program, for its window in front. Returns when that one
/// has dealt with them, or is gone.
void strikeAndWait(std::vector<INPUT> inputs);

}  // namespace tillora::testing
