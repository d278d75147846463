#pragma once

#include <windows.h>

#include <oleauto.h>

#include "base/error.h"

namespace tillora::automation {

/// What a failed IDispatch::Invoke reports about it; its strings are freed at the end.
class ExceptionInfo {
 public:
  ExceptionInfo() = default;
  ExceptionInfo(const ExceptionInfo&) = delete;
  ExceptionInfo& operator=(const ExceptionInfo&) = delete;
  ~ExceptionInfo() {
    if (used()) free();
  }

  EXCEPINFO* out() { return &info_; }
  EXCEPINFO& get() { return info_; }

 private:
  bool used() const {
    return info_.bstrSource != nullptr || info_.bstrDescription != nullptr ||
           info_.bstrHelpFile != nullptr;
  }
  void free();

  EXCEPINFO info_{};
};

/// The failure of a call as an Error: number, source, description, help file and help context as
/// the host's object gave them, from the exception information (a deferred part is asked for) or
/// from the thread's error object. `object` and `member` fill in for a missing source or
/// description.
Error hostFailure(HRESULT result, ExceptionInfo& exception, TextView object, TextView member);

/// The same for a failure that no object explains.
Error plainFailure(HRESULT result, TextView object, TextView member);

/// The system's sentence for a result, and the result in hexadecimal.
Text describeResult(HRESULT result);

}  // namespace tillora::automation
