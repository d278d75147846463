#include <windows.h>
#include <TilloraHost.h>
#include <gtest/gtest.h>

#include "host/text_encoding.h"
#include "support/win32/registered_classes.h"
#include "support/win32/type_library_registration.h"
#include "support/win32/wide_text.h"
#include "tests/component/automation/registry_snapshot.h"

namespace tillora::host::automation {
namespace {

using tillora::testing::RegistrySnapshot;
using win32::guidText;
using win32::RegisteredClasses;
using win32::RegistrationScope;
using View = RegisteredClasses::View;

struct Registry {
  RegistrySnapshot machine{HKEY_LOCAL_MACHINE};
  RegistrySnapshot user{HKEY_CURRENT_USER};

  std::string changesTo(const Registry& later) const {
    return toUtf8(
        win32::fromWide((machine.changesTo(later.machine) + user.changesTo(later.user)).c_str()));
  }
};

constexpr bool kIs64 = sizeof(void*) == 8;
constexpr View kOther = kIs64 ? View::of32 : View::of64;

/// Leaves the server as it was found: other tests need it registered.
class HostRegistrationTest : public ::testing::Test {
 protected:
  HostRegistrationTest()
      : server_(LoadLibraryW(L"TilloraHost.dll")),
        wasRegistered_(RegisteredClasses(RegistrationScope::machine).exists(classKey())) {
    unregister();
    install(false, L"user");
  }
  ~HostRegistrationTest() override {
    if (wasRegistered_) registerServer();
    FreeLibrary(server_);
  }

  HRESULT registerServer() const { return entry<HRESULT(WINAPI*)()>("DllRegisterServer")(); }
  HRESULT unregister() const { return entry<HRESULT(WINAPI*)()>("DllUnregisterServer")(); }
  HRESULT install(bool install, const wchar_t* scope) const {
    return entry<HRESULT(WINAPI*)(BOOL, PCWSTR)>("DllInstall")(install ? TRUE : FALSE, scope);
  }

  static Text classKey() { return u"CLSID\\" + guidText(CLSID_Shop); }
  static Text interfaceKey() { return u"Interface\\" + guidText(DIID__Shop); }
  static Text libraryKey() { return u"TypeLib\\" + guidText(LIBID_TilloraHost) + u"\\1.0"; }

 private:
  template <class Function>
  Function entry(const char* name) const {
    return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(GetProcAddress(server_, name)));
  }

  HMODULE server_;
  bool wasRegistered_;
};

TEST_F(HostRegistrationTest, UnregistrationLeavesTheRegistryAsItWas) {
  const Registry before;
  ASSERT_EQ(registerServer(), S_OK);
  const Registry registered;
  EXPECT_NE(before.changesTo(registered), "");
  EXPECT_EQ(registerServer(), S_OK) << "registering again is no failure";
  EXPECT_EQ(registered.changesTo(Registry()), "");
  ASSERT_EQ(unregister(), S_OK);
  EXPECT_EQ(before.changesTo(Registry()), "");
  EXPECT_EQ(unregister(), S_OK) << "nothing to remove is no failure";
}

TEST_F(HostRegistrationTest, PerUserRegistrationTouchesTheUsersKeysOnly) {
  const Registry before;
  ASSERT_EQ(install(true, L"user"), S_OK);
  EXPECT_TRUE(RegisteredClasses(RegistrationScope::user).exists(classKey()));
  EXPECT_EQ(before.machine.changesTo(Registry().machine), L"");
  ASSERT_EQ(install(false, L"user"), S_OK);
  EXPECT_EQ(before.changesTo(Registry()), "");
}

/// The keys that the server of the other bitness writes where both serve one machine.
class OtherBitness {
 public:
  OtherBitness() {
    const Text classKey = u"CLSID\\" + guidText(CLSID_Shop);
    other_.write(classKey + u"\\InprocServer32", nullptr, u"C:\\Other\\TilloraHost.dll");
    shared_.write(u"TilloraHost.Shop\\CLSID", nullptr, guidText(CLSID_Shop));
    shared_.write(library(), nullptr, u"C:\\Other\\TilloraHost.dll");
    other_.write(u"Interface\\" + guidText(DIID__Shop), nullptr, u"_Shop");
  }
  ~OtherBitness() {
    other_.remove(u"CLSID\\" + guidText(CLSID_Shop));
    for (const RegisteredClasses* classes : {&shared_, &other_}) {
      classes->remove(u"TilloraHost.Shop");
      classes->remove(u"TypeLib\\" + guidText(LIBID_TilloraHost));
      classes->remove(u"Interface\\" + guidText(DIID__Shop));
    }
  }
  OtherBitness(const OtherBitness&) = delete;
  OtherBitness& operator=(const OtherBitness&) = delete;

  static Text library() {
    return u"TypeLib\\" + guidText(LIBID_TilloraHost) + u"\\1.0\\0\\" +
           (kIs64 ? u"win32" : u"win64");
  }

 private:
  RegisteredClasses shared_{RegistrationScope::machine};
  RegisteredClasses other_{RegistrationScope::machine, kOther};
};

TEST_F(HostRegistrationTest, TheOtherBitnessKeepsItsInterfacesAndNames) {
  const OtherBitness other;
  const RegisteredClasses own(RegistrationScope::machine);
  const RegisteredClasses others(RegistrationScope::machine, kOther);
  ASSERT_EQ(registerServer(), S_OK);
  ASSERT_EQ(unregister(), S_OK);
  EXPECT_TRUE(others.exists(interfaceKey()));
  EXPECT_TRUE(others.exists(classKey()) || !kIs64) << "32-bit systems have one place only";
  EXPECT_TRUE(own.exists(OtherBitness::library()));
  EXPECT_FALSE(own.exists(libraryKey() + u"\\0\\" + (kIs64 ? u"win64" : u"win32")));
  EXPECT_TRUE(own.exists(u"TilloraHost.Shop\\CLSID") || !kIs64);
  EXPECT_FALSE(own.exists(classKey()));
}

}  // namespace
}  // namespace tillora::host::automation
