#pragma once

#include <windows.h>

#include <objbase.h>

#include <stdexcept>
#include <string>

#include "TilloraOptions.h"
#include "com/com_ptr.h"

namespace tillora::testing {

/// COM for the test's thread.
class Apartment {
 public:
  Apartment() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
  ~Apartment() { CoUninitialize(); }
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
};

/// TilloraOptions.dll beside the test program, loaded as COM would load it.
class ServerLibrary {
 public:
  ServerLibrary() : module_(LoadLibraryW(path().c_str())) {
    if (module_ == nullptr) throw std::runtime_error("TilloraOptions.dll cannot be loaded");
  }
  ~ServerLibrary() { FreeLibrary(module_); }
  ServerLibrary(const ServerLibrary&) = delete;
  ServerLibrary& operator=(const ServerLibrary&) = delete;

  static std::wstring path() {
    wchar_t program[MAX_PATH];
    const std::wstring whole(program, GetModuleFileNameW(nullptr, program, MAX_PATH));
    return whole.substr(0, whole.rfind(L'\\') + 1) + L"TilloraOptions.dll";
  }

  HRESULT getClassObject(REFCLSID classId, REFIID id, void** object) const {
    return function<HRESULT(WINAPI*)(REFCLSID, REFIID, void**)>("DllGetClassObject")(classId, id,
                                                                                     object);
  }
  win32::ComPtr<IClassFactory> factory() const {
    win32::ComPtr<IClassFactory> factory;
    getClassObject(CLSID_Options, IID_IClassFactory, factory.outVoid());
    return factory;
  }
  win32::ComPtr<_Options> create() const {
    win32::ComPtr<_Options> options;
    factory()->CreateInstance(nullptr, IID__Options, options.outVoid());
    return options;
  }
  /// S_OK when none of its objects and locks is left.
  HRESULT canUnloadNow() const { return function<HRESULT(WINAPI*)()>("DllCanUnloadNow")(); }
  HRESULT registerServer() const { return function<HRESULT(WINAPI*)()>("DllRegisterServer")(); }
  HRESULT unregisterServer() const { return function<HRESULT(WINAPI*)()>("DllUnregisterServer")(); }
  HRESULT install(bool install, const wchar_t* commandLine) const {
    return function<HRESULT(WINAPI*)(BOOL, const wchar_t*)>("DllInstall")(install ? TRUE : FALSE,
                                                                          commandLine);
  }

 private:
  template <class Function>
  Function function(const char* name) const {
    const auto address = reinterpret_cast<void (*)()>(GetProcAddress(module_, name));
    if (address == nullptr) throw std::runtime_error(name);
    return reinterpret_cast<Function>(address);
  }

  HMODULE module_;
};

}  // namespace tillora::testing
