#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "base/text.h"

namespace tillora::ui::win32 {

/// The positions of texts in the platform's order for lists without regard to case, that of its
/// sort keys (LCMapString with LCMAP_SORTKEY and NORM_IGNORECASE). Texts with equal keys keep their
/// order.
/// @param locale a locale's name; LOCALE_NAME_USER_DEFAULT for the user's.
std::vector<std::size_t> listOrder(std::span<const TextView> texts, const wchar_t* locale);

}  // namespace tillora::ui::win32
