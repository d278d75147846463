#pragma once

#include <windows.h>

#include "base/text.h"

namespace tillora::win32 {

enum class RegistrationScope { machine, user };

/// Throws if a system function failed: std::bad_alloc or an Error that names the function.
void requireRegistered(HRESULT result, const char16_t* function);

/// The registered classes of the machine or of the user. Keys are named below Software\Classes;
/// failures are Errors that name the system's function.
class RegisteredClasses {
 public:
  /// Which registry a program on 64-bit Windows sees: that of its own bitness, or a given one.
  /// 32-bit Windows has only one.
  enum class View : DWORD { own = 0, of64 = KEY_WOW64_64KEY, of32 = KEY_WOW64_32KEY };

  explicit RegisteredClasses(RegistrationScope scope, View view = View::own)
      : root_(scope == RegistrationScope::user ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE),
        view_(static_cast<DWORD>(view)) {}

  /// A null name is the key's own value.
  void write(const Text& key, const char16_t* name, const Text& value) const;
  bool exists(const Text& key) const;
  /// Removes the key and everything below it. A missing key is not an error.
  void remove(const Text& key) const;
  /// Removes the key if it holds neither keys nor values.
  void removeIfEmpty(const Text& key) const;

 private:
  HKEY root_;
  DWORD view_;
};

}  // namespace tillora::win32
