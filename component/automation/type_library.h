#pragma once

#include <windows.h>

#include <oleauto.h>

#include "com/com_ptr.h"

namespace tillora::automation {

/// The type library inside the module.
win32::ComPtr<ITypeLib> loadTypeLibrary();
/// The description of one of its types.
win32::ComPtr<ITypeInfo> loadTypeInfo(const GUID& type);

}  // namespace tillora::automation
