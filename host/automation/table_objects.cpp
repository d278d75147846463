#include "host/automation/table_objects.h"

#include <TilloraOptions.h>

#include <array>
#include <utility>

namespace tillora::host::automation {
namespace {

const IID& listInterface(const Cursor<Item>*) { return DIID_ItemList; }
const IID& listInterface(const Cursor<PaymentItem>*) { return DIID_PaymentItemList; }

/// What a field is given: a text, a truth value, a whole number, or none.
Value fieldValue(const Arguments& arguments, UINT index) {
  switch (arguments.value(index).vt & ~VT_BYREF) {
    case VT_EMPTY:
    case VT_NULL:
      return {};
    case VT_BSTR:
      return arguments.text(index);
    case VT_BOOL:
      return arguments.converted(index, VT_BOOL).get().boolVal != VARIANT_FALSE;
    default:
      return arguments.number(index);
  }
}

}  // namespace

ShopTableObject::ShopTableObject(std::unique_ptr<Table> table)
    : TableObject(DIID_ShopTable), table_(std::move(table)) {}

std::span<const Member<ShopTableObject>> ShopTableObject::members() {
  using Self = ShopTableObject;
  static constexpr std::array<Member<Self>, 11> kMembers = {{
      {1, u"MoveFirst", 0,
       [](Self& self, const Arguments&) {
         self.table_->moveFirst();
         return Variant();
       }},
      {2, u"MoveNext", 0,
       [](Self& self, const Arguments&) {
         self.table_->moveNext();
         return Variant();
       }},
      {3, u"EOF", 0, [](Self& self, const Arguments&) { return Variant(self.table_->atEnd()); }},
      {4, u"FindFirst", 1,
       [](Self& self, const Arguments& arguments) {
         self.table_->findFirst(arguments.text(0));
         return Variant();
       }},
      {5, u"FindNext", 1,
       [](Self& self, const Arguments& arguments) {
         self.table_->findNext(arguments.text(0));
         return Variant();
       }},
      {6, u"NoMatch", 0,
       [](Self& self, const Arguments&) { return Variant(self.table_->noMatch()); }},
      {7, u"AddNew", 0,
       [](Self& self, const Arguments&) {
         self.table_->addNew();
         return Variant();
       }},
      {8, u"Edit", 0,
       [](Self& self, const Arguments&) {
         self.table_->edit();
         return Variant();
       }},
      {9, u"Update", 0,
       [](Self& self, const Arguments&) {
         self.table_->update();
         return Variant();
       }},
      {10, u"Delete", 0,
       [](Self& self, const Arguments&) {
         self.table_->remove();
         return Variant();
       }},
      {11, u"Field", 1,
       [](Self& self, const Arguments& arguments) {
         return win32::toVariant(self.table_->get({arguments.text(0).c_str()}));
       },
       [](Self& self, const Arguments& arguments) {
         self.table_->set({arguments.text(0).c_str()}, fieldValue(arguments, 1));
       }},
  }};
  return kMembers;
}

ItemObject::ItemObject(Item item) : TableObject(DIID_Item), item_(std::move(item)) {}

std::span<const Member<ItemObject>> ItemObject::members() {
  using Self = ItemObject;
  static constexpr std::array<Member<Self>, 6> kMembers = {{
      {1, u"ItemType", 0,
       [](Self& self, const Arguments&) { return Variant(self.item_.itemType); }},
      {2, u"ProductNumber", 0,
       [](Self& self, const Arguments&) { return Variant(self.item_.productNumber); }},
      {3, u"Group", 0, [](Self& self, const Arguments&) { return Variant(self.item_.group); }},
      {4, u"Name", 0, [](Self& self, const Arguments&) { return Variant(self.item_.name); }},
      {5, u"Description", 0,
       [](Self& self, const Arguments&) { return Variant(self.item_.description); }},
      {6, u"Account", 0, [](Self& self, const Arguments&) { return Variant(self.item_.account); }},
  }};
  return kMembers;
}

PaymentItemObject::PaymentItemObject(PaymentItem item)
    : TableObject(DIID_PaymentItem), item_(std::move(item)) {}

std::span<const Member<PaymentItemObject>> PaymentItemObject::members() {
  using Self = PaymentItemObject;
  static constexpr std::array<Member<Self>, 3> kMembers = {{
      {1, u"Name", 0, [](Self& self, const Arguments&) { return Variant(self.item_.name); }},
      {2, u"Description", 0,
       [](Self& self, const Arguments&) { return Variant(self.item_.description); }},
      {3, u"Account", 0, [](Self& self, const Arguments&) { return Variant(self.item_.account); }},
  }};
  return kMembers;
}

template <class T, class ItemType>
ListObject<T, ItemType>::ListObject(std::unique_ptr<Cursor<T>> list)
    : TableObject<ListObject>(listInterface(list.get())), list_(std::move(list)) {}

template <class T, class ItemType>
std::span<const Member<ListObject<T, ItemType>>> ListObject<T, ItemType>::members() {
  using Self = ListObject;
  static constexpr std::array<Member<Self>, 4> kMembers = {{
      {1, u"MoveFirst", 0,
       [](Self& self, const Arguments&) {
         self.list_->moveFirst();
         return Variant();
       }},
      {2, u"EOF", 0, [](Self& self, const Arguments&) { return Variant(self.list_->atEnd()); }},
      {3, u"Current", 0,
       [](Self& self, const Arguments&) { return newObject<ItemType>(self.list_->current()); }},
      {4, u"MoveNext", 0,
       [](Self& self, const Arguments&) {
         self.list_->moveNext();
         return Variant();
       }},
  }};
  return kMembers;
}

template class ListObject<Item, ItemObject>;
template class ListObject<PaymentItem, PaymentItemObject>;

}  // namespace tillora::host::automation
