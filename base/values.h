#pragma once

#include <concepts>
#include <cstdint>
#include <type_traits>
#include <utility>
#include <variant>

#include "base/money.h"
#include "base/text.h"

namespace tillora {

/// Date and time, as the platform's DATE: days since 30 December 1899, local time.
struct DateTime {
  double days = 0;
};

/// The types of stored values: VT_BOOL, VT_UI1, VT_I2, VT_I4, VT_R4, VT_CY and VT_BSTR in
/// automation.
template <class T>
concept StoredType = std::same_as<T, bool> || std::same_as<T, std::uint8_t> ||
                     std::same_as<T, std::int16_t> || std::same_as<T, std::int32_t> ||
                     std::same_as<T, float> || std::same_as<T, Money> || std::same_as<T, Text>;

/// A stored value or none (VT_EMPTY in automation). An assignment that fails changes nothing.
///
/// The text stands beside the other types, because some standard libraries believe that a variant
/// with a text never stays without a value: copying one while memory runs out would be undefined.
class Value {
 public:
  Value() = default;
  template <StoredType T>
  Value(T value) {
    if constexpr (std::same_as<T, Text>) {
      text_ = std::move(value);
      held_ = IsText();
    } else {
      held_ = value;
    }
  }

  Value(const char16_t* text) : Value(Text(text)) {}

  bool isNone() const { return held_.index() == 0; }

  template <StoredType T>
  bool is() const {
    return std::holds_alternative<Held<T>>(held_);
  }
  /// The value; null if it is of another type.
  template <StoredType T>
  const T* as() const {
    if constexpr (std::same_as<T, Text>) {
      return is<Text>() ? &text_ : nullptr;
    } else {
      return std::get_if<T>(&held_);
    }
  }
  template <StoredType T>
  T* as() {
    return const_cast<T*>(std::as_const(*this).template as<T>());
  }
  /// The value; throws std::bad_variant_access if it is of another type.
  template <StoredType T>
  const T& get() const& {
    const T* const value = as<T>();
    if (value == nullptr) throw std::bad_variant_access();
    return *value;
  }
  template <StoredType T>
  T get() && {
    return std::move(const_cast<T&>(std::as_const(*this).template get<T>()));
  }

  /// Calls the visitor with the value, or with std::monostate for none.
  template <class Visitor>
  decltype(auto) visit(Visitor&& visitor) const {
    return std::visit(
        [&](const auto& held) -> decltype(auto) {
          if constexpr (std::is_same_v<decltype(held), const IsText&>) {
            return visitor(text_);
          } else {
            return visitor(held);
          }
        },
        held_);
  }

  friend bool operator==(const Value&, const Value&) = default;

 private:
  struct IsText {
    friend bool operator==(IsText, IsText) = default;
  };
  template <class T>
  using Held = std::conditional_t<std::is_same_v<T, Text>, IsText, T>;

  Text text_;  // empty for other types; before held_, so that a failing copy leaves that too
  std::variant<std::monostate, bool, std::uint8_t, std::int16_t, std::int32_t, float, Money, IsText>
      held_;
};

}  // namespace tillora
