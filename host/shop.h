#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <ostream>

#include "component/contract/host_objects.h"
#include "host/shop_file.h"

namespace tillora::host {

/// What a new shop database starts with.
struct ShopContents {
  /// False: tables and machine settings only, no stored option and no row; a first use.
  bool seeded = true;
  /// Number of items in the catalogue; the small seeded catalogue if not given.
  std::optional<std::int32_t> itemCount;
};

/// One open shop: the host objects that its program hands to the component.
class Shop {
 public:
  /// Opens the shop database, and makes it with these contents if there is none yet. Two programs
  /// that start at once make it only once.
  static Shop open(TextView path, const ShopContents& contents = {},
                   std::chrono::milliseconds busyTimeout = kBusyTimeout);

  const std::shared_ptr<JetDatabase>& database() const { return database_; }
  const std::shared_ptr<SettingsStore>& settings() const { return settings_; }
  const std::shared_ptr<ResourceStrings>& strings() const { return strings_; }
  ShopFile& file() const { return *file_; }

  /// Prints every stored option, setting and table row as UTF-8 lines in a stable order; for a
  /// password only whether one is set.
  void dump(std::ostream& out) const;

  /// Ends the connection; objects handed out earlier fail from then on.
  void close() { file_->close(); }

 private:
  explicit Shop(std::shared_ptr<ShopFile> file);

  std::shared_ptr<ShopFile> file_;
  std::shared_ptr<JetDatabase> database_;
  std::shared_ptr<SettingsStore> settings_;
  std::shared_ptr<ResourceStrings> strings_;
};

}  // namespace tillora::host
