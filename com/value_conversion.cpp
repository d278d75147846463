#include "com/value_conversion.h"

#include <limits>
#include <optional>

namespace tillora::win32 {
namespace {

/// A whole number of any width.
struct WholeNumber {
  bool negative;
  std::uint64_t bits;

  template <class Integer>
  bool fits() const {
    using Limits = std::numeric_limits<Integer>;
    if (!negative) return bits <= static_cast<std::uint64_t>(Limits::max());
    return static_cast<std::int64_t>(bits) >= static_cast<std::int64_t>(Limits::min());
  }
};

template <class Integer>
WholeNumber wholeNumber(Integer value) {
  return {value < 0, static_cast<std::uint64_t>(value)};
}

/// None for values of other types.
std::optional<WholeNumber> wholeNumberOf(const VARIANT& value) {
  switch (value.vt) {
    case VT_I1:
      return wholeNumber(static_cast<signed char>(value.cVal));
    case VT_UI1:
      return WholeNumber{false, value.bVal};
    case VT_I2:
      return wholeNumber(value.iVal);
    case VT_UI2:
      return WholeNumber{false, value.uiVal};
    case VT_I4:
    case VT_INT:
      return wholeNumber(value.lVal);
    case VT_UI4:
    case VT_UINT:
      return WholeNumber{false, value.ulVal};
    case VT_I8:
      return wholeNumber(value.llVal);
    case VT_UI8:
      return WholeNumber{false, value.ullVal};
    default:
      return std::nullopt;
  }
}

bool fits(const WholeNumber& number, VARTYPE type) {
  switch (type) {
    case VT_UI1:
      return number.fits<std::uint8_t>();
    case VT_I2:
      return number.fits<std::int16_t>();
    case VT_I4:
      return number.fits<std::int32_t>();
    default:
      return true;
  }
}

bool refersToNothing(const VARIANT& value) {
  if ((value.vt & VT_BYREF) == 0) return false;
  if (value.byref == nullptr) return true;
  // The platform follows one more reference, and refuses a third.
  if (value.vt != (VT_BYREF | VT_VARIANT)) return false;
  const VARIANT& target = *value.pvarVal;
  return (target.vt & VT_BYREF) != 0 && target.byref == nullptr;
}

/// The platform takes any number of decimals and writes beyond the memory that it has for them.
bool isNoDecimal(const VARIANT& value) {
  constexpr BYTE kMostDecimals = 28;
  return value.vt == VT_DECIMAL && value.decVal.scale > kMostDecimals;
}

bool isObject(VARTYPE type) { return type == VT_DISPATCH || type == VT_UNKNOWN; }

}  // namespace

HRESULT follow(Variant& result, const VARIANT& value) {
  if (refersToNothing(value)) return DISP_E_TYPEMISMATCH;
  const HRESULT copied = VariantCopyInd(result.out(), const_cast<VARIANT*>(&value));
  return copied == DISP_E_BADVARTYPE || copied == E_INVALIDARG ? DISP_E_TYPEMISMATCH : copied;
}

HRESULT changeType(Variant& result, const VARIANT& value, VARTYPE type) {
  // Some platform headers declare the source as non-const, though it is never changed.
  auto* const source = const_cast<VARIANT*>(&value);
  if ((value.vt & VT_BYREF) != 0) {
    Variant followed;
    const HRESULT copied = follow(followed, value);
    return FAILED(copied) ? copied : changeType(result, followed.get(), type);
  }
  if (isObject(type) && !isObject(value.vt)) return DISP_E_TYPEMISMATCH;
  if (isNoDecimal(value)) return DISP_E_TYPEMISMATCH;
  const auto number = wholeNumberOf(value);
  if (number && !fits(*number, type)) return DISP_E_OVERFLOW;
  const HRESULT changed = VariantChangeTypeEx(result.out(), source, LOCALE_USER_DEFAULT, 0, type);
  return changed == DISP_E_BADVARTYPE ? DISP_E_TYPEMISMATCH : changed;
}

}  // namespace tillora::win32
