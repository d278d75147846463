#include "ui/secret_text.h"

#include <utility>

namespace tillora {

void wipe(void* memory, std::size_t bytes) {
  auto* byte = static_cast<volatile unsigned char*>(memory);
  for (; bytes > 0; --bytes) *byte++ = 0;
}

void wipe(Text& text) {
  // Up to the capacity: an older, longer text may have left its end there.
  text.resize(text.capacity());
  wipe(text.data(), text.size() * sizeof(char16_t));
  text.clear();
}

SecretText& SecretText::operator=(const SecretText& other) {
  Text copy = other.text_;
  take(copy);
  return *this;
}

SecretText& SecretText::operator=(SecretText&& other) noexcept {
  if (this != &other) take(other.text_);
  return *this;
}

void SecretText::take(Text& text) noexcept {
  wipe(text_);
  text_ = std::move(text);
  // A short text is copied by the move.
  wipe(text);
}

}  // namespace tillora
