#pragma once

#include <windows.h>

#include <vector>

namespace tillora::testing {

/// Strikes keys for the window in front, of whatever program. Returns when the thread of that
/// window has processed them, or the window is gone; throws std::runtime_error where neither comes
/// true.
void strikeForOthers(std::vector<INPUT> inputs);

}  // namespace tillora::testing
