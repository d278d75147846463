#pragma once

#include <windows.h>

#include "base/text.h"

namespace tillora::win32 {

/// The module (program or library) that this code is linked into.
HINSTANCE thisModule();

/// Full path of a module; null means the running program.
Text pathOfModule(HMODULE module);

/// Keeps this module loaded during its lifetime: one in every COM object, one per LockServer.
class ModuleLock {
 public:
  ModuleLock();
  ModuleLock(const ModuleLock&);
  ModuleLock& operator=(const ModuleLock&) = default;
  ~ModuleLock();

  static void lockServer(bool lock);
  /// Number of objects and locks that keep the module loaded.
  static long count();
};

}  // namespace tillora::win32
