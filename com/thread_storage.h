#pragma once

namespace tillora::win32 {

/// Gives back the thread-storage indexes that the language's runtime took inside this library. For
/// DllMain, when the library is unloaded from a program that goes on.
///
/// The runtime of MinGW takes one at the first exception and keeps it; a program that loads and
/// unloads the library often would run out of them. Where the runtime is another one, or lives in a
/// library of its own, there is nothing to do.
void freeThreadStorage() noexcept;

}  // namespace tillora::win32
