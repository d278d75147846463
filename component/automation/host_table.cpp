#include "component/automation/host_table.h"

#include <optional>

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
    return toFieldValue(object_, object_.get(u"Field", field.name), u"Field");
  }
  void set(Field field, const Value& value) override { object_.put(u"Field", field.name, value); }

 private:
  DispatchObject object_;
};

Item readItem(DispatchObject& item) {
  return {item.getText(u"ItemType"), item.getText(u"ProductNumber"), item.getText(u"Group"),
          item.getText(u"Name"),     item.getText(u"Description"),   item.getText(u"Account")};
}

PaymentItem readPaymentItem(DispatchObject& item) {
  return {item.getText(u"Name"), item.getText(u"Description"), item.getText(u"Account")};
}

template <class T, T (*read)(DispatchObject&)>
class AutomationCursor final : public Cursor<T> {
 public:
  AutomationCursor(DispatchObject object, const char16_t* itemName)
      : object_(std::move(object)), itemName_(itemName) {}

  void moveFirst() override { object_.call(u"MoveFirst"); }
  void moveNext() override { object_.call(u"MoveNext"); }
  bool atEnd() override { return object_.getBoolean(u"EOF"); }

  T current() override {
    DispatchObject item = object_.getObject(u"Current", itemName_);
    // A host may hand out one object again and again; its names are not looked up anew then.
    if (!item_ || item_->object() != item.object()) item_ = std::move(item);
    return read(*item_);
  }

 private:
  DispatchObject object_;
  const char16_t* itemName_;
  std::optional<DispatchObject> item_;
};

}  // namespace

std::unique_ptr<Table> makeTable(DispatchObject object) {
  return std::make_unique<AutomationTable>(std::move(object));
}

std::unique_ptr<Cursor<Item>> makeItemCursor(DispatchObject object) {
  return std::make_unique<AutomationCursor<Item, readItem>>(std::move(object), u"Item");
}

std::unique_ptr<Cursor<PaymentItem>> makePaymentItemCursor(DispatchObject object) {
  return std::make_unique<AutomationCursor<PaymentItem, readPaymentItem>>(std::move(object),
                                                                          u"PaymentItem");
}

}  // namespace tillora::automation
