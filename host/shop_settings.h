#pragma once

#include <memory>
#include <optional>

#include "component/contract/host_objects.h"
#include "host/shop_file.h"

namespace tillora::host {

/// Names under which this host keeps the settings that are members of the settings store.
namespace setting_names {
inline constexpr TextView decimalPlaces = u"DecimalPlaces";
inline constexpr TextView currencyFormat = u"CurrencyFormat";
inline constexpr TextView decimalSeparator = u"DecimalSeparator";
inline constexpr TextView dispensingAvailable = u"DispensingAvailable";  ///< "True" or "False"
inline constexpr TextView dataFile = u"DataFile";  ///< of the accounting package
}  // namespace setting_names

/// Settings of the machine, kept in the shop's file so that a save covers them too.
class ShopSettings final : public SettingsStore {
 public:
  explicit ShopSettings(std::shared_ptr<ShopFile> file);

  std::optional<std::int16_t> decimalPlaces() override;
  Text currencyFormat() override;
  Text decimalSeparator() override;
  bool dispensingAvailable() override;
  std::optional<Text> setting(TextView name) override;
  void setSetting(TextView name, TextView value) override;

 private:
  std::shared_ptr<ShopFile> file_;
};

/// Reads and writes one setting for the named object.
std::optional<Text> readSetting(ShopFile& file, TextView name, TextView object);
void writeSetting(ShopFile& file, TextView name, TextView value, TextView object);

}  // namespace tillora::host
