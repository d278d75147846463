#pragma once

#include <cstdint>

namespace tillora {

/// One group of options; a bit of the mask that OptionsChanged carries.
enum class OptionChange : std::int32_t {
#define TILLORA_CHANGE(name, value, help) name = value,
#include "component/contract/option_changes.inc"
#undef TILLORA_CHANGE
};

constexpr bool areSingleDistinctBits() {
  std::uint32_t seen = 0;
#define TILLORA_CHANGE(name, value, help)                              \
  if ((value & (value - 1)) != 0 || (seen & value) != 0) return false; \
  seen |= value;
#include "component/contract/option_changes.inc"
#undef TILLORA_CHANGE
  return true;
}
static_assert(areSingleDistinctBits(), "each change is one bit of its own");

/// What one save changes: the groups whose stored values differ and, separately, the accounting
/// package's data file.
class OptionChanges {
 public:
  void set(OptionChange change) { mask_ |= static_cast<std::int32_t>(change); }
  std::int32_t mask() const { return mask_; }
  void setDataFile() { dataFile_ = true; }
  bool dataFile() const { return dataFile_; }

 private:
  std::int32_t mask_ = 0;
  bool dataFile_ = false;
};

}  // namespace tillora
