#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>

#include "tests/testing/win32/child_program.h"
#include "tests/testing/win32/other_program.h"

namespace tillora::testing {

/// A client runs in a process of its own while the test is the person at the dialog (`drive()`).
/// The component and the reference host must be registered, the programs lie beside this one, and
/// the scripts where they are in the repository.
class ClientTest : public ::testing::Test {
 protected:
  ClientTest();
  ~ClientTest() override;

  const std::filesystem::path& folder() const { return folder_; }
  /// A shop database of the test's own.
  std::wstring shop() const { return quoted(folder_ / "shop.db"); }

  void start(const std::wstring& commandLine);
  /// One of the programs beside this one.
  void program(const wchar_t* name, const std::wstring& arguments);
  /// Run by the system's script host.
  void script(const wchar_t* file, const std::wstring& arguments);

  /// What the person does at the client's windows.
  std::string drive(const std::wstring& commands) const;

  /// Waits for the client's end; fails unless it ended with this code.
  void finish(DWORD code = 0);
  /// The client printed this line this many times.
  void expectPrinted(const std::string& line, int times = 1) const;

 private:
  std::filesystem::path folder_;
  std::optional<ChildProgram> client_;
  std::vector<std::string> printed_;
};

}  // namespace tillora::testing
