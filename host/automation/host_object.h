#pragma once

#include <windows.h>

#include <oleauto.h>

#include <algorithm>
#include <atomic>
#include <span>
#include <utility>

#include "com/com_ptr.h"
#include "com/module.h"
#include "com/variant.h"
#include "host/automation/arguments.h"
#include "host/text_encoding.h"

namespace tillora::host::automation {

using win32::ComPtr;
using win32::Variant;

/// An automation object of this host: IDispatch by hand, without a type library, which is all that
/// the component asks for. Created with one reference, on the heap, in a single-threaded apartment.
/// No exception escapes: an Error becomes the call's exception information.
class HostObject : public IDispatch {
 public:
  HostObject(const HostObject&) = delete;
  HostObject& operator=(const HostObject&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID id, LCID locale, WORD flags,
                                   DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                   UINT* argument) override;

 protected:
  /// `interfaceId` is answered beside IUnknown and IDispatch: the host interface that it offers.
  explicit HostObject(const IID& interfaceId) : interfaceId_(interfaceId) {}
  virtual ~HostObject() = default;

  /// The id of a member by its name in any case; DISPID_UNKNOWN for none.
  virtual DISPID findMember(TextView name) const = 0;
  /// Gets a property or calls a method.
  virtual Variant get(DISPID member, const Arguments& arguments) = 0;
  /// Sets a property.
  virtual void put(DISPID member, const Arguments& arguments) = 0;

 private:
  const IID& interfaceId_;
  std::atomic<ULONG> references_{1};
  win32::ModuleLock lock_;
};

/// A member of an object: what reads or calls it, and what sets it (null if it cannot be set).
template <class Self>
struct Member {
  DISPID id;
  const char16_t* name;
  /// Arguments of a read or call; setting takes the new value after them.
  UINT arguments;
  Variant (*get)(Self&, const Arguments&);
  void (*put)(Self&, const Arguments&) = nullptr;
  /// Further arguments that may be left out.
  UINT optionalArguments = 0;
};

/// A host object whose members are the table `Self::members()`.
template <class Self>
class TableObject : public HostObject {
 protected:
  using HostObject::HostObject;

  DISPID findMember(TextView name) const override {
    for (const Member<Self>& member : Self::members()) {
      if (sameName(member.name, name)) return member.id;
    }
    return DISPID_UNKNOWN;
  }
  Variant get(DISPID id, const Arguments& arguments) override {
    const Member<Self>& member = find(id);
    if (member.get == nullptr) throw CallRefused{DISP_E_MEMBERNOTFOUND};
    arguments.require(member.arguments, member.arguments + member.optionalArguments);
    return member.get(static_cast<Self&>(*this), arguments);
  }
  void put(DISPID id, const Arguments& arguments) override {
    const Member<Self>& member = find(id);
    if (member.put == nullptr) throw CallRefused{DISP_E_MEMBERNOTFOUND};
    arguments.require(member.arguments + 1, member.arguments + 1);
    member.put(static_cast<Self&>(*this), arguments);
  }

 private:
  static const Member<Self>& find(DISPID id) {
    const std::span<const Member<Self>> members = Self::members();
    const auto found = std::ranges::find(members, id, &Member<Self>::id);
    if (found == members.end()) throw CallRefused{DISP_E_MEMBERNOTFOUND};
    return *found;
  }
};

/// A new object, as a value that holds its only reference.
template <class Object, class... Args>
Variant newObject(Args&&... args) {
  const auto object = ComPtr<IDispatch>::adopt(new Object(std::forward<Args>(args)...));
  return Variant(object.get());
}

}  // namespace tillora::host::automation
