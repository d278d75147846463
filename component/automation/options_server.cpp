#include "component/automation/options_server.h"

#include "TilloraOptions.h"
#include "component/automation/com_error.h"
#include "component/automation/options_object.h"
#include "component/automation/services.h"

namespace tillora::automation {
namespace {

const win32::ServerClass kClasses[] = {
    {CLSID_Options, kProgramId, u"Tillora Options",
     []() -> IDispatch* { return new OptionsObject(makeServices()); }},
};

}  // namespace

const win32::Server kOptionsServer{LIBID_TilloraOptions, kClasses};

}  // namespace tillora::automation
