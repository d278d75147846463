#pragma once

#include <windows.h>

namespace tillora::ui::win32 {

/// During its lifetime the common controls are those of the module's manifest (resource 2 of type
/// 24). Without such a resource it does nothing.
class VisualStyles {
 public:
  VisualStyles();
  VisualStyles(const VisualStyles&) = delete;
  VisualStyles& operator=(const VisualStyles&) = delete;
  ~VisualStyles();

 private:
  ULONG_PTR cookie_ = 0;
  bool active_ = false;
};

}  // namespace tillora::ui::win32
