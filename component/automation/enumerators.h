#pragma once

#include <windows.h>

#include <ocidl.h>

#include <algorithm>
#include <atomic>
#include <vector>

#include "com/com_ptr.h"
#include "com/module.h"
#include "com/with_error_info.h"
#include "component/automation/com_error.h"

namespace tillora::automation {

/// A COM enumerator over a copy of some items. `Traits` names the interface and gives an item out
/// with a reference of its own. Created with one reference, on the heap.
template <class Traits>
class Enumerator final : public win32::WithErrorInfo<typename Traits::Interface> {
 public:
  using Item = typename Traits::Item;
  using Interface = typename Traits::Interface;

  explicit Enumerator(std::vector<Item> items, std::size_t position = 0)
      : items_(std::move(items)), position_(position) {}
  virtual ~Enumerator() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = this->findInterface(id);
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  HRESULT STDMETHODCALLTYPE Next(ULONG count, typename Traits::Out* items,
                                 ULONG* fetched) override {
    if (items == nullptr || (fetched == nullptr && count != 1)) return E_POINTER;
    const ULONG given = std::min<ULONG>(count, left());
    for (ULONG index = 0; index < given; ++index) {
      Traits::give(items_[position_ + index], items[index]);
    }
    position_ += given;
    if (fetched != nullptr) *fetched = given;
    return given == count ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
    const ULONG skipped = std::min<ULONG>(count, left());
    position_ += skipped;
    return skipped == count ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Reset() override {
    position_ = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Clone(Interface** copy) override {
    if (copy == nullptr) return E_POINTER;
    *copy = nullptr;
    return guarded(__uuidof(Interface), [&] { *copy = new Enumerator(items_, position_); });
  }

 private:
  ULONG left() const { return static_cast<ULONG>(items_.size() - position_); }

  win32::ModuleLock lock_;
  std::atomic<ULONG> references_{1};
  std::vector<Item> items_;
  std::size_t position_;
};

/// A listener and the cookie it was advised with.
struct Connection {
  win32::ComPtr<IUnknown> listener;
  DWORD cookie;
};

struct ConnectionTraits {
  using Interface = IEnumConnections;
  using Item = Connection;
  using Out = CONNECTDATA;
  static void give(const Item& item, Out& out) {
    out.pUnk = win32::ComPtr<IUnknown>(item.listener).detach();
    out.dwCookie = item.cookie;
  }
};
using ConnectionEnumerator = Enumerator<ConnectionTraits>;

struct ConnectionPointTraits {
  using Interface = IEnumConnectionPoints;
  using Item = win32::ComPtr<IConnectionPoint>;
  using Out = IConnectionPoint*;
  static void give(const Item& item, Out& out) { out = Item(item).detach(); }
};
using ConnectionPointEnumerator = Enumerator<ConnectionPointTraits>;

}  // namespace tillora::automation
