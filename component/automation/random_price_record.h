#pragma once

#include "TilloraOptions.h"
#include "component/automation/automation_object.h"
#include "operations/clsRandomPrice.h"

namespace tillora::automation {

/// The public class `clsRandomPrice`: a record of one random-price barcode format. Clients cannot
/// create it.
class RandomPriceRecord final : public AutomationObject<RandomPriceRecord, _clsRandomPrice> {
 public:
  static constexpr const IID& kInterfaceId = IID__clsRandomPrice;
  static constexpr const CLSID& kClassId = CLSID_clsRandomPrice;
  static constexpr const IID& kEventsId = IID_NULL;

  RandomPriceRecord() = default;

  HRESULT STDMETHODCALLTYPE get_mbInactive(VARIANT_BOOL* value) override;
  HRESULT STDMETHODCALLTYPE put_mbInactive(VARIANT_BOOL value) override;
  HRESULT STDMETHODCALLTYPE get_mlFormatID(LONG* value) override;
  HRESULT STDMETHODCALLTYPE put_mlFormatID(LONG value) override;
  HRESULT STDMETHODCALLTYPE get_mlPrefix(LONG* value) override;
  HRESULT STDMETHODCALLTYPE put_mlPrefix(LONG value) override;
  HRESULT STDMETHODCALLTYPE get_mlOptionBits(LONG* value) override;
  HRESULT STDMETHODCALLTYPE put_mlOptionBits(LONG value) override;
  HRESULT STDMETHODCALLTYPE get_msUOMUnitCaption(BSTR* value) override;
  HRESULT STDMETHODCALLTYPE put_msUOMUnitCaption(BSTR value) override;
  HRESULT STDMETHODCALLTYPE get_msUOMPriceUnitCaption(BSTR* value) override;
  HRESULT STDMETHODCALLTYPE put_msUOMPriceUnitCaption(BSTR value) override;

 private:
  friend class AutomationObject<RandomPriceRecord, _clsRandomPrice>;
  ~RandomPriceRecord() override = default;

  // The interface definition declares a class of this name as well.
  tillora::clsRandomPrice format_;
};

}  // namespace tillora::automation
