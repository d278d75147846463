#pragma once

#include "com/server.h"

namespace tillora::automation {

/// What TilloraOptions.dll offers.
extern const win32::Server kOptionsServer;

}  // namespace tillora::automation
