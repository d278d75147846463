#include "com/type_library_registration.h"

#include <oleauto.h>

#include <algorithm>
#include <array>
#include <vector>

#include "com/bstr.h"
#include "com/com_ptr.h"
#include "com/wide_text.h"

namespace tillora::win32 {

Text guidText(const GUID& guid) {
  wchar_t text[40];
  const int length = StringFromGUID2(guid, text, 40);
  return fromWide(text, static_cast<std::size_t>(length) - 1);
}

namespace {

using View = RegisteredClasses::View;

constexpr std::array kViews = {View::of64, View::of32};
constexpr const char16_t* kPlatform = sizeof(void*) == 8 ? u"win64" : u"win32";
constexpr const char16_t* kOtherPlatform = sizeof(void*) == 8 ? u"win32" : u"win64";
// The system's marshallers that work from type libraries.
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
    requireRegistered(library.GetTypeInfoType(index, &kind), u"GetTypeInfoType");
    if (kind != TKIND_DISPATCH && kind != TKIND_INTERFACE) continue;
    ComPtr<ITypeInfo> info;
    requireRegistered(library.GetTypeInfo(index, info.out()), u"GetTypeInfo");
    Bstr name;
    info->GetDocumentation(MEMBERID_NIL, name.out(), nullptr, nullptr, nullptr);
    TYPEATTR* attributes = nullptr;
    requireRegistered(info->GetTypeAttr(&attributes), u"GetTypeAttr");
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
  return fromWide(text, static_cast<std::size_t>(length));
}

/// The type library inside a module, with its names and keys.
struct Library {
  ComPtr<ITypeLib> library;
  Text id;
  Text title;
  Text version;

  explicit Library(const Text& modulePath) {
    requireRegistered(LoadTypeLibEx(wide(modulePath), REGKIND_NONE, library.out()),
                      u"LoadTypeLibEx");
    Bstr help;
    library->GetDocumentation(MEMBERID_NIL, nullptr, help.out(), nullptr, nullptr);
    title = help.text();
    TLIBATTR* attributes = nullptr;
    requireRegistered(library->GetLibAttr(&attributes), u"GetLibAttr");
    id = guidText(attributes->guid);
    version = versionText(*attributes);
    library->ReleaseTLibAttr(attributes);
  }

  Text key() const { return u"TypeLib\\" + id; }
  Text versionKey() const { return key() + u"\\" + version; }
  Text neutralKey() const { return versionKey() + u"\\0"; }
};

}  // namespace

void registerTypeLibrary(const Text& modulePath, RegistrationScope scope) {
  const Library library(modulePath);
  const RegisteredClasses classes(scope);
  classes.write(library.versionKey(), nullptr, library.title);
  classes.write(library.neutralKey() + u"\\" + kPlatform, nullptr, modulePath);
  classes.write(library.versionKey() + u"\\FLAGS", nullptr, u"0");
  classes.write(library.versionKey() + u"\\HELPDIR", nullptr,
                modulePath.substr(0, modulePath.rfind(u'\\')));
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

void unregisterTypeLibrary(const Text& modulePath, RegistrationScope scope) {
  const Library library(modulePath);
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

}  // namespace tillora::win32
