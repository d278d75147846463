#pragma once

#include "component/contract/platform.h"

namespace tillora::win32 {

/// The machine's clock: local time, to the second.
class SystemClock final : public Clock {
 public:
  DateTime now() override;
};

}  // namespace tillora::win32
