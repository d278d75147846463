#pragma once

#include <windows.h>

#include <TilloraOptions.h>
#include <oleauto.h>

#include <atomic>
#include <functional>

#include "host/app/automation.h"

namespace tillora::host::app {

/// Listens to OptionsChanged of one Options object during its lifetime.
class OptionsEvents {
 public:
  /// The handler gets the mask of what changed.
  OptionsEvents(_Options& options, std::function<void(std::int32_t)> changed);
  OptionsEvents(const OptionsEvents&) = delete;
  OptionsEvents& operator=(const OptionsEvents&) = delete;
  ~OptionsEvents();

 private:
  ComPtr<IConnectionPoint> point_;
  DWORD cookie_ = 0;
};

/// The names of a mask's bits, separated by commas: "Rounding, CurrencyColumns".
Text namesOfChanges(std::int32_t mask);

}  // namespace tillora::host::app
