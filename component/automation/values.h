#pragma once

#include "component/automation/dispatch_object.h"
#include "component/option_table.h"

namespace tillora::automation {

/// A stored option in the option's own type; Empty and Null are none. Errors as those of
/// DispatchObject::converted().
Value toOptionValue(const DispatchObject& object, const win32::Variant& value, OptionType type,
                    const char16_t* member);

/// A table's field in the nearest type that the core knows: whole numbers of other widths are Long
/// where they fit, other numbers Single, dates text. Empty and Null are none.
Value toFieldValue(const DispatchObject& object, const win32::Variant& value,
                   const char16_t* member);

}  // namespace tillora::automation
