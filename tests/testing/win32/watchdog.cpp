#include "tests/testing/win32/watchdog.h"

#include <windows.h>

#include <cstdio>
#include <cstdlib>

#include "com/wide_text.h"

namespace tillora::testing {
namespace {

BOOL CALLBACK print(HWND window, LPARAM) {
  DWORD process = 0;
  const DWORD thread = GetWindowThreadProcessId(window, &process);
  if (process != GetCurrentProcessId() || IsWindowVisible(window) == FALSE) return TRUE;
  wchar_t name[64] = L"";
  wchar_t title[256] = L"";
  GetClassNameW(window, name, 64);
  // Not GetWindowTextW, which asks a thread that may be stuck.
  InternalGetWindowText(window, title, 256);
  std::fprintf(stderr, "  thread %lu, %s, %s, \"%s\"\n", thread,
               IsWindowEnabled(window) != FALSE ? "enabled" : "disabled",
               toUtf8(win32::fromWide(name)).c_str(), toUtf8(win32::fromWide(title)).c_str());
  return TRUE;
}

}  // namespace

void Watchdog::OnTestProgramStart(const ::testing::UnitTest&) {
  if (const char* seconds = std::getenv(kVariable)) limit_ = std::chrono::seconds(atoi(seconds));
  thread_ = std::thread([this] { watch(); });
}

void Watchdog::OnTestStart(const ::testing::TestInfo& test) {
  const std::scoped_lock lock(mutex_);
  test_ = std::string(test.test_suite_name()) + "." + test.name();
  end_ = std::chrono::steady_clock::now() + limit_;
  changed_.notify_all();
}

void Watchdog::OnTestEnd(const ::testing::TestInfo&) {
  const std::scoped_lock lock(mutex_);
  test_.clear();
  changed_.notify_all();
}

void Watchdog::OnTestProgramEnd(const ::testing::UnitTest&) {
  {
    const std::scoped_lock lock(mutex_);
    stopped_ = true;
    changed_.notify_all();
  }
  thread_.join();
}

void Watchdog::watch() {
  std::unique_lock lock(mutex_);
  while (!stopped_) {
    if (test_.empty()) {
      changed_.wait(lock);
    } else if (changed_.wait_until(lock, end_) == std::cv_status::timeout && !test_.empty() &&
               std::chrono::steady_clock::now() >= end_) {
      endProgram();
    }
  }
}

void Watchdog::endProgram() const {
  std::fprintf(stderr, "\n%s takes more than %lld s; the windows of the program:\n", test_.c_str(),
               static_cast<long long>(limit_.count()));
  EnumWindows(&print, 0);
  std::fflush(stderr);
  std::fflush(stdout);
  TerminateProcess(GetCurrentProcess(), kExitCode);
  std::abort();
}

}  // namespace tillora::testing
