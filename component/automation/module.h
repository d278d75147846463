#pragma once

#include <windows.h>

#include <oleauto.h>

#include "support/win32/com_ptr.h"
#include "ui/text.h"

namespace tillora::automation {

/// Keeps the module loaded while it lives: one in every COM object, one per LockServer.
class ModuleLock {
 public:
  ModuleLock();
  ModuleLock(const ModuleLock&);
  ModuleLock& operator=(const ModuleLock&) = default;
  ~ModuleLock();

  static void lockServer(bool lock);
  /// Objects and locks that keep the module loaded.
  static long count();
};

/// Full path of the module that this code is linked into.
Text modulePath();

/// The type library inside the module.
win32::ComPtr<ITypeLib> loadTypeLibrary();
/// The description of one of its types.
win32::ComPtr<ITypeInfo> loadTypeInfo(const GUID& type);

}  // namespace tillora::automation
