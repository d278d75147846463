#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "component/contract/host_objects.h"

namespace tillora::host {

class ShopFile;

/// Marks a file as a shop database ("Till"), and the layout of its tables.
inline constexpr std::int64_t kApplicationId = 0x54696C6C;
inline constexpr std::int64_t kSchemaVersion = 1;

struct Column {
  Field field;
  bool indexed = false;
};

/// A table whose columns have the names of the component's fields. Rows keep the order in which
/// they were added.
struct TableSchema {
  const char* name;
  std::span<const Column> columns;

  /// The column of that name, in any case; null for none.
  const Column* find(TextView field) const;
};

namespace tables {
extern const TableSchema classes;
extern const TableSchema accounts;
extern const TableSchema randomPrices;
extern const TableSchema grades;
extern const TableSchema webSites;
extern const TableSchema currencies;
extern const TableSchema terminals;
extern const TableSchema items;
extern const TableSchema paymentItems;
/// All of them, in the order in which they are made and printed.
std::span<const TableSchema* const> all();
}  // namespace tables

/// A name quoted for SQL, whatever characters it has.
std::string quotedName(TextView name);
/// The quoted column names of a table, separated by commas.
std::string columnList(const TableSchema& table);

/// Makes all tables, empty. Must run in a transaction.
void createTables(ShopFile& file);
/// The file has its tables.
bool hasTables(ShopFile& file);

}  // namespace tillora::host
