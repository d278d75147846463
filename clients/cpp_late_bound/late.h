#pragma once

#include <windows.h>

#include <oleauto.h>

#include <stdexcept>
#include <string>
#include <utility>

/// A value for a late-bound call. It owns what is in it.
class Value {
 public:
  Value() { VariantInit(&value_); }
  explicit Value(short number) : Value() {
    value_.vt = VT_I2;
    value_.iVal = number;
  }
  explicit Value(const wchar_t* text) : Value() {
    value_.vt = VT_BSTR;
    value_.bstrVal = SysAllocString(text);
  }
  Value(const Value& other) : Value() { VariantCopy(&value_, const_cast<VARIANT*>(&other.value_)); }
  Value& operator=(const Value&) = delete;
  ~Value() { VariantClear(&value_); }

  VARIANT& get() { return value_; }
  bool isTrue() const { return value_.vt == VT_BOOL && value_.boolVal != VARIANT_FALSE; }

 private:
  VARIANT value_;
};

/// What a late-bound call reports when it fails.
struct CallFailed : std::runtime_error {
  CallFailed(HRESULT number, std::wstring source, std::wstring description)
      : std::runtime_error("a call failed"),
        number(number),
        source(std::move(source)),
        description(std::move(description)) {}
  HRESULT number;
  std::wstring source;
  std::wstring description;
};

/// An automation object whose members are called by name. Nothing is known of it when the program
/// is compiled: neither header nor type library is needed.
class Late {
 public:
  static Late create(const wchar_t* programId) {
    CLSID id;
    IDispatch* object = nullptr;
    HRESULT result = CLSIDFromProgID(programId, &id);
    if (SUCCEEDED(result)) {
      result = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                reinterpret_cast<void**>(&object));
    }
    if (FAILED(result)) throw CallFailed(result, programId, L"It cannot be created.");
    return Late(object);
  }
  explicit Late(IDispatch* owned) : object_(owned) {}
  Late(const Late&) = delete;
  Late& operator=(const Late&) = delete;
  ~Late() {
    if (object_ != nullptr) object_->Release();
  }

  Value get(const wchar_t* name) { return invoke(name, DISPATCH_PROPERTYGET, nullptr); }
  Value call(const wchar_t* name) { return invoke(name, DISPATCH_METHOD, nullptr); }
  Value call(const wchar_t* name, Value argument) {
    return invoke(name, DISPATCH_METHOD, &argument.get());
  }
  void put(const wchar_t* name, Value value) { invoke(name, DISPATCH_PROPERTYPUT, &value.get()); }
  /// Sets an object property, as Set does in Basic.
  void putObject(const wchar_t* name, Value object) {
    invoke(name, DISPATCH_PROPERTYPUTREF, &object.get());
  }

 private:
  Value invoke(const wchar_t* name, WORD kind, VARIANT* argument) {
    auto* writable = const_cast<wchar_t*>(name);
    DISPID id = DISPID_UNKNOWN;
    HRESULT result = object_->GetIDsOfNames(IID_NULL, &writable, 1, LOCALE_USER_DEFAULT, &id);
    if (FAILED(result)) throw CallFailed(result, name, L"There is no such member.");

    // The new value of a property is a named argument.
    DISPID newValue = DISPID_PROPERTYPUT;
    const bool puts = (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    DISPPARAMS parameters{argument, puts ? &newValue : nullptr, argument == nullptr ? 0U : 1U,
                          puts ? 1U : 0U};
    Value given;
    EXCEPINFO failure{};
    UINT wrong = 0;
    result = object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, &given.get(),
                             &failure, &wrong);
    if (FAILED(result)) throw explained(result, failure);
    return given;
  }

  static CallFailed explained(HRESULT result, EXCEPINFO& failure) {
    if (failure.pfnDeferredFillIn != nullptr) failure.pfnDeferredFillIn(&failure);
    CallFailed error(result == DISP_E_EXCEPTION ? failure.scode : result,
                     failure.bstrSource == nullptr ? L"" : failure.bstrSource,
                     failure.bstrDescription == nullptr ? L"" : failure.bstrDescription);
    SysFreeString(failure.bstrSource);
    SysFreeString(failure.bstrDescription);
    SysFreeString(failure.bstrHelpFile);
    return error;
  }

  IDispatch* object_;
};
