#pragma once

#include <windows.h>

#include <oleauto.h>

#include <new>
#include <utility>

#include "com/wide_text.h"

namespace tillora::win32 {

/// An owned automation string.
class Bstr {
 public:
  Bstr() = default;
  /// Throws std::bad_alloc when out of memory.
  explicit Bstr(TextView text)
      : string_(SysAllocStringLen(reinterpret_cast<const wchar_t*>(text.data()),
                                  static_cast<UINT>(text.size()))) {
    if (string_ == nullptr) throw std::bad_alloc();
  }
  Bstr(Bstr&& other) noexcept : string_(std::exchange(other.string_, nullptr)) {}
  Bstr& operator=(Bstr&& other) noexcept {
    std::swap(string_, other.string_);
    return *this;
  }
  ~Bstr() { SysFreeString(string_); }

  BSTR get() const { return string_; }
  /// For functions that hand out a string.
  BSTR* out() {
    SysFreeString(std::exchange(string_, nullptr));
    return &string_;
  }
  /// Gives the string to the caller.
  BSTR detach() { return std::exchange(string_, nullptr); }

  Text text() const { return textOf(string_); }
  /// A copy of a string that someone else owns; null is empty.
  static Text textOf(BSTR string) {
    return string == nullptr ? Text{} : fromWide(string, SysStringLen(string));
  }

 private:
  BSTR string_ = nullptr;
};

}  // namespace tillora::win32
