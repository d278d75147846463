#pragma once

#include <string>
#include <vector>

#include "base/values.h"
#include "host/shop_schema.h"
#include "host/statement.h"

namespace tillora::host {

/// What a row must satisfy, parsed from the query language of the shop database:
///
///     criteria  = condition { AND condition }
///     condition = field "=" ( text | number | True | False )
///     field     = Name | [any name]
///     text      = piece { & piece }          piece = 'letters' | Chr$(0 to 127)
///     number    = [ + | - ] digits
///
/// with blanks between the tokens or none, and words in any case. Inside 'letters' the characters '
/// | ; are not allowed: they are written with Chr$. Texts compare exactly, case included. Anything
/// else, a field that the table does not have, and a value that its field cannot hold are Errors.
///
/// No part of a criteria text ever becomes part of an SQL text: field names are replaced by the
/// table's own column names and values are bound.
class Criteria {
 public:
  Criteria(TextView text, const TableSchema& table);

  /// "column = ?n AND ..." with parameters from 1 on.
  const std::string& sql() const { return sql_; }
  /// Binds the values.
  void bind(Statement& statement) const;
  int parameterCount() const { return static_cast<int>(values_.size()); }

 private:
  std::string sql_;
  std::vector<Value> values_;  ///< Text, std::int32_t or bool
};

}  // namespace tillora::host
