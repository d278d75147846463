#pragma once

#include <cstdint>

#include "base/error.h"
#include "base/text.h"

namespace tillora::host {

/// What the objects of this host raise. The numbers are the run-time errors that a program in Basic
/// knows for the same cases.
namespace shop_error {
inline constexpr std::int32_t outOfMemory = basicError(7);
inline constexpr std::int32_t diskFull = basicError(61);
inline constexpr std::int32_t stringNotFound = basicError(326);
inline constexpr std::int32_t noEditInProgress = basicError(3020);
inline constexpr std::int32_t noCurrentRow = basicError(3021);
inline constexpr std::int32_t damaged = basicError(3049);
inline constexpr std::int32_t cannotOpen = basicError(3051);
inline constexpr std::int32_t criteriaSyntax = basicError(3077);
inline constexpr std::int32_t rowDeleted = basicError(3167);
inline constexpr std::int32_t saveLost = basicError(3246);
inline constexpr std::int32_t locked = basicError(3260);
inline constexpr std::int32_t unknownField = basicError(3265);
inline constexpr std::int32_t wrongVersion = basicError(3343);
inline constexpr std::int32_t shopClosed = basicError(3420);
inline constexpr std::int32_t criteriaType = basicError(3464);
inline constexpr std::int32_t storage = basicError(3043);  ///< reading or writing the disk failed
}  // namespace shop_error

/// The objects of the type library, as the source of an error names them.
namespace shop_object {
inline constexpr TextView database = u"JetDatabase";
inline constexpr TextView settings = u"SettingsStore";
inline constexpr TextView strings = u"ResourceStrings";
inline constexpr TextView table = u"ShopTable";
inline constexpr TextView options = u"OptionsRecord";
}  // namespace shop_object

/// Raises an Error whose source is "TilloraHost." and the object's name (shop_object).
[[noreturn]] void fail(std::int32_t number, TextView object, Text description);

}  // namespace tillora::host
