#include "component/automation/type_library_registration.h"

#include <oleauto.h>

#include <algorithm>
#include <array>
#include <vector>

#include "TilloraOptions.h"
#include "component/automation/com_error.h"
#include "component/automation/module.h"
#include "support/win32/bstr.h"
#include "support/win32/wide_text.h"

namespace tillora::automation {

using win32::Bstr;
using win32::ComPtr;

namespace {

using View = RegisteredClasses::View;

constexpr std::array kViews = {View::of64, View::of32};
constexpr const char16_t* kPlatform = sizeof(void*) == 8 ? u"win64" : u"win32";
constexpr const char16_t* kOtherPlatform = sizeof(void*) == 8 ? u"win32" : u"win64";
// The marshallers of the system that work from type libraries.
constexpr const char16_t* kDispatchMarshaller = u"{00020420-0000-0000-C000-000000000046}";
constexpr const char16_t* kDualMarshaller = u"{00020424-0000-0000-C000-000000000046}";

struct Interface {
  Text id;
  Text name;
  bool isDual;
};

std::vector<Interface> interfacesOf(ITypeLib& library) {
  std::vector<Interface> found;
  for (UINT index = 0; index < library.GetTypeInfoCount(); ++index) {
    TYPEKIND kind{};
    throwIfFailed(library.GetTypeInfoType(index, &kind), u"GetTypeInfoType");
    if (kind != TKIND_DISPATCH && kind != TKIND_INTERFACE) continue;
    ComPtr<ITypeInfo> info;
    throwIfFailed(library.GetTypeInfo(index, info.out()), u"GetTypeInfo");
    Bstr name;
    info->GetDocumentation(MEMBERID_NIL, name.out(), nullptr, nullptr, nullptr);
    TYPEATTR* attributes = nullptr;
    throwIfFailed(info->GetTypeAttr(&attributes), u"GetTypeAttr");
    const GUID id = attributes->guid;
    const bool isDual = (attributes->wTypeFlags & TYPEFLAG_FDUAL) != 0;
    info->ReleaseTypeAttr(attributes);
    found.push_back({guidText(id), name.text(), isDual});
  }
  return found;
}

Text versionText(const TLIBATTR& attributes) {
  wchar_t text[16];
  const int length = wsprintfW(text, L"%x.%x", attributes.wMajorVerNum, attributes.wMinorVerNum);
  return win32::fromWide(text, static_cast<std::size_t>(length));
}

/// Names and keys of the type library.
struct Library {
  ComPtr<ITypeLib> library = loadTypeLibrary();
  Text id = guidText(LIBID_TilloraOptions);
  Text title;
  Text version;

  Library() {
    Bstr help;
    library->GetDocumentation(MEMBERID_NIL, nullptr, help.out(), nullptr, nullptr);
    title = help.text();
    TLIBATTR* attributes = nullptr;
    throwIfFailed(library->GetLibAttr(&attributes), u"GetLibAttr");
    version = versionText(*attributes);
    library->ReleaseTLibAttr(attributes);
  }

  Text key() const { return u"TypeLib\\" + id; }
  Text versionKey() const { return key() + u"\\" + version; }
  Text neutralKey() const { return versionKey() + u"\\0"; }
};

}  // namespace

Text guidText(const GUID& guid) {
  wchar_t text[40];
  const int length = StringFromGUID2(guid, text, 40);
  return win32::fromWide(text, static_cast<std::size_t>(length) - 1);
}

void registerTypeLibrary(RegistrationScope scope) {
  const Library library;
  const RegisteredClasses classes(scope);
  const Text path = modulePath();
  classes.write(library.versionKey(), nullptr, library.title);
  classes.write(library.neutralKey() + u"\\" + kPlatform, nullptr, path);
  classes.write(library.versionKey() + u"\\FLAGS", nullptr, u"0");
  classes.write(library.versionKey() + u"\\HELPDIR", nullptr, path.substr(0, path.rfind(u'\\')));
  for (const Interface& described : interfacesOf(*library.library.get())) {
    for (const View view : kViews) {
      const RegisteredClasses interfaces(scope, view);
      const Text key = u"Interface\\" + described.id;
      interfaces.write(key, nullptr, described.name);
      interfaces.write(key + u"\\ProxyStubClsid32", nullptr,
                       described.isDual ? kDualMarshaller : kDispatchMarshaller);
      interfaces.write(key + u"\\TypeLib", nullptr, library.id);
      interfaces.write(key + u"\\TypeLib", u"Version", library.version);
    }
  }
}

void unregisterTypeLibrary(RegistrationScope scope) {
  const Library library;
  const RegisteredClasses classes(scope);
  const Text others = library.neutralKey() + u"\\" + kOtherPlatform;
  classes.remove(library.neutralKey() + u"\\" + kPlatform);
  if (!classes.exists(others)) {
    classes.remove(library.versionKey());
    classes.removeIfEmpty(library.key());
  }
  const bool othersStay = std::ranges::any_of(
      kViews, [&](View view) { return RegisteredClasses(scope, view).exists(others); });
  if (othersStay) return;
  for (const Interface& described : interfacesOf(*library.library.get())) {
    for (const View view : kViews) {
      RegisteredClasses(scope, view).remove(u"Interface\\" + described.id);
    }
  }
}

}  // namespace tillora::automation
