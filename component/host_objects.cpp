#include "component/host_objects.h"

namespace tillora {
namespace {

template <class T>
T valueOrZero(const Value& value) {
  const T* held = std::get_if<T>(&value);
  return held != nullptr ? *held : T{};
}

/// A value on its way; its text is overwritten when it has arrived.
struct SecretValue {
  explicit SecretValue(const SecretText& secret) : value(secret.text()) {}
  SecretValue(const SecretValue&) = delete;
  SecretValue& operator=(const SecretValue&) = delete;
  ~SecretValue() {
    if (Text* text = std::get_if<Text>(&value)) wipe(*text);
  }
  Value value;
};

}  // namespace

SecretText OptionsRecord::getSecret(const Option<OptionType::Text>& option) {
  Value value(read(option.id));
  SecretText secret;
  if (Text* text = std::get_if<Text>(&value)) secret.take(*text);
  return secret;
}

void OptionsRecord::setSecret(const Option<OptionType::Text>& option, const SecretText& secret) {
  const SecretValue passing(secret);
  write(option.id, passing.value);
}

Text Table::text(Field field) { return valueOrZero<Text>(get(field)); }

std::int32_t Table::integer(Field field) { return valueOrZero<std::int32_t>(get(field)); }

bool Table::boolean(Field field) { return valueOrZero<bool>(get(field)); }

}  // namespace tillora
