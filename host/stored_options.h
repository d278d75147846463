#pragma once

#include <memory>

#include "component/contract/host_objects.h"
#include "host/shop_file.h"

namespace tillora::host {

/// The record of stored options. A row exists for an option only when a value is stored.
///
/// The first write starts a save; commit() makes permanent everything written on the shop's
/// connection since then. A record that is released without it undoes the save.
class StoredOptions final : public OptionsRecord {
 public:
  explicit StoredOptions(std::shared_ptr<ShopFile> file);
  ~StoredOptions() override;
  StoredOptions(const StoredOptions&) = delete;
  StoredOptions& operator=(const StoredOptions&) = delete;

  Value read(OptionId option) override;
  /// A value of another type than the option's is a type mismatch. No value removes the stored one.
  void write(OptionId option, const Value& value) override;
  void commit() override;

 private:
  std::shared_ptr<ShopFile> file_;
};

/// Reads and stores one option, within or without a save. Storing no value removes it.
Value readOption(ShopFile& file, const OptionInfo& option);
void writeOption(ShopFile& file, const OptionInfo& option, const Value& value);

/// The option of that name, in any case; null for none.
const OptionInfo* findOption(TextView name);

}  // namespace tillora::host
