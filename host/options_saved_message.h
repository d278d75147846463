#pragma once

#include <bit>
#include <cstdint>

#include "base/values.h"

namespace tillora::host {

/// The broadcast that tells the programs of the system that options were saved. It is a registered
/// window message posted to all top-level windows; the time travels in its two parameters, 32 bits
/// in each, so that 32-bit and 64-bit programs understand each other.
struct OptionsSavedMessage {
  static constexpr const wchar_t* kName = L"TilloraOptionsSaved";

  std::uint32_t low = 0;   ///< WPARAM
  std::uint32_t high = 0;  ///< LPARAM

  static OptionsSavedMessage of(DateTime when) {
    const auto bits = std::bit_cast<std::uint64_t>(when.days);
    return {static_cast<std::uint32_t>(bits), static_cast<std::uint32_t>(bits >> 32)};
  }
  DateTime when() const { return {std::bit_cast<double>((std::uint64_t{high} << 32) | low)}; }
};

}  // namespace tillora::host
