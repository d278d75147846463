#include "component/host_objects.h"

namespace tillora {
namespace {

template <class T>
T valueOrZero(const Value& value) {
  const T* held = std::get_if<T>(&value);
  return held != nullptr ? *held : T{};
}

}  // namespace

Text Table::text(Field field) { return valueOrZero<Text>(get(field)); }

std::int32_t Table::integer(Field field) { return valueOrZero<std::int32_t>(get(field)); }

bool Table::boolean(Field field) { return valueOrZero<bool>(get(field)); }

}  // namespace tillora
