#include "host/criteria.h"

#include <cstdint>
#include <limits>
#include <utility>

#include "host/criteria_scanner.h"
#include "host/shop_error.h"

namespace tillora::host {
namespace {

constexpr std::size_t kMostConditions = 32;
constexpr std::int64_t kHighestChr = 127;

class Parser {
 public:
  Parser(TextView text, const TableSchema& table) : scanner_(text), table_(table) {}

  bool atEnd() { return scanner_.atEnd(); }

  void expectAnd() {
    if (!scanner_.takeWord(u"AND")) scanner_.refuse(u"AND");
  }

  std::pair<const Column*, Value> condition() {
    const Column& column = field();
    if (!scanner_.take(u'=')) scanner_.refuse(u"=");
    Value value = literal();
    return {&column, converted(std::move(value), column)};
  }

 private:
  const Column& field() {
    const Text name = scanner_.name();
    const Column* column = table_.find(name);
    if (column == nullptr) {
      fail(shop_error::unknownField, shop_object::database,
           u"The table has no field '" + name + u"' (criteria: " + scanner_.all() + u").");
    }
    return *column;
  }

  Value literal() {
    if (scanner_.takeWord(u"True")) return true;
    if (scanner_.takeWord(u"False")) return false;
    if (const auto number = scanner_.takeNumber()) {
      // No column holds a larger number, so it could never be equal.
      if (*number < std::numeric_limits<std::int32_t>::min() ||
          *number > std::numeric_limits<std::int32_t>::max()) {
        scanner_.refuse(u"a number of 32 bits");
      }
      return static_cast<std::int32_t>(*number);
    }
    Text text = piece();
    while (scanner_.take(u'&')) text += piece();
    return text;
  }

  Text piece() {
    if (auto quoted = scanner_.takeQuoted()) return *std::move(quoted);
    if (!scanner_.takeWord(u"Chr$")) scanner_.refuse(u"a value");
    if (!scanner_.take(u'(')) scanner_.refuse(u"(");
    const auto code = scanner_.takeNumber();
    if (!code || *code < 0 || *code > kHighestChr) scanner_.refuse(u"a character code, 0 to 127");
    if (!scanner_.take(u')')) scanner_.refuse(u")");
    return Text(1, static_cast<char16_t>(*code));
  }

  Value converted(Value value, const Column& column) const {
    const bool isText = value.is<Text>();
    if (isText != (column.field.type == FieldType::Text)) {
      fail(shop_error::criteriaType, shop_object::database,
           Text(u"The field '") + column.field.name + u"' cannot equal such a value (criteria: " +
               scanner_.all() + u").");
    }
    if (isText) return value;
    // True is -1 as a number, and every number but 0 is True.
    if (column.field.type == FieldType::Boolean) {
      if (const auto* number = value.as<std::int32_t>()) return *number != 0;
      return value;
    }
    if (const auto* truth = value.as<bool>()) {
      return std::int32_t{*truth ? -1 : 0};
    }
    return value;
  }

  CriteriaScanner scanner_;
  const TableSchema& table_;
};

}  // namespace

Criteria::Criteria(TextView text, const TableSchema& table) {
  Parser parser(text, table);
  do {
    if (!values_.empty()) parser.expectAnd();
    if (values_.size() == kMostConditions) {
      fail(shop_error::criteriaSyntax, shop_object::database,
           u"The criteria have too many conditions.");
    }
    auto [column, value] = parser.condition();
    if (!values_.empty()) sql_ += " AND ";
    values_.push_back(std::move(value));
    sql_ += quotedName(column->field.name) + " = ?" + std::to_string(values_.size());
  } while (!parser.atEnd());
}

void Criteria::bind(Statement& statement) const {
  int parameter = 0;
  for (const Value& value : values_) {
    ++parameter;
    if (const auto* text = value.as<Text>()) {
      statement.bind(parameter, TextView(*text));
    } else if (const auto* truth = value.as<bool>()) {
      statement.bind(parameter, std::int64_t{*truth});
    } else {
      statement.bind(parameter, std::int64_t{value.get<std::int32_t>()});
    }
  }
}

}  // namespace tillora::host
