#pragma once

#include <windows.h>

#include <oleauto.h>

#include "base/error.h"
#include "com/com_ptr.h"
#include "com/variant.h"

namespace tillora::host::app {

using win32::Bstr;
using win32::ComPtr;
using win32::Variant;

/// Keeps COM initialised for the thread.
class ComApartment {
 public:
  ComApartment();
  ComApartment(const ComApartment&) = delete;
  ComApartment& operator=(const ComApartment&) = delete;
  ~ComApartment();
};

/// Raises the Error behind a failed result of an early-bound call; `action` is its text if the
/// object gives none.
void check(HRESULT result, const char16_t* action);

/// A new object of a registered class. The Error for an unregistered one says how to register it.
ComPtr<IDispatch> createObject(const char16_t* programId);

/// Late-bound access to an object's members by name, as in a script. Failures are Errors with the
/// object's own number, source and description.
class Late {
 public:
  explicit Late(ComPtr<IDispatch> object) : object_(std::move(object)) {}

  IDispatch* dispatch() const { return object_.get(); }

  template <class... Args>
  Variant call(const char16_t* member, const Args&... arguments) const {
    // Arguments travel in reverse order.
    const Variant given[sizeof...(Args) + 1] = {Variant(), Variant(arguments)...};
    VARIANT reversed[sizeof...(Args) + 1];
    for (std::size_t i = 0; i < sizeof...(Args); ++i) {
      reversed[i] = given[sizeof...(Args) - i].get();
    }
    return invoke(member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, reversed, sizeof...(Args));
  }
  Late object(const char16_t* member) const;
  Text text(const char16_t* member) const;
  void put(const char16_t* member, const Variant& value) const;

 private:
  Variant invoke(const char16_t* member, WORD kind, VARIANT* arguments, std::size_t count) const;

  ComPtr<IDispatch> object_;
};

}  // namespace tillora::host::app
