#pragma once

#include <cstdint>
#include <vector>

#include "component/contract/host_objects.h"
#include "ui/buttons.h"
#include "ui/control_array.h"

namespace tillora {

/// Ticks the box with index i if the mask has the bit 2^i, and unticks it otherwise. Boxes have the
/// indexes 0 to 31.
void showBits(const ui::ControlArray<ui::CheckBox>& boxes, std::int32_t mask);
/// The bits of the ticked boxes, by index.
std::vector<std::int32_t> tickedBits(const ui::ControlArray<ui::CheckBox>& boxes);

/// Adds a bit to the mask in the record. Returns the mask.
std::int32_t addBit(OptionsRecord& record, const Option<OptionType::Long>& option,
                    std::int32_t bit);
/// Writes a mask as every mask of the record is written: 0 first, then each of the bits, added to
/// the mask in the record. Returns the mask.
std::int32_t saveBits(OptionsRecord& record, const Option<OptionType::Long>& option,
                      const std::vector<std::int32_t>& bits);

}  // namespace tillora
