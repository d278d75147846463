// Opens the options dialog from C++ through the generated header: early bound, with its
// events.
//
//   cpp_client DATABASE [TAB]
#include <windows.h>

#include <objbase.h>
#include <oleauto.h>

#include <cstdio>
#include <cstdlib>
#include <memory>

#include "clients/cpp/changes_listener.h"

namespace {

struct Releaser {
  void operator()(IUnknown* object) const { object->Release(); }
};
template <class Interface>
using Owned = std::unique_ptr<Interface, Releaser>;

struct StringFreer {
  void operator()(BSTR string) const { SysFreeString(string); }
};
using String = std::unique_ptr<wchar_t, StringFreer>;

Owned<IDispatch> create(const wchar_t* programId) {
  CLSID id;
  IDispatch* object = nullptr;
  if (FAILED(CLSIDFromProgID(programId, &id)) ||
      FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                              reinterpret_cast<void**>(&object)))) {
    std::printf("%ls is not registered\n", programId);
    return nullptr;
  }
  return Owned<IDispatch>(object);
}

/// A property or a method without arguments, or with one text.
VARIANT invoke(IDispatch& object, const wchar_t* name, WORD kind, BSTR text = nullptr) {
  VARIANT result;
  VariantInit(&result);
  auto* writable = const_cast<wchar_t*>(name);
  DISPID id = DISPID_UNKNOWN;
  if (FAILED(object.GetIDsOfNames(IID_NULL, &writable, 1, LOCALE_USER_DEFAULT, &id))) return result;
  VARIANTARG argument;
  VariantInit(&argument);
  argument.vt = VT_BSTR;
  argument.bstrVal = text;
  DISPPARAMS parameters{&argument, nullptr, text == nullptr ? 0U : 1U, 0};
  object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, &result, nullptr, nullptr);
  return result;
}

/// One of the objects that the shop hands out.
Owned<IDispatch> part(IDispatch& shop, const wchar_t* name) {
  const VARIANT value = invoke(shop, name, DISPATCH_PROPERTYGET);
  return Owned<IDispatch>(value.vt == VT_DISPATCH ? value.pdispVal : nullptr);
}

/// What the component, or a host object inside it, said about a failure.
void printFailure(HRESULT result) {
  BSTR source = nullptr;
  BSTR description = nullptr;
  IErrorInfo* info = nullptr;
  if (GetErrorInfo(0, &info) == S_OK) {
    info->GetSource(&source);
    info->GetDescription(&description);
    info->Release();
  }
  const String ownedSource(source);
  const String ownedDescription(description);
  std::printf("failed: 0x%08lX %ls: %ls\n", static_cast<unsigned long>(result),
              source == nullptr ? L"" : source, description == nullptr ? L"" : description);
}

int showOptions(const wchar_t* database, short tab) {
  const auto shop = create(L"TilloraHost.Shop");
  if (!shop) return 1;
  const String path(SysAllocString(database));
  invoke(*shop, L"Open", DISPATCH_METHOD, path.get());

  _Options* created = nullptr;
  if (FAILED(CoCreateInstance(CLSID_Options, nullptr, CLSCTX_INPROC_SERVER, IID__Options,
                              reinterpret_cast<void**>(&created)))) {
    std::printf("TilloraOptions.Options is not registered\n");
    return 1;
  }
  const Owned<_Options> options(created);
  options->putref_DBJetObject(part(*shop, L"Database").get());
  options->putref_AppObject(part(*shop, L"App").get());
  options->putref_MsgSndObject(part(*shop, L"Messages").get());
  options->putref_ResourceObject(part(*shop, L"Strings").get());
  options->putref_SettingsObject(part(*shop, L"Settings").get());
  options->put_SelectedTab(tab);

  const ChangesListener listener(options.get());
  VARIANT_BOOL shown = VARIANT_FALSE;
  const HRESULT result = options->ShowOptions(&shown);
  if (FAILED(result)) {
    printFailure(result);
    return 2;
  }
  VARIANT_BOOL changed = VARIANT_FALSE;
  options->get_ChangedDataFile(&changed);
  std::printf("data file changed: %s\n", changed == VARIANT_FALSE ? "no" : "yes");
  return 0;
}

}  // namespace

// NOLINTNEXTLINE(misc-use-internal-linkage): the system calls it.
int wmain(int count, wchar_t** arguments) {
  if (count < 2) {
    std::printf("usage: cpp_client DATABASE [TAB]\n");
    return 1;
  }
  // A single-threaded apartment, because the component shows windows.
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 1;
  const long tab = count > 2 ? std::wcstol(arguments[2], nullptr, 10) : 0;
  const int status = showOptions(arguments[1], static_cast<short>(tab));
  CoUninitialize();
  return status;
}
