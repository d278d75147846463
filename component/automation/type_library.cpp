#include "component/automation/type_library.h"

#include "com/module.h"
#include "com/wide_text.h"
#include "component/automation/com_error.h"

namespace tillora::automation {

using win32::ComPtr;

ComPtr<ITypeLib> loadTypeLibrary() {
  ComPtr<ITypeLib> library;
  throwIfFailed(LoadTypeLibEx(win32::wide(win32::pathOfModule(win32::thisModule())), REGKIND_NONE,
                              library.out()),
                u"LoadTypeLibEx");
  return library;
}

ComPtr<ITypeInfo> loadTypeInfo(const GUID& type) {
  ComPtr<ITypeInfo> info;
  throwIfFailed(loadTypeLibrary()->GetTypeInfoOfGuid(type, info.out()), u"GetTypeInfoOfGuid");
  return info;
}

}  // namespace tillora::automation
