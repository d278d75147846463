#include <windows.h>
#include <TilloraHost.h>
#include <gtest/gtest.h>

#include "com/registered_classes.h"
#include "com/type_library_registration.h"
#include "com/wide_text.h"
#include "host/text_encoding.h"
#include "tests/component/automation/registry_snapshot.h"
#include "tests/testing/win32/scratch_registry.h"

namespace tillora::host::automation {
namespace {

using tillora::testing::RegistrySnapshot;
using win32::guidText;
using win32::RegisteredClasses;
using win32::RegistrationScope;

struct Registry {
  RegistrySnapshot machine{HKEY_LOCAL_MACHINE};
  RegistrySnapshot user{HKEY_CURRENT_USER};

  std::string changesTo(const Registry& later) const {
    return toUtf8(
        win32::fromWide((machine.changesTo(later.machine) + user.changesTo(later.user)).c_str()));
  }
};

class HostRegistrationTest : public ::testing::Test {
 protected:
  HostRegistrationTest() : server_(LoadLibraryW(L"TilloraHost.dll")) {}
  ~HostRegistrationTest() override { FreeLibrary(server_); }

  HRESULT registerServer() const { return entry<HRESULT(WINAPI*)()>("DllRegisterServer")(); }
  HRESULT unregister() const { return entry<HRESULT(WINAPI*)()>("DllUnregisterServer")(); }
  HRESULT install(bool install, const wchar_t* scope) const {
    return entry<HRESULT(WINAPI*)(BOOL, PCWSTR)>("DllInstall")(install ? TRUE : FALSE, scope);
  }

  static Text classKey() { return u"CLSID\\" + guidText(CLSID_Shop); }

 private:
  template <class Function>
  Function entry(const char* name) const {
    return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(GetProcAddress(server_, name)));
  }

  HMODULE server_;
  tillora::testing::ScratchRegistry scratch_;
};

TEST_F(HostRegistrationTest, UnregistrationLeavesTheRegistryAsItWas) {
  const Registry before;
  ASSERT_EQ(registerServer(), S_OK);
  const Registry registered;
  EXPECT_NE(before.changesTo(registered), "");
  EXPECT_EQ(registerServer(), S_OK) << "registering again is not an error";
  EXPECT_EQ(registered.changesTo(Registry()), "");
  ASSERT_EQ(unregister(), S_OK);
  EXPECT_EQ(before.changesTo(Registry()), "");
  EXPECT_EQ(unregister(), S_OK) << "nothing to remove is not an error";
}

TEST_F(HostRegistrationTest, PerUserRegistrationTouchesTheUsersKeysOnly) {
  const Registry before;
  ASSERT_EQ(install(true, L"user"), S_OK);
  EXPECT_TRUE(RegisteredClasses(RegistrationScope::user).exists(classKey()));
  EXPECT_EQ(before.machine.changesTo(Registry().machine), L"");
  ASSERT_EQ(install(false, L"user"), S_OK);
  EXPECT_EQ(before.changesTo(Registry()), "");
}

}  // namespace
}  // namespace tillora::host::automation
