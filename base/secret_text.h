#pragma once

#include <cstddef>

#include "base/text.h"

namespace tillora {

/// Overwrites memory that is not read again. No optimiser drops it.
void wipe(void* memory, std::size_t bytes);
/// Overwrites all the memory that the text holds and makes it empty.
void wipe(Text& text);

/// A text that leaves nothing of itself in memory: it is overwritten where another takes its place
/// and where it ends.
class SecretText {
 public:
  SecretText() = default;
  /// Takes a text over as take() does; of one that is copied, the copy.
  explicit SecretText(Text text) { take(text); }
  SecretText(const SecretText& other) = default;
  SecretText(SecretText&& other) noexcept { take(other.text_); }
  SecretText& operator=(const SecretText& other);
  SecretText& operator=(SecretText&& other) noexcept;
  ~SecretText() { wipe(text_); }

  /// Takes the text over; nothing of it stays in `text`, which is empty then.
  void take(Text& text) noexcept;

  const Text& text() const { return text_; }
  bool empty() const { return text_.empty(); }

 private:
  Text text_;
};

}  // namespace tillora
