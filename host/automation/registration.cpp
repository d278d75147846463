#include "host/automation/registration.h"

#include <TilloraHost.h>

#include <span>

#include "host/automation/class_factory.h"
#include "support/win32/server_registration.h"
#include "ui/win32/module.h"

namespace tillora::host::automation {
namespace {

template <class Action>
HRESULT forThisServer(Action&& action) noexcept {
  try {
    const win32::ServerClass classes[] = {kShopClass.registered, kHostMessageBoxClass.registered};
    return action(pathOfModule(ui::win32::thisModule()), std::span(classes));
  } catch (...) {  // no path, or no memory for it
    return E_UNEXPECTED;
  }
}

}  // namespace

HRESULT registerServer(win32::RegistrationScope scope) noexcept {
  return forThisServer([scope](const Text& path, std::span<const win32::ServerClass> classes) {
    return win32::registerServer(path, LIBID_TilloraHost, classes, scope);
  });
}

HRESULT unregisterServer(win32::RegistrationScope scope) noexcept {
  return forThisServer([scope](const Text& path, std::span<const win32::ServerClass> classes) {
    return win32::unregisterServer(path, classes, scope);
  });
}

}  // namespace tillora::host::automation
