#pragma once

#include "component/contract/platform.h"

namespace tillora::win32 {

/// HKEY_CURRENT_USER.
class UserRegistry final : public Registry {
 public:
  std::unique_ptr<RegistryKey> open(TextView key, Access access) override;
};

}  // namespace tillora::win32
