#pragma once

#include <optional>
#include <span>

#include "component/automation/dispatch_object.h"

namespace tillora::automation {

/// One of the host interfaces of the type library.
struct HostInterface {
  const char16_t* name;
  const IID* id;
  /// What an object must know to offer the interface by name alone.
  std::span<const char16_t* const> members;
};

namespace host_interfaces {
extern const HostInterface jetDatabase;
extern const HostInterface messageSender;
extern const HostInterface resourceStrings;
extern const HostInterface settingsStore;
}  // namespace host_interfaces

/// The host's object under the wanted interface, which it offers when it answers the interface's id
/// or knows every member name. Otherwise Error `typeMismatch`, saying which name is missing;
/// `property` is the property of Options that was set.
DispatchObject requireInterface(IDispatch& object, const HostInterface& wanted, TextView property);

}  // namespace tillora::automation
