#pragma once

#include <windows.h>

#include <dispex.h>
#include <oleauto.h>

#include <atomic>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/error.h"
#include "com/com_ptr.h"
#include "com/variant.h"
#include "tests/testing/memory/failing_memory.h"

namespace tillora::testing {

inline win32::Variant nullVariant() {
  win32::Variant value;
  value.address()->vt = VT_NULL;
  return value;
}

/// How a member of a scripted object fails.
struct Failing {
  HRESULT result = E_FAIL;
  /// Given as EXCEPINFO or as the thread's error object; none for a bare result.
  std::optional<Error> said;
  enum class How : std::uint8_t { exception, deferred, wCode, errorObject, bare } how = How::bare;
};

/// What a member was called with; arguments in the order of the caller's text.
struct Call {
  WORD flags = 0;
  std::vector<const VARIANT*> arguments;

  bool isPut() const { return (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0; }
  Text text(std::size_t index) const { return win32::Bstr::textOf(arguments.at(index)->bstrVal); }
};

/// An automation object of a host, made of named functions. It counts what is asked of it. Created
/// with one reference, on the heap.
class ScriptedObject final : public IDispatchEx {
 public:
  using Member = std::function<win32::Variant(const Call&)>;

  static win32::ComPtr<ScriptedObject> make() {
    return win32::ComPtr<ScriptedObject>::adopt(new ScriptedObject);
  }

  /// Names are compared without regard to case.
  void add(const Text& name, Member member) {
    ids_[folded(name)] = static_cast<DISPID>(members_.size() + kFirstId);
    members_.push_back({name, std::move(member)});
  }
  void remove(const Text& name) { ids_.erase(folded(name)); }

  /// An interface id that the object answers.
  std::optional<IID> offers;
  /// Answers names as the classes of a script engine do: through IDispatchEx alone.
  bool namesOnlyByEx = false;
  /// Times that the id of a name was asked for.
  std::map<Text, int> lookUps;
  /// Names of the members called, in order.
  std::vector<Text> calls;
  /// Called for every reference that is released, with the number of those left.
  std::function<void(ULONG)> released;
  ULONG references() const { return references_; }
  /// Called before anything that is asked of any of these objects, a release included.
  static inline std::function<void()> onAsked;
  /// Called with what a member of any of them gives, which it may replace.
  static inline std::function<void(const Text& member, win32::Variant& value)> onGiven;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (onAsked) onAsked();
    const bool known = id == IID_IUnknown || id == IID_IDispatch || (offers && id == *offers) ||
                       (namesOnlyByEx && id == __uuidof(IDispatchEx));
    *object = known ? static_cast<IDispatchEx*>(this) : nullptr;
    if (!known) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    if (onAsked) onAsked();
    const ULONG left = --references_;
    if (released) released(left);
    if (left == 0) delete this;
    return left;
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID,
                                          DISPID* ids) override {
    if (namesOnlyByEx) return E_NOTIMPL;
    return lookUp(names[0], ids);
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* exception, UINT*) override {
    return namesOnlyByEx ? E_NOTIMPL : call(id, flags, *parameters, result, exception);
  }

  HRESULT STDMETHODCALLTYPE GetDispID(BSTR name, DWORD, DISPID* id) override {
    return lookUp(name, id);
  }
  HRESULT STDMETHODCALLTYPE InvokeEx(DISPID id, LCID, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception,
                                     IServiceProvider*) override {
    return call(id, flags, *parameters, result, exception);
  }
  HRESULT STDMETHODCALLTYPE DeleteMemberByName(BSTR, DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE DeleteMemberByDispID(DISPID) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetMemberProperties(DISPID, DWORD, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE GetMemberName(DISPID, BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetNextDispID(DWORD, DISPID, DISPID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetNameSpaceParent(IUnknown**) override { return E_NOTIMPL; }

 private:
  static constexpr DISPID kFirstId = 100;

  ScriptedObject() = default;
  virtual ~ScriptedObject() = default;

  static Text folded(Text name) {
    CharLowerBuffW(reinterpret_cast<wchar_t*>(name.data()), static_cast<DWORD>(name.size()));
    return name;
  }

  HRESULT lookUp(const wchar_t* name, DISPID* id) {
    const FailingMemory::Pause outside;
    if (onAsked) onAsked();
    const Text asked = win32::fromWide(name);
    ++lookUps[asked];
    const auto found = ids_.find(folded(asked));
    *id = found == ids_.end() ? DISPID_UNKNOWN : found->second;
    return found == ids_.end() ? DISP_E_UNKNOWNNAME : S_OK;
  }

  HRESULT call(DISPID id, WORD flags, const DISPPARAMS& parameters, VARIANT* result,
               EXCEPINFO* exception) {
    const auto index = static_cast<std::size_t>(id - kFirstId);
    if (index >= members_.size()) return DISP_E_MEMBERNOTFOUND;
    const FailingMemory::Pause outside;
    if (onAsked) onAsked();
    calls.push_back(members_[index].first);
    Call given{flags, {}};
    for (UINT position = parameters.cArgs; position > 0; --position) {
      given.arguments.push_back(&parameters.rgvarg[position - 1]);
    }
    try {
      win32::Variant value = members_[index].second(given);
      if (onGiven && result != nullptr) onGiven(members_[index].first, value);
      if (result != nullptr) std::swap(*result, *value.address());
      return S_OK;
    } catch (const Failing& failing) {
      return fail(failing, *exception);
    } catch (const Error& failure) {
      return fail({failure.number(), failure, Failing::How::exception}, *exception);
    }
  }

  static void fill(EXCEPINFO& exception, const Error& said) {
    exception.bstrSource = win32::Bstr(said.source()).detach();
    exception.bstrDescription = win32::Bstr(said.description()).detach();
    exception.bstrHelpFile = win32::Bstr(said.helpFile()).detach();
    exception.dwHelpContext = said.helpContext();
    exception.scode = said.number();
  }
  static HRESULT WINAPI fillDeferred(EXCEPINFO* exception) {
    fill(*exception, *static_cast<const Error*>(exception->pvReserved));
    return S_OK;
  }

  static HRESULT fail(const Failing& failing, EXCEPINFO& exception) {
    static std::optional<Error> deferred;
    switch (failing.how) {
      case Failing::How::exception:
        fill(exception, *failing.said);
        return DISP_E_EXCEPTION;
      case Failing::How::wCode:
        fill(exception, *failing.said);
        exception.scode = 0;
        exception.wCode = static_cast<WORD>(failing.said->number());
        return DISP_E_EXCEPTION;
      case Failing::How::deferred:
        deferred.emplace(*failing.said);
        exception.pvReserved = &*deferred;
        exception.pfnDeferredFillIn = fillDeferred;
        return DISP_E_EXCEPTION;
      case Failing::How::errorObject: {
        win32::ComPtr<ICreateErrorInfo> error;
        CreateErrorInfo(error.out());
        error->SetSource(const_cast<wchar_t*>(win32::wide(failing.said->source())));
        error->SetDescription(const_cast<wchar_t*>(win32::wide(failing.said->description())));
        error->SetHelpFile(const_cast<wchar_t*>(win32::wide(failing.said->helpFile())));
        error->SetHelpContext(failing.said->helpContext());
        SetErrorInfo(0, error.query<IErrorInfo>().get());
        return failing.result;
      }
      case Failing::How::bare:
        break;
    }
    return failing.result;
  }

  std::atomic<ULONG> references_ = 1;
  std::map<Text, DISPID> ids_;
  std::vector<std::pair<Text, Member>> members_;
};

}  // namespace tillora::testing
