#pragma once

#include <windows.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tillora::testing {

struct KernelHandleCloser {
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using KernelHandle = std::unique_ptr<void, KernelHandleCloser>;

/// The folder of the running program.
std::filesystem::path programFolder();

std::wstring quoted(const std::filesystem::path& path);

/// A program that runs beside this one. It is ended, with every program that it started, when this
/// object or this program ends.
class ChildProgram {
 public:
  /// Whatever it prints goes into the file. Throws std::runtime_error if it cannot be run.
  ChildProgram(std::wstring commandLine, const std::filesystem::path& output);

  HANDLE process() const { return process_.get(); }
  /// Its exit code; none if it still runs after this time or if the event is set meanwhile.
  std::optional<DWORD> wait(DWORD milliseconds, HANDLE event = nullptr) const;

 private:
  KernelHandle job_;
  KernelHandle process_;
};

/// The lines of a text file, whatever ends them; none if it cannot be read.
std::vector<std::string> linesOf(const std::filesystem::path& file);

}  // namespace tillora::testing
