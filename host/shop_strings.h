#pragma once

#include <memory>

#include "component/contract/host_objects.h"
#include "host/shop_file.h"

namespace tillora::host {

/// Numbered strings in the language of the shop. A number without a string is an Error (326).
class ShopStrings final : public ResourceStrings {
 public:
  explicit ShopStrings(std::shared_ptr<ShopFile> file);
  Text string(std::int32_t number) override;

 private:
  std::shared_ptr<ShopFile> file_;
};

}  // namespace tillora::host
