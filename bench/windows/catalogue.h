#pragma once

#include <windows.h>

#include <oleauto.h>

#include <filesystem>

#include "com/com_ptr.h"
#include "component/automation/dispatch_object.h"
#include "ui/win32/handles.h"

namespace tillora::bench {

/// A shop of the reference host with 100,000 items, and a window that stands for the host's.
class Catalogue {
 public:
  Catalogue();
  ~Catalogue();
  Catalogue(const Catalogue&) = delete;
  Catalogue& operator=(const Catalogue&) = delete;

  IDispatch* database() const { return database_.get(); }

 private:
  std::filesystem::path folder_;
  automation::DispatchObject shop_;
  win32::ComPtr<IDispatch> database_;
  ui::win32::Window owner_;
};

}  // namespace tillora::bench
