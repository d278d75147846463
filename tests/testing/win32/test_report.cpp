#include "tests/testing/win32/test_report.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>

#include "tests/testing/win32/child_program.h"

namespace tillora::testing {

TestReport::TestReport(const std::filesystem::path& file) : file_(file, std::ios::binary) {
  if (!file_) throw std::runtime_error("the report cannot be written: " + file.string());
}

void TestReport::note(const std::string& line) {
  std::printf("%s\n", line.c_str());
  std::fflush(stdout);
  // Flushed, so that a machine that is switched off leaves the report so far.
  file_ << line << "\r\n" << std::flush;
}

void TestReport::passed(const std::string& name) {
  ++passed_;
  file_ << "passed: " << name << "\r\n";
}

void TestReport::failed(const std::string& name, const std::string& why) {
  ++failed_;
  note("FAILED: " + name + (why.empty() ? "" : ": " + why));
}

void TestReport::skipped(const std::string& name, const std::string& why) {
  ++skipped_;
  file_ << "skipped: " << name << ": " << why << "\r\n";
}

int TestReport::addLog(const std::string& program, const std::filesystem::path& log) {
  constexpr const char* kRun = "[ RUN      ] ";
  constexpr std::size_t kMostLines = 40;
  const int before = failed_;
  std::string test;
  std::vector<std::string> said;
  // What a program printed itself may stand before the mark in the same line.
  const auto ends = [&](const std::string& line, const std::string& mark) {
    const auto found = line.find(mark + " " + test);
    const auto behind = found + mark.size() + 1 + test.size();
    return found != std::string::npos && behind < line.size() &&
           (line[behind] == ' ' || line[behind] == ',');
  };
  const auto neverEnded = [&] {
    if (!test.empty()) failed(program + " " + test, "it never ended");
  };
  for (const std::string& line : linesOf(log)) {
    const auto run = line.find(kRun);
    if (run != std::string::npos) {
      neverEnded();
      test = line.substr(run + std::char_traits<char>::length(kRun));
      said.clear();
      continue;
    }
    if (test.empty()) continue;
    if (ends(line, "[       OK ]")) {
      passed(program + " " + test);
    } else if (ends(line, "[  SKIPPED ]")) {
      skipped(program + " " + test, said.empty() ? "" : said.back());
    } else if (ends(line, "[  FAILED  ]")) {
      failed(program + " " + test, "");
      for (const std::string& words : said) file_ << "    " << words << "\r\n";
    } else {
      if (said.size() < kMostLines) said.push_back(line);
      continue;
    }
    test.clear();
  }
  neverEnded();
  return failed_ - before;
}

bool TestReport::close() {
  std::string line = std::to_string(passed_) + " passed, " + std::to_string(failed_) + " failed";
  if (skipped_ != 0) line += ", " + std::to_string(skipped_) + " skipped";
  note(line);
  return failed_ == 0 && passed_ != 0;
}

}  // namespace tillora::testing
