#include "component/automation/random_price_record.h"

#include "support/win32/bstr.h"

namespace tillora::automation {

using win32::Bstr;

namespace {

HRESULT give(LONG held, LONG* value) {
  if (value == nullptr) return E_POINTER;
  *value = held;
  return S_OK;
}

HRESULT give(const Text& held, BSTR* value) {
  if (value == nullptr) return E_POINTER;
  *value = nullptr;
  return guarded(RandomPriceRecord::kInterfaceId, [&] { *value = Bstr(held).detach(); });
}

HRESULT take(LONG& held, LONG value) {
  held = value;
  return S_OK;
}

HRESULT take(Text& held, BSTR value) {
  return guarded(RandomPriceRecord::kInterfaceId, [&] { held = Bstr::textOf(value); });
}

}  // namespace

HRESULT RandomPriceRecord::get_mbInactive(VARIANT_BOOL* value) {
  if (value == nullptr) return E_POINTER;
  *value = inactive_ ? VARIANT_TRUE : VARIANT_FALSE;
  return S_OK;
}
HRESULT RandomPriceRecord::put_mbInactive(VARIANT_BOOL value) {
  inactive_ = value != VARIANT_FALSE;
  return S_OK;
}

HRESULT RandomPriceRecord::get_mlFormatID(LONG* value) { return give(formatId_, value); }
HRESULT RandomPriceRecord::put_mlFormatID(LONG value) { return take(formatId_, value); }
HRESULT RandomPriceRecord::get_mlPrefix(LONG* value) { return give(prefix_, value); }
HRESULT RandomPriceRecord::put_mlPrefix(LONG value) { return take(prefix_, value); }
HRESULT RandomPriceRecord::get_mlOptionBits(LONG* value) { return give(optionBits_, value); }
HRESULT RandomPriceRecord::put_mlOptionBits(LONG value) { return take(optionBits_, value); }

HRESULT RandomPriceRecord::get_msUOMUnitCaption(BSTR* value) { return give(unitCaption_, value); }
HRESULT RandomPriceRecord::put_msUOMUnitCaption(BSTR value) { return take(unitCaption_, value); }
HRESULT RandomPriceRecord::get_msUOMPriceUnitCaption(BSTR* value) {
  return give(priceUnitCaption_, value);
}
HRESULT RandomPriceRecord::put_msUOMPriceUnitCaption(BSTR value) {
  return take(priceUnitCaption_, value);
}

}  // namespace tillora::automation
