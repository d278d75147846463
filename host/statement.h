#pragma once

#include <cstdint>
#include <memory>

#include "base/text.h"

struct sqlite3_stmt;

namespace tillora::host {

class ShopFile;

struct StatementDeleter {
  void operator()(sqlite3_stmt* statement) const;
};
using PreparedStatement = std::unique_ptr<sqlite3_stmt, StatementDeleter>;

/// One run of a prepared statement, ended when this goes out of scope, so that no read stays open
/// between two calls of the host's objects. Parameters count from 1, columns from 0. Failures are
/// raised in the name of the object that asked for the statement.
class Statement {
 public:
  Statement(ShopFile& file, sqlite3_stmt* prepared, TextView object);
  ~Statement();
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  void bind(int parameter, std::int64_t number);
  void bind(int parameter, double number);
  void bind(int parameter, TextView text);
  void bindNull(int parameter);

  /// True while there is a row.
  bool step();
  /// Runs a statement that gives no rows.
  void execute() {
    while (step()) {
    }
  }

  bool isNull(int column) const;
  bool isText(int column) const;
  std::int64_t integer(int column) const;
  double real(int column) const;
  Text text(int column) const;

 private:
  void check(int result);

  ShopFile& file_;
  sqlite3_stmt* prepared_;
  TextView object_;
};

}  // namespace tillora::host
