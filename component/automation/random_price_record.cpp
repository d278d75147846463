#include "component/automation/random_price_record.h"

#include "com/bstr.h"

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

HRESULT take(std::int32_t& held, LONG value) {
  held = value;
  return S_OK;
}

HRESULT take(Text& held, BSTR value) {
  return guarded(RandomPriceRecord::kInterfaceId, [&] { held = Bstr::textOf(value); });
}

}  // namespace

HRESULT RandomPriceRecord::get_mbInactive(VARIANT_BOOL* value) {
  if (value == nullptr) return E_POINTER;
  *value = format_.mbInactive ? VARIANT_TRUE : VARIANT_FALSE;
  return S_OK;
}
HRESULT RandomPriceRecord::put_mbInactive(VARIANT_BOOL value) {
  format_.mbInactive = value != VARIANT_FALSE;
  return S_OK;
}

HRESULT RandomPriceRecord::get_mlFormatID(LONG* value) { return give(format_.mlFormatID, value); }
HRESULT RandomPriceRecord::put_mlFormatID(LONG value) { return take(format_.mlFormatID, value); }
HRESULT RandomPriceRecord::get_mlPrefix(LONG* value) { return give(format_.mlPrefix, value); }
HRESULT RandomPriceRecord::put_mlPrefix(LONG value) { return take(format_.mlPrefix, value); }
HRESULT RandomPriceRecord::get_mlOptionBits(LONG* value) {
  return give(format_.mlOptionBits, value);
}
HRESULT RandomPriceRecord::put_mlOptionBits(LONG value) {
  return take(format_.mlOptionBits, value);
}

HRESULT RandomPriceRecord::get_msUOMUnitCaption(BSTR* value) {
  return give(format_.msUOMUnitCaption, value);
}
HRESULT RandomPriceRecord::put_msUOMUnitCaption(BSTR value) {
  return take(format_.msUOMUnitCaption, value);
}
HRESULT RandomPriceRecord::get_msUOMPriceUnitCaption(BSTR* value) {
  return give(format_.msUOMPriceUnitCaption, value);
}
HRESULT RandomPriceRecord::put_msUOMPriceUnitCaption(BSTR value) {
  return take(format_.msUOMPriceUnitCaption, value);
}

}  // namespace tillora::automation
