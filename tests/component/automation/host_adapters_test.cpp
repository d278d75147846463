#include "component/automation/host_adapters.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <vector>

#include "TilloraOptions.h"

#include "component/automation/host_table.h"
#include "component/automation/message_boxes.h"
#include "tests/component/automation/automation_host.h"
#include "tests/testing/function_ref.h"

namespace tillora::automation {
namespace {

using testing::AutomationHost;
using testing::Call;
using testing::FakeHost;
using testing::nullVariant;
using testing::ScriptedObject;
using win32::ComPtr;
using win32::Variant;

std::int32_t errorOf(const testing::FunctionRef<void()>& action) {
  try {
    action();
  } catch (const Error& error) {
    return error.number();
  }
  return 0;
}

class HostAdaptersTest : public ::testing::Test {
 protected:
  FakeHost host;
  AutomationHost automationHost{host};
  std::shared_ptr<JetDatabase> database = makeJetDatabase(automationHost.database.get());
  std::shared_ptr<SettingsStore> settings = makeSettingsStore(automationHost.settings.get());
};

TEST_F(HostAdaptersTest, OptionsOfEveryTypeComeBackAsWritten) {
  const Text text(u"caf\u00e9 \u20ac \U0001F600\0end", 13);
  {
    const auto record = database->optionsRecord();
    record->set(options::CompanyName, text);
    record->set(options::ProductListColumns, std::int32_t{-2147483647});
    record->set(options::FREDPollSeconds, std::int16_t{-32768});
    record->set(options::TaxRoundingMode, std::uint8_t{255});
    record->set(options::DefaultCurrencyMargin, 2.25F);
    record->set(options::RoundingStep, Money{-922337203685477});
    record->set(options::PrintNRGT, true);
    record->set(options::TaxExemptCaption, Text{});
    record->commit();
  }
  const auto record = database->optionsRecord();
  EXPECT_EQ(record->get(options::CompanyName), text);
  EXPECT_EQ(record->get(options::ProductListColumns), -2147483647);
  EXPECT_EQ(record->get(options::FREDPollSeconds), -32768);
  EXPECT_EQ(record->get(options::TaxRoundingMode), 255);
  EXPECT_EQ(record->get(options::DefaultCurrencyMargin), 2.25F);
  EXPECT_EQ(record->get(options::RoundingStep), Money{-922337203685477});
  EXPECT_EQ(record->get(options::PrintNRGT), true);
  EXPECT_EQ(record->get(options::TaxExemptCaption), u"");
  EXPECT_EQ(record->get(options::CompanyFax), std::nullopt);
}

TEST_F(HostAdaptersTest, NoValueIsAskedAfterEachGetAndMeansNone) {
  const auto record = database->optionsRecord();
  EXPECT_EQ(record->get(options::PrintNRGT), std::nullopt);
  EXPECT_EQ(automationHost.records.back()->calls, (std::vector<Text>{u"PrintNRGT", u"NoValue"}));
}

// What a host answers for FREDPollSeconds, a 16-bit whole number, and what is read.
struct Answer {
  const char* name;
  std::function<Variant()> given;
  std::optional<std::int16_t> read;
  std::int32_t error = 0;
};
void PrintTo(const Answer& answer, std::ostream* out) { *out << answer.name; }

class HostAnswers : public HostAdaptersTest, public ::testing::WithParamInterface<Answer> {};

TEST_P(HostAnswers, AreConvertedToTheOptionsType) {
  const auto answer = ScriptedObject::make();
  answer->add(u"FREDPollSeconds", [](const Call&) { return GetParam().given(); });
  answer->add(u"NoValue", [](const Call&) { return Variant(false); });
  const auto record = makeOptionsRecord({ComPtr<IDispatch>(answer.get()), u"OptionsRecord"});
  if (GetParam().error != 0) {
    EXPECT_EQ(errorOf([&] { record->get(options::FREDPollSeconds); }), GetParam().error);
  } else {
    EXPECT_EQ(record->get(options::FREDPollSeconds), GetParam().read);
  }
}

Variant errorVariant() {
  Variant value;
  value.address()->vt = VT_ERROR;
  value.address()->scode = DISP_E_PARAMNOTFOUND;
  return value;
}
Variant arrayVariant() {
  Variant value;
  value.address()->vt = VT_ARRAY | VT_I4;
  value.address()->parray = SafeArrayCreateVector(VT_I4, 0, 2);
  return value;
}
Variant referenceTo(VARTYPE type, void* target) {
  Variant value;
  value.address()->vt = static_cast<VARTYPE>(VT_BYREF | type);
  value.address()->byref = target;
  return value;
}
Variant referenceToReferenceToNothing() {
  static VARIANT target{};
  target.vt = VT_BYREF | VT_I4;
  return referenceTo(VT_VARIANT, &target);
}
Variant referenceToNoValue() {
  static VARIANT target{};
  target.vt = VT_VOID;
  return referenceTo(VT_VARIANT, &target);
}

INSTANTIATE_TEST_SUITE_P(
    Values, HostAnswers,
    ::testing::Values(
        Answer{"empty", [] { return Variant(); }, std::nullopt},
        Answer{"null", nullVariant, std::nullopt},
        Answer{"same", [] { return Variant(std::int16_t{730}); }, std::int16_t{730}},
        Answer{"long", [] { return Variant(std::int32_t{730}); }, std::int16_t{730}},
        Answer{"double", [] { return Variant(2.5); }, std::int16_t{2}},
        Answer{"upward", [] { return Variant(3.5); }, std::int16_t{4}},
        Answer{"text", [] { return Variant(u" 30 "); }, std::int16_t{30}},
        Answer{"true", [] { return Variant(true); }, std::int16_t{-1}},
        Answer{"tooLarge", [] { return Variant(std::int32_t{40000}); }, {}, error::overflow},
        Answer{"enormous", [] { return Variant(1e300); }, {}, error::overflow},
        Answer{"word", [] { return Variant(u"many"); }, {}, error::typeMismatch},
        Answer{"error", errorVariant, {}, error::typeMismatch},
        Answer{"array", arrayVariant, {}, error::typeMismatch},
        Answer{"referenceToNothing",
               [] { return referenceTo(VT_I4, nullptr); },
               {},
               error::typeMismatch},
        Answer{"referenceToNoVariant",
               [] { return referenceTo(VT_VARIANT, nullptr); },
               {},
               error::typeMismatch},
        Answer{"referenceToReferenceToNothing",
               referenceToReferenceToNothing,
               {},
               error::typeMismatch},
        Answer{"referenceToNoValue", referenceToNoValue, {}, error::typeMismatch},
        Answer{"nothing",
               [] { return Variant(static_cast<IDispatch*>(nullptr)); },
               {},
               DISP_E_TYPEMISMATCH}));

TEST_F(HostAdaptersTest, DaysAndPositionsHaveRoomFor32Bits) {
  double given = 0;
  const auto answer = ScriptedObject::make();
  for (const char16_t* name :
       {u"LaybyTermDays", u"LaybyHistoryDays", u"EODHistoryDays", u"TimeReportPeriod"}) {
    answer->add(name, [&](const Call&) { return Variant(given); });
  }
  answer->add(u"NoValue", [](const Call&) { return Variant(false); });
  const auto record = makeOptionsRecord({ComPtr<IDispatch>(answer.get()), u"OptionsRecord"});
  for (const auto& option : {options::LaybyTermDays, options::LaybyHistoryDays,
                             options::EODHistoryDays, options::TimeReportPeriod}) {
    given = 2147483647;
    EXPECT_EQ(record->get(option), 2147483647);
    given = 2147483648;
    EXPECT_EQ(errorOf([&] { record->get(option); }), error::overflow);
  }
}

class HostFieldsTest : public HostAdaptersTest {
 protected:
  HostFieldsTest() {
    table_->add(u"Field", [this](const Call&) { return given_(); });
  }
  /// The field as it is read if the host answers this.
  Value read(Field field, std::function<Variant()> given) {
    given_ = std::move(given);
    return adapted_->get(field);
  }
  template <class Held>
  Value readHeld(Field field, Held held) {
    return read(field, [held] { return Variant(held); });
  }
  /// What the host answers, as a value of this type.
  static std::function<Variant()> as(VARTYPE type, double number) {
    return [=] {
      Variant value(number);
      EXPECT_EQ(VariantChangeType(value.address(), value.address(), 0, type), S_OK);
      return value;
    };
  }
  const Field number = fields::grade::GradeNumber;
  const Field flag = fields::webSite::Inactive;
  const Field caption = fields::grade::Caption;

 private:
  std::function<Variant()> given_;
  ComPtr<ScriptedObject> table_ = ScriptedObject::make();
  std::unique_ptr<Table> adapted_ = makeTable({ComPtr<IDispatch>(table_.get()), u"GradeTable"});
};

TEST_F(HostFieldsTest, NumbersOfEveryTypeAreWholeOnes) {
  for (const VARTYPE type : {VT_I1, VT_UI1, VT_I2, VT_UI2, VT_I4, VT_UI4, VT_I8, VT_UI8, VT_INT,
                             VT_UINT, VT_R4, VT_R8, VT_CY, VT_DECIMAL, VT_BSTR, VT_DATE}) {
    EXPECT_EQ(read(number, as(type, 7)), Value(std::int32_t{7})) << type;
  }
  EXPECT_EQ(readHeld(number, u" 20 "), Value(std::int32_t{20}));
  EXPECT_EQ(readHeld(number, true), Value(std::int32_t{-1}));
  EXPECT_EQ(readHeld(number, -2147483648.0), Value(std::int32_t{-2147483647 - 1}));
}

TEST_F(HostFieldsTest, AnythingButAWholeNumberIsNone) {
  EXPECT_EQ(read(number, [] { return Variant(); }), Value());
  EXPECT_EQ(read(number, nullVariant), Value());
  for (const char16_t* text : {u"", u" ", u"seven", u"7 litres", u"7.5"}) {
    EXPECT_EQ(readHeld(number, text), Value()) << toUtf8(text);
  }
  for (const VARTYPE type : {VT_R4, VT_R8, VT_CY, VT_DECIMAL}) {
    EXPECT_EQ(read(number, as(type, 7.5)), Value()) << type;
  }
}

TEST_F(HostFieldsTest, BooleansAreTakenAsNumbersAndWords) {
  for (const VARTYPE type :
       {VT_BOOL, VT_UI1, VT_I2, VT_I4, VT_I8, VT_R4, VT_R8, VT_CY, VT_DECIMAL, VT_BSTR}) {
    EXPECT_EQ(read(flag, as(type, 1)), Value(true)) << type;
    EXPECT_EQ(read(flag, as(type, 0)), Value(false)) << type;
  }
  EXPECT_EQ(readHeld(flag, u"True"), Value(true));
  EXPECT_EQ(readHeld(flag, u"False"), Value(false));
  EXPECT_EQ(readHeld(flag, u"maybe"), Value());
  EXPECT_EQ(readHeld(flag, u""), Value());
  EXPECT_EQ(read(flag, nullVariant), Value());
}

TEST_F(HostFieldsTest, ATextFieldTakesTheTextOfANumber) {
  EXPECT_EQ(readHeld(caption, u"ULP"), Value(Text(u"ULP")));
  EXPECT_EQ(readHeld(caption, u""), Value(Text()));
  EXPECT_EQ(readHeld(caption, 7.5), Value(Text(u"7.5")));
  for (const VARTYPE type : {VT_UI1, VT_I2, VT_I4, VT_I8, VT_R4, VT_R8, VT_CY, VT_DECIMAL}) {
    EXPECT_EQ(read(caption, as(type, 95)), Value(Text(u"95"))) << type;
  }
  EXPECT_EQ(read(caption, nullVariant), Value());
}

TEST_F(HostFieldsTest, ValuesTooLargeOrWithoutATextAreErrors) {
  EXPECT_EQ(errorOf([&] { read(number, as(VT_I8, 1e12)); }), error::overflow);
  EXPECT_EQ(errorOf([&] { readHeld(number, 1e12); }), error::overflow);
  EXPECT_EQ(errorOf([&] { readHeld(number, u"99999999999"); }), error::overflow);
  for (const Field field : {number, flag, caption}) {
    EXPECT_EQ(errorOf([&] { read(field, arrayVariant); }), error::typeMismatch);
    EXPECT_EQ(errorOf([&] { read(field, errorVariant); }), error::typeMismatch);
    EXPECT_EQ(errorOf([&] { readHeld(field, static_cast<IDispatch*>(nullptr)); }),
              error::typeMismatch);
  }
}

TEST_F(HostAdaptersTest, TablesAreFoundReadAndWritten) {
  host.grades = {{{u"GradeNumber", std::int32_t{1}}, {u"Product", Text(u"Fuel:ULP")}},
                 {{u"GradeNumber", std::int32_t{2}}, {u"Product", Text(u"Fuel:Diesel")}}};
  const auto grades = database->gradeTable();
  grades->findFirst(u"[GradeNumber] = 2");
  EXPECT_FALSE(grades->noMatch());
  EXPECT_EQ(grades->text(fields::grade::Product), u"Fuel:Diesel");
  grades->edit();
  grades->set(fields::grade::Product, Text(u"Fuel:LPG"));
  grades->update();
  grades->addNew();
  grades->set(fields::grade::GradeNumber, std::int32_t{3});
  grades->update();
  int rows = 0;
  for (grades->moveFirst(); !grades->atEnd(); grades->moveNext()) ++rows;
  EXPECT_EQ(rows, 3);
  grades->findFirst(u"[GradeNumber] = 9");
  EXPECT_TRUE(grades->noMatch());
  grades->findFirst(u"[GradeNumber] = 1");
  grades->remove();
  ASSERT_EQ(host.grades.size(), 2U);
  EXPECT_EQ(host.grades.at(0).at(u"Product").get<Text>(), u"Fuel:LPG");
}

TEST_F(HostAdaptersTest, ItemsAreWalked) {
  host.items = {{u"STOCK", u"100", u"Fuel", u"ULP", u"Unleaded", u"Sales"},
                {u"OTHC", u"200", u"Charges", u"Rounding", u"", u"Other"}};
  host.paymentItems = {{u"Cash", u"Notes", u"Till"}};
  std::vector<Text> names;
  const auto items = database->itemList();
  for (items->moveFirst(); !items->atEnd(); items->moveNext()) {
    const Item item = items->current();
    names.push_back(item.itemType + u" " + item.group + u":" + item.name + u" " + item.account);
  }
  EXPECT_EQ(names, (std::vector<Text>{u"STOCK Fuel:ULP Sales", u"OTHC Charges:Rounding Other"}));
  const auto payments = database->paymentItemList();
  payments->moveFirst();
  EXPECT_EQ(payments->current().account, u"Till");
}

/// The names that items are asked for while a list of them is walked.
class ItemLookUpsTest : public ::testing::Test {
 protected:
  ComPtr<ScriptedObject> addItem() {
    const auto item = ScriptedObject::make();
    for (const auto& [name, times] : eachNameOnce()) {
      item->add(name, [](const Call&) { return Variant(u"x"); });
    }
    items_.push_back(item);
    return item;
  }
  static std::map<Text, int> eachNameOnce() {
    return {{u"ItemType", 1}, {u"ProductNumber", 1}, {u"Group", 1},
            {u"Name", 1},     {u"Description", 1},   {u"Account", 1}};
  }
  /// Reads all of `rows` rows; the items come in turn.
  void walk(std::size_t rows) {
    std::size_t row = 0;
    const auto list = ScriptedObject::make();
    list->add(u"MoveNext", [&](const Call&) {
      ++row;
      return Variant();
    });
    list->add(u"Current", [&](const Call&) { return Variant(items_[row % items_.size()].get()); });
    const auto cursor = makeItemCursor({ComPtr<IDispatch>(list.get()), u"ItemList"});
    while (row < rows) {
      EXPECT_EQ(cursor->current().name, u"x");
      cursor->moveNext();
    }
  }

 private:
  std::vector<ComPtr<ScriptedObject>> items_;
};

TEST_F(ItemLookUpsTest, AnObjectHandedOutAgainIsNotAskedForItsNamesAgain) {
  const auto item = addItem();
  walk(5);
  EXPECT_EQ(item->lookUps, eachNameOnce());
}

TEST_F(ItemLookUpsTest, ObjectsThatOfferTheInterfaceShareItsIds) {
  const auto first = addItem();
  const auto second = addItem();
  for (const auto& item : {first, second}) item->offers = DIID_Item;
  walk(4);
  EXPECT_EQ(first->lookUps, eachNameOnce());
  EXPECT_TRUE(second->lookUps.empty());
}

TEST_F(ItemLookUpsTest, OtherObjectsAreEachAskedForTheirNames) {
  const auto first = addItem();
  const auto second = addItem();
  walk(2);
  EXPECT_EQ(first->lookUps, eachNameOnce());
  EXPECT_EQ(second->lookUps, eachNameOnce());
}

TEST_F(ItemLookUpsTest, IdsOfTheInterfaceAreNotTakenForAnotherObjects) {
  const auto offered = addItem();
  offered->offers = DIID_Item;
  const auto other = addItem();
  walk(3);
  EXPECT_EQ(other->lookUps, eachNameOnce());
}

TEST_F(HostAdaptersTest, DatabaseValues) {
  host.dataFile = u"C:\\books.ldv";
  EXPECT_EQ(database->dataFile(), u"C:\\books.ldv");
  database->setDataFile(u"D:\\new.ldv");
  EXPECT_EQ(host.dataFile, u"D:\\new.ldv");
  EXPECT_EQ(database->terminalCount(u"[ReportingBits] = 0"),
            host.objects().database->terminalCount(u"[ReportingBits] = 0"));
}

TEST_F(HostAdaptersTest, Settings) {
  EXPECT_EQ(settings->decimalPlaces(), 2);
  EXPECT_EQ(settings->setting(u"Report"), std::nullopt);
  settings->setSetting(u"Report", u"Daily");
  EXPECT_EQ(settings->setting(u"Report"), u"Daily");
  EXPECT_EQ(host.settings.at(u"Report"), u"Daily");
  host.dispensingAvailable = true;
  EXPECT_TRUE(settings->dispensingAvailable());
}

TEST_F(HostAdaptersTest, SettingsThatTheHostDoesNotGiveAreNotAnError) {
  const auto silent = ScriptedObject::make();
  for (const char16_t* name : {u"DecimalPlaces", u"CurrencyFormat", u"DecimalSeparator"}) {
    silent->add(name, [](const Call&) { return Variant(); });
  }
  silent->add(u"Setting", [](const Call&) { return nullVariant(); });
  const auto store = makeSettingsStore(silent.get());
  EXPECT_EQ(store->decimalPlaces(), std::nullopt);
  EXPECT_EQ(store->currencyFormat(), u"");
  EXPECT_EQ(store->decimalSeparator(), u"");
  EXPECT_EQ(store->setting(u"Any"), std::nullopt);
  EXPECT_FALSE(store->dispensingAvailable());
}

TEST_F(HostAdaptersTest, DecimalPlacesOfAnySizeAreNotAnError) {
  std::function<Variant()> answer;
  const auto places = [&](std::function<Variant()> given) {
    answer = std::move(given);
    const auto said = ScriptedObject::make();
    for (const char16_t* name : {u"DecimalPlaces", u"CurrencyFormat", u"DecimalSeparator"}) {
      said->add(name, [&](const Call&) { return answer(); });
    }
    said->add(u"Setting", [](const Call&) { return Variant(); });
    return makeSettingsStore(said.get())->decimalPlaces();
  };
  EXPECT_EQ(places([] { return Variant(std::int32_t{3}); }), 3);
  EXPECT_EQ(places([] { return Variant(2.5); }), 2);
  EXPECT_EQ(places([] { return Variant(u"4"); }), 4);
  EXPECT_EQ(places([] { return Variant(std::int32_t{70000}); }), 32767);
  EXPECT_EQ(places([] { return Variant(std::int32_t{-70000}); }), -32768);
  EXPECT_EQ(places([] { return Variant(1e300); }), 32767);
  EXPECT_EQ(places([] { return Variant(32767.6); }), 32767);
  EXPECT_EQ(places([] { return Variant(-32768.6); }), -32768);
  EXPECT_EQ(places([] { return Variant(u"70000"); }), 32767);
  EXPECT_EQ(errorOf([&] { places([] { return Variant(u"two"); }); }), error::typeMismatch);
}

TEST_F(HostAdaptersTest, DispensingThatIsNullOrEmptyIsOff) {
  std::function<Variant()> answer;
  automationHost.settings->add(u"DispensingAvailable", [&](const Call&) { return answer(); });
  const auto available = [&](std::function<Variant()> given) {
    answer = std::move(given);
    return settings->dispensingAvailable();
  };
  EXPECT_FALSE(available(nullVariant));
  EXPECT_FALSE(available([] { return Variant(); }));
  EXPECT_FALSE(available([] { return Variant(std::int16_t{0}); }));
  EXPECT_TRUE(available([] { return Variant(std::int16_t{1}); }));
  EXPECT_EQ(errorOf([&] { available([] { return Variant(u"perhaps"); }); }), error::typeMismatch);
}

TEST_F(HostAdaptersTest, MessagesStringsAndApp) {
  makeMessageSender(automationHost.sender.get())->send({45000.25});
  EXPECT_EQ(host.sent, (std::vector<double>{45000.25}));
  host.strings[20000] = u"Local";
  EXPECT_EQ(makeResourceStrings(automationHost.strings.get())->string(20000), u"Local");
  const auto app = makeApp(automationHost.app.get());
  EXPECT_EQ(app->title(), host.title);
  EXPECT_EQ(app->path(), host.path);
}

TEST_F(HostAdaptersTest, TheMessageBoxGetsTheHostsOwnSettingsObject) {
  const auto box = ScriptedObject::make();
  IDispatch* given = nullptr;
  std::size_t arguments = 0;
  box->add(u"SettingsStore", [&](const Call& call) {
    given = call.arguments.at(0)->pdispVal;
    return Variant();
  });
  box->add(u"Show", [&](const Call& call) {
    arguments = call.arguments.size();
    return Variant(std::int16_t{6});
  });
  const auto adapted = makeHostMessageBox(ComPtr<IDispatch>(box.get()));
  adapted->setSettingsStore(settings);
  EXPECT_EQ(given, automationHost.settings.get());
  EXPECT_EQ(adapted->show(u"Sure?", message_style::questionYesNo, u"Title", u""),
            MessageResult::yes);
  EXPECT_EQ(arguments, 3U);
  adapted->show(u"Sure?", message_style::questionYesNo, u"Title", u"More");
  EXPECT_EQ(arguments, 4U);
}

TEST_F(HostAdaptersTest, TheMessageBoxGetsEveryTextAsItIs) {
  const auto box = ScriptedObject::make();
  std::vector<Text> shown;
  box->add(u"Show", [&](const Call& call) {
    shown = {call.text(0), call.text(2), call.text(3)};
    return Variant(std::int32_t{1});
  });
  const Text odd = Text(u"100% %s %1 &File\r\nx\0after ", 26) + Text(10000, u'&');
  makeHostMessageBox(ComPtr<IDispatch>(box.get()))->show(odd, message_style::exclamation, odd, odd);
  EXPECT_EQ(shown, (std::vector<Text>(3, odd)));
}

TEST_F(HostAdaptersTest, NullGivesNull) {
  EXPECT_EQ(makeJetDatabase(nullptr), nullptr);
  EXPECT_EQ(makeMessageSender(nullptr), nullptr);
  EXPECT_EQ(makeResourceStrings(nullptr), nullptr);
  EXPECT_EQ(makeSettingsStore(nullptr), nullptr);
  EXPECT_EQ(makeApp(nullptr), nullptr);
}

}  // namespace
}  // namespace tillora::automation
