#include "host/column_value.h"

#include <limits>
#include <type_traits>

#include "host/shop_error.h"

namespace tillora::host {
namespace {

[[noreturn]] void mismatch(const Column& column, TextView object) {
  fail(error::typeMismatch, object,
       Text(u"The field '") + column.field.name + u"' cannot hold such a value.");
}

std::int32_t checkedLong(std::int64_t number, const Column& column, TextView object) {
  if (number < std::numeric_limits<std::int32_t>::min() ||
      number > std::numeric_limits<std::int32_t>::max()) {
    fail(error::overflow, object,
         Text(u"The number is too large for the field '") + column.field.name + u"'.");
  }
  return static_cast<std::int32_t>(number);
}

}  // namespace

Value columnValue(const Value& value, const Column& column, TextView object) {
  return value.visit([&](const auto& held) -> Value {
    using Held = std::decay_t<decltype(held)>;
    if constexpr (std::is_same_v<Held, std::monostate>) {
      return {};
    } else if constexpr (std::is_same_v<Held, Text>) {
      if (column.field.type != FieldType::Text) mismatch(column, object);
      return held;
    } else if constexpr (std::is_integral_v<Held>) {
      if (column.field.type == FieldType::Text) mismatch(column, object);
      if (column.field.type == FieldType::Boolean) return held != Held{};
      if constexpr (std::is_same_v<Held, bool>) return std::int32_t{held ? -1 : 0};
      return std::int32_t{held};
    } else {
      mismatch(column, object);
    }
  });
}

Value readColumn(const Statement& statement, int index, const Column& column, TextView object) {
  if (statement.isNull(index)) return {};
  switch (column.field.type) {
    case FieldType::Text:
      return statement.text(index);
    case FieldType::Boolean:
      return statement.integer(index) != 0;
    case FieldType::Long:
      break;
  }
  return checkedLong(statement.integer(index), column, object);
}

void bindColumn(Statement& statement, int parameter, const Value& value) {
  if (const auto* text = value.as<Text>()) {
    statement.bind(parameter, TextView(*text));
  } else if (const auto* truth = value.as<bool>()) {
    statement.bind(parameter, std::int64_t{*truth});
  } else if (const auto* number = value.as<std::int32_t>()) {
    statement.bind(parameter, std::int64_t{*number});
  } else {
    statement.bindNull(parameter);
  }
}

}  // namespace tillora::host
