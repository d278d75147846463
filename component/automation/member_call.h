#pragma once

#include <windows.h>

#include <oleauto.h>

namespace tillora::automation {

/// IDispatch::Invoke by a type's description. Whatever can be refused without the object is refused
/// here, in the same way on every platform:
///
/// - DISP_E_MEMBERNOTFOUND: there is no such member, or it cannot be called like this (a put to a
///   read-only property). A plain put to an object property counts as a put by reference, since
///   some clients assign objects that way.
/// - DISP_E_BADPARAMCOUNT: wrong number of arguments.
/// - DISP_E_TYPEMISMATCH, DISP_E_OVERFLOW: a new value that does not convert (changeType()).
HRESULT callMember(ITypeInfo& type, void* object, DISPID member, WORD flags, DISPPARAMS* parameters,
                   VARIANT* result, EXCEPINFO* exception, UINT* argument) noexcept;

}  // namespace tillora::automation
