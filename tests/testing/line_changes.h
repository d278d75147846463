#pragma once

#include <string>

namespace tillora::testing {

/// The lines in which two texts differ, those of the first marked with "-" and those of the second
/// with "+", each run of them below the last line that both have.
std::string lineChanges(const std::string& before, const std::string& after);

}  // namespace tillora::testing
