#include "component/automation/values.h"

#include <cmath>

namespace tillora::automation {

using win32::Variant;

namespace {

constexpr VARTYPE automationType(OptionType type) {
  switch (type) {
    case OptionType::Text:
      return VT_BSTR;
    case OptionType::Long:
      return VT_I4;
    case OptionType::Integer:
      return VT_I2;
    case OptionType::Byte:
      return VT_UI1;
    case OptionType::Single:
      return VT_R4;
    case OptionType::Currency:
      return VT_CY;
    case OptionType::Boolean:
      return VT_BOOL;
  }
  return VT_EMPTY;
}

/// The value of a variant in one of the types that Value knows; none for any other.
Value sameType(const VARIANT& value) {
  switch (value.vt) {
    case VT_BOOL:
      return value.boolVal != VARIANT_FALSE;
    case VT_UI1:
      return value.bVal;
    case VT_I2:
      return value.iVal;
    case VT_I4:
      return std::int32_t{value.lVal};
    case VT_R4:
      return value.fltVal;
    case VT_CY:
      return Money{value.cyVal.int64};
    case VT_BSTR:
      return win32::Bstr::textOf(value.bstrVal);
    default:
      return {};
  }
}

}  // namespace

Value toOptionValue(const DispatchObject& object, const Variant& value, OptionType type,
                    const char16_t* member) {
  if (value.isEmptyOrNull()) return {};
  const VARTYPE wanted = automationType(type);
  if (value.type() == wanted) return sameType(value.get());
  return sameType(object.converted(value, wanted, member).get());
}

Value toFieldValue(const DispatchObject& object, const Variant& value, const char16_t* member) {
  if (value.isEmptyOrNull()) return {};
  switch (value.type()) {
    case VT_BOOL:
    case VT_UI1:
    case VT_I2:
    case VT_I4:
    case VT_R4:
    case VT_CY:
    case VT_BSTR:
      return sameType(value.get());
    case VT_R8:
    case VT_DECIMAL: {
      const Variant number = object.converted(value, VT_R8, member);
      const double amount = number.get().dblVal;
      if (std::trunc(amount) != amount) {
        return sameType(object.converted(number, VT_R4, member).get());
      }
      return sameType(object.converted(number, VT_I4, member).get());
    }
    case VT_I1:
    case VT_UI2:
    case VT_UI4:
    case VT_I8:
    case VT_UI8:
    case VT_INT:
    case VT_UINT:
      return sameType(object.converted(value, VT_I4, member).get());
    default:  // dates, objects with a default value; what has no text is a type mismatch
      return sameType(object.converted(value, VT_BSTR, member).get());
  }
}

}  // namespace tillora::automation
