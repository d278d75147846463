#include "support/check_box_bits.h"

namespace tillora {
namespace {

std::int32_t bitOf(int index) { return static_cast<std::int32_t>(std::uint32_t{1} << index); }

}  // namespace

void showBits(const ui::ControlArray<ui::CheckBox>& boxes, std::int32_t mask) {
  for (const auto& [index, box] : boxes) box->setValue((mask & bitOf(index)) != 0);
}

std::vector<std::int32_t> tickedBits(const ui::ControlArray<ui::CheckBox>& boxes) {
  std::vector<std::int32_t> bits;
  for (const auto& [index, box] : boxes) {
    if (box->value()) bits.push_back(bitOf(index));
  }
  return bits;
}

std::int32_t addBit(OptionsRecord& record, const Option<OptionType::Long>& option,
                    std::int32_t bit) {
  const std::int32_t mask = record.getOrZero(option) | bit;
  record.set(option, mask);
  return mask;
}

std::int32_t saveBits(OptionsRecord& record, const Option<OptionType::Long>& option,
                      const std::vector<std::int32_t>& bits) {
  std::int32_t mask = 0;
  record.set(option, mask);
  for (const std::int32_t bit : bits) mask = addBit(record, option, bit);
  return mask;
}

}  // namespace tillora
