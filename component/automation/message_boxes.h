#pragma once

#include <windows.h>

#include <functional>

#include "component/contract/platform.h"

namespace tillora::automation {

/// The host's registered message box class, a new object each time; the system's message box if no
/// such class is registered. A class that is registered but cannot be created is an error of the
/// host.
class AutomationMessageBoxes final : public MessageBoxes {
 public:
  /// `owner` says which window the system's message box belongs to.
  explicit AutomationMessageBoxes(std::function<HWND()> owner,
                                  const char16_t* programId = u"TilloraHost.HostMessageBox")
      : owner_(std::move(owner)), programId_(programId) {}
  std::unique_ptr<HostMessageBox> create() override;

 private:
  std::function<HWND()> owner_;
  const char16_t* programId_;
};

}  // namespace tillora::automation
