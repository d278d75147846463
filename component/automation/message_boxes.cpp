#include "component/automation/message_boxes.h"

#include <windows.h>

#include <objbase.h>

#include "com/wide_text.h"
#include "component/automation/host_adapters.h"
#include "component/automation/host_failure.h"
#include "platform/platform_message_box.h"
#include "ui/win32/dpi_context.h"

namespace tillora::automation {

std::unique_ptr<HostMessageBox> AutomationMessageBoxes::create() {
  CLSID hostClass;
  if (FAILED(CLSIDFromProgID(win32::wide(programId_), &hostClass))) {
    return std::make_unique<win32::PlatformMessageBox>(owner_());
  }
  const ui::win32::ProgramsScaling scaling;
  win32::ComPtr<IDispatch> box;
  const HRESULT created =
      CoCreateInstance(hostClass, nullptr, CLSCTX_SERVER, IID_IDispatch, box.outVoid());
  if (created == REGDB_E_CLASSNOTREG) return std::make_unique<win32::PlatformMessageBox>(owner_());
  if (FAILED(created)) throw plainFailure(created, programId_, u"create");
  return makeHostMessageBox(std::move(box));
}

}  // namespace tillora::automation
