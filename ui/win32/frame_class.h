#pragma once

#include <windows.h>

#include <memory>

namespace tillora::ui::win32 {

/// The class of windows that hold the controls of a frame. It is registered only while it is in
/// use, so that nothing is left behind when the module is unloaded.
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
