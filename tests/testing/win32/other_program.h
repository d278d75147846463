#pragma once

#include <string>

namespace tillora::testing {

/// Runs drive.exe, which lies beside the test program, and gives what it printed (UTF-8); throws
/// std::runtime_error where it cannot be run or fails.
std::string drive(const std::wstring& arguments);

}  // namespace tillora::testing
