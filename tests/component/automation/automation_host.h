#pragma once

#include <gtest/gtest.h>

#include <map>
#include <memory>

#include "component/contract/option_table.h"
#include "tests/component/automation/scripted_object.h"
#include "tests/testing/fake_host.h"

namespace tillora::testing {

/// The host in memory, as automation objects: what a client written in a script hands over. Every
/// failure of the host arrives as an exception with number, source and description.
class AutomationHost {
 public:
  explicit AutomationHost(FakeHost& host)
      : objects_(host.objects()),
        database(makeDatabase()),
        app(makeApp()),
        sender(makeSender()),
        strings(makeStrings()),
        settings(makeSettings()) {}

 private:
  HostObjects objects_;

 public:
  win32::ComPtr<ScriptedObject> database;
  win32::ComPtr<ScriptedObject> app;
  win32::ComPtr<ScriptedObject> sender;
  win32::ComPtr<ScriptedObject> strings;
  win32::ComPtr<ScriptedObject> settings;
  /// The records handed out, the latest last. Each holds a reference.
  std::vector<win32::ComPtr<ScriptedObject>> records;
  /// Fields of tables that the host gives as values of this type, whatever it stores.
  std::map<Text, VARTYPE> fieldTypes;
  /// The host answers a missing option with Empty and never says NoValue.
  bool missingIsEmpty = false;

 private:
  using Object = win32::ComPtr<ScriptedObject>;
  using Variant = win32::Variant;

  static Variant reference(const Object& object) { return Variant(object.get()); }

  /// A value in transit between component and host; its text leaves nothing in memory.
  class Passing {
   public:
    explicit Passing(Value passed) : value(std::move(passed)) {}
    Passing(const Passing&) = delete;
    Passing& operator=(const Passing&) = delete;
    ~Passing() {
      if (auto* text = value.as<Text>()) wipe(*text);
    }
    Value value;
  };

  static Variant zero(OptionType type) {
    switch (type) {
      case OptionType::Text:
        return Variant(u"");
      case OptionType::Boolean:
        return Variant(false);
      default:
        return Variant(std::int16_t{0});
    }
  }

  Object makeRecord() {
    const Object object = ScriptedObject::make();
    const std::shared_ptr<OptionsRecord> record = objects_.database->optionsRecord();
    const auto missing = std::make_shared<bool>(false);
    for (const OptionInfo& info : kOptionTable) {
      object->add(info.name, [this, record, missing, &info](const Call& call) {
        if (call.isPut()) {
          record->write(info.option, Passing(win32::toValue(*call.arguments.at(0))).value);
          return Variant();
        }
        const Passing stored(record->read(info.option));
        *missing = stored.value.isNone() && !missingIsEmpty;
        return *missing ? zero(info.type) : win32::toVariant(stored.value);
      });
    }
    object->add(u"NoValue", [missing](const Call&) { return Variant(*missing); });
    object->add(u"Commit", [record](const Call&) {
      record->commit();
      return Variant();
    });
    return object;
  }

  Object makeTable(const std::shared_ptr<Table>& table) {
    const Object object = ScriptedObject::make();
    const auto action = [&](const Text& name, void (Table::*run)()) {
      object->add(name, [table, run](const Call&) {
        (*table.*run)();
        return Variant();
      });
    };
    action(u"MoveFirst", &Table::moveFirst);
    action(u"MoveNext", &Table::moveNext);
    action(u"AddNew", &Table::addNew);
    action(u"Edit", &Table::edit);
    action(u"Update", &Table::update);
    action(u"Delete", &Table::remove);
    object->add(u"EOF", [table](const Call&) { return Variant(table->atEnd()); });
    object->add(u"NoMatch", [table](const Call&) { return Variant(table->noMatch()); });
    object->add(u"FindFirst", [table](const Call& call) {
      table->findFirst(call.text(0));
      return Variant();
    });
    object->add(u"FindNext", [table](const Call& call) {
      table->findNext(call.text(0));
      return Variant();
    });
    object->add(u"Field", [this, table](const Call& call) {
      const Text name = call.text(0);
      const Field field{name.c_str()};
      if (!call.isPut()) return asHeld(name, win32::toVariant(table->get(field)));
      table->set(field, win32::toValue(*call.arguments.at(1)));
      return Variant();
    });
    return object;
  }

  Variant asHeld(const Text& field, Variant value) const {
    const auto type = fieldTypes.find(field);
    if (type == fieldTypes.end() || value.isEmptyOrNull()) return value;
    Variant held;
    EXPECT_EQ(VariantChangeTypeEx(held.out(), value.address(), LOCALE_INVARIANT, VARIANT_ALPHABOOL,
                                  type->second),
              S_OK);
    return held;
  }

  static void addTexts(const Object& object,
                       std::initializer_list<std::pair<const char16_t*, Text>> texts) {
    for (const auto& [name, text] : texts) {
      object->add(name, [text = text](const Call&) { return Variant(text); });
    }
  }
  static Object makeItem(const Item& item) {
    const Object object = ScriptedObject::make();
    addTexts(object, {{u"ItemType", item.itemType},
                      {u"ProductNumber", item.productNumber},
                      {u"Group", item.group},
                      {u"Name", item.name},
                      {u"Description", item.description},
                      {u"Account", item.account}});
    return object;
  }
  static Object makeItem(const PaymentItem& item) {
    const Object object = ScriptedObject::make();
    addTexts(
        object,
        {{u"Name", item.name}, {u"Description", item.description}, {u"Account", item.account}});
    return object;
  }
  template <class T>
  static Object makeCursor(const std::shared_ptr<Cursor<T>>& cursor) {
    const Object object = ScriptedObject::make();
    object->add(u"MoveFirst", [cursor](const Call&) {
      cursor->moveFirst();
      return Variant();
    });
    object->add(u"MoveNext", [cursor](const Call&) {
      cursor->moveNext();
      return Variant();
    });
    object->add(u"EOF", [cursor](const Call&) { return Variant(cursor->atEnd()); });
    object->add(u"Current",
                [cursor](const Call&) { return reference(makeItem(cursor->current())); });
    return object;
  }

  Object makeDatabase() {
    const Object object = ScriptedObject::make();
    const std::shared_ptr<JetDatabase> shop = objects_.database;
    object->add(u"OptionsRecord", [this](const Call&) {
      records.push_back(makeRecord());
      return reference(records.back());
    });
    const auto table = [&](const Text& name, std::unique_ptr<Table> (JetDatabase::*open)()) {
      object->add(
          name, [this, shop, open](const Call&) { return reference(makeTable((*shop.*open)())); });
    };
    table(u"ClassTable", &JetDatabase::classTable);
    table(u"AccountTable", &JetDatabase::accountTable);
    table(u"RandomPriceTable", &JetDatabase::randomPriceTable);
    table(u"GradeTable", &JetDatabase::gradeTable);
    table(u"WebSiteTable", &JetDatabase::webSiteTable);
    table(u"CurrencyTable", &JetDatabase::currencyTable);
    object->add(u"ItemList",
                [shop](const Call&) { return reference(makeCursor<Item>(shop->itemList())); });
    object->add(u"PaymentItemList", [shop](const Call&) {
      return reference(makeCursor<PaymentItem>(shop->paymentItemList()));
    });
    object->add(u"TerminalCount",
                [shop](const Call& call) { return Variant(shop->terminalCount(call.text(0))); });
    object->add(u"DataFile", [shop](const Call& call) {
      if (!call.isPut()) return Variant(shop->dataFile());
      shop->setDataFile(call.text(0));
      return Variant();
    });
    return object;
  }
  Object makeApp() {
    const Object object = ScriptedObject::make();
    const std::shared_ptr<App> application = objects_.app;
    object->add(u"Title", [application](const Call&) { return Variant(application->title()); });
    object->add(u"Path", [application](const Call&) { return Variant(application->path()); });
    return object;
  }
  Object makeSender() {
    const Object object = ScriptedObject::make();
    const std::shared_ptr<MessageSender> messages = objects_.messageSender;
    object->add(u"Send", [messages](const Call& call) {
      messages->send({call.arguments.at(0)->date});
      return Variant();
    });
    return object;
  }
  Object makeStrings() {
    const Object object = ScriptedObject::make();
    const std::shared_ptr<ResourceStrings> resources = objects_.resources;
    object->add(u"ResourceString", [resources](const Call& call) {
      return Variant(resources->string(call.arguments.at(0)->lVal));
    });
    return object;
  }
  Object makeSettings() {
    const Object object = ScriptedObject::make();
    const std::shared_ptr<SettingsStore> store = objects_.settings;
    object->add(u"DecimalPlaces", [store](const Call&) {
      const auto places = store->decimalPlaces();
      return places ? Variant(*places) : Variant();
    });
    object->add(u"CurrencyFormat",
                [store](const Call&) { return Variant(store->currencyFormat()); });
    object->add(u"DecimalSeparator",
                [store](const Call&) { return Variant(store->decimalSeparator()); });
    object->add(u"DispensingAvailable",
                [store](const Call&) { return Variant(store->dispensingAvailable()); });
    object->add(u"Setting", [store](const Call& call) {
      if (call.isPut()) {
        store->setSetting(call.text(0), call.text(1));
        return Variant();
      }
      const auto value = store->setting(call.text(0));
      return value ? Variant(*value) : Variant();
    });
    return object;
  }
};

}  // namespace tillora::testing
