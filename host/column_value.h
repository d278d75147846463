#pragma once

#include "base/values.h"
#include "host/shop_schema.h"
#include "host/statement.h"

namespace tillora::host {

/// The value as the column holds it: Text, std::int32_t, bool, or none. Whole numbers and truth
/// values convert to each other (True is -1 as a number). A text and a number do not: that is a
/// type mismatch, raised for `object`.
Value columnValue(const Value& value, const Column& column, TextView object);

/// The value of a result's column; a number beyond 32 bits is an overflow.
Value readColumn(const Statement& statement, int index, const Column& column, TextView object);
/// Binds a value as columnValue() gives it.
void bindColumn(Statement& statement, int parameter, const Value& value);

}  // namespace tillora::host
