#pragma once

#include "com/server.h"

namespace tillora::host::automation {

/// The class `Shop`.
extern const win32::ServerClass& kShopClass;
/// The message boxes that the component shows.
extern const win32::ServerClass& kHostMessageBoxClass;

/// What TilloraHost.dll offers.
extern const win32::Server kShopServer;

}  // namespace tillora::host::automation
