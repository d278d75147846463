// Runs the test programs of a test package (docs/windows-tests.md) on a Windows where nothing is
// installed, and leaves the machine as it was:
//
//   run_tests [machine]
//
// The component is registered while some of the tests need it, for the user or, with "machine", for
// the machine. The results are in the package's folder "report". Exit code 0 if all passed.
#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <stdexcept>

#include "com/wide_text.h"
#include "tests/package/registration.h"
#include "tests/testing/win32/child_program.h"
#include "tests/testing/win32/test_report.h"

namespace tillora::testing {
namespace {

namespace fs = std::filesystem;

constexpr DWORD kMinute = 60'000;
constexpr DWORD kMostMinutes = 90;

// Of windows_tests.
constexpr const wchar_t* kNeedRegistration = TILLORA_REGISTERED_TESTS;
// Of client_tests: only those whose programs find the component by a manifest.
constexpr const wchar_t* kNeedNoRegistration = TILLORA_MANIFEST_TESTS;
// Tests write below it, and remove it unless they are ended in the middle.
constexpr const wchar_t* kTestsKey = L"Software\\TilloraOptionsTest";

// Set when the user ends the run; the machine is then put in order as at any other end.
HANDLE stopping = nullptr;
HANDLE finished = nullptr;

BOOL WINAPI stop(DWORD reason) {
  SetEvent(stopping);
  // When the console is closed, the process lives as long as this function.
  if (reason != CTRL_C_EVENT && reason != CTRL_BREAK_EVENT) WaitForSingleObject(finished, kMinute);
  return TRUE;
}

bool isStopping() { return WaitForSingleObject(stopping, 0) == WAIT_OBJECT_0; }

class TestRun {
 public:
  TestRun(Scope scope, fs::path package)
      : scope_(scope),
        package_(std::move(package)),
        reports_(package_ / "report"),
        temporary_(fs::temp_directory_path() /
                   (L"TilloraOptionsTests-" + std::to_wstring(GetCurrentProcessId()))),
        report_(emptied(reports_) / "report.txt") {}

  bool run();

 private:
  static const fs::path& emptied(const fs::path& folder) {
    fs::remove_all(folder);
    fs::create_directories(folder);
    return folder;
  }

  void describeMachine();
  void test(const Bitness& bitness);
  void testRegistered(const Bitness& bitness);
  void runTests(const Bitness& bitness, const char* program, const char* log,
                const std::wstring& filter);
  void skipTests(const Bitness& bitness, const char* program, const std::wstring& filter,
                 const std::string& why);
  std::optional<DWORD> runAndLog(const Bitness& bitness, const char* program,
                                 const std::wstring& arguments, const fs::path& log,
                                 DWORD milliseconds);
  bool isCreatable(const Bitness& bitness);
  /// Throws if a component is registered that does not belong to this package.
  void removeLeftovers(const Bitness& bitness);

  Scope scope_;
  fs::path package_;
  fs::path reports_;
  fs::path temporary_;
  TestReport report_;
};

std::string valueOf(const wchar_t* key, const wchar_t* name) {
  std::array<wchar_t, 128> value{};
  DWORD size = sizeof value;
  RegGetValueW(HKEY_LOCAL_MACHINE, key, name, RRF_RT_REG_SZ, nullptr, value.data(), &size);
  return toUtf8(win32::fromWide(value.data()));
}

void TestRun::describeMachine() {
  constexpr const wchar_t* kVersion = L"Software\\Microsoft\\Windows NT\\CurrentVersion";
  std::string machine =
      valueOf(kVersion, L"ProductName") + ", build " + valueOf(kVersion, L"CurrentBuild");
  const auto version = reinterpret_cast<const char*(CDECL*)()>(reinterpret_cast<void (*)()>(
      GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version")));
  if (version != nullptr) machine += ", Wine " + std::string(version());
  std::array<wchar_t, LOCALE_NAME_MAX_LENGTH> locale{};
  GetUserDefaultLocaleName(locale.data(), static_cast<int>(locale.size()));
  const HDC screen = GetDC(nullptr);
  report_.note(machine + "; locale " + toUtf8(win32::fromWide(locale.data())) + "; screen " +
               std::to_string(GetSystemMetrics(SM_CXSCREEN)) + " x " +
               std::to_string(GetSystemMetrics(SM_CYSCREEN)) + " at " +
               std::to_string(GetDeviceCaps(screen, LOGPIXELSX)) + " DPI; registered for the " +
               (scope_ == Scope::user ? "user" : "machine"));
  ReleaseDC(nullptr, screen);
}

std::optional<DWORD> TestRun::runAndLog(const Bitness& bitness, const char* program,
                                        const std::wstring& arguments, const fs::path& log,
                                        DWORD milliseconds) {
  return ChildProgram(quoted(bitness.folder / (std::string(program) + ".exe")) + L" " + arguments,
                      log)
      .wait(milliseconds, stopping);
}

void TestRun::runTests(const Bitness& bitness, const char* program, const char* log,
                       const std::wstring& filter) {
  if (isStopping()) return;
  const std::string name = bitness.name + " " + program;
  const fs::path base = reports_ / (bitness.name + "-" + log);
  report_.note(name + " is running");
  const auto code = runAndLog(
      bitness, program,
      L"--gtest_filter=" + filter + L" --gtest_output=\"xml:" + base.wstring() + L".xml\"",
      base.wstring() + L".log", kMostMinutes * kMinute);
  const int failures = report_.addLog(name, base.wstring() + L".log");
  if (isStopping()) return;
  if (!code) {
    report_.failed(name, "it did not end within " + std::to_string(kMostMinutes) + " minutes");
  } else if (*code != 0 && failures == 0) {
    report_.failed(name, "it ended with code " + std::to_string(*code));
  }
}

void TestRun::skipTests(const Bitness& bitness, const char* program, const std::wstring& filter,
                        const std::string& why) {
  const fs::path list = temporary_ / "list.txt";
  runAndLog(bitness, program, L"--gtest_list_tests --gtest_filter=" + filter, list, kMinute);
  std::string suite;
  for (const std::string& line : linesOf(list)) {
    const std::string test = line.substr(0, line.find("  #"));
    if (test.starts_with("  ")) {
      report_.skipped(bitness.name + " " + program + " " + suite + test.substr(2), why);
    } else {
      suite = test;
    }
  }
}

bool TestRun::isCreatable(const Bitness& bitness) {
  const fs::path printed = temporary_ / "created.txt";
  runAndLog(bitness, "com_client", L"create", printed, kMinute);
  const std::string library = "library: " + (bitness.folder / kServers[0]).string();
  const auto lines = linesOf(printed);
  return std::ranges::find(lines, library) != lines.end();
}

void TestRun::removeLeftovers(const Bitness& bitness) {
  for (const Scope scope : {Scope::user, Scope::machine}) {
    const std::wstring library = registeredLibrary(bitness, scope);
    if (library.empty()) continue;
    if (library.starts_with(package_.wstring())) {
      report_.note("removing what an earlier run left registered");
      Registration::remove(bitness, scope);
    } else if (scope == Scope::user || scope_ == Scope::machine) {
      throw std::runtime_error("registered already, as " + fs::path(library).string() +
                               ": unregister it first, or run this as another user");
    }
  }
}

/// The tests that need the component to be registered.
void TestRun::testRegistered(const Bitness& bitness) {
  const Registration registration(bitness, scope_);
  if (!registration.succeeded()) {
    report_.failed(bitness.name + " regsvr32",
                   scope_ == Scope::user ? "" : "this needs a console of an administrator");
    return;
  }
  report_.passed(bitness.name + " regsvr32");
  const std::wstring clients = std::wstring(L"-") + kNeedNoRegistration;
  if (isCreatable(bitness)) {
    runTests(bitness, "windows_tests", "registered", kNeedRegistration);
    runTests(bitness, "client_tests", "clients", clients);
  } else if (scope_ == Scope::user) {
    constexpr const char* kWhy = "what is registered for the user is not looked at here";
    skipTests(bitness, "windows_tests", kNeedRegistration, kWhy);
    skipTests(bitness, "client_tests", clients, kWhy);
  } else {
    report_.failed(bitness.name + " registration", "the class cannot be created");
  }
}

void TestRun::test(const Bitness& bitness) {
  removeLeftovers(bitness);
  const RegisteredNow before;
  runTests(bitness, "windows_tests", "windows", std::wstring(L"-") + kNeedRegistration);
  runTests(bitness, "shared_tests", "shared", L"*");
  runTests(bitness, "client_tests", "manifest", kNeedNoRegistration);
  if (!isStopping()) testRegistered(bitness);
  RegDeleteTreeW(HKEY_CURRENT_USER, kTestsKey);
  RegDeleteKeyW(HKEY_CURRENT_USER, kTestsKey);

  const std::string left = before.changesTo(RegisteredNow(), bitness);
  const std::string name = bitness.name + " the registry is as it was";
  if (left.empty()) {
    report_.passed(name);
  } else {
    report_.failed(name, left);
  }
}

bool TestRun::run() {
  describeMachine();
  report_.note("Real dialogs open and close for some minutes: leave keyboard and mouse alone.");
  fs::create_directories(temporary_);
  for (const wchar_t* variable : {L"TMP", L"TEMP"}) {
    SetEnvironmentVariableW(variable, temporary_.c_str());
  }
  SetThreadExecutionState(ES_CONTINUOUS | ES_SYSTEM_REQUIRED | ES_DISPLAY_REQUIRED);

  std::array<wchar_t, MAX_PATH> system{};
  GetSystemDirectoryW(system.data(), MAX_PATH);
  std::array<wchar_t, MAX_PATH> system32{};
  const bool isWide = GetSystemWow64DirectoryW(system32.data(), MAX_PATH) != 0;
  try {
    if (isWide) test({"x64", package_ / "x64", system.data(), KEY_WOW64_64KEY});
    test({"x86", package_ / "x86", isWide ? system32.data() : system.data(), KEY_WOW64_32KEY});
  } catch (const std::exception& error) {
    report_.failed("the run", error.what());
  }
  if (isStopping()) report_.failed("the run", "it was ended before its end");

  std::error_code error;
  fs::remove_all(temporary_, error);
  if (error) {
    report_.failed("the temporary folder is removed", error.message());
  } else {
    report_.passed("the temporary folder is removed");
  }
  return report_.close();
}

int run(int count, wchar_t** arguments) {
  const bool machine = count == 2 && std::wstring(arguments[1]) == L"machine";
  if (count > 1 && !machine) {
    std::printf("usage: test.cmd [machine]\n");
    return 2;
  }
  const KernelHandle stopEvent(CreateEventW(nullptr, TRUE, FALSE, nullptr));
  const KernelHandle finishEvent(CreateEventW(nullptr, TRUE, FALSE, nullptr));
  stopping = stopEvent.get();
  finished = finishEvent.get();
  SetConsoleCtrlHandler(stop, TRUE);
  bool passed = false;
  try {
    passed = TestRun(machine ? Scope::machine : Scope::user, programFolder().parent_path()).run();
  } catch (const std::exception& error) {
    std::printf("%s\n", error.what());
  }
  SetEvent(finished);
  return passed ? 0 : 1;
}

}  // namespace
}  // namespace tillora::testing

// NOLINTNEXTLINE(misc-use-internal-linkage): the system calls it.
int wmain(int count, wchar_t** arguments) { return tillora::testing::run(count, arguments); }
