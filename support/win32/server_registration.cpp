#include "support/win32/server_registration.h"

#include <new>

#include "support/win32/type_library_registration.h"
#include "ui/error.h"

namespace tillora::win32 {
namespace {

using View = RegisteredClasses::View;

/// The wall of both functions below: the callers of a server's entries know results alone.
template <class Body>
HRESULT resultOf(Body&& body) noexcept {
  try {
    body();
    return S_OK;
  } catch (const Error& error) {
    return error.number();
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_FAIL;
  }
}

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

/// The names are those of both bitnesses: they go with the last one.
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

/// A user without classes of their own gets none left behind. The machine's folders are always
/// there.
void removeEmptyFolders() {
  for (const View view : {View::of64, View::of32}) {
    const RegisteredClasses classes(RegistrationScope::user, view);
    for (const char16_t* folder : {u"CLSID", u"Interface", u"TypeLib"}) {
      classes.removeIfEmpty(folder);
    }
  }
  RegisteredClasses(RegistrationScope::user, View::of64).removeIfEmpty(u"Wow6432Node");
}

}  // namespace

HRESULT registerServer(const Text& modulePath, const GUID& library,
                       std::span<const ServerClass> classes, RegistrationScope scope) noexcept {
  const HRESULT registered = resultOf([&] {
    for (const ServerClass& described : classes) {
      writeClass(described, modulePath, library, RegisteredClasses(scope));
    }
    registerTypeLibrary(modulePath, scope);
  });
  if (FAILED(registered)) unregisterServer(modulePath, classes, scope);
  return registered;
}

HRESULT unregisterServer(const Text& modulePath, std::span<const ServerClass> classes,
                         RegistrationScope scope) noexcept {
  return resultOf([&] {
    for (const ServerClass& described : classes) removeClass(described, scope);
    unregisterTypeLibrary(modulePath, scope);
    if (scope == RegistrationScope::user) removeEmptyFolders();
  });
}

}  // namespace tillora::win32
