#include "host/shop_items.h"

#include <limits>

#include "host/shop_error.h"

namespace tillora::host {

Item ItemRows<Item>::read(const Statement& row) {
  return {row.text(1), row.text(2), row.text(3), row.text(4), row.text(5), row.text(6)};
}

PaymentItem ItemRows<PaymentItem>::read(const Statement& row) {
  return {row.text(1), row.text(2), row.text(3)};
}

template <class T>
void ShopItems<T>::moveFirst() {
  fetch(std::numeric_limits<std::int64_t>::min());
}

template <class T>
void ShopItems<T>::fetch(std::int64_t afterRowId) {
  std::vector<T> fetched;
  Statement rows = file_->statement(ItemRows<T>::select, ItemRows<T>::object);
  rows.bind(1, afterRowId);
  rows.bind(2, kFetch);
  while (rows.step()) {
    afterRowId = rows.integer(0);
    fetched.push_back(ItemRows<T>::read(rows));
  }
  fetched_.swap(fetched);
  next_ = 0;
  lastRowId_ = afterRowId;
}

template <class T>
void ShopItems<T>::requireItem() const {
  if (next_ == fetched_.size()) {
    fail(shop_error::noCurrentRow, ItemRows<T>::object, u"There is no current item.");
  }
}

template <class T>
void ShopItems<T>::read(Text T::* property, Text& text) {
  requireItem();
  text = fetched_[next_].*property;
}

template <class T>
void ShopItems<T>::moveNext() {
  requireItem();
  if (next_ + 1 == fetched_.size()) {
    fetch(lastRowId_);
  } else {
    ++next_;
  }
}

template class ShopItems<Item>;
template class ShopItems<PaymentItem>;

}  // namespace tillora::host
