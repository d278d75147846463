#pragma once

#include <windows.h>
#include <gtest/gtest.h>

#include <oleauto.h>

#include <algorithm>
#include <initializer_list>
#include <vector>

#include "com/bstr.h"
#include "com/com_ptr.h"
#include "com/variant.h"

namespace tillora::host::automation {

using win32::Bstr;
using win32::ComPtr;
using win32::Variant;

/// What an object answered to a call.
struct Answer {
  HRESULT result = S_OK;
  Variant value;
  UINT argument = 99;
  // of DISP_E_EXCEPTION
  SCODE number = 0;
  Text source;
  Text description;

  Text text() const { return Bstr::textOf(value.get().bstrVal); }
};

/// An object as scripts see it: every member by its name.
class LateBound {
 public:
  LateBound() = default;
  explicit LateBound(ComPtr<IDispatch> object) : object_(std::move(object)) {}

  IDispatch* get() const { return object_.get(); }
  explicit operator bool() const { return static_cast<bool>(object_); }

  /// The member's id; DISPID_UNKNOWN for none.
  DISPID id(const wchar_t* name) const {
    auto* names = const_cast<wchar_t*>(name);
    DISPID id = DISPID_UNKNOWN;
    object_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
    return id;
  }

  template <class... Args>
  Answer call(const wchar_t* name, Args&&... arguments) const {
    return invoke(id(name), DISPATCH_METHOD | DISPATCH_PROPERTYGET, {Variant(arguments)...});
  }
  template <class... Args>
  Answer put(const wchar_t* name, Args&&... arguments) const {
    return invoke(id(name), DISPATCH_PROPERTYPUT, {Variant(arguments)...});
  }
  /// The object that a member gives.
  template <class... Args>
  LateBound object(const wchar_t* name, Args&&... arguments) const {
    const Answer answer = call(name, std::forward<Args>(arguments)...);
    EXPECT_EQ(answer.result, S_OK);
    EXPECT_EQ(answer.value.type(), VT_DISPATCH);
    return LateBound(ComPtr<IDispatch>(answer.value.get().pdispVal));
  }

  Answer invoke(DISPID member, WORD flags, std::initializer_list<Variant> arguments) const {
    std::vector<VARIANT> reversed;
    for (const Variant& argument : arguments) reversed.insert(reversed.begin(), argument.get());
    DISPID put = DISPID_PROPERTYPUT;
    const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    DISPPARAMS parameters{reversed.data(), isPut ? &put : nullptr,
                          static_cast<UINT>(reversed.size()), isPut ? 1U : 0U};
    EXCEPINFO exception{};
    Answer answer;
    answer.result =
        object_->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                        isPut ? nullptr : answer.value.out(), &exception, &answer.argument);
    answer.number = exception.scode;
    answer.source = Bstr::textOf(exception.bstrSource);
    answer.description = Bstr::textOf(exception.bstrDescription);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    return answer;
  }

 private:
  ComPtr<IDispatch> object_;
};

}  // namespace tillora::host::automation
