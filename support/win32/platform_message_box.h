#pragma once

#include "component/host_objects.h"

namespace tillora::win32 {

/// The system's message box, owned by the thread's active window. The secondary text goes below the
/// text, after an empty line.
class PlatformMessageBox final : public HostMessageBox {
 public:
  /// The system's box needs no settings.
  void setSettingsStore(const std::shared_ptr<SettingsStore>& settings) override;
  MessageResult show(TextView text, std::int32_t style, TextView title,
                     TextView secondaryText) override;
};

}  // namespace tillora::win32
