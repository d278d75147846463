#include "component/automation/host_table.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "TilloraOptions.h"

#include "component/automation/values.h"

namespace tillora::automation {

namespace {

class AutomationTable final : public Table {
 public:
  explicit AutomationTable(DispatchObject object) : object_(std::move(object)) {}

  void moveFirst() override { object_.call(u"MoveFirst"); }
  void moveNext() override { object_.call(u"MoveNext"); }
  bool atEnd() override { return object_.getBoolean(u"EOF"); }
  void findFirst(TextView criteria) override { object_.call(u"FindFirst", criteria); }
  void findNext(TextView criteria) override { object_.call(u"FindNext", criteria); }
  bool noMatch() override { return object_.getBoolean(u"NoMatch"); }
  void addNew() override { object_.call(u"AddNew"); }
  void edit() override { object_.call(u"Edit"); }
  void update() override { object_.call(u"Update"); }
  void remove() override { object_.call(u"Delete"); }

  Value get(Field field) override {
    return toFieldValue(object_, object_.get(u"Field", field.name), field.type, u"Field");
  }
  void set(Field field, const Value& value) override { object_.put(u"Field", field.name, value); }

 private:
  DispatchObject object_;
};

/// The automation interface of an item: its name, its id, and the names of its properties.
template <class T>
struct ItemInterface;

template <>
struct ItemInterface<Item> {
  static constexpr const char16_t* name = u"Item";
  static const IID& id() { return DIID_Item; }
  static constexpr std::array properties = {
      std::pair{&Item::itemType, u"ItemType"},
      std::pair{&Item::productNumber, u"ProductNumber"},
      std::pair{&Item::group, u"Group"},
      std::pair{&Item::name, u"Name"},
      std::pair{&Item::description, u"Description"},
      std::pair{&Item::account, u"Account"},
  };
};

template <>
struct ItemInterface<PaymentItem> {
  static constexpr const char16_t* name = u"PaymentItem";
  static const IID& id() { return DIID_PaymentItem; }
  static constexpr std::array properties = {
      std::pair{&PaymentItem::name, u"Name"},
      std::pair{&PaymentItem::description, u"Description"},
      std::pair{&PaymentItem::account, u"Account"},
  };
};

template <class T>
class AutomationCursor final : public Cursor<T> {
 public:
  explicit AutomationCursor(DispatchObject object) : object_(std::move(object)) {}

  void moveFirst() override {
    isCurrent_ = false;
    object_.call(u"MoveFirst");
  }
  void moveNext() override {
    isCurrent_ = false;
    object_.call(u"MoveNext");
  }
  bool atEnd() override { return object_.getBoolean(u"EOF"); }

  void read(Text T::* property, Text& text) override {
    const auto& properties = ItemInterface<T>::properties;
    const auto named =
        std::ranges::find(properties, property, [](const auto& named) { return named.first; });
    item().readText(text, named->second);
  }

 private:
  DispatchObject& item() {
    if (isCurrent_ && item_) return *item_;
    DispatchObject given = object_.getObject(u"Current", ItemInterface<T>::name);
    // Names are looked up again for every object, except for one that is handed out again and for
    // those that offer the interface, which share its ids.
    auto offered =
        win32::ComPtr<IDispatch>(given.object()).query<IDispatch>(ItemInterface<T>::id());
    if (offered && item_ && isOffered_) {
      item_->exchange(std::move(offered));
    } else if (offered) {
      item_.emplace(std::move(offered), ItemInterface<T>::name);
      isOffered_ = true;
    } else if (!item_ || item_->object() != given.object()) {
      item_ = std::move(given);
      isOffered_ = false;
    }
    isCurrent_ = true;
    return *item_;
  }

  DispatchObject object_;
  std::optional<DispatchObject> item_;
  bool isOffered_ = false;  // item_ is the interface, not just any object with its names
  bool isCurrent_ = false;
};

}  // namespace

std::unique_ptr<Table> makeTable(DispatchObject object) {
  return std::make_unique<AutomationTable>(std::move(object));
}

std::unique_ptr<Cursor<Item>> makeItemCursor(DispatchObject object) {
  return std::make_unique<AutomationCursor<Item>>(std::move(object));
}

std::unique_ptr<Cursor<PaymentItem>> makePaymentItemCursor(DispatchObject object) {
  return std::make_unique<AutomationCursor<PaymentItem>>(std::move(object));
}

}  // namespace tillora::automation
