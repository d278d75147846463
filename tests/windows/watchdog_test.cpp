#include "tests/testing/win32/watchdog.h"

#include <gtest/gtest.h>

#include <windows.h>

#include "tests/testing/win32/other_program.h"

namespace tillora::testing {
namespace {

// Appended while the program starts: it watches every test.
[[maybe_unused]] const bool watching = [] {
  ::testing::UnitTest::GetInstance()->listeners().Append(new Watchdog);
  return true;
}();

constexpr const wchar_t* kHangs = L"TILLORA_TEST_HANGS";

/// Sets or, for null, removes an environment variable during its lifetime.
class Variable {
 public:
  Variable(const wchar_t* name, const wchar_t* value) : name_(name) {
    wchar_t former[256] = L"";
    wasSet_ = GetEnvironmentVariableW(name, former, 256) != 0;
    former_ = former;
    SetEnvironmentVariableW(name, value);
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;
  ~Variable() { SetEnvironmentVariableW(name_, wasSet_ ? former_.c_str() : nullptr); }

 private:
  const wchar_t* name_;
  bool wasSet_ = false;
  std::wstring former_;
};

// Runs itself in another process, where it hangs.
TEST(WatchdogTest, EndsAProgramWhoseTestHangsAndSaysWhereAndWithWhichWindows) {
  if (GetEnvironmentVariableW(kHangs, nullptr, 0) != 0) {
    CreateWindowExW(0, L"STATIC", L"Window of a test that hangs", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                    40, 40, 200, 100, nullptr, nullptr, nullptr, nullptr);
    Sleep(INFINITE);
  }
  const Variable hangs(kHangs, L"1");
  const Variable limit(L"TILLORA_TEST_SECONDS", L"1");
  const Variable shards(L"GTEST_TOTAL_SHARDS", nullptr);
  const Variable shard(L"GTEST_SHARD_INDEX", nullptr);
  const Variable output(L"GTEST_OUTPUT", nullptr);
  const ProgramRun run =
      runBeside(L"windows_tests.exe", L"--gtest_filter=WatchdogTest.EndsAProgramWhoseTestHangs*");
  EXPECT_EQ(run.exitCode, Watchdog::kExitCode);
  EXPECT_NE(run.printed.find("WatchdogTest.EndsAProgramWhoseTestHangs"), std::string::npos);
  EXPECT_NE(run.printed.find("takes more than 1 s"), std::string::npos) << run.printed;
  EXPECT_NE(run.printed.find("\"Window of a test that hangs\""), std::string::npos) << run.printed;
}

}  // namespace
}  // namespace tillora::testing
