#include "tests/testing/win32/scratch_registry.h"

#include <stdexcept>

namespace tillora::testing {

ScratchRegistry::ScratchRegistry()
    : path_(L"Software\\TilloraOptionsTest\\Registry-" + std::to_wstring(GetCurrentProcessId())) {
  RegDeleteTreeW(HKEY_CURRENT_USER, path_.c_str());  // of a killed test with the same id
  const HKEY machine = create(L"\\machine");
  const HKEY user = create(L"\\user");
  const LSTATUS failed = RegOverridePredefKey(HKEY_LOCAL_MACHINE, machine);
  const LSTATUS failedToo = RegOverridePredefKey(HKEY_CURRENT_USER, user);
  RegCloseKey(machine);
  RegCloseKey(user);
  if (failed != ERROR_SUCCESS || failedToo != ERROR_SUCCESS) {
    throw std::runtime_error("RegOverridePredefKey");
  }
  // Every machine has these.
  for (const wchar_t* folder : {L"CLSID", L"Interface", L"TypeLib"}) {
    HKEY key = nullptr;
    RegCreateKeyExW(HKEY_LOCAL_MACHINE, (std::wstring(L"Software\\Classes\\") + folder).c_str(), 0,
                    nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
    RegCloseKey(key);
  }
}

ScratchRegistry::~ScratchRegistry() {
  RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
  RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
  RegDeleteTreeW(HKEY_CURRENT_USER, path_.c_str());
}

HKEY ScratchRegistry::create(const wchar_t* part) const {
  HKEY key = nullptr;
  if (RegCreateKeyExW(HKEY_CURRENT_USER, (path_ + part).c_str(), 0, nullptr, 0, KEY_ALL_ACCESS,
                      nullptr, &key, nullptr) != ERROR_SUCCESS) {
    throw std::runtime_error("RegCreateKeyEx");
  }
  return key;
}

}  // namespace tillora::testing
