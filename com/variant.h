#pragma once

#include <windows.h>

#include <oleauto.h>

#include <cstdint>
#include <type_traits>
#include <utility>
#include <variant>

#include "base/secret_text.h"
#include "base/values.h"
#include "com/bstr.h"

namespace tillora::win32 {

/// An owned automation value.
class Variant {
 public:
  Variant() = default;
  explicit Variant(bool value) : Variant(VT_BOOL) {
    value_.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
  }
  explicit Variant(std::uint8_t value) : Variant(VT_UI1) { value_.bVal = value; }
  explicit Variant(std::int16_t value) : Variant(VT_I2) { value_.iVal = value; }
  explicit Variant(std::int32_t value) : Variant(VT_I4) { value_.lVal = value; }
  explicit Variant(float value) : Variant(VT_R4) { value_.fltVal = value; }
  explicit Variant(double value) : Variant(VT_R8) { value_.dblVal = value; }
  explicit Variant(Money value) : Variant(VT_CY) { value_.cyVal.int64 = value.tenThousandths; }
  explicit Variant(DateTime value) : Variant(VT_DATE) { value_.date = value.days; }
  explicit Variant(TextView text) : Variant() {
    value_.bstrVal = Bstr(text).detach();
    value_.vt = VT_BSTR;
  }
  explicit Variant(const Text& text) : Variant(TextView(text)) {}
  explicit Variant(const char16_t* text) : Variant(TextView(text)) {}
  /// Adds a reference; null is Nothing.
  explicit Variant(IDispatch* object) : Variant(VT_DISPATCH) {
    value_.pdispVal = object;
    if (object != nullptr) object->AddRef();
  }

  Variant(Variant&& other) noexcept : value_(std::exchange(other.value_, VARIANT{})) {}
  Variant& operator=(Variant&& other) noexcept {
    std::swap(value_, other.value_);
    return *this;
  }
  ~Variant() { clear(); }

  VARTYPE type() const { return value_.vt; }
  bool isEmptyOrNull() const { return value_.vt == VT_EMPTY || value_.vt == VT_NULL; }
  const VARIANT& get() const { return value_; }
  /// For functions that read or change the value in place.
  VARIANT* address() { return &value_; }
  /// For functions that hand out a value.
  VARIANT* out() {
    clear();
    return &value_;
  }

 private:
  explicit Variant(VARENUM type) { value_.vt = static_cast<VARTYPE>(type); }

  void clear() {
    // It may be a password.
    if (value_.vt == VT_BSTR) wipe(value_.bstrVal, SysStringByteLen(value_.bstrVal));
    // Most values need no call: walks over large catalogues make millions of them.
    if (value_.vt != VT_EMPTY) VariantClear(&value_);
  }

  VARIANT value_{};
};

/// The automation value; none is Empty.
inline Variant toVariant(const Value& value) {
  return value.visit([]<class Held>(const Held& held) {
    if constexpr (std::is_same_v<Held, std::monostate>) {
      return Variant();
    } else {
      return Variant(held);
    }
  });
}

/// The type of the automation value.
inline VARTYPE variantType(const Value& value) {
  struct Type {
    VARTYPE operator()(std::monostate) const { return VT_EMPTY; }
    VARTYPE operator()(bool) const { return VT_BOOL; }
    VARTYPE operator()(std::uint8_t) const { return VT_UI1; }
    VARTYPE operator()(std::int16_t) const { return VT_I2; }
    VARTYPE operator()(std::int32_t) const { return VT_I4; }
    VARTYPE operator()(float) const { return VT_R4; }
    VARTYPE operator()(Money) const { return VT_CY; }
    VARTYPE operator()(const Text&) const { return VT_BSTR; }
  };
  return value.visit(Type{});
}

/// The value of an automation value of one of these types; none for any other.
inline Value toValue(const VARIANT& value) {
  switch (value.vt) {
    case VT_BOOL:
      return value.boolVal != VARIANT_FALSE;
    case VT_UI1:
      return std::uint8_t{value.bVal};
    case VT_I2:
      return std::int16_t{value.iVal};
    case VT_I4:
      return std::int32_t{value.lVal};
    case VT_R4:
      return value.fltVal;
    case VT_CY:
      return Money{value.cyVal.int64};
    case VT_BSTR:
      return Bstr::textOf(value.bstrVal);
    default:
      return {};
  }
}

}  // namespace tillora::win32
