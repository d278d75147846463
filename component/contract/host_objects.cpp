#include "component/contract/host_objects.h"

#include <utility>

namespace tillora {

namespace {

/// A value in transit; its text is overwritten afterwards.
struct SecretValue {
  explicit SecretValue(const SecretText& secret) : value(secret.text()) {}
  SecretValue(const SecretValue&) = delete;
  SecretValue& operator=(const SecretValue&) = delete;
  ~SecretValue() {
    if (Text* text = value.as<Text>()) wipe(*text);
  }
  Value value;
};

}  // namespace

SecretText OptionsRecord::getSecret(const Option<OptionType::Text>& option) {
  Value value(read(option.id));
  SecretText secret;
  if (Text* text = value.as<Text>()) secret.take(*text);
  return secret;
}

void OptionsRecord::setSecret(const Option<OptionType::Text>& option, const SecretText& secret) {
  const SecretValue passing(secret);
  write(option.id, passing.value);
}

Text Table::text(Field field) {
  Value value = get(field);
  auto* held = value.as<Text>();
  return held != nullptr ? std::move(*held) : Text();
}

std::int32_t Table::integer(Field field) {
  const Value value = get(field);
  const auto* held = value.as<std::int32_t>();
  return held != nullptr ? *held : 0;
}

bool Table::boolean(Field field) {
  const Value value = get(field);
  const auto* held = value.as<bool>();
  return held != nullptr && *held;
}

}  // namespace tillora
