#pragma once

#include <string>

#include "tests/testing/win32/child_program.h"

namespace tillora::testing {

struct ProgramRun {
  unsigned long exitCode = 0;
  std::string printed;  ///< standard output and errors
};

/// Runs a program that lies beside the test program; throws std::runtime_error if it cannot be run.
ProgramRun runBeside(const std::wstring& name, const std::wstring& arguments);

/// Runs drive.exe and returns what it printed (UTF-8); throws std::runtime_error if it cannot be
/// run or fails.
std::string drive(const std::wstring& arguments);
/// The same for the windows of a program; fails at once if that ends while one is waited for.
std::string drive(const ChildProgram& program, const std::wstring& arguments);

}  // namespace tillora::testing
