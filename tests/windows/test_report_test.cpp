#include "tests/testing/win32/test_report.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/testing/win32/child_program.h"

namespace tillora::testing {
namespace {

namespace fs = std::filesystem;

class TestReportTest : public ::testing::Test {
 protected:
  TestReportTest() { fs::create_directories(folder_); }
  ~TestReportTest() override { fs::remove_all(folder_); }

  /// The report's lines on a program that printed this, and the closing line.
  std::vector<std::string> linesAfter(const std::string& printed) {
    std::ofstream(folder_ / "program.log", std::ios::binary) << printed;
    {
      TestReport report(folder_ / "report.txt");
      report.addLog("x64 tests", folder_ / "program.log");
      passed_ = report.close();
    }
    return linesOf(folder_ / "report.txt");
  }
  bool passed() const { return passed_; }

 private:
  fs::path folder_ =
      fs::temp_directory_path() / (L"tillora-report-" + std::to_wstring(GetCurrentProcessId()));
  bool passed_ = false;
};

using Lines = std::vector<std::string>;

TEST_F(TestReportTest, CountsWhatPassedFailedAndWasSkipped) {
  EXPECT_EQ(
      linesAfter("[ RUN      ] A.First\r\n"
                 "[       OK ] A.First (1 ms)\r\n"
                 "[ RUN      ] Each/B.Second/0\r\n"
                 "b_test.cpp:12: Failure\r\n"
                 "[  FAILED  ] Each/B.Second/0, where GetParam() = 4 (2 ms)\r\n"
                 "[ RUN      ] A.Third\r\n"
                 "there is no such device\r\n"
                 "[  SKIPPED ] A.Third (0 ms)\r\n"
                 "[  SKIPPED ] A.Third\r\n"
                 "[  FAILED  ] Each/B.Second/0, where GetParam() = 4\r\n"),
      (Lines{"passed: x64 tests A.First", "FAILED: x64 tests Each/B.Second/0",
             "    b_test.cpp:12: Failure", "skipped: x64 tests A.Third: there is no such device",
             "1 passed, 1 failed, 1 skipped"}));
  EXPECT_FALSE(passed());
}

TEST_F(TestReportTest, ATestThatEndsTheProgramHasFailed) {
  EXPECT_EQ(
      linesAfter("[ RUN      ] A.First\n[       OK ] A.First (1 ms)\n[ RUN      ] A.Second\n"),
      (Lines{"passed: x64 tests A.First", "FAILED: x64 tests A.Second: it never ended",
             "1 passed, 1 failed"}));
  EXPECT_FALSE(passed());
}

TEST_F(TestReportTest, WhatATestPrintsWithoutALineEndHidesNoResult) {
  EXPECT_EQ(linesAfter("[ RUN      ] A.First\nprinted[       OK ] A.First (1 ms)\n"),
            (Lines{"passed: x64 tests A.First", "1 passed, 0 failed"}));
  EXPECT_TRUE(passed());
}

TEST_F(TestReportTest, NothingTestedIsNotPassed) {
  EXPECT_EQ(linesAfter("cannot be started\n"), Lines{"0 passed, 0 failed"});
  EXPECT_FALSE(passed());
}

}  // namespace
}  // namespace tillora::testing
