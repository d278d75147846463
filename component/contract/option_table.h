#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "base/values.h"

namespace tillora {

enum class OptionType : std::uint8_t { Text, Long, Integer, Byte, Single, Currency, Boolean };

/// The zero of the type, the empty text or False.
Value zeroOf(OptionType type);

/// Position of an option in the table, from 0.
enum class OptionId : std::uint8_t {
#define TILLORA_OPTION(id, name, type, default_, tab, help) name,
#include "component/contract/option_table.inc"
#undef TILLORA_OPTION
};

/// One stored option, as hosts name it.
struct OptionInfo {
  OptionId option;
  std::int32_t dispatchId;
  const char16_t* name;
  OptionType type;
  const char* defaultText;  ///< as written in the table
  const char* tab;
  const char* help;
};

/// The default terms and conditions of a layby, as printed.
extern const char16_t* const kDefaultLaybyTerms;

#define TILLORA_WIDEN_(text) u##text
#define TILLORA_WIDEN(text) TILLORA_WIDEN_(text)

inline constexpr std::array kOptionTable = {
#define TILLORA_OPTION(id, name, type, default_, tab, help) \
  OptionInfo{OptionId::name, id, TILLORA_WIDEN(#name), OptionType::type, #default_, tab, help},
#include "component/contract/option_table.inc"
#undef TILLORA_OPTION
};

/// Ids from 1000 on are the other members of the options record.
constexpr bool hasUniqueDispatchIds() {
  for (std::size_t i = 0; i < kOptionTable.size(); ++i) {
    const std::int32_t id = kOptionTable[i].dispatchId;
    if (id < 1 || id >= 1000) return false;
    for (std::size_t j = 0; j < i; ++j) {
      if (kOptionTable[j].dispatchId == id) return false;
    }
  }
  return true;
}
static_assert(hasUniqueDispatchIds(), "two options share a dispatch id, or one is out of range");

constexpr const OptionInfo& optionInfo(OptionId option) {
  return kOptionTable[static_cast<std::size_t>(option)];
}

/// The C++ type of a stored option: what it is read and written as, and what its default is kept
/// as.
template <OptionType>
struct OptionTraits;
template <class T, class Default = T>
struct OptionTraitsOf {
  using Type = T;
  using DefaultType = Default;
};
template <>
struct OptionTraits<OptionType::Text> : OptionTraitsOf<Text, const char16_t*> {};
template <>
struct OptionTraits<OptionType::Long> : OptionTraitsOf<std::int32_t> {};
template <>
struct OptionTraits<OptionType::Integer> : OptionTraitsOf<std::int16_t> {};
template <>
struct OptionTraits<OptionType::Byte> : OptionTraitsOf<std::uint8_t> {};
template <>
struct OptionTraits<OptionType::Single> : OptionTraitsOf<float> {};
template <>
struct OptionTraits<OptionType::Currency> : OptionTraitsOf<Money> {};
template <>
struct OptionTraits<OptionType::Boolean> : OptionTraitsOf<bool> {};

/// An option with its type: the key to typed reads and writes of an OptionsRecord.
template <OptionType type>
struct Option {
  using Type = typename OptionTraits<type>::Type;
  OptionId id;
  typename OptionTraits<type>::DefaultType defaultValue;
};

/// The options by name, e.g. options::CompanyName.
namespace options {
#define TILLORA_OPTION(id, name, type, default_, tab, help) \
  inline const Option<OptionType::type> name{OptionId::name, default_};
#include "component/contract/option_table.inc"
#undef TILLORA_OPTION
}  // namespace options

}  // namespace tillora
