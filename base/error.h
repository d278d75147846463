#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <utility>

#include "base/text.h"

namespace tillora {

/// A failure that reaches the host program with its number, source and description intact.
///
/// Host objects raise it, as do the few operations of this component that a caller can misuse. The
/// component lets it pass, except in the few steps that are meant to fail silently.
class Error : public std::exception {
 public:
  /// An error of the component itself; the server adds the source.
  Error(std::int32_t number, Text description) : Error(number, {}, std::move(description)) {}
  Error(std::int32_t number, Text source, Text description, Text helpFile = {},
        std::uint32_t helpContext = 0);

  /// HRESULT. A number given by a script or by Visual Basic is 0x800A0000 + the number.
  std::int32_t number() const { return number_; }
  /// Program id of the object that failed, e.g. "TilloraHost.JetDatabase"; empty for the
  /// component.
  const Text& source() const { return source_; }
  const Text& description() const { return description_; }
  const Text& helpFile() const { return helpFile_; }
  std::uint32_t helpContext() const { return helpContext_; }

  /// The description as UTF-8, for logs and test failures.
  const char* what() const noexcept override { return what_.c_str(); }

 private:
  std::int32_t number_;
  Text source_;
  Text description_;
  Text helpFile_;
  std::uint32_t helpContext_;
  std::string what_;
};

/// The HRESULT of a Visual Basic run-time error number (FACILITY_CONTROL), e.g. 380.
constexpr std::int32_t basicError(std::uint16_t number) {
  return static_cast<std::int32_t>(0x800A0000u | number);
}

namespace error {
inline constexpr std::int32_t invalidIndex = basicError(380);           ///< invalid property value
inline constexpr std::int32_t overflow = basicError(6);                 ///< "Overflow"
inline constexpr std::int32_t typeMismatch = 0x80020005 - 0x100000000;  ///< DISP_E_TYPEMISMATCH
inline constexpr std::int32_t objectNotSet = basicError(91);            ///< object variable not set
inline constexpr std::int32_t alreadyShown = basicError(400);           ///< form is shown already
inline constexpr std::int32_t indexOutOfBounds = basicError(35600);     ///< tab strip, lists
}  // namespace error

}  // namespace tillora
