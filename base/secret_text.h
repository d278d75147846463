#pragma once

#include <cstddef>

#include "base/text.h"

namespace tillora {

/// Overwrites memory that is not read again; the optimiser cannot remove this.
void wipe(void* memory, std::size_t bytes);
/// Overwrites all the memory that the text holds and makes it empty.
void wipe(Text& text);

/// A text that leaves no copy of itself in memory: it is overwritten when it is replaced and when
/// it is destroyed.
class SecretText {
 public:
  SecretText() = default;
  /// Takes over a text as take() does; if the argument is a copy, the original stays.
  explicit SecretText(Text text) { take(text); }
  SecretText(const SecretText& other) = default;
  SecretText(SecretText&& other) noexcept { take(other.text_); }
  SecretText& operator=(const SecretText& other);
  SecretText& operator=(SecretText&& other) noexcept;
  ~SecretText() { wipe(text_); }

  /// Takes over the text and wipes `text`, which is then empty.
  void take(Text& text) noexcept;

  const Text& text() const { return text_; }
  bool empty() const { return text_.empty(); }

 private:
  Text text_;
};

}  // namespace tillora
