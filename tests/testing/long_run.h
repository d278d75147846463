#pragma once

#include <cstdlib>

namespace tillora::testing {

/// TILLORA_LONG is set: a test that samples in the everyday run goes through everything.
inline bool isLongRun() { return std::getenv("TILLORA_LONG") != nullptr; }

}  // namespace tillora::testing
