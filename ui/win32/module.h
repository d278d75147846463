#pragma once

#include <windows.h>

#include <memory>

namespace tillora::ui::win32 {

/// The module (program or library) that this code is linked into.
HINSTANCE thisModule();

/// Makes the common controls those of the module's manifest (resource 2 of type 24) while it lives.
/// Without such a resource it does nothing.
class VisualStyles {
 public:
  VisualStyles();
  VisualStyles(const VisualStyles&) = delete;
  VisualStyles& operator=(const VisualStyles&) = delete;
  ~VisualStyles();

 private:
  HANDLE context_;
  ULONG_PTR cookie_ = 0;
  bool active_ = false;
};

/// The class of windows that hold the controls of a frame. It is registered while anyone holds it,
/// so that nothing is left behind when the module is unloaded.
class FrameClass {
 public:
  static std::shared_ptr<FrameClass> get();
  FrameClass();
  FrameClass(const FrameClass&) = delete;
  FrameClass& operator=(const FrameClass&) = delete;
  ~FrameClass();

  static constexpr const wchar_t* kName = L"TilloraOptionsFrame";
};

}  // namespace tillora::ui::win32
