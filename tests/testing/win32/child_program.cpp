#include "tests/testing/win32/child_program.h"

#include <array>
#include <fstream>
#include <stdexcept>

namespace tillora::testing {

std::filesystem::path programFolder() {
  std::array<wchar_t, MAX_PATH> program{};
  GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size()));
  return std::filesystem::path(program.data()).parent_path();
}

std::wstring quoted(const std::filesystem::path& path) { return L"\"" + path.wstring() + L"\""; }

ChildProgram::ChildProgram(std::wstring commandLine, const std::filesystem::path& output)
    : job_(CreateJobObjectW(nullptr, nullptr)) {
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  SetInformationJobObject(job_.get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);

  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  const HANDLE file =
      CreateFileW(output.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE, &inherited,
                  CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    throw std::runtime_error("no output file: error " + std::to_string(GetLastError()));
  }
  const KernelHandle printed(file);
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdOutput = startup.hStdError = file;
  PROCESS_INFORMATION started{};
  // Suspended until it belongs to its job, so that nothing that it starts can be outside.
  if (CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, CREATE_SUSPENDED, nullptr,
                     nullptr, &startup, &started) == FALSE) {
    throw std::runtime_error("cannot be run: error " + std::to_string(GetLastError()));
  }
  process_.reset(started.hProcess);
  const KernelHandle thread(started.hThread);
  AssignProcessToJobObject(job_.get(), process_.get());
  ResumeThread(thread.get());
}

std::optional<DWORD> ChildProgram::wait(DWORD milliseconds, HANDLE event) const {
  const std::array<HANDLE, 2> either = {process_.get(), event};
  DWORD code = 0;
  if (WaitForMultipleObjects(event == nullptr ? 1 : 2, either.data(), FALSE, milliseconds) !=
          WAIT_OBJECT_0 ||
      GetExitCodeProcess(process_.get(), &code) == FALSE) {
    return {};
  }
  return code;
}

std::vector<std::string> linesOf(const std::filesystem::path& file) {
  std::vector<std::string> lines;
  std::ifstream text(file, std::ios::binary);
  for (std::string line; std::getline(text, line);) {
    if (line.ends_with('\r')) line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

}  // namespace tillora::testing
