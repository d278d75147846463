#pragma once

#include "component/contract/platform.h"

namespace tillora {

/// The programs that start when the current user logs on to Windows are the text values of one key
/// of the registry: a value's name is the program's title, its data the quoted path of its file.
/// The registry ignores the letter case of names; these routines do not. Both routines ignore
/// failures of the registry.

/// There is a value with exactly this name, whatever its data. False if the key cannot be read.
bool IsRunAtStartup(Registry& registry, const Text& title);

/// Writes the value, or removes it if it exists. A value whose name differs only in letter case
/// is replaced.
void SetRunAtStartup(Registry& registry, const Text& title, const Text& exePath, bool remove);

}  // namespace tillora
