#include "clients/cpp/changes_listener.h"

#include <ocidl.h>

#include <cstdio>

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
  constexpr DISPID kOptionsChanged = 1;
  if (event != kOptionsChanged || parameters->cArgs != 1) return DISP_E_MEMBERNOTFOUND;
  const LONG changes = *parameters->rgvarg[0].plVal;
  std::printf("OptionsChanged %ld%s%s%s\n", static_cast<long>(changes),
              (changes & ProductColumns) != 0 ? " product columns" : "",
              (changes & Rounding) != 0 ? " rounding" : "",
              (changes & CurrencyMargin) != 0 ? " currency margin" : "");
  std::fflush(stdout);
  return S_OK;
}
