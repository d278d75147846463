#include <gtest/gtest.h>

#include <sstream>

#include "tests/component/automation/server_library.h"
#include "tests/testing/win32/embedded_text.h"
#include "tests/testing/win32/type_library_text.h"

namespace tillora::automation {
namespace {

using testing::Apartment;
using testing::brokenPromises;
using testing::embeddedText;
using testing::ServerLibrary;
using testing::typeLibraryText;
using testing::withoutHelp;
using win32::ComPtr;

std::string presentText() {
  ComPtr<ITypeLib> library;
  if (FAILED(LoadTypeLibEx(ServerLibrary::path().c_str(), REGKIND_NONE, library.out()))) return "";
  return typeLibraryText(*library.get());
}

/// The text of docs/type-library.txt.
std::string frozenText() { return embeddedText(3); }

std::string linesOf(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += "  " + line + "\n";
  return text;
}

class FrozenInterfaceTest : public ::testing::Test {
 protected:
  /// The frozen text with one thing replaced.
  std::vector<std::string> afterReplacing(const std::string& former, const std::string& present) {
    std::string text = frozen;
    const auto found = text.find(former);
    if (found == std::string::npos) {
      ADD_FAILURE() << "the frozen text has no " << former;
      return {};
    }
    text.replace(found, former.size(), present);
    return brokenPromises(frozen, text);
  }

  Apartment apartment;
  std::string frozen = frozenText();
};

TEST_F(FrozenInterfaceTest, IsWhatHostsWereBuiltWith) {
  const std::string present = presentText();
  ASSERT_NE(present, "");
  if (present == frozen) return;
  const std::wstring server = ServerLibrary::path();
  const std::wstring file = server.substr(0, server.rfind(L'\\') + 1) + L"type-library.txt";
  if (HANDLE written =
          CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
      written != INVALID_HANDLE_VALUE) {
    DWORD count = 0;
    WriteFile(written, present.data(), static_cast<DWORD>(present.size()), &count, nullptr);
    CloseHandle(written);
  }
  const auto broken = brokenPromises(frozen, present);
  FAIL() << "The interface definition is frozen, and it has changed. "
         << (broken.empty() ? "Nothing that a host depends on differs, only help strings.\n"
                            : "To hosts that exist this means:\n")
         << linesOf(broken)
         << "If that is intended, copy type-library.txt from the build folder to docs/.";
}

TEST_F(FrozenInterfaceTest, EveryTypeAndMemberHasAHelpString) {
  EXPECT_EQ(linesOf(withoutHelp(presentText())), "");
}

TEST_F(FrozenInterfaceTest, EveryChangeIsANamedConstantAndNothingElseIs) {
  std::string expected;
#define TILLORA_CHANGE(name, value, help) \
  expected += "  constant " #name " = " + std::to_string(value) + "\n";
#include "component/contract/option_changes.inc"
#undef TILLORA_CHANGE
  std::string constants;
  std::istringstream lines(presentText());
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("  constant ")) constants += line + "\n";
  }
  EXPECT_EQ(constants, expected);
}

TEST_F(FrozenInterfaceTest, AnEqualTextIsNotAChange) {
  EXPECT_EQ(linesOf(brokenPromises(frozen, frozen)), "");
}

TEST_F(FrozenInterfaceTest, AnotherHelpStringBreaksNothing) {
  EXPECT_EQ(linesOf(afterReplacing("One random-price barcode format.", "A format.")), "");
}

TEST_F(FrozenInterfaceTest, ARenumberedMemberIsReported) {
  EXPECT_EQ(
      linesOf(afterReplacing("Path() as BSTR, id 2", "Path() as BSTR, id 3")),
      "  App.propget Path by its dispatch id was '2' and is '3': hosts compiled with the former "
      "id reach another member or none.\n");
}

TEST_F(FrozenInterfaceTest, AMovedMemberIsReported) {
  EXPECT_EQ(
      linesOf(afterReplacing(", id 8, vtable 14", ", id 8, vtable 15")),
      "  _Options.propput SelectedTab by its place in the vtable was '14' and is '15': compiled "
      "hosts call another member in its place.\n");
}

TEST_F(FrozenInterfaceTest, AnotherTypeIsReported) {
  EXPECT_EQ(linesOf(afterReplacing("SelectedTab([in] short)", "SelectedTab([in] long)")),
            "  _Options.propput SelectedTab by its signature was 'propput SelectedTab([in] short) "
            "as HRESULT' and is 'propput SelectedTab([in] long) as HRESULT': hosts pass and "
            "expect what the former says.\n");
}

TEST_F(FrozenInterfaceTest, AMissingAndANewMemberAreReported) {
  EXPECT_EQ(
      linesOf(afterReplacing("  method Send(", "  method Post(")),
      "  MessageSender.method Send is gone: hosts still offer it and wait in vain to be asked "
      "for it.\n"
      "  MessageSender.method Post is new: hosts written before lack it; the component must do "
      "without it there.\n");
}

TEST_F(FrozenInterfaceTest, AnotherConstantIsReported) {
  EXPECT_EQ(
      linesOf(afterReplacing("Rounding = 512", "Rounding = 16")),
      "  OptionChanges.constant Rounding by its signature was 'constant Rounding = 512' and is "
      "'constant Rounding = 16': hosts test the former number and refresh the wrong thing.\n");
}

TEST_F(FrozenInterfaceTest, AnotherIdIsReportedWithItsConsequence) {
  EXPECT_EQ(linesOf(afterReplacing("{7bb23f27", "{00000000")),
            "  ResourceStrings by its id was '{7bb23f27-a02a-49bf-b914-4beeeef57bb4}' and is "
            "'{00000000-a02a-49bf-b914-4beeeef57bb4}': host objects that answer the former id are "
            "not recognised.\n");
}

TEST_F(FrozenInterfaceTest, AnotherOrderIsReported) {
  const std::string title = "  propget Title() as BSTR, id 1\n      \"Title of the product.\"\n";
  std::string text = frozen;
  const auto found = text.find(title);
  ASSERT_NE(found, std::string::npos);
  text.erase(found, title.size());
  text += title;
  EXPECT_EQ(
      linesOf(brokenPromises(frozen, text)),
      "  App has its members in another order: wrappers that tools make from the library differ "
      "from the former ones.\n");
}

TEST_F(FrozenInterfaceTest, AMissingHelpStringIsReported) {
  std::string text = frozen;
  const std::string help = "      \"Title of the product.\"\n";
  ASSERT_NE(text.find(help), std::string::npos);
  text.erase(text.find(help), help.size());
  EXPECT_EQ(linesOf(withoutHelp(text)), "  App.propget Title\n");
}

}  // namespace
}  // namespace tillora::automation
