#pragma once

#include "component/automation/dispatch_object.h"
#include "component/contract/host_objects.h"

namespace tillora::automation {

/// A stored option in the option's own type; Empty and Null are none. Errors as those of
/// DispatchObject::converted().
Value toOptionValue(const DispatchObject& object, const win32::Variant& value, OptionType type,
                    const char16_t* member);

/// A table's field in the field's own type. None for Empty and Null. Where a whole number or a
/// Boolean is wanted, also none for any other text and for a number with a fraction. Errors as
/// those of DispatchObject::converted().
Value toFieldValue(const DispatchObject& object, const win32::Variant& value, FieldType type,
                   const char16_t* member);

}  // namespace tillora::automation
