#include "clients/cpp/changes_listener.h"

#include <ocidl.h>

#include <array>
#include <cstdio>
#include <utility>

namespace {

constexpr std::array<std::pair<LONG, const char*>, 8> kChanges = {{
    {LaybyCustomerColumns, "LaybyCustomerColumns"},
    {ProductColumns, "ProductColumns"},
    {CustomerColumns, "CustomerColumns"},
    {SalesPersonColumns, "SalesPersonColumns"},
    {Dispensing, "Dispensing"},
    {Rounding, "Rounding"},
    {CurrencyColumns, "CurrencyColumns"},
    {CurrencyMargin, "CurrencyMargin"},
}};

}  // namespace

ChangesListener::ChangesListener(IUnknown* options) {
  IConnectionPointContainer* container = nullptr;
  if (FAILED(options->QueryInterface(IID_PPV_ARGS(&container)))) return;
  container->FindConnectionPoint(DIID___Options, &events_);
  container->Release();
  if (events_ != nullptr) events_->Advise(this, &cookie_);
}

ChangesListener::~ChangesListener() {
  if (events_ == nullptr) return;
  events_->Unadvise(cookie_);
  events_->Release();
}

HRESULT ChangesListener::QueryInterface(REFIID id, void** object) {
  const bool known = id == IID_IUnknown || id == IID_IDispatch || id == DIID___Options;
  *object = known ? static_cast<IDispatch*>(this) : nullptr;
  return known ? S_OK : E_NOINTERFACE;
}

HRESULT ChangesListener::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

HRESULT ChangesListener::Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                                EXCEPINFO*, UINT*) {
  if (event != DISPID_OPTIONSCHANGED || parameters->cArgs != 1) return DISP_E_MEMBERNOTFOUND;
  const LONG changes = *parameters->rgvarg[0].plVal;
  std::printf("OptionsChanged %ld", static_cast<long>(changes));
  for (const auto& [bit, name] : kChanges) {
    if ((changes & bit) != 0) std::printf(" %s", name);
  }
  std::printf("\n");
  std::fflush(stdout);
  return S_OK;
}
