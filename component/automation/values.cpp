#include "component/automation/values.h"

#include <cmath>

#include "com/value_conversion.h"

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

/// A text that does not say a value of this type.
bool isTextWithout(VARTYPE type, const Variant& value) {
  if (value.type() != VT_BSTR) return false;
  Variant said;
  return win32::changeType(said, value.get(), type) == DISP_E_TYPEMISMATCH;
}

}  // namespace

Value toOptionValue(const DispatchObject& object, const Variant& value, OptionType type,
                    const char16_t* member) {
  if (value.isEmptyOrNull()) return {};
  const VARTYPE wanted = automationType(type);
  if (value.type() == wanted) return sameType(value.get());
  return sameType(object.converted(value, wanted, member).get());
}

Value toFieldValue(const DispatchObject& object, const Variant& value, FieldType type,
                   const char16_t* member) {
  if (value.isEmptyOrNull()) return {};
  if (value.type() == VT_DISPATCH) {  // it has a default value, or is a type mismatch
    return toFieldValue(object, object.converted(value, VT_BSTR, member), type, member);
  }
  switch (type) {
    case FieldType::Text:
      return sameType(object.converted(value, VT_BSTR, member).get());
    case FieldType::Boolean:
      return isTextWithout(VT_BOOL, value)
                 ? Value()
                 : sameType(object.converted(value, VT_BOOL, member).get());
    case FieldType::Long:
      break;
  }
  if (value.type() == VT_I4) return sameType(value.get());
  if (isTextWithout(VT_R8, value)) return {};
  const Variant number = object.converted(value, VT_R8, member);
  const double amount = number.get().dblVal;
  if (std::trunc(amount) != amount) return {};
  return sameType(object.converted(number, VT_I4, member).get());
}

}  // namespace tillora::automation
