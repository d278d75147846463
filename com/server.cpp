#include "com/server.h"

#include <algorithm>
#include <string_view>

#include "com/error_info.h"
#include "com/module.h"
#include "com/thread_storage.h"
#include "com/type_library_registration.h"

namespace tillora::win32 {
namespace {

using View = RegisteredClasses::View;

struct Keys {
  explicit Keys(const ServerClass& described)
      : classId(guidText(described.id)),
        classKey(u"CLSID\\" + classId),
        program(described.programId),
        versioned(program + u".1") {}

  Text classId;
  Text classKey;
  Text program;
  Text versioned;
};

void writeClass(const ServerClass& described, const Text& modulePath, const GUID& library,
                const RegisteredClasses& classes) {
  const Keys keys(described);
  classes.write(keys.classKey, nullptr, described.title);
  classes.write(keys.classKey + u"\\InprocServer32", nullptr, modulePath);
  classes.write(keys.classKey + u"\\InprocServer32", u"ThreadingModel", u"Apartment");
  classes.write(keys.classKey + u"\\ProgID", nullptr, keys.versioned);
  classes.write(keys.classKey + u"\\VersionIndependentProgID", nullptr, keys.program);
  classes.write(keys.classKey + u"\\TypeLib", nullptr, guidText(library));
  classes.write(keys.classKey + u"\\Version", nullptr, u"1.0");
  classes.write(keys.classKey + u"\\Programmable", nullptr, u"");

  classes.write(keys.program, nullptr, described.title);
  classes.write(keys.program + u"\\CLSID", nullptr, keys.classId);
  classes.write(keys.program + u"\\CurVer", nullptr, keys.versioned);
  classes.write(keys.versioned, nullptr, described.title);
  classes.write(keys.versioned + u"\\CLSID", nullptr, keys.classId);
}

/// Both bitnesses share the program ids, which are removed with the last one.
void removeClass(const ServerClass& described, RegistrationScope scope) {
  const Keys keys(described);
  const RegisteredClasses of64(scope, View::of64);
  const RegisteredClasses of32(scope, View::of32);
  RegisteredClasses(scope).remove(keys.classKey);
  if (of64.exists(keys.classKey) || of32.exists(keys.classKey)) return;
  for (const RegisteredClasses* classes : {&of64, &of32}) {
    classes->remove(keys.versioned);
    classes->remove(keys.program);
  }
}

/// Leaves no empty folders behind for a user who had no classes before. The machine's folders
/// always exist.
void removeEmptyFolders() {
  for (const View view : {View::of64, View::of32}) {
    const RegisteredClasses classes(RegistrationScope::user, view);
    for (const char16_t* folder : {u"CLSID", u"Interface", u"TypeLib"}) {
      classes.removeIfEmpty(folder);
    }
  }
  RegisteredClasses(RegistrationScope::user, View::of64).removeIfEmpty(u"Wow6432Node");
}

const char16_t* ownSource(const Server& server) { return server.classes.front().programId; }

}  // namespace

void serverIsUnloaded(DWORD reason, const void* processEnds) noexcept {
  if (reason == DLL_PROCESS_DETACH && processEnds == nullptr) freeThreadStorage();
}

HRESULT getClassObject(const Server& server, REFCLSID classId, REFIID id, void** object) noexcept {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  const auto known = std::ranges::find_if(
      server.classes, [&](const ServerClass& described) { return described.id == classId; });
  if (known == server.classes.end()) return CLASS_E_CLASSNOTAVAILABLE;
  HRESULT found = E_NOINTERFACE;
  const HRESULT made = guarded(IID_NULL, known->programId, [&] {
    found = ClassFactory::make(*known)->QueryInterface(id, object);
  });
  return FAILED(made) ? made : found;
}

HRESULT canUnloadNow() noexcept { return ModuleLock::count() == 0 ? S_OK : S_FALSE; }

HRESULT registerServer(const Server& server, RegistrationScope scope) noexcept {
  const HRESULT registered = guarded(IID_NULL, ownSource(server), [&] {
    const Text path = pathOfModule(thisModule());
    for (const ServerClass& described : server.classes) {
      writeClass(described, path, server.library, RegisteredClasses(scope));
    }
    registerTypeLibrary(path, scope);
  });
  if (FAILED(registered)) unregisterServer(server, scope);
  return registered;
}

HRESULT unregisterServer(const Server& server, RegistrationScope scope) noexcept {
  return guarded(IID_NULL, ownSource(server), [&] {
    for (const ServerClass& described : server.classes) removeClass(described, scope);
    unregisterTypeLibrary(pathOfModule(thisModule()), scope);
    if (scope == RegistrationScope::user) removeEmptyFolders();
  });
}

HRESULT installServer(const Server& server, bool install, const wchar_t* scope) noexcept {
  const std::wstring_view wanted = scope == nullptr ? L"" : scope;
  if (!wanted.empty() && wanted != L"user" && wanted != L"machine") return E_INVALIDARG;
  const auto chosen = wanted == L"user" ? RegistrationScope::user : RegistrationScope::machine;
  return install ? registerServer(server, chosen) : unregisterServer(server, chosen);
}

}  // namespace tillora::win32
