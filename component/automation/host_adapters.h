#pragma once

#include <memory>

#include "component/automation/dispatch_object.h"
#include "component/contract/host_objects.h"

/// The host's automation objects as the core's interfaces. Each make function refuses an object
/// that does not offer its interface (Error `typeMismatch`); null gives null.
namespace tillora::automation {

std::shared_ptr<JetDatabase> makeJetDatabase(IDispatch* object);
std::shared_ptr<MessageSender> makeMessageSender(IDispatch* object);
std::shared_ptr<ResourceStrings> makeResourceStrings(IDispatch* object);
std::shared_ptr<SettingsStore> makeSettingsStore(IDispatch* object);
/// Not checked here: its members are looked up when they are needed.
std::shared_ptr<App> makeApp(IDispatch* object);

/// The host's object behind a settings store that makeSettingsStore() made; null for another.
IDispatch* automationObject(const SettingsStore& settings);

/// A message box of the host.
std::unique_ptr<HostMessageBox> makeHostMessageBox(win32::ComPtr<IDispatch> object);

}  // namespace tillora::automation
