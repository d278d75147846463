#include "host/app/options_events.h"

#include <utility>

namespace tillora::host::app {
namespace {

/// The object that the component calls: an event is a call of IDispatch::Invoke.
class Sink final : public IDispatch {
 public:
  explicit Sink(std::function<void(std::int32_t)> changed) : changed_(std::move(changed)) {}
  Sink(const Sink&) = delete;
  Sink& operator=(const Sink&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (id != IID_IUnknown && id != IID_IDispatch && id != DIID___Options) return E_NOINTERFACE;
    *object = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override {
    return DISP_E_BADINDEX;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* parameters,
                                   VARIANT*, EXCEPINFO*, UINT*) override {
    if (event != DISPID_OPTIONSCHANGED) return DISP_E_MEMBERNOTFOUND;
    if (parameters == nullptr || parameters->cArgs != 1) return DISP_E_BADPARAMCOUNT;
    // The mask comes by reference; a host may change it, but it is not read afterwards.
    const VARIANT& mask = parameters->rgvarg[0];
    if (mask.vt != (VT_I4 | VT_BYREF)) return DISP_E_TYPEMISMATCH;
    try {
      changed_(*mask.plVal);
      return S_OK;
    } catch (...) {
      return E_FAIL;
    }
  }

 private:
  virtual ~Sink() = default;

  std::atomic<ULONG> references_{1};
  std::function<void(std::int32_t)> changed_;
};

}  // namespace

OptionsEvents::OptionsEvents(_Options& options, std::function<void(std::int32_t)> changed) {
  const auto container = ComPtr<_Options>(&options).query<IConnectionPointContainer>();
  if (!container) throw Error(E_NOINTERFACE, u"TilloraAdministrator", u"Options has no events.");
  check(container->FindConnectionPoint(DIID___Options, point_.out()), u"Options has no events.");
  const auto sink = ComPtr<Sink>::adopt(new Sink(std::move(changed)));
  check(point_->Advise(sink.get(), &cookie_), u"The events cannot be heard.");
}

OptionsEvents::~OptionsEvents() { point_->Unadvise(cookie_); }

Text namesOfChanges(std::int32_t mask) {
  struct Bit {
    std::int32_t value;
    const char16_t* name;
  };
  static constexpr Bit kBits[] = {
#define TILLORA_CHANGE(name, value, help) {value, u## #name},
#include "component/contract/option_changes.inc"
#undef TILLORA_CHANGE
  };
  Text names;
  for (const Bit& bit : kBits) {
    if ((mask & bit.value) == 0) continue;
    if (!names.empty()) names += u", ";
    names += bit.name;
  }
  return names.empty() ? Text(u"no group that others keep") : names;
}

}  // namespace tillora::host::app
