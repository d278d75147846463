#pragma once

#include <windows.h>

#include <oleauto.h>

#include <cstdint>
#include <filesystem>

#include "com/com_ptr.h"
#include "component/automation/dispatch_object.h"
#include "ui/win32/handles.h"

namespace tillora::bench {

/// A shop of the reference host, and a window that stands for the host's.
class Catalogue {
 public:
  /// @param items how many made-up items it has besides the few of every shop
  explicit Catalogue(std::int32_t items);
  ~Catalogue();
  Catalogue(const Catalogue&) = delete;
  Catalogue& operator=(const Catalogue&) = delete;

  IDispatch* database() const { return database_.get(); }
  /// Another object that the host hands to the component.
  win32::ComPtr<IDispatch> object(const char16_t* name);

 private:
  std::filesystem::path folder_;
  automation::DispatchObject shop_;
  win32::ComPtr<IDispatch> database_;
  ui::win32::Window owner_;
};

}  // namespace tillora::bench
