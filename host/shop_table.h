#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "component/contract/host_objects.h"
#include "host/shop_file.h"
#include "host/shop_schema.h"

namespace tillora::host {

/// A table of the shop with one current row: the first one when opened. Rows come in the order in
/// which they were added.
///
/// The current row is a copy. Other rows may change, come and go meanwhile, by this program or
/// another; moveNext() goes on to the row that now follows. A find that finds nothing leaves the
/// current row, and so does update() after addNew(). Moving drops an edit that was not updated.
class ShopTable final : public Table {
 public:
  ShopTable(std::shared_ptr<ShopFile> file, const TableSchema& schema);

  void moveFirst() override;
  void moveNext() override;
  bool atEnd() override;
  void findFirst(TextView criteria) override;
  void findNext(TextView criteria) override;
  bool noMatch() override;
  void addNew() override;
  void edit() override;
  void update() override;
  void remove() override;
  Value get(Field field) override;
  void set(Field field, const Value& value) override;

 private:
  enum class Position : std::uint8_t { onRow, onDeletedRow, atEnd };
  enum class Editing : std::uint8_t { none, added, current };

  bool readRow(Statement& statement);
  void moveAfter(std::int64_t rowId);
  void find(TextView criteria, std::int64_t afterRowId);
  std::size_t columnIndex(Field field) const;
  void requireRow() const;
  void insertRow();
  void updateRow();
  void bindRow(Statement& statement) const;

  std::shared_ptr<ShopFile> file_;
  const TableSchema& schema_;
  std::string selectRows_;  ///< "SELECT rowid, ... FROM ... WHERE "
  Position position_ = Position::atEnd;
  Editing editing_ = Editing::none;
  bool noMatch_ = false;
  std::int64_t rowId_ = 0;
  std::vector<Value> row_;
  std::vector<Value> edited_;
};

}  // namespace tillora::host
