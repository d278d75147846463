#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "support/win32/wide_text.h"
#include "tests/component/automation/registry_snapshot.h"
#include "tests/component/automation/server_library.h"
#include "tests/testing/win32/type_library_text.h"
#include "ui/error.h"

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

/// Leaves the server as it was found: other tests need it registered.
class OptionsRegistrationTest : public ::testing::Test {
 protected:
  OptionsRegistrationTest() : wasRegistered(Registry().machine.mentions(kClassId)) {
    server.unregisterServer();
    server.install(false, L"user");
  }
  ~OptionsRegistrationTest() override {
    if (wasRegistered) server.registerServer();
  }

  Apartment apartment;
  ServerLibrary server;
  bool wasRegistered;
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

  EXPECT_EQ(server.registerServer(), S_OK) << "registering again is no failure";
  EXPECT_EQ(registered.changesTo(Registry()), "");

  ASSERT_EQ(server.unregisterServer(), S_OK);
  EXPECT_EQ(before.changesTo(Registry()), "");
  EXPECT_EQ(server.unregisterServer(), S_OK) << "nothing to remove is no failure";
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

/// The context of a program whose manifest names the component: resource 5 of the test program,
/// with the component's own manifest beside it.
class ProgramWithManifest {
 public:
  ProgramWithManifest() {
    const std::wstring server = ServerLibrary::path();
    const std::wstring folder = server.substr(0, server.rfind(L'\\'));
    wchar_t program[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    ACTCTXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_ASSEMBLY_DIRECTORY_VALID;
    wanted.lpSource = program;
    wanted.lpResourceName = MAKEINTRESOURCEW(5);
    wanted.lpAssemblyDirectory = folder.c_str();
    context_ = CreateActCtxW(&wanted);
    isActive_ = context_ != INVALID_HANDLE_VALUE && ActivateActCtx(context_, &cookie_) != FALSE;
  }
  ~ProgramWithManifest() {
    if (isActive_) DeactivateActCtx(0, cookie_);
    if (context_ != INVALID_HANDLE_VALUE) ReleaseActCtx(context_);
  }
  ProgramWithManifest(const ProgramWithManifest&) = delete;
  ProgramWithManifest& operator=(const ProgramWithManifest&) = delete;

  bool isActive() const { return isActive_; }

 private:
  HANDLE context_ = INVALID_HANDLE_VALUE;
  ULONG_PTR cookie_ = 0;
  bool isActive_ = false;
};

HRESULT createOptions(ComPtr<_Options>& options) {
  return CoCreateInstance(CLSID_Options, nullptr, CLSCTX_INPROC_SERVER, IID__Options,
                          options.outVoid());
}

TEST_F(OptionsRegistrationTest, AProgramsManifestMakesTheClassKnownWithoutRegistration) {
  const Registry before;
  ComPtr<_Options> options;
  ASSERT_EQ(createOptions(options), REGDB_E_CLASSNOTREG);
  {
    const ProgramWithManifest context;
    ASSERT_TRUE(context.isActive()) << "error " << GetLastError();
    for (const wchar_t* name : {L"TilloraOptions.Options", L"TilloraOptions.Options.1"}) {
      // In a context, a name may lead to an id of its own that stands for the class.
      CLSID id{};
      EXPECT_EQ(CLSIDFromProgID(name, &id), S_OK);
      EXPECT_EQ(
          CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID__Options, options.outVoid()),
          S_OK);
    }
    ASSERT_EQ(createOptions(options), S_OK);
    ComPtr<ITypeLib> library;
    EXPECT_EQ(LoadRegTypeLib(LIBID_TilloraOptions, 1, 0, LOCALE_NEUTRAL, library.out()), S_OK);
  }
  VARIANT_BOOL value = VARIANT_TRUE;
  EXPECT_EQ(options->get_ChangedDataFile(&value), S_OK);
  EXPECT_EQ(options->ShowOptions(&value), error::objectNotSet);
  options.reset();
  EXPECT_EQ(createOptions(options), REGDB_E_CLASSNOTREG) << "outside the context";
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
