#pragma once

#include <windows.h>

#include "ui/text.h"

namespace tillora::host::automation {

/// Keeps the module loaded while it lives: one in every object, one per LockServer.
class ModuleLock {
 public:
  ModuleLock();
  ModuleLock(const ModuleLock&) = delete;
  ModuleLock& operator=(const ModuleLock&) = delete;
  ~ModuleLock();

  static void lockServer(bool lock);
  static long count();
};

/// Path of a module; of the running program for null.
Text pathOfModule(HMODULE module);

}  // namespace tillora::host::automation
