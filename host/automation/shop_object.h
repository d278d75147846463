#pragma once

#include <optional>

#include "host/automation/host_object.h"
#include "host/shop.h"

namespace tillora::host::automation {

/// The creatable object of this host: opens a shop and gives out the objects that a program hands
/// to the options component.
class ShopObject final : public TableObject<ShopObject> {
 public:
  ShopObject();
  ~ShopObject() override;
  static std::span<const Member<ShopObject>> members();

 private:
  void open(const Text& path, const ShopContents& contents);
  void close();
  Shop& shop();
  Text dump();

  std::optional<Shop> shop_;
  ComPtr<IDispatch> database_;
  ComPtr<IDispatch> settings_;
  ComPtr<IDispatch> strings_;
  ComPtr<IDispatch> messages_;
  ComPtr<IDispatch> app_;
};

}  // namespace tillora::host::automation
