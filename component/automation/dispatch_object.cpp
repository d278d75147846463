#include "component/automation/dispatch_object.h"

#include <algorithm>
#include <ranges>

#include "com/value_conversion.h"
#include "component/automation/host_failure.h"
#include "ui/win32/dpi_context.h"

namespace tillora::automation {

using win32::Bstr;
using win32::ComPtr;
using win32::Variant;

DispatchObject::DispatchObject(ComPtr<IDispatch> object, const char16_t* name)
    : object_(std::move(object)), name_(name) {}

void DispatchObject::exchange(ComPtr<IDispatch> object) {
  object_ = std::move(object);
  if (namesEx_) namesEx_ = object_.query<IDispatchEx>();
}

bool DispatchObject::knows(const char16_t* member) { return SUCCEEDED(find(member).lookUp); }

const DispatchObject::Member& DispatchObject::find(const char16_t* member) {
  // A name is usually the same literal as before; only others are compared as text.
  if (const auto known = std::ranges::find(members_, member, &Member::name);
      known != members_.end()) {
    return *known;
  }
  const auto sameText = [name = TextView(member)](const Member& m) { return name == m.name; };
  if (const auto known = std::ranges::find_if(members_, sameText); known != members_.end()) {
    return *known;
  }
  members_.push_back(lookUp(member));
  return members_.back();
}

DispatchObject::Member DispatchObject::lookUp(const char16_t* member) {
  auto* name = const_cast<wchar_t*>(win32::wide(member));
  DISPID id = DISPID_UNKNOWN;
  const HRESULT byName = object_->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
  if (byName != E_NOTIMPL) return {member, id, byName, false};

  if (!namesEx_) namesEx_ = object_.query<IDispatchEx>();
  if (!namesEx_) return {member, id, byName, false};
  const Bstr text{TextView(member)};
  const HRESULT byNameEx = namesEx_->GetDispID(text.get(), fdexNameCaseInsensitive, &id);
  return {member, id, byNameEx, true};
}

void DispatchObject::putReference(const char16_t* member, IDispatch* value) {
  std::array<Variant, 1> arguments{Variant(value)};
  invoke(DISPATCH_PROPERTYPUTREF, member, arguments);
}

DispatchObject DispatchObject::getObject(const char16_t* member, const char16_t* name) {
  Variant value = get(member);
  if (value.isEmptyOrNull()) throw failure(error::objectNotSet, member, u"gave no object");
  const Variant object = as<VT_DISPATCH>(std::move(value), member);
  if (object.get().pdispVal == nullptr) {
    throw failure(error::objectNotSet, member, u"gave no object");
  }
  return {ComPtr<IDispatch>(object.get().pdispVal), name};
}

void DispatchObject::readText(Text& text, const char16_t* member) {
  const Variant value = get(member);
  if (value.type() == VT_BSTR) {
    const BSTR string = value.get().bstrVal;
    text.assign(reinterpret_cast<const char16_t*>(string), SysStringLen(string));
  } else {
    text = this->text(value, member);
  }
}

Text DispatchObject::text(const Variant& value, const char16_t* member) const {
  if (value.isEmptyOrNull()) return {};
  if (value.type() == VT_BSTR) return Bstr::textOf(value.get().bstrVal);
  return Bstr::textOf(converted(value, VT_BSTR, member).get().bstrVal);
}

Variant DispatchObject::converted(const Variant& value, VARTYPE type,
                                  const char16_t* member) const {
  Variant result;
  const HRESULT changed = win32::changeType(result, value.get(), type);
  if (SUCCEEDED(changed)) return result;
  if (changed == DISP_E_OVERFLOW) {
    throw failure(error::overflow, member, u"gave a value that is too large");
  }
  if (changed == DISP_E_TYPEMISMATCH) {
    throw failure(error::typeMismatch, member, u"gave a value of another type");
  }
  throw plainFailure(changed, name_, member);
}

Error DispatchObject::failure(std::int32_t number, const char16_t* member, TextView what) const {
  Text description(name_);
  description += u'.';
  description += member;
  description += u' ';
  description += what;
  description += u'.';
  return {number, std::move(description)};
}

Variant DispatchObject::invoke(WORD flags, const char16_t* member, std::span<Variant> arguments) {
  const Member found = find(member);
  if (FAILED(found.lookUp)) throw plainFailure(found.lookUp, name_, member);

  // Invoke takes arguments from the last to the first. They stay owned by `arguments`.
  constexpr std::size_t kMaximum = 4;
  std::array<VARIANTARG, kMaximum> reversed;
  std::ranges::transform(std::views::reverse(arguments), reversed.begin(),
                         [](const Variant& value) { return value.get(); });
  const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  DISPID newValue = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{reversed.data(), isPut ? &newValue : nullptr,
                        static_cast<UINT>(arguments.size()), isPut ? 1U : 0U};

  Variant result;
  ExceptionInfo exception;
  HRESULT invoked = invokeOnce(found, flags, parameters, result, exception.out());
  if (invoked == DISP_E_MEMBERNOTFOUND) {
    // Some hosts have a method where the contract has a property, or `Let` where it has `Set`.
    const WORD otherwise =
        isPut ? DISPATCH_PROPERTYPUT : static_cast<WORD>(DISPATCH_PROPERTYGET | DISPATCH_METHOD);
    if (otherwise != flags) {
      invoked = invokeOnce(found, otherwise, parameters, result, exception.out());
    }
  }
  if (FAILED(invoked)) throw hostFailure(invoked, exception, name_, member);

  if ((result.type() & VT_BYREF) == 0) return result;
  Variant value;
  const HRESULT copied = win32::follow(value, result.get());
  if (copied == DISP_E_TYPEMISMATCH) {
    throw failure(error::typeMismatch, member, u"gave a value of another type");
  }
  if (FAILED(copied)) throw plainFailure(copied, name_, member);
  return value;
}

HRESULT DispatchObject::invokeOnce(const Member& member, WORD flags, DISPPARAMS& parameters,
                                   Variant& result, EXCEPINFO* exception) {
  // A host that fails without error information must not be blamed for an earlier error.
  SetErrorInfo(0, nullptr);
  const ui::win32::ProgramsScaling scaling;
  VARIANT* const wanted =
      (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0 ? nullptr : result.out();
  if (member.viaNamesEx) {
    return namesEx_->InvokeEx(member.id, LOCALE_USER_DEFAULT, flags, &parameters, wanted, exception,
                              nullptr);
  }
  UINT argument = 0;
  return object_->Invoke(member.id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, wanted,
                         exception, &argument);
}

}  // namespace tillora::automation
