#pragma once

#include <windows.h>

#include <objbase.h>

#include <utility>

namespace tillora::win32 {

/// One counted reference to an interface, or none.
template <class Interface>
class ComPtr {
 public:
  ComPtr() = default;
  ComPtr(std::nullptr_t) {}
  /// Adds a reference.
  explicit ComPtr(Interface* object) : object_(object) {
    if (object_ != nullptr) object_->AddRef();
  }
  ComPtr(const ComPtr& other) : ComPtr(other.object_) {}
  ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ~ComPtr() { reset(); }

  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }

  /// Takes over a reference that the caller owns.
  static ComPtr adopt(Interface* object) {
    ComPtr owner;
    owner.object_ = object;
    return owner;
  }

  void reset() {
    if (Interface* const object = std::exchange(object_, nullptr)) object->Release();
  }
  /// Gives the reference to the caller.
  Interface* detach() { return std::exchange(object_, nullptr); }

  Interface* get() const { return object_; }
  Interface* operator->() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }

  /// For functions that hand out a reference. Drops the one held so far.
  Interface** out() {
    reset();
    return &object_;
  }
  void** outVoid() { return reinterpret_cast<void**>(out()); }

  /// The same object under another interface; none if it lacks that interface.
  template <class Other>
  ComPtr<Other> query(const IID& iid) const {
    ComPtr<Other> other;
    if (object_ == nullptr || FAILED(object_->QueryInterface(iid, other.outVoid()))) return {};
    return other;
  }
  template <class Other>
  ComPtr<Other> query() const {
    return query<Other>(__uuidof(Other));
  }

 private:
  Interface* object_ = nullptr;
};

}  // namespace tillora::win32
