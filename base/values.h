#pragma once

#include <cstdint>
#include <variant>

#include "base/money.h"
#include "base/text.h"

namespace tillora {

/// Date and time, as the platform's DATE: days since 30 December 1899, local time.
struct DateTime {
  double days = 0;
};

/// A stored value or none (std::monostate): VT_EMPTY, VT_BOOL, VT_UI1, VT_I2, VT_I4, VT_R4, VT_CY
/// and VT_BSTR in automation.
using Value = std::variant<std::monostate, bool, std::uint8_t, std::int16_t, std::int32_t, float,
                           Money, Text>;

}  // namespace tillora
