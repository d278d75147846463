#pragma once

#include <memory>

#include "component/contract/host_objects.h"
#include "host/shop_file.h"

namespace tillora::host {

/// The record of stored options. A row exists for an option only when a value is stored.
///
/// The first write starts a save; commit() makes lasting all that was written on the shop's
/// connection since then. Released without commit, the record undoes it.
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

/// The stored value of one option, and its storing within or without a save. No value removes it.
Value readOption(ShopFile& file, const OptionInfo& option);
void writeOption(ShopFile& file, const OptionInfo& option, const Value& value);

/// The option of that name, in any case; null where there is none.
const OptionInfo* findOption(TextView name);

}  // namespace tillora::host
