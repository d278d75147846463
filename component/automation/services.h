#pragma once

#include <memory>

#include "component/contract/platform.h"

namespace tillora::automation {

/// What an Options object works with; it owns them.
class Services {
 public:
  virtual ~Services() = default;
  /// With the user's current regional settings.
  virtual Platform platform() = 0;
};

/// The real ones: windows, the host's or the platform's message boxes, and the machine.
std::unique_ptr<Services> makeServices();

}  // namespace tillora::automation
