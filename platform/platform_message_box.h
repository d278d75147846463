#pragma once

#include <windows.h>

#include "component/contract/host_objects.h"

namespace tillora::win32 {

/// The system's message box. The secondary text goes below the text, after an empty line. Texts are
/// shown literally. A text of more than 1,000 characters loses its middle, and lines after the 15th
/// are joined, so that the buttons stay within reach.
class PlatformMessageBox final : public HostMessageBox {
 public:
  /// `owner` is disabled meanwhile; null for the thread's active window.
  explicit PlatformMessageBox(HWND owner = nullptr) : owner_(owner) {}

  /// The system's box needs no settings.
  void setSettingsStore(const std::shared_ptr<SettingsStore>& settings) override;
  MessageResult show(TextView text, std::int32_t style, TextView title,
                     TextView secondaryText) override;

 private:
  HWND owner_;
};

}  // namespace tillora::win32
