#pragma once

namespace tillora::win32 {

/// Gives back the thread-storage indexes that the language's runtime took inside this library. For
/// DllMain, when the library is unloaded from a program that keeps running.
///
/// The runtime of MinGW takes one at the first exception and keeps it; a program that loads and
/// unloads the library often would run out of them. With another runtime, or one in a library of
/// its own, there is nothing to do.
void freeThreadStorage() noexcept;

}  // namespace tillora::win32
