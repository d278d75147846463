#include "host/shop_database.h"

#include <utility>

#include "host/criteria.h"
#include "host/shop_error.h"
#include "host/shop_items.h"
#include "host/shop_settings.h"
#include "host/shop_table.h"
#include "host/stored_options.h"

namespace tillora::host {
namespace {}  // namespace

ShopDatabase::ShopDatabase(std::shared_ptr<ShopFile> file) : file_(std::move(file)) {}

std::unique_ptr<OptionsRecord> ShopDatabase::optionsRecord() {
  return std::make_unique<StoredOptions>(file_);
}

std::unique_ptr<Table> ShopDatabase::classTable() {
  return std::make_unique<ShopTable>(file_, tables::classes);
}
std::unique_ptr<Table> ShopDatabase::accountTable() {
  return std::make_unique<ShopTable>(file_, tables::accounts);
}
std::unique_ptr<Table> ShopDatabase::randomPriceTable() {
  return std::make_unique<ShopTable>(file_, tables::randomPrices);
}
std::unique_ptr<Table> ShopDatabase::gradeTable() {
  return std::make_unique<ShopTable>(file_, tables::grades);
}
std::unique_ptr<Table> ShopDatabase::webSiteTable() {
  return std::make_unique<ShopTable>(file_, tables::webSites);
}
std::unique_ptr<Table> ShopDatabase::currencyTable() {
  return std::make_unique<ShopTable>(file_, tables::currencies);
}

std::unique_ptr<Cursor<Item>> ShopDatabase::itemList() {
  return std::make_unique<ShopItems<Item>>(file_);
}
std::unique_ptr<Cursor<PaymentItem>> ShopDatabase::paymentItemList() {
  return std::make_unique<ShopItems<PaymentItem>>(file_);
}

std::int32_t ShopDatabase::terminalCount(TextView criteria) {
  const Criteria parsed(criteria, tables::terminals);
  Statement count = file_->statement("SELECT count(*) FROM terminals WHERE " + parsed.sql(),
                                     shop_object::database);
  parsed.bind(count);
  count.step();
  return static_cast<std::int32_t>(count.integer(0));
}

Text ShopDatabase::dataFile() {
  return readSetting(*file_, setting_names::dataFile, shop_object::database).value_or(Text());
}

void ShopDatabase::setDataFile(TextView path) {
  writeSetting(*file_, setting_names::dataFile, path, shop_object::database);
}

}  // namespace tillora::host
