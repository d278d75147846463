#include "component/automation/registration.h"

#include "TilloraOptions.h"
#include "component/automation/com_error.h"
#include "component/automation/module.h"
#include "support/win32/server_registration.h"

namespace tillora::automation {
namespace {

const win32::ServerClass kClasses[] = {
    {CLSID_Options, u"TilloraOptions.Options", u"Tillora Options"},
};

template <class Action>
HRESULT forThisModule(Action&& action) noexcept {
  HRESULT done = E_FAIL;
  const HRESULT tried = guarded(IID_NULL, [&] { done = action(modulePath()); });
  return FAILED(tried) ? tried : done;
}

}  // namespace

HRESULT registerServer(win32::RegistrationScope scope) noexcept {
  return forThisModule([scope](const Text& path) {
    return win32::registerServer(path, LIBID_TilloraOptions, kClasses, scope);
  });
}

HRESULT unregisterServer(win32::RegistrationScope scope) noexcept {
  return forThisModule(
      [scope](const Text& path) { return win32::unregisterServer(path, kClasses, scope); });
}

}  // namespace tillora::automation
