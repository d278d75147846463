#include "com/registered_classes.h"

#include <memory>
#include <new>
#include <type_traits>

#include "base/error.h"
#include "com/wide_text.h"

namespace tillora::win32 {
namespace {

struct KeyCloser {
  void operator()(HKEY key) const { RegCloseKey(key); }
};
using OwnedKey = std::unique_ptr<std::remove_pointer_t<HKEY>, KeyCloser>;

void throwIfRegistryFailed(LSTATUS status, const char16_t* function) {
  requireRegistered(HRESULT_FROM_WIN32(static_cast<unsigned long>(status)), function);
}

Text pathOf(const Text& key) { return u"Software\\Classes\\" + key; }

/// None if the key does not exist.
OwnedKey open(HKEY root, const Text& path, REGSAM access) {
  HKEY key = nullptr;
  const LSTATUS opened = RegOpenKeyExW(root, wide(path), 0, access, &key);
  if (opened == ERROR_FILE_NOT_FOUND) return nullptr;
  throwIfRegistryFailed(opened, u"RegOpenKeyEx");
  return OwnedKey(key);
}

}  // namespace

void requireRegistered(HRESULT result, const char16_t* function) {
  if (SUCCEEDED(result)) return;
  if (result == E_OUTOFMEMORY) throw std::bad_alloc();
  throw Error(result, u"Registration", Text(function) + u" failed.");
}

void RegisteredClasses::write(const Text& key, const char16_t* name, const Text& value) const {
  HKEY created = nullptr;
  throwIfRegistryFailed(RegCreateKeyExW(root_, wide(pathOf(key)), 0, nullptr, 0,
                                        KEY_SET_VALUE | view_, nullptr, &created, nullptr),
                        u"RegCreateKeyEx");
  const OwnedKey owner(created);
  const auto size = static_cast<DWORD>((value.size() + 1) * sizeof(char16_t));
  throwIfRegistryFailed(RegSetValueExW(created, name ? wide(name) : nullptr, 0, REG_SZ,
                                       reinterpret_cast<const BYTE*>(value.c_str()), size),
                        u"RegSetValueEx");
}

bool RegisteredClasses::exists(const Text& key) const {
  return open(root_, pathOf(key), KEY_QUERY_VALUE | view_) != nullptr;
}

void RegisteredClasses::remove(const Text& key) const {
  const Text path = pathOf(key);
  const auto parentEnd = path.rfind(u'\\');
  const OwnedKey parent = open(root_, path.substr(0, parentEnd), KEY_ALL_ACCESS | view_);
  if (!parent) return;
  const LSTATUS removed = RegDeleteTreeW(parent.get(), wide(path.substr(parentEnd + 1)));
  if (removed != ERROR_FILE_NOT_FOUND) throwIfRegistryFailed(removed, u"RegDeleteTree");
}

void RegisteredClasses::removeIfEmpty(const Text& key) const {
  DWORD keys = 0;
  DWORD values = 0;
  {
    const OwnedKey opened = open(root_, pathOf(key), KEY_READ | view_);
    if (!opened) return;
    throwIfRegistryFailed(RegQueryInfoKeyW(opened.get(), nullptr, nullptr, nullptr, &keys, nullptr,
                                           nullptr, &values, nullptr, nullptr, nullptr, nullptr),
                          u"RegQueryInfoKey");
  }
  if (keys == 0 && values == 0) remove(key);
}

}  // namespace tillora::win32
