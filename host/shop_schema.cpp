#include "host/shop_schema.h"

#include <algorithm>
#include <array>

#include "host/shop_error.h"
#include "host/shop_file.h"
#include "host/text_encoding.h"

namespace tillora::host {
namespace {

constexpr std::array kClassColumns = {
    Column{fields::class_::Name},
    Column{fields::class_::Hidden},
};
constexpr std::array kAccountColumns = {
    Column{fields::account::Name, true},
    Column{fields::account::Inactive},
    Column{fields::account::AccountType},
};
constexpr std::array kRandomPriceColumns = {
    Column{fields::randomPrice::Prefix, true},        Column{fields::randomPrice::FormatID},
    Column{fields::randomPrice::OptionBits},          Column{fields::randomPrice::UOMUnitCaption},
    Column{fields::randomPrice::UOMPriceUnitCaption}, Column{fields::randomPrice::Inactive},
};
constexpr std::array kGradeColumns = {
    Column{fields::grade::GradeNumber, true},
    Column{fields::grade::Product},
    Column{fields::grade::Caption},
};
constexpr std::array kWebSiteColumns = {
    Column{fields::webSite::Description},
    Column{fields::webSite::URL, true},
    Column{fields::webSite::Inactive},
};
constexpr std::array kCurrencyColumns = {
    Column{fields::currency::Name, true},
};
constexpr std::array kTerminalColumns = {
    Column{{u"Name"}},
    Column{fields::terminal::ReportingBits},
};
constexpr std::array kItemColumns = {
    Column{{u"ItemType"}}, Column{{u"ProductNumber"}}, Column{{u"Group"}},
    Column{{u"Name"}},     Column{{u"Description"}},   Column{{u"Account"}},
};
constexpr std::array kPaymentItemColumns = {
    Column{{u"Name"}},
    Column{{u"Description"}},
    Column{{u"Account"}},
};

void createTable(ShopFile& file, const TableSchema& table) {
  const std::string tableName = quotedName(fromUtf8(table.name));
  std::string columns;
  for (const Column& column : table.columns) {
    if (!columns.empty()) columns += ", ";
    columns += quotedName(column.field.name);
    columns += column.field.type == FieldType::Text ? " TEXT" : " INTEGER";
  }
  const std::string create = "CREATE TABLE " + tableName + " (" + columns + ")";
  file.execute(create.c_str(), shop_object::database);

  for (const Column& column : table.columns) {
    if (!column.indexed) continue;
    const std::string columnName = quotedName(column.field.name);
    std::string index = "CREATE INDEX ";
    index += quotedName(fromUtf8(table.name) + u"_by_" + column.field.name);
    index.append(" ON ").append(tableName).append(" (").append(columnName).append(")");
    file.execute(index.c_str(), shop_object::database);
  }
}

}  // namespace

namespace tables {
const TableSchema classes{"classes", kClassColumns};
const TableSchema accounts{"accounts", kAccountColumns};
const TableSchema randomPrices{"random_prices", kRandomPriceColumns};
const TableSchema grades{"grades", kGradeColumns};
const TableSchema webSites{"web_sites", kWebSiteColumns};
const TableSchema currencies{"currencies", kCurrencyColumns};
const TableSchema terminals{"terminals", kTerminalColumns};
const TableSchema items{"items", kItemColumns};
const TableSchema paymentItems{"payment_items", kPaymentItemColumns};

std::span<const TableSchema* const> all() {
  static constexpr std::array kAll = {&classes,   &accounts, &randomPrices,
                                      &grades,    &webSites, &currencies,
                                      &terminals, &items,    &paymentItems};
  return kAll;
}
}  // namespace tables

const Column* TableSchema::find(TextView field) const {
  const auto found = std::ranges::find_if(
      columns, [&](const Column& column) { return sameName(column.field.name, field); });
  return found == columns.end() ? nullptr : &*found;
}

std::string quotedName(TextView name) {
  std::string quoted = "\"";
  for (const char c : toUtf8(name)) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + '"';
}

std::string columnList(const TableSchema& table) {
  std::string list;
  for (const Column& column : table.columns) {
    if (!list.empty()) list += ", ";
    list += quotedName(column.field.name);
  }
  return list;
}

void createTables(ShopFile& file) {
  for (const TableSchema* table : tables::all()) createTable(file, *table);
  // The options' values have no column type: each keeps the type it was stored with.
  file.execute(
      "CREATE TABLE options (Name TEXT PRIMARY KEY NOT NULL, Value NOT NULL);"
      "CREATE TABLE settings (Name TEXT PRIMARY KEY NOT NULL, Value TEXT NOT NULL);"
      "CREATE TABLE strings (Number INTEGER PRIMARY KEY NOT NULL, Value TEXT NOT NULL);",
      shop_object::database);
  const std::string marks = "PRAGMA application_id = " + std::to_string(kApplicationId) +
                            "; PRAGMA user_version = " + std::to_string(kSchemaVersion);
  file.execute(marks.c_str(), shop_object::database);
}

bool hasTables(ShopFile& file) {
  Statement version = file.statement("PRAGMA user_version", shop_object::database);
  return version.step() && version.integer(0) != 0;
}

}  // namespace tillora::host
