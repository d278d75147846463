#pragma once

#include <windows.h>

namespace tillora::ui::win32 {

/// During its lifetime the system scales windows that the thread makes when they move to a monitor
/// of another resolution. Has an effect only in a program that is per-monitor DPI aware, on a
/// platform with DPI contexts of threads.
class SystemScaling {
 public:
  SystemScaling();
  SystemScaling(const SystemScaling&) = delete;
  SystemScaling& operator=(const SystemScaling&) = delete;
  ~SystemScaling();

 private:
  HANDLE former_ = nullptr;  // null if nothing was changed
};

/// During its lifetime the thread is in the context that it had before SystemScaling: for calls of
/// the program's own code, which measures its own windows.
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
