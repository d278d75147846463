#pragma once

#include <filesystem>
#include <fstream>
#include <string>

namespace tillora::testing {

/// Results as they come: failures and notes on the screen, everything in a text file.
class TestReport {
 public:
  /// Throws if the file cannot be written.
  explicit TestReport(const std::filesystem::path& file);

  void note(const std::string& line);
  void passed(const std::string& name);
  void failed(const std::string& name, const std::string& why);
  void skipped(const std::string& name, const std::string& why);

  /// Reports the log of a GoogleTest program. A test that was begun and not ended has failed.
  /// Returns the number of failures.
  int addLog(const std::string& program, const std::filesystem::path& log);

  /// Ends with the closing line; true if something was tested and nothing failed.
  bool close();

 private:
  std::ofstream file_;
  int passed_ = 0;
  int failed_ = 0;
  int skipped_ = 0;
};

}  // namespace tillora::testing
