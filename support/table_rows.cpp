#include "support/table_rows.h"

#include "base/numbers.h"

namespace tillora {

std::optional<std::int32_t> numberKeyOf(Table& table, Field key) {
  const Value value = table.get(key);
  const auto* number = value.as<std::int32_t>();
  return number != nullptr ? std::optional(*number) : std::nullopt;
}

std::optional<Text> keyOf(Table& table, Field key) {
  if (key.type == FieldType::Long) {
    const auto number = numberKeyOf(table, key);
    return number ? std::optional(decimalText(*number)) : std::nullopt;
  }
  const Value value = table.get(key);
  const auto* text = value.as<Text>();
  return text != nullptr ? std::optional(*text) : std::nullopt;
}

bool editOrAdd(Table& table, TextView criteria) {
  table.findFirst(criteria);
  const bool isNew = table.noMatch();
  if (isNew) {
    table.addNew();
  } else {
    table.edit();
  }
  return isNew;
}

void removeUnlisted(Table& table, Field key, const std::set<Text>& listed,
                    const std::function<bool(const Text&)>& isOurs) {
  std::set<Text> awaited = listed;
  for (table.moveFirst(); !table.atEnd(); table.moveNext()) {
    const std::optional<Text> found = keyOf(table, key);
    if (!found || awaited.erase(*found) != 0) continue;
    if (listed.contains(*found) || isOurs(*found)) table.remove();
  }
}

}  // namespace tillora
