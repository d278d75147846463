#include "host/automation/registration.h"

#include <TilloraHost.h>
#include <oleauto.h>

#include <new>

#include "host/automation/class_factory.h"
#include "support/win32/bstr.h"
#include "support/win32/com_ptr.h"
#include "support/win32/wide_text.h"
#include "ui/error.h"
#include "ui/win32/module.h"

// Exported by oleaut32 but missing in some platform headers.
extern "C" {
HRESULT WINAPI RegisterTypeLibForUser(ITypeLib* library, OLECHAR* path, OLECHAR* helpFolder);
HRESULT WINAPI UnRegisterTypeLibForUser(REFGUID library, WORD major, WORD minor, LCID locale,
                                        SYSKIND kind);
}

namespace tillora::host::automation {

using win32::ComPtr;
using win32::wide;

namespace {

struct Failed {
  HRESULT result;
};

void check(HRESULT result) {
  if (FAILED(result)) throw Failed{result};
}

void checkStatus(LSTATUS status) { check(HRESULT_FROM_WIN32(static_cast<unsigned long>(status))); }

template <class Body>
HRESULT guarded(Body&& body) noexcept {
  try {
    body();
    return S_OK;
  } catch (const Failed& failed) {
    return failed.result;
  } catch (const Error& error) {
    return error.number();
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_FAIL;
  }
}

Text guidText(const GUID& guid) {
  wchar_t text[40];
  const int length = StringFromGUID2(guid, text, static_cast<int>(std::size(text)));
  return win32::fromWide(text, static_cast<std::size_t>(length) - 1);
}

/// The registered classes of the machine or of the user.
class Classes {
 public:
  explicit Classes(RegistrationScope scope)
      : root_(scope == RegistrationScope::user ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE) {}

  void write(const Text& key, const Text& value, const wchar_t* name = nullptr) const {
    const auto size = static_cast<DWORD>((value.size() + 1) * sizeof(char16_t));
    checkStatus(RegSetKeyValueW(root_, wide(path(key)), name, REG_SZ, value.c_str(), size));
  }
  void remove(const Text& key) const {
    const LSTATUS removed = RegDeleteTreeW(root_, wide(path(key)));
    if (removed != ERROR_FILE_NOT_FOUND) checkStatus(removed);
  }

 private:
  static Text path(const Text& key) { return u"Software\\Classes\\" + key; }

  HKEY root_;
};

void writeClass(const Classes& classes, const CreatableClass& creatable) {
  const Text id = guidText(creatable.id);
  const Text key = u"CLSID\\" + id;
  const Text program = creatable.programId;
  const Text versioned = program + u".1";

  classes.write(key, creatable.title);
  classes.write(key + u"\\InprocServer32", pathOfModule(ui::win32::thisModule()));
  classes.write(key + u"\\InprocServer32", u"Apartment", L"ThreadingModel");
  classes.write(key + u"\\ProgID", versioned);
  classes.write(key + u"\\VersionIndependentProgID", program);
  classes.write(key + u"\\TypeLib", guidText(LIBID_TilloraHost));
  classes.write(key + u"\\Version", u"1.0");
  classes.write(key + u"\\Programmable", u"");
  classes.write(program, creatable.title);
  classes.write(program + u"\\CLSID", id);
  classes.write(program + u"\\CurVer", versioned);
  classes.write(versioned, creatable.title);
  classes.write(versioned + u"\\CLSID", id);
}

void removeClass(const Classes& classes, const CreatableClass& creatable) {
  const Text program = creatable.programId;
  classes.remove(program + u".1");
  classes.remove(program);
  classes.remove(u"CLSID\\" + guidText(creatable.id));
}

void writeTypeLibrary(RegistrationScope scope) {
  const Text path = pathOfModule(ui::win32::thisModule());
  // The parameter lacks a const.
  auto* const file = const_cast<wchar_t*>(wide(path));
  ComPtr<ITypeLib> library;
  check(LoadTypeLibEx(file, REGKIND_NONE, library.out()));
  check(scope == RegistrationScope::user ? RegisterTypeLibForUser(library.get(), file, nullptr)
                                         : RegisterTypeLib(library.get(), file, nullptr));
}

void removeTypeLibrary(RegistrationScope scope) {
  constexpr SYSKIND kKind = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;
  const HRESULT removed =
      scope == RegistrationScope::user
          ? UnRegisterTypeLibForUser(LIBID_TilloraHost, 1, 0, LOCALE_NEUTRAL, kKind)
          : UnRegisterTypeLib(LIBID_TilloraHost, 1, 0, LOCALE_NEUTRAL, kKind);
  if (removed == TYPE_E_REGISTRYACCESS) return;
  // Some systems call it an error to remove what is not there.
  win32::Bstr path;
  if (SUCCEEDED(QueryPathOfRegTypeLib(LIBID_TilloraHost, 1, 0, LOCALE_NEUTRAL, path.out()))) {
    check(removed);
  }
}

}  // namespace

HRESULT registerServer(RegistrationScope scope) noexcept {
  const HRESULT registered = guarded([scope] {
    const Classes classes(scope);
    writeClass(classes, kShopClass);
    writeClass(classes, kHostMessageBoxClass);
    writeTypeLibrary(scope);
  });
  if (FAILED(registered)) unregisterServer(scope);
  return registered;
}

HRESULT unregisterServer(RegistrationScope scope) noexcept {
  return guarded([scope] {
    const Classes classes(scope);
    removeClass(classes, kShopClass);
    removeClass(classes, kHostMessageBoxClass);
    removeTypeLibrary(scope);
  });
}

}  // namespace tillora::host::automation
