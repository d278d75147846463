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

Text Table::text(Field field) {
  Value value = get(field);
  auto* held = std::get_if<Text>(&value);
  return held != nullptr ? std::move(*held) : Text();
}

std::int32_t Table::integer(Field field) {
  const Value value = get(field);
  const auto* held = std::get_if<std::int32_t>(&value);
  return held != nullptr ? *held : 0;
}

bool Table::boolean(Field field) {
  const Value value = get(field);
  const auto* held = std::get_if<bool>(&value);
  return held != nullptr && *held;
}

}  // namespace tillora
