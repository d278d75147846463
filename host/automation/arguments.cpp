#include "host/automation/arguments.h"

#include <new>

#include "com/value_conversion.h"

namespace tillora::host::automation {

using win32::Bstr;
using win32::Variant;

void Arguments::require(UINT least, UINT most) const {
  if (count() < least || count() > most) throw CallRefused{DISP_E_BADPARAMCOUNT};
}

const VARIANT& Arguments::value(UINT index) const {
  const VARIANT* value = &parameters_.rgvarg[position(index)];
  while (value->vt == (VT_VARIANT | VT_BYREF)) value = value->pvarVal;
  return *value;
}

bool Arguments::missing(UINT index) const {
  if (index >= count()) return true;
  const VARIANT& given = value(index);
  return given.vt == VT_ERROR && given.scode == DISP_E_PARAMNOTFOUND;
}

Variant Arguments::converted(UINT index, VARTYPE type) const {
  Variant result;
  const HRESULT changed = win32::changeType(result, value(index), type);
  if (changed == E_OUTOFMEMORY) throw std::bad_alloc();
  if (FAILED(changed)) throw CallRefused{changed, position(index)};
  return result;
}

Text Arguments::text(UINT index) const {
  return Bstr::textOf(converted(index, VT_BSTR).get().bstrVal);
}

std::int32_t Arguments::number(UINT index) const { return converted(index, VT_I4).get().lVal; }

double Arguments::date(UINT index) const { return converted(index, VT_DATE).get().date; }

win32::ComPtr<IDispatch> Arguments::object(UINT index) const {
  return win32::ComPtr<IDispatch>(converted(index, VT_DISPATCH).get().pdispVal);
}

}  // namespace tillora::host::automation
