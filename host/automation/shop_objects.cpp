#include "host/automation/shop_objects.h"

#include <TilloraOptions.h>

#include <array>
#include <utility>

#include "host/automation/options_record_object.h"
#include "host/automation/table_objects.h"

namespace tillora::host::automation {
namespace {

Text decimalSeparator(SettingsStore& settings) {
  Text separator = settings.decimalSeparator();
  if (!separator.empty()) return separator;
  wchar_t own[8];
  const int length =
      GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, own, static_cast<int>(std::size(own)));
  return length > 0 ? win32::fromWide(own) : Text();
}

/// Two if the shop does not say how many places its currency has.
std::int16_t decimalPlaces(SettingsStore& settings) {
  return settings.decimalPlaces().value_or(std::int16_t{2});
}

Variant setting(SettingsStore& settings, const Text& name) {
  const std::optional<Text> value = settings.setting(name);
  return value ? Variant(*value) : Variant();
}

}  // namespace

JetDatabaseObject::JetDatabaseObject(std::shared_ptr<JetDatabase> database)
    : TableObject(DIID_JetDatabase), database_(std::move(database)) {}

std::span<const Member<JetDatabaseObject>> JetDatabaseObject::members() {
  using Self = JetDatabaseObject;
  static constexpr std::array<Member<Self>, 11> kMembers = {{
      {1, u"OptionsRecord", 0,
       [](Self& self, const Arguments&) {
         return newObject<OptionsRecordObject>(self.database_->optionsRecord());
       }},
      {2, u"ClassTable", 0,
       [](Self& self, const Arguments&) {
         return newObject<ShopTableObject>(self.database_->classTable());
       }},
      {3, u"AccountTable", 0,
       [](Self& self, const Arguments&) {
         return newObject<ShopTableObject>(self.database_->accountTable());
       }},
      {4, u"RandomPriceTable", 0,
       [](Self& self, const Arguments&) {
         return newObject<ShopTableObject>(self.database_->randomPriceTable());
       }},
      {5, u"GradeTable", 0,
       [](Self& self, const Arguments&) {
         return newObject<ShopTableObject>(self.database_->gradeTable());
       }},
      {6, u"WebSiteTable", 0,
       [](Self& self, const Arguments&) {
         return newObject<ShopTableObject>(self.database_->webSiteTable());
       }},
      {7, u"CurrencyTable", 0,
       [](Self& self, const Arguments&) {
         return newObject<ShopTableObject>(self.database_->currencyTable());
       }},
      {8, u"ItemList", 0,
       [](Self& self, const Arguments&) {
         return newObject<ItemListObject>(self.database_->itemList());
       }},
      {9, u"PaymentItemList", 0,
       [](Self& self, const Arguments&) {
         return newObject<PaymentItemListObject>(self.database_->paymentItemList());
       }},
      {10, u"TerminalCount", 1,
       [](Self& self, const Arguments& arguments) {
         return Variant(self.database_->terminalCount(arguments.text(0)));
       }},
      {11, u"DataFile", 0,
       [](Self& self, const Arguments&) { return Variant(self.database_->dataFile()); },
       [](Self& self, const Arguments& arguments) {
         self.database_->setDataFile(arguments.text(0));
       }},
  }};
  return kMembers;
}

SettingsStoreObject::SettingsStoreObject(std::shared_ptr<SettingsStore> settings)
    : TableObject(DIID_SettingsStore), settings_(std::move(settings)) {}

std::span<const Member<SettingsStoreObject>> SettingsStoreObject::members() {
  using Self = SettingsStoreObject;
  static constexpr std::array<Member<Self>, 5> kMembers = {{
      {1, u"DecimalPlaces", 0,
       [](Self& self, const Arguments&) { return Variant(decimalPlaces(*self.settings_)); }},
      {2, u"CurrencyFormat", 0,
       [](Self& self, const Arguments&) { return Variant(self.settings_->currencyFormat()); }},
      {3, u"DecimalSeparator", 0,
       [](Self& self, const Arguments&) { return Variant(decimalSeparator(*self.settings_)); }},
      {4, u"Setting", 1,
       [](Self& self, const Arguments& arguments) {
         return setting(*self.settings_, arguments.text(0));
       },
       [](Self& self, const Arguments& arguments) {
         self.settings_->setSetting(arguments.text(0), arguments.text(1));
       }},
      {5, u"DispensingAvailable", 0,
       [](Self& self, const Arguments&) { return Variant(self.settings_->dispensingAvailable()); }},
  }};
  return kMembers;
}

ResourceStringsObject::ResourceStringsObject(std::shared_ptr<ResourceStrings> strings)
    : TableObject(DIID_ResourceStrings), strings_(std::move(strings)) {}

std::span<const Member<ResourceStringsObject>> ResourceStringsObject::members() {
  using Self = ResourceStringsObject;
  static constexpr std::array<Member<Self>, 1> kMembers = {{
      {1, u"ResourceString", 1,
       [](Self& self, const Arguments& arguments) {
         return Variant(self.strings_->string(arguments.number(0)));
       }},
  }};
  return kMembers;
}

}  // namespace tillora::host::automation
