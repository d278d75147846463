// What the reference host says about passwords, and what can be read in the windows while one is
// set: that there is one, but never which.
#include <algorithm>
#include <fstream>
#include <iterator>

#include "tests/clients/client_fixture.h"

namespace tillora::testing {
namespace {

namespace fs = std::filesystem;

constexpr const char* kStored = "wren7stored";
constexpr const char* kTyped = "robin8typed";  // with capitals, which passwords do not keep

std::string contents(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

bool has(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

bool tellsPassword(std::string text) {
  std::ranges::transform(text, text.begin(),
                         [](char c) { return c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c; });
  return has(text, kStored) || has(text, kTyped);
}

class PasswordsTest : public ClientTest {
 protected:
  void start(const std::wstring& arguments) {
    program(L"Tillora Administrator.exe",
            L"--database " + shop() + L" --log " + quoted(log()) + L" " + arguments);
  }
  /// The options as the host lists them after a run with these arguments.
  std::vector<std::string> dumpAfter(const std::wstring& arguments) {
    const fs::path file = folder() / (std::to_wstring(++dumps_) + L".txt");
    start(arguments + L" --dump --out " + quoted(file));
    finish();
    return linesOf(file);
  }
  fs::path log() const { return folder() / "events.log"; }
  bool logged(const std::string& text) const { return has(contents(log()), text); }

 private:
  int dumps_ = 0;
};

::testing::AssertionResult hasLine(const std::vector<std::string>& lines, const std::string& line) {
  if (std::ranges::find(lines, line) != lines.end()) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << line << " is not in " << ::testing::PrintToString(lines);
}

TEST_F(PasswordsTest, NoFileOrWindowRevealsOne) {
  EXPECT_TRUE(hasLine(dumpAfter(L"--set-option AdminSecurityBits 8 "
                                L"--set-option PasswordAdminOptions wren7stored"),
                      "PasswordAdminOptions = (set)"));
  EXPECT_TRUE(logged("Stored option PasswordAdminOptions"));
  start(L"--set-option NoSuchOption wren7stored");
  finish(1);
  EXPECT_TRUE(logged("NoSuchOption"));

  start(L"--options 11");
  const std::string windows = drive(
      L"wait Options 60 -- press Options Passwor&d... -- wait \"Password to access Options\" 60 "
      L"-- type wren7stored -- key TAB -- type Robin8Typed -- key TAB -- type Robin8Typed -- texts "
      L"-- key ENTER -- wait Options 60 -- key ALT+O -- gone Options 60");
  finish();
  EXPECT_TRUE(has(windows, "Con&firm password")) << windows;
  EXPECT_FALSE(tellsPassword(windows)) << windows;
  EXPECT_TRUE(logged("Options closed"));

  EXPECT_TRUE(hasLine(dumpAfter(L""), "PasswordAdminOptions = (set)"));
  EXPECT_TRUE(hasLine(dumpAfter(L"--set-option PasswordAdminOptions \"\""),
                      "PasswordAdminOptions = (not set)"));

  for (const auto& file : fs::directory_iterator(folder())) {
    if (file.path().extension() == ".db") continue;
    EXPECT_FALSE(tellsPassword(contents(file.path()))) << file.path();
  }
}

}  // namespace
}  // namespace tillora::testing
