#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace tillora::testing {

/// Ends the test program when a single test takes too long, and says which test it was and what
/// windows the program has: a test that hangs is a failure, not the end of the whole run.
class Watchdog final : public ::testing::EmptyTestEventListener {
 public:
  /// The exit code of a program that was ended.
  static constexpr unsigned kExitCode = 124;
  /// Seconds that a test may take, if other than 300.
  static constexpr const char* kVariable = "TILLORA_TEST_SECONDS";

  void OnTestProgramStart(const ::testing::UnitTest& program) override;
  void OnTestStart(const ::testing::TestInfo& test) override;
  void OnTestEnd(const ::testing::TestInfo& test) override;
  void OnTestProgramEnd(const ::testing::UnitTest& program) override;

 private:
  void watch();
  [[noreturn]] void endProgram() const;

  std::chrono::seconds limit_{300};
  std::mutex mutex_;
  std::condition_variable changed_;
  std::string test_;  // empty between tests
  std::chrono::steady_clock::time_point end_;
  bool stopped_ = false;
  std::thread thread_;
};

}  // namespace tillora::testing
