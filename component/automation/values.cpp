#include "component/automation/values.h"

#include <cmath>

#include "com/value_conversion.h"

namespace tillora::automation {

using win32::Variant;

namespace {

/// Whether it is a text that does not represent a value of this type.
bool isTextWithout(VARTYPE type, const Variant& value) {
  if (value.type() != VT_BSTR) return false;
  Variant said;
  return win32::changeType(said, value.get(), type) == DISP_E_TYPEMISMATCH;
}

}  // namespace

Value toOptionValue(const DispatchObject& object, const Variant& value, OptionType type,
                    const char16_t* member) {
  if (value.isEmptyOrNull()) return {};
  const VARTYPE wanted = win32::variantType(zeroOf(type));
  if (value.type() == wanted) return win32::toValue(value.get());
  return win32::toValue(object.converted(value, wanted, member).get());
}

Value toFieldValue(const DispatchObject& object, const Variant& value, FieldType type,
                   const char16_t* member) {
  if (value.isEmptyOrNull()) return {};
  if (value.type() == VT_DISPATCH) {  // either it has a default value, or it is a type mismatch
    return toFieldValue(object, object.converted(value, VT_BSTR, member), type, member);
  }
  switch (type) {
    case FieldType::Text:
      return win32::toValue(object.converted(value, VT_BSTR, member).get());
    case FieldType::Boolean:
      return isTextWithout(VT_BOOL, value)
                 ? Value()
                 : win32::toValue(object.converted(value, VT_BOOL, member).get());
    case FieldType::Long:
      break;
  }
  if (value.type() == VT_I4) return win32::toValue(value.get());
  if (isTextWithout(VT_R8, value)) return {};
  const Variant number = object.converted(value, VT_R8, member);
  const double amount = number.get().dblVal;
  if (std::trunc(amount) != amount) return {};
  return win32::toValue(object.converted(number, VT_I4, member).get());
}

}  // namespace tillora::automation
