#pragma once

#include <windows.h>

#include <dispex.h>
#include <oleauto.h>

#include <array>
#include <span>
#include <vector>

#include "base/error.h"
#include "com/com_ptr.h"
#include "com/variant.h"

namespace tillora::automation {

/// One automation object of the host, called by member names. Every call of a host object goes
/// through here.
///
/// A name's id is looked up once per object. Objects that know their names only through IDispatchEx
/// (classes of a script) are called through it. Arguments go by value. A failure is raised as an
/// Error, and so is a value that does not fit the wanted type (`typeMismatch`, `overflow`).
/// Conversions follow the platform's rules under the user's locale.
class DispatchObject {
 public:
  using Variant = win32::Variant;

  /// `name` is what failures call the object, e.g. "JetDatabase"; a literal. `object` is not null.
  DispatchObject(win32::ComPtr<IDispatch> object, const char16_t* name);

  IDispatch* object() const { return object_.get(); }
  const char16_t* name() const { return name_; }
  /// Switches to another object of the same interface: the names keep their ids.
  void exchange(win32::ComPtr<IDispatch> object);

  /// Member names are literals.
  bool knows(const char16_t* member);

  /// A property's value, as the host gave it.
  template <class... Arguments>
  Variant get(const char16_t* member, const Arguments&... arguments) {
    return pass(
        sizeof...(arguments) == 0 ? DISPATCH_PROPERTYGET : DISPATCH_PROPERTYGET | DISPATCH_METHOD,
        member, arguments...);
  }
  /// The last argument is the new value, those before it are the property's parameters.
  template <class... Arguments>
  void put(const char16_t* member, const Arguments&... arguments) {
    pass(DISPATCH_PROPERTYPUT, member, arguments...);
  }
  /// Sets an object property.
  void putReference(const char16_t* member, IDispatch* value);
  template <class... Arguments>
  Variant call(const char16_t* member, const Arguments&... arguments) {
    return pass(DISPATCH_METHOD, member, arguments...);
  }

  template <class... Arguments>
  Text getText(const char16_t* member, const Arguments&... arguments) {
    return text(get(member, arguments...), member);
  }
  /// The same into an existing text, whose memory is reused.
  void readText(Text& text, const char16_t* member);
  template <class... Arguments>
  bool getBoolean(const char16_t* member, const Arguments&... arguments) {
    return as<VT_BOOL>(get(member, arguments...), member).get().boolVal != VARIANT_FALSE;
  }
  template <class... Arguments>
  std::int32_t getLong(const char16_t* member, const Arguments&... arguments) {
    return as<VT_I4>(get(member, arguments...), member).get().lVal;
  }
  /// An object property, called `name` in failures. Error `objectNotSet` if the host gives none.
  DispatchObject getObject(const char16_t* member, const char16_t* name);

  /// The value as text; Empty and Null are empty.
  Text text(const Variant& value, const char16_t* member) const;
  /// The value as another type; `member` is named in failures.
  Variant converted(const Variant& value, VARTYPE type, const char16_t* member) const;
  /// A failure of this object, in the component's own words.
  Error failure(std::int32_t number, const char16_t* member, TextView what) const;

 private:
  struct Member {
    const char16_t* name;
    DISPID id;
    HRESULT lookUp;  // failed: the object does not know the name
    bool viaNamesEx;
  };

  /// The value itself if it already has the wanted type, as it usually does.
  template <VARENUM type>
  Variant as(Variant value, const char16_t* member) const {
    return value.type() == type ? std::move(value) : converted(value, type, member);
  }
  template <class... Arguments>
  Variant pass(int flags, const char16_t* member, const Arguments&... arguments) {
    std::array<Variant, sizeof...(arguments)> values{argument(arguments)...};
    return invoke(static_cast<WORD>(flags), member, values);
  }
  template <class Argument>
  static Variant argument(const Argument& value) {
    if constexpr (std::is_same_v<Argument, Value>) {
      return win32::toVariant(value);
    } else {
      return Variant(value);
    }
  }

  const Member& find(const char16_t* member);
  Member lookUp(const char16_t* member);
  Variant invoke(WORD flags, const char16_t* member, std::span<Variant> arguments);
  HRESULT invokeOnce(const Member& member, WORD flags, DISPPARAMS& parameters, Variant& result,
                     EXCEPINFO* exception);

  win32::ComPtr<IDispatch> object_;
  win32::ComPtr<IDispatchEx> namesEx_;
  const char16_t* name_;
  std::vector<Member> members_;
};

}  // namespace tillora::automation
