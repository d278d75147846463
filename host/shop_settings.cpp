#include "host/shop_settings.h"

#include <utility>

#include "host/shop_error.h"
#include "host/text_encoding.h"

namespace tillora::host {
namespace {}  // namespace

std::optional<Text> readSetting(ShopFile& file, TextView name, TextView object) {
  Statement row = file.statement("SELECT Value FROM settings WHERE Name = ?1", object);
  row.bind(1, name);
  if (!row.step()) return std::nullopt;
  return row.text(0);
}

void writeSetting(ShopFile& file, TextView name, TextView value, TextView object) {
  Statement row = file.writingStatement(
      "INSERT INTO settings (Name, Value) VALUES (?1, ?2) "
      "ON CONFLICT (Name) DO UPDATE SET Value = excluded.Value",
      object);
  row.bind(1, name);
  row.bind(2, value);
  row.execute();
}

ShopSettings::ShopSettings(std::shared_ptr<ShopFile> file) : file_(std::move(file)) {}

std::optional<std::int16_t> ShopSettings::decimalPlaces() {
  const std::optional<Text> places = setting(setting_names::decimalPlaces);
  if (!places) return std::nullopt;
  if (places->size() != 1 || places->front() < u'0' || places->front() > u'9') {
    fail(error::typeMismatch, shop_object::settings,
         u"The setting 'DecimalPlaces' is not one digit.");
  }
  return static_cast<std::int16_t>(places->front() - u'0');
}

Text ShopSettings::currencyFormat() {
  return setting(setting_names::currencyFormat).value_or(Text());
}

Text ShopSettings::decimalSeparator() {
  return setting(setting_names::decimalSeparator).value_or(Text());
}

bool ShopSettings::dispensingAvailable() {
  return sameName(setting(setting_names::dispensingAvailable).value_or(Text()), u"True");
}

std::optional<Text> ShopSettings::setting(TextView name) {
  return readSetting(*file_, name, shop_object::settings);
}

void ShopSettings::setSetting(TextView name, TextView value) {
  writeSetting(*file_, name, value, shop_object::settings);
}

}  // namespace tillora::host
