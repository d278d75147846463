#pragma once

#include <windows.h>

#include "component/contract/host_objects.h"

namespace tillora::win32 {

/// The system's message box. The secondary text goes below the text, after an empty line. Whatever
/// a text holds is shown as text; of one beyond 1,000 characters the middle is left out, and lines
/// beyond the 15th run on, so that the buttons stay in reach.
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
