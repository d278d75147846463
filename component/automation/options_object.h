#pragma once

#include <memory>

#include "TilloraOptions.h"
#include "component/automation/automation_object.h"
#include "component/automation/connection_point.h"
#include "component/automation/services.h"
#include "component/options.h"

namespace tillora::automation {

/// The public class `Options`: the core's Options as an automation object.
///
/// Setting an object property to Nothing releases the object set before. ShowOptions keeps the
/// object alive until it returns, whatever the host releases meanwhile.
class OptionsObject final : public AutomationObject<OptionsObject, _Options>,
                            public IConnectionPointContainer {
 public:
  static constexpr const IID& kInterfaceId = IID__Options;
  static constexpr const CLSID& kClassId = CLSID_Options;
  static constexpr const IID& kEventsId = DIID___Options;

  explicit OptionsObject(std::unique_ptr<Services> services);

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    return AutomationObject::QueryInterface(id, object);
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return AutomationObject::AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return AutomationObject::Release(); }

  HRESULT STDMETHODCALLTYPE putref_DBJetObject(IDispatch* database) override;
  HRESULT STDMETHODCALLTYPE putref_AppObject(IDispatch* application) override;
  HRESULT STDMETHODCALLTYPE get_ChangedDataFile(VARIANT_BOOL* changed) override;
  HRESULT STDMETHODCALLTYPE put_FirstUse(VARIANT_BOOL first) override;
  HRESULT STDMETHODCALLTYPE putref_MsgSndObject(IDispatch* sender) override;
  HRESULT STDMETHODCALLTYPE put_LVFileExtension(BSTR extension) override;
  HRESULT STDMETHODCALLTYPE putref_ResourceObject(IDispatch* strings) override;
  HRESULT STDMETHODCALLTYPE put_SelectedTab(short tab) override;
  HRESULT STDMETHODCALLTYPE putref_SettingsObject(IDispatch* settings) override;
  HRESULT STDMETHODCALLTYPE ShowOptions(VARIANT_BOOL* shown) override;

  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override;
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** point) override;

 private:
  friend class AutomationObject<OptionsObject, _Options>;
  ~OptionsObject() override;

  void* findOwnInterface(REFIID id) override;
  bool setsErrorInfo(REFIID id) const override;

  std::unique_ptr<Services> services_;
  ConnectionPoint events_;
  Options options_;
};

}  // namespace tillora::automation
