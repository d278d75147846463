#include "component/automation/member_call.h"

#include "com/value_conversion.h"

namespace tillora::automation {

using win32::Variant;

namespace {

constexpr int kPuts = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;

/// One way in which a member is called: FUNCDESC::invkind.
struct Callable {
  int kind = 0;
  UINT arguments = 0;
  /// Of a put: the type of its last argument.
  VARTYPE newValue = VT_EMPTY;
};

Callable callableOf(const FUNCDESC& function) {
  Callable found{function.invkind};
  for (int index = 0; index < function.cParams; ++index) {
    const ELEMDESC& parameter = function.lprgelemdescParam[index];
    if ((parameter.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0) continue;
    ++found.arguments;
    const VARTYPE type = parameter.tdesc.vt;
    found.newValue = type == VT_PTR ? VARTYPE{VT_DISPATCH} : type;
  }
  return found;
}

/// The first of the wanted ways to call the member; of kind 0 if it has none of them.
HRESULT findCallable(ITypeInfo& type, DISPID member, int wanted, Callable& found) {
  TYPEATTR* attributes = nullptr;
  const HRESULT described = type.GetTypeAttr(&attributes);
  if (FAILED(described)) return described;
  const UINT count = attributes->cFuncs;
  type.ReleaseTypeAttr(attributes);
  for (UINT index = 0; index < count && found.kind == 0; ++index) {
    FUNCDESC* function = nullptr;
    const HRESULT read = type.GetFuncDesc(index, &function);
    if (FAILED(read)) return read;
    // The restricted ones are IDispatch's own.
    if (function->memid == member && (function->wFuncFlags & FUNCFLAG_FRESTRICTED) == 0 &&
        (function->invkind & wanted) != 0) {
      found = callableOf(*function);
    }
    type.ReleaseFuncDesc(function);
  }
  return S_OK;
}

}  // namespace

HRESULT callMember(ITypeInfo& type, void* object, DISPID member, WORD flags, DISPPARAMS* parameters,
                   VARIANT* result, EXCEPINFO* exception, UINT* argument) noexcept {
  if (parameters == nullptr) return E_INVALIDARG;
  Callable callable;
  HRESULT found = findCallable(type, member, flags, callable);
  if (callable.kind == 0 && flags == DISPATCH_PROPERTYPUT) {
    found = findCallable(type, member, DISPATCH_PROPERTYPUTREF, callable);
  }
  if (FAILED(found)) return found;
  if (callable.kind == 0) return DISP_E_MEMBERNOTFOUND;
  if (parameters->cArgs != callable.arguments) return DISP_E_BADPARAMCOUNT;
  if ((callable.kind & kPuts) == 0) {
    return type.Invoke(object, member, static_cast<WORD>(callable.kind), parameters, result,
                       exception, argument);
  }

  Variant newValue;
  const HRESULT converted = win32::changeType(newValue, parameters->rgvarg[0], callable.newValue);
  if (FAILED(converted)) {
    if (argument != nullptr) *argument = 0;
    return converted;
  }
  DISPPARAMS given = *parameters;
  given.rgvarg = newValue.address();
  return type.Invoke(object, member, static_cast<WORD>(callable.kind), &given, nullptr, exception,
                     argument);
}

}  // namespace tillora::automation
