#pragma once

#include <windows.h>

namespace tillora::ui::win32 {

/// While one lives, windows that the thread makes are scaled by the system where they move to a
/// monitor of another resolution. It changes something only in a program that is aware of each
/// monitor's resolution, on a platform that knows contexts of threads.
class SystemScaling {
 public:
  SystemScaling();
  SystemScaling(const SystemScaling&) = delete;
  SystemScaling& operator=(const SystemScaling&) = delete;
  ~SystemScaling();

 private:
  HANDLE former_ = nullptr;  // null where nothing was changed
};

/// While one lives, the thread is in the context that it had before SystemScaling: for calls of the
/// program's own code, which measures its own windows.
class ProgramsScaling {
 public:
  ProgramsScaling();
  ProgramsScaling(const ProgramsScaling&) = delete;
  ProgramsScaling& operator=(const ProgramsScaling&) = delete;
  ~ProgramsScaling();

 private:
  HANDLE ours_;
};

}  // namespace tillora::ui::win32
