#include <windows.h>
#include <TilloraHost.h>
#include <gtest/gtest.h>

#include "tests/host/automation/late_bound.h"
#include "tests/testing/win32/scratch_registry.h"

namespace tillora::host::automation {
namespace {

/// TilloraHost.dll beside the test program, loaded without being registered.
class ServerTest : public ::testing::Test {
 protected:
  ServerTest() : server_(LoadLibraryW(L"TilloraHost.dll")) {
    EXPECT_NE(server_, nullptr) << "TilloraHost.dll is not beside the tests";
  }
  ~ServerTest() override { FreeLibrary(server_); }

  template <class Function>
  Function entry(const char* name) const {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(server_, name)));
  }
  ComPtr<IClassFactory> factory(const CLSID& id) const {
    const auto get = entry<decltype(&DllGetClassObject)>("DllGetClassObject");
    ComPtr<IClassFactory> factory;
    get(id, IID_IClassFactory, factory.outVoid());
    return factory;
  }
  HRESULT canUnload() const { return entry<decltype(&DllCanUnloadNow)>("DllCanUnloadNow")(); }
  HRESULT install(bool install, const wchar_t* scope) const {
    return entry<HRESULT(WINAPI*)(BOOL, PCWSTR)>("DllInstall")(install ? TRUE : FALSE, scope);
  }

  static bool userKeyExists(const wchar_t* key) {
    HKEY opened = nullptr;
    const std::wstring path = std::wstring(L"Software\\Classes\\") + key;
    const bool exists =
        RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &opened) == ERROR_SUCCESS;
    if (exists) RegCloseKey(opened);
    return exists;
  }

 private:
  HMODULE server_;
};

TEST_F(ServerTest, MakesItsClassesAndUnloads) {
  EXPECT_EQ(canUnload(), S_OK);
  {
    const auto shops = factory(CLSID_Shop);
    ASSERT_TRUE(shops);
    EXPECT_EQ(canUnload(), S_FALSE);
    ComPtr<IDispatch> shop;
    EXPECT_EQ(shops->CreateInstance(nullptr, IID_IDispatch, shop.outVoid()), S_OK);
    EXPECT_NE(LateBound(shop).id(L"OpenSeeded"), DISPID_UNKNOWN);
    ComPtr<IUnknown> inner;
    EXPECT_EQ(shops->CreateInstance(shop.get(), IID_IUnknown, inner.outVoid()),
              CLASS_E_NOAGGREGATION);
    ASSERT_TRUE(factory(CLSID_ShopMessageBox));
    EXPECT_FALSE(factory(IID_IDispatch));
  }
  EXPECT_EQ(canUnload(), S_OK);
  const auto shops = factory(CLSID_Shop);
  shops->LockServer(TRUE);
  EXPECT_EQ(canUnload(), S_FALSE);
  shops->LockServer(FALSE);
}

TEST_F(ServerTest, RegistersForTheUserAndLeavesNoKey) {
  constexpr const wchar_t* kKeys[] = {L"TilloraHost.Shop", L"TilloraHost.Shop.1",
                                      L"TilloraHost.HostMessageBox",
                                      L"TilloraHost.HostMessageBox.1"};
  wchar_t id[40];
  StringFromGUID2(CLSID_Shop, id, 40);
  const std::wstring shopKey = std::wstring(L"CLSID\\") + id + L"\\InprocServer32";

  const testing::ScratchRegistry scratch;
  EXPECT_EQ(install(true, L"user"), S_OK);
  for (const wchar_t* key : kKeys) EXPECT_TRUE(userKeyExists(key)) << key;
  EXPECT_TRUE(userKeyExists(shopKey.c_str()));
  EXPECT_EQ(install(false, L"user"), S_OK);
  for (const wchar_t* key : kKeys) EXPECT_FALSE(userKeyExists(key)) << key;
  EXPECT_FALSE(userKeyExists(shopKey.c_str()));
  EXPECT_EQ(install(false, L"user"), S_OK);
  EXPECT_EQ(install(true, L"everybody"), E_INVALIDARG);
}

}  // namespace
}  // namespace tillora::host::automation
