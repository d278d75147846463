#include <gtest/gtest.h>

#include <set>

#include "support/win32/wide_text.h"
#include "tests/component/automation/server_library.h"

namespace tillora::automation {
namespace {

using testing::Apartment;
using testing::ServerLibrary;

/// The keys of a part of the registry, with their values, as lines of text.
void collect(HKEY root, const std::wstring& path, std::set<std::wstring>& lines) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
  wchar_t name[256];
  wchar_t data[1024];
  for (DWORD index = 0;; ++index) {
    DWORD length = 256;
    DWORD size = sizeof data - sizeof(wchar_t);
    DWORD type = 0;
    std::fill(std::begin(data), std::end(data), L'\0');
    const LSTATUS found = RegEnumValueW(key, index, name, &length, nullptr, &type,
                                        reinterpret_cast<BYTE*>(data), &size);
    if (found != ERROR_SUCCESS) break;
    lines.insert(path + L" [" + name + L"] " + data);
  }
  for (DWORD index = 0;; ++index) {
    DWORD length = 256;
    if (RegEnumKeyExW(key, index, name, &length, nullptr, nullptr, nullptr, nullptr) !=
        ERROR_SUCCESS) {
      break;
    }
    lines.insert(path + L"\\" + name);
    collect(root, path + L"\\" + name, lines);
  }
  RegCloseKey(key);
}

const wchar_t* const kFolders[] = {L"CLSID", L"Interface", L"TypeLib", L"TilloraOptions.Options",
                                   L"TilloraOptions.Options.1"};

std::set<std::wstring> classes(HKEY root) {
  std::set<std::wstring> lines;
  for (const wchar_t* folder : kFolders) {
    collect(root, std::wstring(L"Software\\Classes\\") + folder, lines);
  }
  return lines;
}

/// What was added and removed; empty where nothing was.
std::wstring difference(const std::set<std::wstring>& before, const std::set<std::wstring>& after) {
  std::wstring text;
  for (const std::wstring& line : before) {
    if (!after.contains(line)) text += L"- " + line + L"\n";
  }
  for (const std::wstring& line : after) {
    if (!before.contains(line)) text += L"+ " + line + L"\n";
  }
  return text;
}

bool contains(const std::set<std::wstring>& lines, const std::wstring& part) {
  return std::any_of(lines.begin(), lines.end(), [&](const std::wstring& line) {
    return line.find(part) != std::wstring::npos;
  });
}

/// Leaves the server as it was found: other tests need it registered.
class OptionsRegistrationTest : public ::testing::Test {
 protected:
  OptionsRegistrationTest() : wasRegistered(contains(classes(HKEY_LOCAL_MACHINE), kClassId)) {
    server.unregisterServer();
    server.install(false, L"user");
  }
  ~OptionsRegistrationTest() override {
    if (wasRegistered) server.registerServer();
  }

  static constexpr const wchar_t* kClassId = L"{5F50E429-7515-451F-ADAE-C840796D2C99}";
  Apartment apartment;
  ServerLibrary server;
  bool wasRegistered;
};

TEST_F(OptionsRegistrationTest, UnregistrationLeavesTheRegistryAsItWas) {
  const auto before = classes(HKEY_LOCAL_MACHINE);
  EXPECT_FALSE(contains(before, kClassId));
  ASSERT_EQ(server.registerServer(), S_OK);
  const auto registered = classes(HKEY_LOCAL_MACHINE);
  const std::wstring classKey = std::wstring(L"Software\\Classes\\CLSID\\") + kClassId;
  EXPECT_TRUE(registered.count(classKey + L"\\InprocServer32 [] " + ServerLibrary::path()));
  EXPECT_TRUE(registered.count(classKey + L"\\InprocServer32 [ThreadingModel] Apartment"));
  EXPECT_TRUE(registered.count(classKey + L"\\ProgID [] TilloraOptions.Options.1"));
  EXPECT_TRUE(contains(registered, L"TypeLib\\{92ABADCE-DDA1-4620-9C8F-7306584041D2}\\1.0"));

  EXPECT_EQ(server.registerServer(), S_OK) << "registering again is no failure";
  EXPECT_EQ(difference(registered, classes(HKEY_LOCAL_MACHINE)), L"");

  ASSERT_EQ(server.unregisterServer(), S_OK);
  EXPECT_EQ(difference(before, classes(HKEY_LOCAL_MACHINE)), L"");
  EXPECT_EQ(server.unregisterServer(), S_OK) << "nothing to remove is no failure";
}

TEST_F(OptionsRegistrationTest, PerUserRegistrationTouchesTheUsersKeysOnly) {
  const auto machine = classes(HKEY_LOCAL_MACHINE);
  const auto before = classes(HKEY_CURRENT_USER);
  ASSERT_EQ(server.install(true, L"user"), S_OK);
  const auto registered = classes(HKEY_CURRENT_USER);
  EXPECT_TRUE(contains(registered,
                       std::wstring(kClassId) + L"\\InprocServer32 [] " + ServerLibrary::path()));
  EXPECT_TRUE(contains(registered, L"TilloraOptions.Options\\CLSID"));
  EXPECT_EQ(difference(machine, classes(HKEY_LOCAL_MACHINE)), L"");
  ASSERT_EQ(server.install(false, L"user"), S_OK);
  EXPECT_EQ(difference(before, classes(HKEY_CURRENT_USER)), L"");
}

TEST_F(OptionsRegistrationTest, OtherInstallCommandsAreRefused) {
  const auto before = classes(HKEY_LOCAL_MACHINE);
  EXPECT_EQ(server.install(true, L"everyone"), E_INVALIDARG);
  EXPECT_EQ(difference(before, classes(HKEY_LOCAL_MACHINE)), L"");
  EXPECT_EQ(server.install(true, nullptr), S_OK);
  EXPECT_TRUE(contains(classes(HKEY_LOCAL_MACHINE), kClassId));
  EXPECT_EQ(server.install(false, nullptr), S_OK);
  EXPECT_EQ(difference(before, classes(HKEY_LOCAL_MACHINE)), L"");
}

}  // namespace
}  // namespace tillora::automation
