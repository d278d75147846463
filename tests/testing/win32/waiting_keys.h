#pragma once

#include <windows.h>

#include <vector>

namespace tillora::testing {

/// Strikes keys, from another thread of the program, for its window in front. Returns when that one
/// has processed them, or is gone. One thread at a time.
void strikeAndWait(std::vector<INPUT> inputs);

}  // namespace tillora::testing
