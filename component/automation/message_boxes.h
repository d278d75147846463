#pragma once

#include "component/platform.h"

namespace tillora::automation {

/// The host's registered message box class, TilloraHost.HostMessageBox, a new object each time; the
/// system's message box where no such class is registered. A class that is registered but cannot be
/// created is a failure of the host.
class AutomationMessageBoxes final : public MessageBoxes {
 public:
  std::unique_ptr<HostMessageBox> create() override;
};

}  // namespace tillora::automation
