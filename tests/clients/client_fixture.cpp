#include "tests/clients/client_fixture.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>

namespace tillora::testing {
namespace {

namespace fs = std::filesystem;

constexpr DWORD kMostMilliseconds = 60'000;

/// A file of the repository, or of a package with the same folders.
fs::path source(const wchar_t* file) {
  for (fs::path folder = programFolder(); folder.has_relative_path();
       folder = folder.parent_path()) {
    if (fs::exists(folder / file)) return folder / file;
  }
  throw std::runtime_error("no such file in any folder above the test program");
}

}  // namespace

ClientTest::ClientTest()
    : folder_(fs::temp_directory_path() /
              (L"tillora-clients-" + std::to_wstring(GetCurrentProcessId()))) {
  fs::create_directories(folder_);
}

ClientTest::~ClientTest() {
  const bool runs = client_.has_value();
  client_.reset();
  if (runs && HasFailure()) {
    std::printf("The client printed %s\n",
                ::testing::PrintToString(linesOf(folder_ / "printed.txt")).c_str());
  }
  std::error_code ignored;
  fs::remove_all(folder_, ignored);
}

void ClientTest::start(const std::wstring& commandLine) {
  client_.emplace(commandLine, folder_ / "printed.txt");
}

void ClientTest::program(const wchar_t* name, const std::wstring& arguments) {
  start(quoted(programFolder() / name) + L" " + arguments);
}

void ClientTest::script(const wchar_t* file, const std::wstring& arguments) {
  start(L"cscript.exe //nologo " + quoted(source(file)) + L" " + arguments);
}

std::string ClientTest::drive(const std::wstring& commands) const {
  return testing::drive(*client_, commands);
}

void ClientTest::finish(DWORD code) {
  const auto ended = client_->wait(kMostMilliseconds);
  client_.reset();
  printed_ = linesOf(folder_ / "printed.txt");
  ASSERT_TRUE(ended.has_value()) << "the client did not end; it printed "
                                 << ::testing::PrintToString(printed_);
  EXPECT_EQ(*ended, code) << ::testing::PrintToString(printed_);
}

void ClientTest::expectPrinted(const std::string& line, int times) const {
  EXPECT_EQ(std::ranges::count(printed_, line), times)
      << "lines \"" << line << "\" in " << ::testing::PrintToString(printed_);
}

}  // namespace tillora::testing
