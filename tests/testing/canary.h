#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace tillora::testing {

/// A password that the test program itself never holds in one piece: only its letters behind a
/// mask, so that a search of the memory finds only copies that others made. Of ASCII letters and
/// digits, all different.
class Canary {
 public:
  static constexpr std::size_t kLength = 16;
  /// This many characters in a row count as a copy. For copies of 8 bits a character more are
  /// needed, as many as do not turn up in any memory by chance.
  static constexpr std::size_t kPart = 5;
  static constexpr std::size_t kNarrowPart = 8;

  explicit consteval Canary(std::u16string_view text) {
    positions_.fill(kLength);
    for (std::size_t i = 0; i < kLength; ++i) {
      masked_.at(i) = static_cast<unsigned char>(text.at(i) ^ kMask);
      const auto folded = static_cast<unsigned char>((text.at(i) | kCase) ^ kMask);
      folded_.at(i) = folded;
      positions_.at(folded) = static_cast<unsigned char>(i);
    }
  }

  /// As it is typed: in capitals and small letters.
  char16_t at(std::size_t i) const { return masked_.at(i) ^ kMask; }
  /// As it is stored: in small letters.
  char16_t storedAt(std::size_t i) const {
    const char16_t c = at(i);
    return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c | kCase) : c;
  }

  /// How many parts of it, in UTF-16 or in 8 bits, in capitals or small letters, begin in this
  /// memory.
  std::size_t partsIn(const unsigned char* memory, std::size_t size) const {
    std::size_t found = 0;
    for (std::size_t i = 0; i < size; ++i) {
      // Most of a program's memory is zero.
      for (std::uint64_t zeros = 0; i + sizeof zeros < size; i += sizeof zeros) {
        std::memcpy(&zeros, memory + i, sizeof zeros);
        if (zeros != 0) break;
      }
      const std::size_t position = positions_[(memory[i] | kCase) ^ kMask];
      if (isPart(memory + i, size - i, 2, position, kPart) ||
          isPart(memory + i, size - i, 1, position, kNarrowPart)) {
        ++found;
      }
    }
    return found;
  }

 private:
  static constexpr unsigned char kMask = 0x95;
  static constexpr unsigned char kCase = 0x20;

  bool isPart(const unsigned char* at, std::size_t left, std::size_t width, std::size_t position,
              std::size_t length) const {
    if (position + length > kLength || left < length * width) return false;
    for (std::size_t i = 0; i < length; ++i) {
      if (((at[i * width] | kCase) ^ kMask) != folded_[position + i]) return false;
      if (width == 2 && at[i * width + 1] != 0) return false;
    }
    return true;
  }

  std::array<unsigned char, kLength> masked_{};
  std::array<unsigned char, kLength> folded_{};
  std::array<unsigned char, 256> positions_{};  // of a folded character; kLength for others
};

}  // namespace tillora::testing
