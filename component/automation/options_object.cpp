#include "component/automation/options_object.h"

#include "com/bstr.h"
#include "component/automation/enumerators.h"
#include "component/automation/host_adapters.h"

namespace tillora::automation {

using win32::ComPtr;

namespace {

/// Replaces a host object and releases the former one last, since that may call back.
template <class Interface>
void replace(std::shared_ptr<Interface>& held, std::shared_ptr<Interface> given) {
  held.swap(given);
}

}  // namespace

OptionsObject::OptionsObject(std::unique_ptr<Services> services)
    : services_(std::move(services)), events_(*this, kEventsId), options_(services_->platform()) {
  options_.OptionsChanged = [this](std::int32_t& changes) {
    events_.raise(DISPID_OPTIONSCHANGED, changes);
  };
}

OptionsObject::~OptionsObject() {
  options_.DBJetObject.reset();
  options_.AppObject.reset();
  options_.SettingsObject.reset();
}

HRESULT OptionsObject::putref_DBJetObject(IDispatch* database) {
  return guarded(kInterfaceId, [&] { replace(options_.DBJetObject, makeJetDatabase(database)); });
}

HRESULT OptionsObject::putref_AppObject(IDispatch* application) {
  return guarded(kInterfaceId, [&] { replace(options_.AppObject, makeApp(application)); });
}

HRESULT OptionsObject::get_ChangedDataFile(VARIANT_BOOL* changed) {
  if (changed == nullptr) return E_POINTER;
  *changed = options_.ChangedDataFile() ? VARIANT_TRUE : VARIANT_FALSE;
  return S_OK;
}

HRESULT OptionsObject::put_FirstUse(VARIANT_BOOL first) {
  options_.FirstUse = first != VARIANT_FALSE;
  return S_OK;
}

HRESULT OptionsObject::putref_MsgSndObject(IDispatch* sender) {
  return guarded(kInterfaceId, [&] { replace(options_.MsgSndObject, makeMessageSender(sender)); });
}

HRESULT OptionsObject::put_LVFileExtension(BSTR extension) {
  return guarded(kInterfaceId, [&] { options_.LVFileExtension = win32::Bstr::textOf(extension); });
}

HRESULT OptionsObject::putref_ResourceObject(IDispatch* strings) {
  return guarded(kInterfaceId,
                 [&] { replace(options_.ResourceObject, makeResourceStrings(strings)); });
}

HRESULT OptionsObject::put_SelectedTab(short tab) {
  options_.SelectedTab = tab;
  return S_OK;
}

HRESULT OptionsObject::putref_SettingsObject(IDispatch* settings) {
  return guarded(kInterfaceId,
                 [&] { replace(options_.SettingsObject, makeSettingsStore(settings)); });
}

HRESULT OptionsObject::ShowOptions(VARIANT_BOOL* shown) {
  if (shown == nullptr) return E_POINTER;
  *shown = VARIANT_FALSE;
  const ComPtr<IUnknown> alive(static_cast<_Options*>(this));
  return guarded(kInterfaceId, [&] {
    options_.setNumbers(services_->platform().numbers);
    *shown = options_.ShowOptions() ? VARIANT_TRUE : VARIANT_FALSE;
  });
}

HRESULT OptionsObject::EnumConnectionPoints(IEnumConnectionPoints** points) {
  if (points == nullptr) return E_POINTER;
  *points = nullptr;
  return guarded(IID_IConnectionPointContainer, [&] {
    *points = new ConnectionPointEnumerator({ComPtr<IConnectionPoint>(&events_)});
  });
}

HRESULT OptionsObject::FindConnectionPoint(REFIID id, IConnectionPoint** point) {
  if (point == nullptr) return E_POINTER;
  *point = nullptr;
  if (id != kEventsId) return CONNECT_E_NOCONNECTION;
  *point = ComPtr<IConnectionPoint>(&events_).detach();
  return S_OK;
}

void* OptionsObject::findOwnInterface(REFIID id) {
  if (id == IID_IConnectionPointContainer) return static_cast<IConnectionPointContainer*>(this);
  return nullptr;
}

bool OptionsObject::setsErrorInfo(REFIID id) const {
  return AutomationObject::setsErrorInfo(id) || id == IID_IConnectionPointContainer;
}

}  // namespace tillora::automation
