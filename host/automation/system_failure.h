#pragma once

#include "base/text.h"

namespace tillora::host::automation {

/// Raises an Error for the thread's last system error: its number, and the sentence given followed
/// by the system's own words.
[[noreturn]] void failWithLastError(TextView object, Text sentence);

}  // namespace tillora::host::automation
