#include "host/automation/shop_server.h"

#include <TilloraHost.h>

#include "host/automation/program_objects.h"
#include "host/automation/shop_object.h"

namespace tillora::host::automation {
namespace {

const win32::ServerClass kClasses[] = {
    {CLSID_Shop, u"TilloraHost.Shop", u"Tillora Shop",
     []() -> IDispatch* { return new ShopObject; }},
    {CLSID_ShopMessageBox, u"TilloraHost.HostMessageBox", u"Tillora Message Box",
     []() -> IDispatch* { return new HostMessageBoxObject; }},
};

}  // namespace

const win32::ServerClass& kShopClass = kClasses[0];
const win32::ServerClass& kHostMessageBoxClass = kClasses[1];
const win32::Server kShopServer{LIBID_TilloraHost, kClasses};

}  // namespace tillora::host::automation
