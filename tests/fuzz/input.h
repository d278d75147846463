#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iostream>

#include "base/text.h"

namespace tillora::fuzz {

/// What the fuzzer made up, taken from its front piece by piece.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : data_(data), left_(size) {}

  /// The next bytes as a number; zeros where there are no more.
  template <class T>
  T take() {
    T value{};
    const std::size_t size = left_ < sizeof value ? left_ : sizeof value;
    if (size > 0) std::memcpy(&value, data_, size);
    data_ += size;
    left_ -= size;
    return value;
  }
  /// All that is left: any text, whether it is valid UTF-16 or not.
  Text text() {
    Text text(left_ / 2, u'\0');
    if (!text.empty()) std::memcpy(text.data(), data_, text.size() * sizeof(char16_t));
    return text;
  }
  std::string bytes() const { return {reinterpret_cast<const char*>(data_), left_}; }

 private:
  const std::uint8_t* data_;
  std::size_t left_;
};

/// Ends the program as a find of the fuzzer.
inline void require(bool holds, const char* what) {
  if (holds) return;
  std::cerr << "not true: " << what << '\n';
  std::abort();
}

}  // namespace tillora::fuzz
