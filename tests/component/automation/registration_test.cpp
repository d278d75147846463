#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "com/wide_text.h"
#include "tests/component/automation/registry_snapshot.h"
#include "tests/component/automation/server_library.h"
#include "tests/testing/win32/scratch_registry.h"
#include "tests/testing/win32/type_library_text.h"

namespace tillora::automation {
namespace {

using testing::Apartment;
using testing::RegistrySnapshot;
using testing::ServerLibrary;
using win32::ComPtr;

constexpr const wchar_t* kClassId = L"{5F50E429-7515-451F-ADAE-C840796D2C99}";

struct Registry {
  RegistrySnapshot machine{HKEY_LOCAL_MACHINE};
  RegistrySnapshot user{HKEY_CURRENT_USER};

  std::string changesTo(const Registry& later) const {
    return text(machine, later.machine) + text(user, later.user);
  }
  static std::string text(const RegistrySnapshot& before, const RegistrySnapshot& after) {
    return toUtf8(win32::fromWide(before.changesTo(after).c_str()));
  }
};

/// In the machine's own registry, tests/scripts/both_bitnesses_test_with_32.sh registers both
/// servers.
class OptionsRegistrationTest : public ::testing::Test {
 protected:
  Apartment apartment;
  ServerLibrary server;
  testing::ScratchRegistry scratch;
};

TEST_F(OptionsRegistrationTest, UnregistrationLeavesTheRegistryAsItWas) {
  const Registry before;
  EXPECT_FALSE(before.machine.mentions(kClassId));
  ASSERT_EQ(server.registerServer(), S_OK);
  const Registry registered;
  const std::wstring classKey = std::wstring(L"Software\\Classes\\CLSID\\") + kClassId;
  EXPECT_TRUE(registered.machine.has(classKey + L"\\InprocServer32 [] " + ServerLibrary::path()));
  EXPECT_TRUE(registered.machine.has(classKey + L"\\InprocServer32 [ThreadingModel] Apartment"));
  EXPECT_TRUE(registered.machine.has(classKey + L"\\ProgID [] TilloraOptions.Options.1"));
  EXPECT_TRUE(registered.machine.mentions(L"\\{92ABADCE-DDA1-4620-9C8F-7306584041D2}\\1.0\\0"));
  EXPECT_EQ(Registry::text(before.user, registered.user), "");

  EXPECT_EQ(server.registerServer(), S_OK) << "registering again is not an error";
  EXPECT_EQ(registered.changesTo(Registry()), "");

  ASSERT_EQ(server.unregisterServer(), S_OK);
  EXPECT_EQ(before.changesTo(Registry()), "");
  EXPECT_EQ(server.unregisterServer(), S_OK) << "nothing to remove is not an error";
}

TEST_F(OptionsRegistrationTest, PerUserRegistrationTouchesTheUsersKeysOnly) {
  const Registry before;
  ASSERT_EQ(server.install(true, L"user"), S_OK);
  const Registry registered;
  EXPECT_TRUE(registered.user.mentions(std::wstring(kClassId) + L"\\InprocServer32 [] " +
                                       ServerLibrary::path()));
  EXPECT_TRUE(registered.user.mentions(L"TilloraOptions.Options\\CLSID"));
  EXPECT_EQ(Registry::text(before.machine, registered.machine), "");
  ASSERT_EQ(server.install(false, L"user"), S_OK);
  EXPECT_EQ(before.changesTo(Registry()), "");
}

TEST_F(OptionsRegistrationTest, OneScopeIsUnregisteredWithoutTheOther) {
  const Registry before;
  ASSERT_EQ(server.registerServer(), S_OK);
  const Registry machineOnly;
  ASSERT_EQ(server.install(true, L"user"), S_OK);
  ASSERT_EQ(server.install(false, L"user"), S_OK);
  EXPECT_EQ(machineOnly.changesTo(Registry()), "");
  ASSERT_EQ(server.unregisterServer(), S_OK);
  EXPECT_EQ(before.changesTo(Registry()), "");
}

TEST_F(OptionsRegistrationTest, OtherInstallCommandsAreRefused) {
  const Registry before;
  EXPECT_EQ(server.install(true, L"everyone"), E_INVALIDARG);
  EXPECT_EQ(before.changesTo(Registry()), "");
  EXPECT_EQ(server.install(true, nullptr), S_OK);
  EXPECT_TRUE(Registry().machine.mentions(kClassId));
  EXPECT_EQ(server.install(false, nullptr), S_OK);
  EXPECT_EQ(before.changesTo(Registry()), "");
}

TEST_F(OptionsRegistrationTest, TheManifestHasEveryInterfaceOfTheTypeLibrary) {
  const auto folder = std::filesystem::path(ServerLibrary::path()).parent_path();
  std::ifstream file(folder / "TilloraOptions.Component.manifest");
  const std::string manifest{std::istreambuf_iterator<char>(file), {}};
  ASSERT_NE(manifest, "") << "the manifest is not beside the test program";
  ComPtr<ITypeLib> library;
  ASSERT_EQ(LoadTypeLibEx(ServerLibrary::path().c_str(), REGKIND_NONE, library.out()), S_OK);
  int interfaces = 0;
  std::istringstream lines(testing::typeLibraryText(*library.get()));
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    std::string kind;
    std::string name;
    std::string id;
    words >> kind >> name >> id;
    if (kind != "interface" && kind != "dispinterface") continue;
    ++interfaces;
    const auto entry = manifest.find("name=\"" + name + "\" iid=\"" + id + "\"");
    ASSERT_NE(entry, std::string::npos) << line;
    // A dual interface is marshalled by its vtable, the others by their Invoke.
    EXPECT_EQ(manifest.substr(manifest.find("proxyStubClsid32", entry) + 19, 8),
              kind == "interface" ? "00020424" : "00020420")
        << line;
  }
  EXPECT_GT(interfaces, 0);
}

}  // namespace
}  // namespace tillora::automation
