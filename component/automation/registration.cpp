#include "component/automation/registration.h"

#include <oleauto.h>

#include "TilloraOptions.h"
#include "component/automation/com_error.h"
#include "component/automation/module.h"
#include "support/win32/wide_text.h"

// Exported by oleaut32 but missing in some platform headers.
extern "C" {
HRESULT WINAPI RegisterTypeLibForUser(ITypeLib* library, OLECHAR* path, OLECHAR* helpFolder);
HRESULT WINAPI UnRegisterTypeLibForUser(REFGUID library, WORD major, WORD minor, LCID locale,
                                        SYSKIND kind);
}

namespace tillora::automation {

using win32::wide;

namespace {

constexpr const char16_t* kTitle = u"Tillora Options";
constexpr const char16_t* kProgramId = u"TilloraOptions.Options";
constexpr const char16_t* kVersionedProgramId = u"TilloraOptions.Options.1";
constexpr WORD kMajor = 1;
constexpr WORD kMinor = 0;

Text guidText(const GUID& guid) {
  wchar_t text[40];
  const int length = StringFromGUID2(guid, text, 40);
  return win32::fromWide(text, static_cast<std::size_t>(length) - 1);
}

/// The folder of registered classes.
class ClassesKey {
 public:
  explicit ClassesKey(RegistrationScope scope)
      : root_(scope == RegistrationScope::user ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE) {}

  void write(const Text& key, const char16_t* name, const Text& value) const {
    const Text path = u"Software\\Classes\\" + key;
    const auto size = static_cast<DWORD>((value.size() + 1) * sizeof(char16_t));
    const LSTATUS written = RegSetKeyValueW(root_, wide(path), name ? wide(name) : nullptr, REG_SZ,
                                            value.c_str(), size);
    throwIfFailed(HRESULT_FROM_WIN32(static_cast<unsigned long>(written)), u"RegSetKeyValue");
  }
  bool exists(const Text& key) const {
    return RegGetValueW(root_, wide(u"Software\\Classes\\" + key), nullptr, RRF_RT_ANY, nullptr,
                        nullptr, nullptr) == ERROR_SUCCESS;
  }
  void remove(const Text& key) const {
    const LSTATUS removed = RegDeleteTreeW(root_, wide(u"Software\\Classes\\" + key));
    if (removed == ERROR_FILE_NOT_FOUND) return;
    throwIfFailed(HRESULT_FROM_WIN32(static_cast<unsigned long>(removed)), u"RegDeleteTree");
  }

 private:
  HKEY root_;
};

/// Makes the user's own classes those of the process while it lives. The platform's function for
/// one user needs no such thing; elsewhere it registers for all.
class UserClasses {
 public:
  UserClasses() {
    const LSTATUS opened = RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\Classes", 0, nullptr, 0,
                                           KEY_ALL_ACCESS, nullptr, &key_, nullptr);
    throwIfFailed(HRESULT_FROM_WIN32(static_cast<unsigned long>(opened)), u"RegCreateKeyEx");
    RegOverridePredefKey(HKEY_CLASSES_ROOT, key_);
  }
  ~UserClasses() {
    RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
    RegCloseKey(key_);
  }
  UserClasses(const UserClasses&) = delete;
  UserClasses& operator=(const UserClasses&) = delete;

 private:
  HKEY key_ = nullptr;
};

void writeClasses(RegistrationScope scope) {
  const ClassesKey classes(scope);
  const Text classId = guidText(CLSID_Options);
  const Text classKey = u"CLSID\\" + classId;

  classes.write(classKey, nullptr, kTitle);
  classes.write(classKey + u"\\InprocServer32", nullptr, modulePath());
  classes.write(classKey + u"\\InprocServer32", u"ThreadingModel", u"Apartment");
  classes.write(classKey + u"\\ProgID", nullptr, kVersionedProgramId);
  classes.write(classKey + u"\\VersionIndependentProgID", nullptr, kProgramId);
  classes.write(classKey + u"\\TypeLib", nullptr, guidText(LIBID_TilloraOptions));
  classes.write(classKey + u"\\Version", nullptr, u"1.0");
  classes.write(classKey + u"\\Programmable", nullptr, u"");

  classes.write(kProgramId, nullptr, kTitle);
  classes.write(Text(kProgramId) + u"\\CLSID", nullptr, classId);
  classes.write(Text(kProgramId) + u"\\CurVer", nullptr, kVersionedProgramId);
  classes.write(kVersionedProgramId, nullptr, kTitle);
  classes.write(Text(kVersionedProgramId) + u"\\CLSID", nullptr, classId);
}

void writeTypeLibrary(RegistrationScope scope) {
  const auto library = loadTypeLibrary();
  const Text path = modulePath();
  auto* const file = const_cast<wchar_t*>(wide(path));
  if (scope == RegistrationScope::user) {
    const UserClasses userClasses;
    throwIfFailed(RegisterTypeLibForUser(library.get(), file, nullptr), u"RegisterTypeLibForUser");
  } else {
    throwIfFailed(RegisterTypeLib(library.get(), file, nullptr), u"RegisterTypeLib");
  }
}

void removeTypeLibrary(RegistrationScope scope) {
  constexpr bool kIs64Bit = sizeof(void*) == 8;
  const Text key = u"TypeLib\\" + guidText(LIBID_TilloraOptions) + u"\\1.0\\0\\";
  if (!ClassesKey(scope).exists(key + (kIs64Bit ? u"win64" : u"win32"))) return;
  constexpr SYSKIND kKind = kIs64Bit ? SYS_WIN64 : SYS_WIN32;
  if (scope == RegistrationScope::user) {
    const UserClasses userClasses;
    throwIfFailed(
        UnRegisterTypeLibForUser(LIBID_TilloraOptions, kMajor, kMinor, LOCALE_NEUTRAL, kKind),
        u"UnRegisterTypeLibForUser");
  } else {
    throwIfFailed(UnRegisterTypeLib(LIBID_TilloraOptions, kMajor, kMinor, LOCALE_NEUTRAL, kKind),
                  u"UnRegisterTypeLib");
  }
}

void removeAll(RegistrationScope scope) {
  const ClassesKey classes(scope);
  classes.remove(kVersionedProgramId);
  classes.remove(kProgramId);
  classes.remove(u"CLSID\\" + guidText(CLSID_Options));
  removeTypeLibrary(scope);
}

}  // namespace

HRESULT registerServer(RegistrationScope scope) noexcept {
  const HRESULT registered = guarded(IID_NULL, [scope] {
    writeClasses(scope);
    writeTypeLibrary(scope);
  });
  if (FAILED(registered)) unregisterServer(scope);
  return registered;
}

HRESULT unregisterServer(RegistrationScope scope) noexcept {
  return guarded(IID_NULL, [scope] { removeAll(scope); });
}

}  // namespace tillora::automation
