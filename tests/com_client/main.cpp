// A small program that uses the component as any host does, to test what a test program cannot show
// within itself:
//
//   com_client create [mta]   creates the class by its names and its id, calls it, and says which
//                             file it came from and whether anything is registered
//   com_client show DATABASE [mta]
//                             shows the dialog over the reference host's shop and hears the changes
//   com_client leave [mta]    ends with objects alive, like a host that is ended in a hurry
//   com_client leave open DATABASE
//                             ends from another thread while the dialog is being shown
//   com_client registered     says what is registered for the machine and for the user
//
// Lines "name: value"; exit code 0 unless something could not be done.
#include <windows.h>

#include <objbase.h>
#include <ocidl.h>

#include <cstdio>
#include <cwchar>
#include <string>
#include <thread>

#include "TilloraOptions.h"
#include "base/text.h"
#include "com/bstr.h"
#include "com/com_ptr.h"
#include "tests/component/automation/event_listener.h"
#include "tests/testing/win32/shown_dialogs.h"

namespace tillora::testing {
namespace {

using win32::Bstr;
using win32::ComPtr;

constexpr const wchar_t* kClassKey = L"CLSID\\{5F50E429-7515-451F-ADAE-C840796D2C99}";
constexpr const wchar_t* kProgramId = L"TilloraOptions.Options";

const char* yesOrNo(bool value) { return value ? "yes" : "no"; }

bool isRegistered(HKEY root, const wchar_t* key) {
  HKEY opened = nullptr;
  const std::wstring path = std::wstring(L"Software\\Classes\\") + key;
  if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) return false;
  RegCloseKey(opened);
  return true;
}

void printRegistered() {
  for (const auto& [name, root] :
       {std::pair{"machine", HKEY_LOCAL_MACHINE}, std::pair{"user", HKEY_CURRENT_USER}}) {
    std::printf("registered for the %s: class %s, name %s\n", name,
                yesOrNo(isRegistered(root, kClassKey)), yesOrNo(isRegistered(root, kProgramId)));
  }
}

ComPtr<_Options> create() {
  ComPtr<_Options> options;
  CLSID id{};
  HRESULT result = CLSIDFromProgID(kProgramId, &id);
  // With a manifest the name may lead to another id that stands for the class.
  if (SUCCEEDED(result)) {
    result = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID__Options, options.outVoid());
  }
  std::printf("create by name: 0x%08lX\n", static_cast<unsigned long>(result));
  result = CoCreateInstance(CLSID_Options, nullptr, CLSCTX_INPROC_SERVER, IID__Options,
                            options.outVoid());
  std::printf("create: 0x%08lX\n", static_cast<unsigned long>(result));
  return options;
}

/// Where the class was found: the library's path behind its last folder's name.
void printModule() {
  wchar_t path[MAX_PATH] = L"";
  const HMODULE module = GetModuleHandleW(L"TilloraOptions.dll");
  GetModuleFileNameW(module, path, MAX_PATH);
  std::printf("library: %ls\n", module == nullptr ? L"not loaded" : path);
}

/// Late bound by name, as a script does.
void printNamed(IDispatch& object) {
  wchar_t name[] = L"ChangedDataFile";
  LPOLESTR names[] = {name};
  DISPID id = DISPID_UNKNOWN;
  HRESULT result = object.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
  DISPPARAMS none{};
  VARIANT value;
  VariantInit(&value);
  if (SUCCEEDED(result)) {
    result = object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &value,
                           nullptr, nullptr);
  }
  std::printf("by name: 0x%08lX %s\n", static_cast<unsigned long>(result),
              value.vt == VT_BOOL ? yesOrNo(value.boolVal != VARIANT_FALSE) : "no boolean");
  VariantClear(&value);
}

void printShow(_Options& options) {
  VARIANT_BOOL shown = VARIANT_FALSE;
  const HRESULT result = options.ShowOptions(&shown);
  Bstr description;
  ComPtr<IErrorInfo> info;
  if (GetErrorInfo(0, info.out()) == S_OK) info->GetDescription(description.out());
  std::printf("show: 0x%08lX %s\n", static_cast<unsigned long>(result),
              toUtf8(description.text()).c_str());
}

int createAndCall(DWORD apartment) {
  CoInitializeEx(nullptr, apartment);
  std::printf("bits: %d\n", static_cast<int>(sizeof(void*)) * 8);
  int status = 1;
  if (const auto options = create()) {
    printModule();
    printNamed(*options.get());
    printShow(*options.get());
    status = 0;
  }
  CoUninitialize();
  return status;
}

/// The remaining references are never released; how the process copes with that is the test.
int leaveAlive(DWORD apartment) {
  CoInitializeEx(nullptr, apartment);
  auto options = create();
  if (!options) return 1;
  printShow(*options.get());
  options.detach();
  std::printf("leaving\n");
  std::fflush(stdout);
  return 0;
}

BOOL CALLBACK findDialog(HWND window, LPARAM found) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  wchar_t title[16] = L"";
  GetWindowTextW(window, title, 16);
  if (process != GetCurrentProcessId() || std::wcscmp(title, L"Options") != 0 ||
      IsWindowVisible(window) == FALSE) {
    return TRUE;
  }
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

/// The component's dialog of this process; null while none is shown.
HWND dialog() {
  HWND found = nullptr;
  EnumWindows(findDialog, reinterpret_cast<LPARAM>(&found));
  return found;
}

/// The objects of the reference host, which lies beside the component.
ComPtr<IDispatch> shopPart(IDispatch& shop, const wchar_t* name) {
  auto* writable = const_cast<wchar_t*>(name);
  DISPID id = DISPID_UNKNOWN;
  DISPPARAMS none{};
  VARIANT value;
  VariantInit(&value);
  shop.GetIDsOfNames(IID_NULL, &writable, 1, LOCALE_USER_DEFAULT, &id);
  shop.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &value, nullptr,
              nullptr);
  return value.vt == VT_DISPATCH ? ComPtr<IDispatch>::adopt(value.pdispVal) : ComPtr<IDispatch>();
}

ComPtr<IDispatch> openShop(const wchar_t* database) {
  ComPtr<IDispatch> shop;
  CLSID id{};
  if (FAILED(CLSIDFromProgID(L"TilloraHost.Shop", &id)) ||
      FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, shop.outVoid()))) {
    return {};
  }
  wchar_t name[] = L"Open";
  LPOLESTR names[] = {name};
  DISPID open = DISPID_UNKNOWN;
  shop->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &open);
  VARIANTARG path;
  path.vt = VT_BSTR;
  path.bstrVal = SysAllocString(database);
  DISPPARAMS parameters{&path, nullptr, 1, 0};
  shop->Invoke(open, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
               nullptr);
  VariantClear(&path);
  return shop;
}

/// The component over the shop's objects; none if something is missing.
ComPtr<_Options> createOver(const wchar_t* database) {
  const auto shop = openShop(database);
  auto options = create();
  if (!shop || !options) return {};
  options->putref_DBJetObject(shopPart(*shop.get(), L"Database").get());
  options->putref_AppObject(shopPart(*shop.get(), L"App").get());
  options->putref_MsgSndObject(shopPart(*shop.get(), L"Messages").get());
  options->putref_ResourceObject(shopPart(*shop.get(), L"Strings").get());
  options->putref_SettingsObject(shopPart(*shop.get(), L"Settings").get());
  return options;
}

int showAndHear(const wchar_t* database, DWORD apartment) {
  CoInitializeEx(nullptr, apartment);
  {
    const auto options = createOver(database);
    if (!options) return 1;
    const auto listener = EventListener::make([thread = GetCurrentThreadId()](LONG&) {
      std::printf("dialog: %s\n", GetWindowThreadProcessId(dialog(), nullptr) == thread
                                      ? "in the caller's thread"
                                      : "in another thread");
      std::printf("changes heard\n");
      return S_OK;
    });
    DWORD cookie = 0;
    const auto point = connectionPoint(*options.get());
    std::printf("advise: 0x%08lX\n",
                static_cast<unsigned long>(point->Advise(listener.get(), &cookie)));
    printShow(*options.get());
    point->Unadvise(cookie);
    std::printf("listener released: %s\n", yesOrNo(listener->references() == 1));
  }
  CoUninitialize();
  std::printf("done\n");
  return 0;
}

int leaveOpen(const wchar_t* database) {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  const auto options = createOver(database);
  if (!options) return 1;
  ShownDialogs dialogs(GetCurrentThreadId());
  std::thread([&dialogs] {
    const bool shown =
        dialogs.waitUntil(std::chrono::seconds(60), [] { return dialog() != nullptr; });
    std::printf(shown ? "leaving\n" : "no dialog was shown\n");
    std::fflush(stdout);
    ExitProcess(shown ? 0 : 4);
  }).detach();
  printShow(*options.get());
  return 2;  // the other thread should have ended it
}

int run(int count, wchar_t** arguments) {
  const std::wstring command = count > 1 ? arguments[1] : L"";
  const std::wstring how = count > 2 ? arguments[2] : L"";
  const std::wstring last = arguments[count - 1];
  const DWORD apartment = last == L"mta" ? COINIT_MULTITHREADED : COINIT_APARTMENTTHREADED;
  if (command == L"registered") {
    printRegistered();
    return 0;
  }
  if (command == L"create") return createAndCall(apartment);
  if (command == L"show" && count > 2) return showAndHear(arguments[2], apartment);
  if (command == L"leave" && how == L"open" && count > 3) return leaveOpen(arguments[3]);
  if (command == L"leave") return leaveAlive(apartment);
  std::printf(
      "usage: com_client create [mta] | show DATABASE [mta] | leave [mta] | leave open DATABASE | "
      "registered\n");
  return 3;
}

}  // namespace
}  // namespace tillora::testing

// NOLINTNEXTLINE(misc-use-internal-linkage): the system calls it.
int wmain(int count, wchar_t** arguments) { return tillora::testing::run(count, arguments); }
