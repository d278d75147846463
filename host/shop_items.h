#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "component/contract/host_objects.h"
#include "host/shop_file.h"

namespace tillora::host {

/// How the rows of a list of items become objects.
template <class T>
struct ItemRows;
template <>
struct ItemRows<Item> {
  static constexpr const char* select =
      "SELECT rowid, ItemType, ProductNumber, \"Group\", Name, Description, Account FROM items "
      "WHERE rowid > ?1 ORDER BY rowid LIMIT ?2";
  static constexpr TextView object = u"ItemList";
  static Item read(const Statement& row);
};
template <>
struct ItemRows<PaymentItem> {
  static constexpr const char* select =
      "SELECT rowid, Name, Description, Account FROM payment_items "
      "WHERE rowid > ?1 ORDER BY rowid LIMIT ?2";
  static constexpr TextView object = u"PaymentItemList";
  static PaymentItem read(const Statement& row);
};

/// A walk over items in the order in which they were added, starting at the first one. Rows are
/// fetched in batches, so that a walk of any length uses little memory and keeps no read open.
template <class T>
class ShopItems final : public Cursor<T> {
 public:
  explicit ShopItems(std::shared_ptr<ShopFile> file) : file_(std::move(file)) { moveFirst(); }

  void moveFirst() override;
  bool atEnd() override { return next_ == fetched_.size(); }
  void read(Text T::* property, Text& text) override;
  void moveNext() override;

 private:
  static constexpr std::int64_t kFetch = 256;
  /// Replaces the batch by the one after this row.
  void fetch(std::int64_t afterRowId);
  void requireItem() const;

  std::shared_ptr<ShopFile> file_;
  std::vector<T> fetched_;
  std::size_t next_ = 0;
  std::int64_t lastRowId_ = 0;
};

extern template class ShopItems<Item>;
extern template class ShopItems<PaymentItem>;

}  // namespace tillora::host
