#pragma once

#include <windows.h>

#include <string>

namespace tillora::testing {

/// During its lifetime, whatever this program asks of the machine's and of the user's part of the
/// registry goes to an empty registry of the test's own, so that a test that is killed leaves
/// nothing for another one to see. The system's own look-ups, such as that of a class to be
/// created, do not see it either.
class ScratchRegistry {
 public:
  ScratchRegistry();
  ~ScratchRegistry();
  ScratchRegistry(const ScratchRegistry&) = delete;
  ScratchRegistry& operator=(const ScratchRegistry&) = delete;

 private:
  HKEY create(const wchar_t* part) const;

  std::wstring path_;
};

}  // namespace tillora::testing
