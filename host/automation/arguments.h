#pragma once

#include <windows.h>

#include <oleauto.h>

#include <cstdint>

#include "com/com_ptr.h"
#include "com/variant.h"

namespace tillora::host::automation {

/// A call that is refused with a plain result, as the platform's own dispatch refuses it.
struct CallRefused {
  HRESULT result;
  /// Position in the caller's argument array, for results that name one.
  UINT argument = 0;
};

/// The arguments of a call from outside, in the order in which they are written; of a property put,
/// the new value is the last one. Reading converts as automation does, under the user's locale;
/// what does not convert is refused.
class Arguments {
 public:
  explicit Arguments(const DISPPARAMS& parameters) : parameters_(parameters) {}

  UINT count() const { return parameters_.cArgs; }
  /// Refuses another number of arguments.
  void require(UINT least, UINT most) const;

  /// The value itself, behind any reference.
  const VARIANT& value(UINT index) const;
  /// Left out by the caller.
  bool missing(UINT index) const;

  Text text(UINT index) const;
  std::int32_t number(UINT index) const;
  double date(UINT index) const;
  /// Null for Nothing.
  win32::ComPtr<IDispatch> object(UINT index) const;
  win32::Variant converted(UINT index, VARTYPE type) const;

 private:
  UINT position(UINT index) const { return parameters_.cArgs - 1 - index; }

  const DISPPARAMS& parameters_;
};

}  // namespace tillora::host::automation
