#pragma once

#include <memory>

#include "component/contract/host_objects.h"
#include "host/automation/host_object.h"

namespace tillora::host::automation {

/// A table of the shop database.
class ShopTableObject final : public TableObject<ShopTableObject> {
 public:
  explicit ShopTableObject(std::unique_ptr<Table> table);
  static std::span<const Member<ShopTableObject>> members();

 private:
  std::unique_ptr<Table> table_;
};

/// An item of the catalogue, as it was when the walk reached it.
class ItemObject final : public TableObject<ItemObject> {
 public:
  explicit ItemObject(Item item);
  static std::span<const Member<ItemObject>> members();

 private:
  Item item_;
};

/// A payment item, as it was when the walk reached it.
class PaymentItemObject final : public TableObject<PaymentItemObject> {
 public:
  explicit PaymentItemObject(PaymentItem item);
  static std::span<const Member<PaymentItemObject>> members();

 private:
  PaymentItem item_;
};

/// A walk over items; Current is a new `ItemType` object each time.
template <class T, class ItemType>
class ListObject final : public TableObject<ListObject<T, ItemType>> {
 public:
  explicit ListObject(std::unique_ptr<Cursor<T>> list);
  static std::span<const Member<ListObject>> members();

 private:
  std::unique_ptr<Cursor<T>> list_;
};

using ItemListObject = ListObject<Item, ItemObject>;
using PaymentItemListObject = ListObject<PaymentItem, PaymentItemObject>;
extern template class ListObject<Item, ItemObject>;
extern template class ListObject<PaymentItem, PaymentItemObject>;

}  // namespace tillora::host::automation
