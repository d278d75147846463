#include "host/shop_table.h"

#include <limits>
#include <utility>

#include "host/column_value.h"
#include "host/criteria.h"
#include "host/shop_error.h"
#include "host/text_encoding.h"

namespace tillora::host {
namespace {

constexpr std::int64_t kBeforeFirst = std::numeric_limits<std::int64_t>::min();

}  // namespace

ShopTable::ShopTable(std::shared_ptr<ShopFile> file, const TableSchema& schema)
    : file_(std::move(file)), schema_(schema), row_(schema.columns.size()) {
  selectRows_ = "SELECT rowid, " + columnList(schema) + " FROM " +
                quotedName(fromUtf8(schema.name)) + " WHERE ";
  moveFirst();
}

bool ShopTable::readRow(Statement& statement) {
  if (!statement.step()) return false;
  std::vector<Value> row(row_.size());
  for (std::size_t i = 0; i < row.size(); ++i) {
    row[i] = readColumn(statement, static_cast<int>(i) + 1, schema_.columns[i], shop_object::table);
  }
  // Only a whole row becomes the current one.
  row_.swap(row);
  rowId_ = statement.integer(0);
  position_ = Position::onRow;
  return true;
}

void ShopTable::moveAfter(std::int64_t rowId) {
  editing_ = Editing::none;
  Statement next =
      file_->statement(selectRows_ + "rowid > ?1 ORDER BY rowid LIMIT 1", shop_object::table);
  next.bind(1, rowId);
  if (!readRow(next)) position_ = Position::atEnd;
}

void ShopTable::moveFirst() { moveAfter(kBeforeFirst); }

void ShopTable::moveNext() {
  if (position_ == Position::atEnd) {
    fail(shop_error::noCurrentRow, shop_object::table, u"There is no current row to move on from.");
  }
  moveAfter(rowId_);
}

bool ShopTable::atEnd() { return position_ == Position::atEnd; }

void ShopTable::find(TextView criteria, std::int64_t afterRowId) {
  editing_ = Editing::none;
  const Criteria parsed(criteria, schema_);
  const std::string position = std::to_string(parsed.parameterCount() + 1);
  Statement rows = file_->statement(
      selectRows_ + parsed.sql() + " AND rowid > ?" + position + " ORDER BY rowid LIMIT 1",
      shop_object::table);
  parsed.bind(rows);
  rows.bind(parsed.parameterCount() + 1, afterRowId);
  noMatch_ = !readRow(rows);
}

void ShopTable::findFirst(TextView criteria) { find(criteria, kBeforeFirst); }

void ShopTable::findNext(TextView criteria) {
  find(criteria, position_ == Position::atEnd ? std::numeric_limits<std::int64_t>::max() : rowId_);
}

bool ShopTable::noMatch() { return noMatch_; }

void ShopTable::requireRow() const {
  if (position_ == Position::atEnd) {
    fail(shop_error::noCurrentRow, shop_object::table, u"There is no current row.");
  }
  if (position_ == Position::onDeletedRow) {
    fail(shop_error::rowDeleted, shop_object::table, u"The current row was deleted.");
  }
}

void ShopTable::addNew() {
  editing_ = Editing::none;
  edited_.assign(schema_.columns.size(), Value());
  editing_ = Editing::added;
}

void ShopTable::edit() {
  requireRow();
  editing_ = Editing::none;
  edited_ = row_;
  editing_ = Editing::current;
}

void ShopTable::update() {
  if (editing_ == Editing::none) {
    fail(shop_error::noEditInProgress, shop_object::table, u"Update without AddNew or Edit.");
  }
  if (editing_ == Editing::added) {
    insertRow();
  } else {
    updateRow();
  }
  editing_ = Editing::none;
}

void ShopTable::bindRow(Statement& statement) const {
  for (std::size_t i = 0; i < edited_.size(); ++i) {
    bindColumn(statement, static_cast<int>(i) + 1, edited_[i]);
  }
}

void ShopTable::insertRow() {
  std::string places;
  for (std::size_t i = 1; i <= edited_.size(); ++i) {
    places += (i == 1 ? "?" : ", ?") + std::to_string(i);
  }
  Statement insert =
      file_->writingStatement("INSERT INTO " + quotedName(fromUtf8(schema_.name)) + " (" +
                                  columnList(schema_) + ") VALUES (" + places + ")",
                              shop_object::table);
  bindRow(insert);
  insert.execute();
}

void ShopTable::updateRow() {
  std::string assignments;
  for (std::size_t i = 0; i < edited_.size(); ++i) {
    if (i != 0) assignments += ", ";
    assignments += quotedName(schema_.columns[i].field.name) + " = ?" + std::to_string(i + 1);
  }
  const int rowParameter = static_cast<int>(edited_.size()) + 1;
  Statement change =
      file_->writingStatement("UPDATE " + quotedName(fromUtf8(schema_.name)) + " SET " +
                                  assignments + " WHERE rowid = ?" + std::to_string(rowParameter),
                              shop_object::table);
  bindRow(change);
  change.bind(rowParameter, rowId_);
  change.execute();
  if (file_->changedRows() == 0) {
    fail(shop_error::rowDeleted, shop_object::table,
         u"The row was deleted by another program meanwhile.");
  }
  row_.swap(edited_);
}

void ShopTable::remove() {
  requireRow();
  editing_ = Editing::none;
  Statement erase = file_->writingStatement(
      "DELETE FROM " + quotedName(fromUtf8(schema_.name)) + " WHERE rowid = ?1",
      shop_object::table);
  erase.bind(1, rowId_);
  erase.execute();
  position_ = Position::onDeletedRow;
}

std::size_t ShopTable::columnIndex(Field field) const {
  const Column* const column = schema_.find(field.name);
  if (column == nullptr) {
    fail(shop_error::unknownField, shop_object::table,
         u"The table '" + fromUtf8(schema_.name) + u"' has no field '" + field.name + u"'.");
  }
  return static_cast<std::size_t>(column - schema_.columns.data());
}

Value ShopTable::get(Field field) {
  const std::size_t index = columnIndex(field);
  if (editing_ != Editing::none) return edited_[index];
  requireRow();
  return row_[index];
}

void ShopTable::set(Field field, const Value& value) {
  const std::size_t index = columnIndex(field);
  if (editing_ == Editing::none) {
    fail(shop_error::noEditInProgress, shop_object::table,
         u"A field is set without AddNew or Edit.");
  }
  edited_[index] = columnValue(value, schema_.columns[index], shop_object::table);
}

}  // namespace tillora::host
