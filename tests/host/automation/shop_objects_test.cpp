#include <TilloraHost.h>
#include <TilloraOptions.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "component/contract/option_table.h"
#include "host/automation/shop_server.h"
#include "host/shop_error.h"
#include "tests/host/automation/late_bound.h"

namespace tillora::host::automation {
namespace {

class ShopObjectsTest : public ::testing::Test {
 protected:
  ShopObjectsTest() {
    folder_ = std::filesystem::temp_directory_path() /
              ("tillora-" + std::to_string(GetCurrentProcessId()) + "-" +
               std::to_string(GetTickCount64()));
    std::filesystem::create_directory(folder_);
    EXPECT_EQ(shop_.call(L"Open", path()).result, S_OK);
    database_ = shop_.object(L"Database");
  }
  ~ShopObjectsTest() override {
    shop_.call(L"Close");
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  Text path(const char* name = "shop.db") const { return (folder_ / name).u16string(); }

  std::filesystem::path folder_;
  LateBound shop_{ComPtr<IDispatch>::adopt(kShopClass.create())};
  LateBound database_;
};

TEST_F(ShopObjectsTest, EachObjectAnswersItsInterface) {
  struct Offer {
    LateBound object;
    IID id;
  };
  const LateBound items = database_.object(L"ItemList");
  const LateBound payments = database_.object(L"PaymentItemList");
  const Offer offers[] = {
      {shop_, DIID__Shop},
      {database_, DIID_JetDatabase},
      {database_.object(L"OptionsRecord"), DIID_OptionsRecord},
      {database_.object(L"ClassTable"), DIID_ShopTable},
      {items, DIID_ItemList},
      {items.object(L"Current"), DIID_Item},
      {payments, DIID_PaymentItemList},
      {payments.object(L"Current"), DIID_PaymentItem},
      {shop_.object(L"Settings"), DIID_SettingsStore},
      {shop_.object(L"Strings"), DIID_ResourceStrings},
      {shop_.object(L"Messages"), DIID_MessageSender},
      {shop_.object(L"App"), DIID_App},
      {LateBound(ComPtr<IDispatch>::adopt(kHostMessageBoxClass.create())), DIID_HostMessageBox},
  };
  for (const Offer& offer : offers) {
    ComPtr<IUnknown> answered;
    EXPECT_EQ(offer.object.get()->QueryInterface(offer.id, answered.outVoid()), S_OK);
    ComPtr<IUnknown> other;
    EXPECT_EQ(offer.object.get()->QueryInterface(IID_IClassFactory, other.outVoid()),
              E_NOINTERFACE);
    EXPECT_EQ(other.get(), nullptr);
  }
}

TEST_F(ShopObjectsTest, EveryOptionIsAPropertyOfTheRecord) {
  const LateBound record = database_.object(L"OptionsRecord");
  for (const OptionInfo& option : kOptionTable) {
    const auto* const name = reinterpret_cast<const wchar_t*>(option.name);
    EXPECT_EQ(record.id(name), option.dispatchId) << toUtf8(option.name);
    EXPECT_EQ(record.call(name).result, S_OK) << toUtf8(option.name);
  }
  EXPECT_EQ(record.id(L"companyNAME"), record.id(L"CompanyName"));
  EXPECT_EQ(record.id(L"NoValue"), 1000);
  EXPECT_EQ(record.id(L"Commit"), 1001);
  EXPECT_EQ(record.id(L"NoSuchOption"), DISPID_UNKNOWN);
}

TEST_F(ShopObjectsTest, TheRecordDistinguishesNoValueFromZero) {
  const LateBound stored = database_.object(L"OptionsRecord");
  EXPECT_EQ(stored.call(L"TaxExemptCaption").text(), u"");
  EXPECT_EQ(stored.call(L"NoValue").value.get().boolVal, VARIANT_FALSE);
  const Answer step = stored.call(L"RoundingStep");
  EXPECT_EQ(step.value.type(), VT_CY);
  EXPECT_EQ(step.value.get().cyVal.int64, 500);
  EXPECT_EQ(stored.call(L"DefaultCurrencyMargin").value.get().fltVal, 2.5F);

  ASSERT_EQ(shop_.call(L"CreateEmpty", path("empty.db")).result, S_OK);
  const LateBound empty = shop_.object(L"Database").object(L"OptionsRecord");
  const Answer missing = empty.call(L"TotalCaption");
  EXPECT_EQ(missing.value.type(), VT_BSTR);
  EXPECT_EQ(missing.text(), u"");
  EXPECT_EQ(empty.call(L"NoValue").value.get().boolVal, VARIANT_TRUE);
  EXPECT_EQ(empty.call(L"FREDPollSeconds").value.type(), VT_I2);
  EXPECT_EQ(empty.call(L"TaxRoundingMode").value.type(), VT_UI1);
  EXPECT_EQ(empty.call(L"PrintNRGT").value.type(), VT_BOOL);
  EXPECT_EQ(empty.call(L"EODOptionFlags").value.type(), VT_I4);
}

TEST_F(ShopObjectsTest, TheRecordConvertsWhatItIsGiven) {
  const LateBound record = database_.object(L"OptionsRecord");
  EXPECT_EQ(record.put(L"FREDPollSeconds", std::int32_t{30}).result, S_OK);
  EXPECT_EQ(record.put(L"EODHistoryDays", u"40000").result, S_OK);
  EXPECT_EQ(record.put(L"CompanyFax", std::int32_t{12}).result, S_OK);
  EXPECT_EQ(record.put(L"RoundingStep", 0.25).result, S_OK);
  EXPECT_EQ(record.put(L"CompanyName", Text(u"a\0b", 3)).result, S_OK);
  EXPECT_EQ(record.put(L"FREDPollSeconds", std::int32_t{40000}).result, DISP_E_OVERFLOW);
  EXPECT_EQ(record.put(L"FREDPollSeconds", u"many").result, DISP_E_TYPEMISMATCH);
  Variant beyondLong;
  beyondLong.address()->vt = VT_UI4;
  beyondLong.address()->ulVal = 0xFFFFFFFF;
  EXPECT_EQ(
      record.invoke(record.id(L"EODHistoryDays"), DISPATCH_PROPERTYPUT, {std::move(beyondLong)})
          .result,
      DISP_E_OVERFLOW);
  EXPECT_EQ(record.call(L"Commit").result, S_OK);

  const LateBound again = database_.object(L"OptionsRecord");
  EXPECT_EQ(again.call(L"FREDPollSeconds").value.get().iVal, 30);
  EXPECT_EQ(again.call(L"EODHistoryDays").value.get().lVal, 40000);
  EXPECT_EQ(again.call(L"CompanyFax").text(), u"12");
  EXPECT_EQ(again.call(L"RoundingStep").value.get().cyVal.int64, 2500);
  EXPECT_EQ(again.call(L"CompanyName").text(), Text(u"a\0b", 3));
}

TEST_F(ShopObjectsTest, ReleasingTheRecordWithoutCommitUndoesTheSave) {
  {
    const LateBound record = database_.object(L"OptionsRecord");
    record.put(L"CompanyName", u"new");
    shop_.object(L"Settings").put(L"Setting", u"ReportTitleX", u"new");
    const LateBound grades = database_.object(L"GradeTable");
    EXPECT_EQ(grades.call(L"Delete").result, S_OK);
  }
  EXPECT_NE(database_.object(L"OptionsRecord").call(L"CompanyName").text(), u"new");
  EXPECT_EQ(shop_.object(L"Settings").call(L"Setting", u"ReportTitleX").value.type(), VT_EMPTY);
  EXPECT_EQ(database_.object(L"GradeTable").call(L"Field", u"GradeNumber").value.get().lVal, 1);
}

TEST_F(ShopObjectsTest, TablesWalkFindAndEdit) {
  const LateBound grades = database_.object(L"GradeTable");
  EXPECT_EQ(grades.call(L"EOF").value.get().boolVal, VARIANT_FALSE);
  EXPECT_EQ(grades.call(L"FindFirst", u"[GradeNumber] = 3").result, S_OK);
  EXPECT_EQ(grades.call(L"NoMatch").value.get().boolVal, VARIANT_FALSE);
  EXPECT_EQ(grades.call(L"Field", u"Caption").text(), u"Diesel");
  EXPECT_EQ(grades.call(L"FindNext", u"[GradeNumber] = 3").result, S_OK);
  EXPECT_EQ(grades.call(L"NoMatch").value.get().boolVal, VARIANT_TRUE);
  EXPECT_EQ(grades.call(L"Edit").result, S_OK);
  EXPECT_EQ(grades.put(L"Field", u"Caption", u"DSL").result, S_OK);
  EXPECT_EQ(grades.call(L"Update").result, S_OK);
  EXPECT_EQ(grades.call(L"AddNew").result, S_OK);
  EXPECT_EQ(grades.put(L"Field", u"GradeNumber", std::int16_t{9}).result, S_OK);
  EXPECT_EQ(grades.call(L"Update").result, S_OK);
  int rows = 0;
  for (grades.call(L"MoveFirst"); grades.call(L"EOF").value.get().boolVal == VARIANT_FALSE;
       grades.call(L"MoveNext")) {
    ++rows;
  }
  EXPECT_EQ(rows, 5);
  EXPECT_EQ(database_.call(L"TerminalCount", u"[ReportingBits] = 0").value.get().lVal, 0);
}

TEST_F(ShopObjectsTest, ItemsKeepWhatTheyWere) {
  const LateBound items = database_.object(L"ItemList");
  items.call(L"MoveNext");
  const LateBound item = items.object(L"Current");
  items.call(L"MoveNext");
  EXPECT_EQ(item.call(L"ItemType").text(), u"STOCK");
  EXPECT_EQ(item.call(L"ProductNumber").text(), u"0001");
  EXPECT_EQ(item.call(L"Group").text(), u"Fuel");
  EXPECT_EQ(item.call(L"Name").text(), u"Unleaded 91");
  EXPECT_EQ(item.call(L"Description").text(), u"Unleaded petrol");
  EXPECT_EQ(item.call(L"Account").text(), u"Fuel Sales");
  EXPECT_EQ(items.object(L"Current").call(L"ProductNumber").text(), u"0002");
  EXPECT_EQ(database_.object(L"PaymentItemList").object(L"Current").call(L"Account").text(),
            u"Cash Float");
}

TEST_F(ShopObjectsTest, ErrorsKeepNumberSourceAndDescription) {
  const Answer answer = database_.object(L"GradeTable").call(L"FindFirst", u"nonsense");
  EXPECT_EQ(answer.result, DISP_E_EXCEPTION);
  EXPECT_EQ(answer.number, shop_error::unknownField);
  EXPECT_EQ(answer.source, u"TilloraHost.JetDatabase");
  EXPECT_EQ(answer.description, u"The table has no field 'nonsense' (criteria: nonsense).");
}

TEST_F(ShopObjectsTest, CallsThatDoNotFitAreRefused) {
  const LateBound grades = database_.object(L"GradeTable");
  EXPECT_EQ(grades.call(L"FindFirst").result, DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(grades.call(L"MoveFirst", u"x").result, DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(grades.put(L"Field", u"Caption").result, DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(grades.put(L"EOF", true).result, DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(grades.call(L"NoSuchMember").result, DISP_E_MEMBERNOTFOUND);
  const Answer strings = shop_.object(L"Strings").call(L"ResourceString", u"many");
  EXPECT_EQ(strings.result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(strings.argument, 0U);
}

TEST_F(ShopObjectsTest, ReadsValuesBehindReferences) {
  Variant name(u"GradeNumber");
  VARIANT reference{};
  reference.vt = VT_VARIANT | VT_BYREF;
  reference.pvarVal = name.address();
  DISPPARAMS parameters{&reference, nullptr, 1, 0};
  Variant value;
  const LateBound grades = database_.object(L"GradeTable");
  EXPECT_EQ(grades.get()->Invoke(grades.id(L"Field"), IID_NULL, LOCALE_USER_DEFAULT,
                                 DISPATCH_PROPERTYGET, &parameters, value.out(), nullptr, nullptr),
            S_OK);
  EXPECT_EQ(value.get().lVal, 1);
}

TEST_F(ShopObjectsTest, TheShopOpensEmptyAndSeededShops) {
  EXPECT_EQ(shop_.call(L"CreateEmpty", path("empty.db")).result, S_OK);
  EXPECT_EQ(shop_.object(L"Database").object(L"ClassTable").call(L"EOF").value.get().boolVal,
            VARIANT_TRUE);
  EXPECT_EQ(shop_.call(L"OpenSeeded", path("large.db"), std::int32_t{1000}).result, S_OK);
  EXPECT_NE(shop_.call(L"Dump").text().find(u"ProductNumber = \"1000\""), Text::npos);
  // The database of the shop that was open before is closed.
  EXPECT_EQ(database_.call(L"OptionsRecord").result, S_OK);
  EXPECT_EQ(database_.call(L"DataFile").number, shop_error::shopClosed);
  EXPECT_EQ(shop_.call(L"Close").result, S_OK);
  const Answer closed = shop_.call(L"Database");
  EXPECT_EQ(closed.number, shop_error::shopClosed);
  EXPECT_EQ(closed.source, u"TilloraHost.Shop");
}

TEST_F(ShopObjectsTest, AShopThatCannotBeOpenedLeavesTheOpenOne) {
  EXPECT_EQ(shop_.call(L"Open", path("missing\\shop.db")).number, shop_error::cannotOpen);
  EXPECT_EQ(shop_.call(L"Database").result, S_OK);
}

TEST_F(ShopObjectsTest, NothingStaysAlive) {
  const long before = win32::ModuleLock::count();
  for (int i = 0; i < 100; ++i) {
    const LateBound record = database_.object(L"OptionsRecord");
    record.put(L"CompanyName", u"x");
    database_.object(L"ItemList").object(L"Current");
    database_.object(L"ClassTable").call(L"FindFirst", u"nonsense");
  }
  EXPECT_EQ(win32::ModuleLock::count(), before);
}

}  // namespace
}  // namespace tillora::host::automation
