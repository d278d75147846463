#include "component/host_objects.h"

#include <type_traits>

namespace tillora {
std::optional<std::int32_t> wholeNumber(const Value& value) {
  return std::visit(
      [](const auto& held) -> std::optional<std::int32_t> {
        if constexpr (std::is_integral_v<std::decay_t<decltype(held)>>) {
          return held;
        } else {
          return std::nullopt;
        }
      },
      value);
}

Text Table::text(Field field) {
  const Value value = get(field);
  const Text* held = std::get_if<Text>(&value);
  return held != nullptr ? *held : Text();
}

std::int32_t Table::integer(Field field) { return wholeNumber(get(field)).value_or(0); }

bool Table::boolean(Field field) { return wholeNumber(get(field)).value_or(0) != 0; }

}  // namespace tillora
