#include "component/automation/com_error.h"

#include <new>

#include "component/automation/host_failure.h"

namespace tillora::automation {

void throwIfFailed(HRESULT result, const char16_t* action) {
  if (SUCCEEDED(result)) return;
  if (result == E_OUTOFMEMORY) throw std::bad_alloc();
  throw plainFailure(result, kProgramId, action);
}

}  // namespace tillora::automation
