#include "tests/testing/win32/other_program.h"

#include <windows.h>

#include <array>
#include <stdexcept>
#include <string>

#include "com/wide_text.h"

namespace tillora::testing {

ProgramRun runBeside(const std::wstring& name, const std::wstring& arguments) {
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  HANDLE ends[2]{};
  if (!CreatePipe(&ends[0], &ends[1], &inherited, 0)) throw std::runtime_error("CreatePipe");
  const KernelHandle reading(ends[0]);
  KernelHandle writing(ends[1]);
  SetHandleInformation(reading.get(), HANDLE_FLAG_INHERIT, 0);

  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdOutput = startup.hStdError = writing.get();
  PROCESS_INFORMATION process{};
  std::wstring line = quoted(programFolder() / name) + L" " + arguments;
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr,
                      nullptr, &startup, &process)) {
    throw std::runtime_error(toUtf8(win32::fromWide(name.c_str())) +
                             " cannot be run: " + std::to_string(GetLastError()));
  }
  const KernelHandle running(process.hProcess);
  const KernelHandle thread(process.hThread);
  writing.reset();

  ProgramRun run;
  std::array<char, 4096> part{};
  for (DWORD read = 0;
       ReadFile(reading.get(), part.data(), part.size(), &read, nullptr) && read != 0;) {
    run.printed.append(part.data(), read);
  }
  WaitForSingleObject(running.get(), INFINITE);
  GetExitCodeProcess(running.get(), &run.exitCode);
  return run;
}

std::string drive(const std::wstring& arguments) {
  const ProgramRun run = runBeside(L"drive.exe", arguments);
  if (run.exitCode != 0) throw std::runtime_error("drive.exe: " + run.printed);
  return run.printed;
}

std::string drive(const ChildProgram& program, const std::wstring& arguments) {
  return drive(L"of " + std::to_wstring(GetProcessId(program.process())) + L" -- " + arguments);
}

}  // namespace tillora::testing
