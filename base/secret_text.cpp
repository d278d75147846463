#include "base/secret_text.h"

#include <cstring>
#include <utility>

namespace tillora {

void wipe(void* memory, std::size_t bytes) {
  // Volatile, so that the optimiser cannot know which function is called.
  static void* (*const volatile fill)(void*, int, std::size_t) = &std::memset;
  if (bytes != 0) fill(memory, 0, bytes);
}

void wipe(Text& text) {
  // Up to the capacity: an older, longer text may have left its end there.
  text.clear();
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
  // Moving a short text copies it.
  wipe(text);
}

}  // namespace tillora
