#include "component/automation/registration.h"

#include "TilloraOptions.h"
#include "component/automation/com_error.h"
#include "component/automation/module.h"
#include "component/automation/registered_classes.h"
#include "component/automation/type_library_registration.h"

namespace tillora::automation {

namespace {

using View = RegisteredClasses::View;

constexpr const char16_t* kTitle = u"Tillora Options";
constexpr const char16_t* kProgramId = u"TilloraOptions.Options";
constexpr const char16_t* kVersionedProgramId = u"TilloraOptions.Options.1";

void writeClasses(RegistrationScope scope) {
  const RegisteredClasses classes(scope);
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

/// A user without classes of his own gets none left behind. The machine's folders are always there.
void removeEmptyFolders() {
  for (const View view : {View::of64, View::of32}) {
    const RegisteredClasses classes(RegistrationScope::user, view);
    for (const char16_t* folder : {u"CLSID", u"Interface", u"TypeLib"}) {
      classes.removeIfEmpty(folder);
    }
  }
  RegisteredClasses(RegistrationScope::user, View::of64).removeIfEmpty(u"Wow6432Node");
}

/// The names are those of both bitnesses: they go with the last one.
void removeAll(RegistrationScope scope) {
  const RegisteredClasses of64(scope, View::of64);
  const RegisteredClasses of32(scope, View::of32);
  const Text classKey = u"CLSID\\" + guidText(CLSID_Options);
  RegisteredClasses(scope).remove(classKey);
  if (!of64.exists(classKey) && !of32.exists(classKey)) {
    for (const RegisteredClasses* classes : {&of64, &of32}) {
      classes->remove(kVersionedProgramId);
      classes->remove(kProgramId);
    }
  }
  unregisterTypeLibrary(scope);
  if (scope == RegistrationScope::user) removeEmptyFolders();
}

}  // namespace

HRESULT registerServer(RegistrationScope scope) noexcept {
  const HRESULT registered = guarded(IID_NULL, [scope] {
    writeClasses(scope);
    registerTypeLibrary(scope);
  });
  if (FAILED(registered)) unregisterServer(scope);
  return registered;
}

HRESULT unregisterServer(RegistrationScope scope) noexcept {
  return guarded(IID_NULL, [scope] { removeAll(scope); });
}

}  // namespace tillora::automation
