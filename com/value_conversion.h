#pragma once

#include "com/variant.h"

namespace tillora::win32 {

/// Replaces `result` by a copy of the value, or of what it refers to. A reference to nothing, or to
/// something that is not a value, is DISP_E_TYPEMISMATCH.
HRESULT follow(Variant& result, const VARIANT& value);

/// Replaces `result` by the value converted to another type, by the platform's rules under the
/// user's locale (VariantChangeTypeEx). By-reference values are followed.
///
/// A whole number that the wanted type cannot hold is DISP_E_OVERFLOW, even where the platform
/// would keep its bits (4294967295 as -1). Only an object converts to an object. A conversion that
/// does not exist is DISP_E_TYPEMISMATCH.
HRESULT changeType(Variant& result, const VARIANT& value, VARTYPE type);

}  // namespace tillora::win32
