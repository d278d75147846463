#include "host/shop.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <sstream>

#include "host/shop_error.h"
#include "tests/host/shop_fixture.h"

namespace tillora::host {
namespace {

class ShopTest : public ShopFixture {
 protected:
  static std::string dump(const Shop& shop) {
    std::ostringstream out;
    shop.dump(out);
    return out.str();
  }

  static std::set<Text> accountNames(const Shop& shop) {
    std::set<Text> names;
    for (const auto table = shop.database()->accountTable(); !table->atEnd(); table->moveNext()) {
      names.insert(table->get(fields::account::Name).get<Text>());
    }
    return names;
  }
};

TEST_F(ShopTest, SeedsABelievableShop) {
  Shop shop = open();
  const auto options = shop.database()->optionsRecord();
  EXPECT_EQ(options->getOrZero(options::CompanyABN).size(), 11U);
  EXPECT_EQ(options->getOrZero(options::CompanyACN).size(), 9U);
  EXPECT_EQ(options->get(options::TaxExemptCaption), Text());
  for (const OptionInfo& option : kOptionTable) {
    EXPECT_NE(options->read(option.option), Value()) << toUtf8(option.name);
  }

  const auto classes = shop.database()->classTable();
  int hidden = 0;
  int longNames = 0;
  bool chosenClassIsListed = false;
  for (; !classes->atEnd(); classes->moveNext()) {
    const Text name = classes->get(fields::class_::Name).get<Text>();
    if (classes->get(fields::class_::Hidden).get<bool>()) {
      ++hidden;
      continue;
    }
    longNames += name.size() > 12 ? 1 : 0;
    chosenClassIsListed |= name == options->getOrZero(options::LVClass);
  }
  EXPECT_EQ(hidden, 2);
  EXPECT_GE(longNames, 1);
  EXPECT_TRUE(chosenClassIsListed);

  EXPECT_EQ(shop.database()->terminalCount(u"[ReportingBits] = 0"), 0);
  EXPECT_EQ(shop.database()->terminalCount(u"[ReportingBits] = 1"), 3);
  EXPECT_EQ(shop.database()->dataFile(), u"C:\\Ledvane\\Harbour Street.lvd");
  EXPECT_FALSE(shop.database()->randomPriceTable()->atEnd());
  EXPECT_FALSE(shop.database()->currencyTable()->atEnd());
}

TEST_F(ShopTest, SeedsTwoBarcodeFormatsThatAreInUse) {
  const std::string all = dump(open());
  const std::size_t begin = all.find("[random_prices]");
  const std::string captions = "UOMUnitCaption = \"kg\", UOMPriceUnitCaption = \"/kg\", ";
  std::string expected = "[random_prices]\nPrefix = 20, FormatID = 1, OptionBits = 1, " + captions +
                         "Inactive = False\nPrefix = 21, FormatID = 2, OptionBits = 3, " +
                         captions + "Inactive = False\n";
  for (int prefix = 22; prefix <= 29; ++prefix) {
    expected += "Prefix = " + std::to_string(prefix) + ", FormatID = 1, OptionBits = 1, " +
                captions + "Inactive = True\n";
  }
  expected += "Prefix = 2, FormatID = 3, OptionBits = 1, " + captions + "Inactive = True\n";
  EXPECT_EQ(all.substr(begin, all.find("\n[", begin) - begin), expected);
}

TEST_F(ShopTest, SeedsItemsOfEveryKind) {
  Shop shop = open();
  const auto accounts = shop.database()->accountTable();
  std::map<Text, int> types;
  std::map<Text, int> otherChargeAccounts;
  int withoutGroup = 0;
  for (const auto items = shop.database()->itemList(); !items->atEnd(); items->moveNext()) {
    const Item item = items->current();
    ++types[item.itemType];
    if (item.itemType != u"OTHC") continue;
    withoutGroup += item.group.empty() ? 1 : 0;
    bool found = false;
    for (accounts->moveFirst(); !accounts->atEnd(); accounts->moveNext()) {
      if (accounts->get(fields::account::Name).get<Text>() != item.account) continue;
      found = true;
      Text kind = accounts->get(fields::account::AccountType).get<Text>();
      if (accounts->get(fields::account::Inactive).get<bool>()) kind += u" inactive";
      ++otherChargeAccounts[kind];
    }
    if (!found) ++otherChargeAccounts[u"missing"];
  }
  for (const char16_t* type : {u"STOCK", u"PART", u"GRP", u"OTHC", u"SERV"}) {
    EXPECT_GE(types[type], 2) << toUtf8(type);
  }
  EXPECT_EQ(types[u"SUBT"], 1);
  EXPECT_EQ(types.size(), 6U);
  for (const char16_t* kind : {u"INC", u"INC inactive", u"EXP", u"missing"}) {
    EXPECT_GE(otherChargeAccounts[kind], 1) << toUtf8(kind);
  }
  EXPECT_GE(withoutGroup, 1);
}

TEST_F(ShopTest, SeedsAccountsOfEveryKind) {
  Shop shop = open();
  std::map<Text, int> kinds;
  int inactive = 0;
  for (const auto accounts = shop.database()->accountTable(); !accounts->atEnd();
       accounts->moveNext()) {
    ++kinds[accounts->get(fields::account::AccountType).get<Text>()];
    inactive += accounts->get(fields::account::Inactive).get<bool>() ? 1 : 0;
  }
  EXPECT_EQ(kinds, (std::map<Text, int>{
                       {u"INC", 7}, {u"BANK", 2}, {u"AR", 1}, {u"EXP", 2}, {u"LIAB", 3}}));
  EXPECT_EQ(inactive, 1);
}

TEST_F(ShopTest, ThePartsOfASeededShopFitTogether) {
  Shop shop = open();
  const std::set<Text> accounts = accountNames(shop);

  std::set<Text> groups;
  std::set<Text> names;
  std::set<Text> numbers;
  for (const auto items = shop.database()->itemList(); !items->atEnd(); items->moveNext()) {
    const Item item = items->current();
    const Text where = u"in item " + item.name;
    EXPECT_FALSE(item.description.empty()) << toUtf8(where);
    if (item.itemType == u"GRP") groups.insert(item.name);
    if (item.itemType == u"STOCK" && !item.group.empty()) {
      EXPECT_TRUE(groups.contains(item.group)) << toUtf8(where);
    }
    EXPECT_TRUE(names.insert(item.group + u":" + item.name).second) << toUtf8(where);
    if (!item.productNumber.empty()) {
      EXPECT_EQ(item.productNumber.size(), 4U) << toUtf8(where);
      EXPECT_TRUE(numbers.insert(item.productNumber).second) << toUtf8(where);
    }
    if (item.itemType != u"SUBT" && item.name != u"Lost Charge") {
      EXPECT_TRUE(accounts.contains(item.account)) << toUtf8(where);
    }
  }
  EXPECT_EQ(groups.size(), 7U);

  const auto list = shop.database()->paymentItemList();
  for (list->moveFirst(); !list->atEnd(); list->moveNext()) {
    EXPECT_FALSE(list->current().description.empty());
    EXPECT_TRUE(accounts.contains(list->current().account)) << toUtf8(list->current().name);
  }

  std::int32_t number = 0;
  for (const auto grades = shop.database()->gradeTable(); !grades->atEnd(); grades->moveNext()) {
    EXPECT_EQ(grades->get(fields::grade::GradeNumber).get<std::int32_t>(), ++number);
    const Text product = grades->get(fields::grade::Product).get<Text>();
    const bool isAssigned = names.contains(product);
    EXPECT_TRUE(isAssigned || product == u"(None)") << toUtf8(product);
    EXPECT_EQ(grades->get(fields::grade::Caption).get<Text>().empty(), !isAssigned);
  }
  EXPECT_EQ(number, 4);

  const auto options = shop.database()->optionsRecord();
  EXPECT_TRUE(names.contains(options->getOrZero(options::RoundingItem)));
}

TEST_F(ShopTest, SeedsWebSitesThatAreUsedAndOnesThatAreNot) {
  Shop shop = open();
  const auto sites = shop.database()->webSiteTable();
  std::vector<bool> inactive;
  for (; !sites->atEnd(); sites->moveNext()) {
    EXPECT_FALSE(sites->get(fields::webSite::Description).get<Text>().empty());
    EXPECT_TRUE(sites->get(fields::webSite::URL).get<Text>().starts_with(u"https://"));
    inactive.push_back(sites->get(fields::webSite::Inactive).get<bool>());
  }
  EXPECT_EQ(inactive, (std::vector<bool>{false, true}));
}

TEST_F(ShopTest, SeedsOptionsOfACompany) {
  Shop shop = open();
  const auto options = shop.database()->optionsRecord();
  for (const auto& option : {options::CompanyName, options::CompanyAddress, options::CompanyPhone,
                             options::CompanyEmail}) {
    EXPECT_FALSE(options->getOrZero(option).empty()) << toUtf8(optionInfo(option.id).name);
  }
  EXPECT_EQ(options->get(options::LVSummariseBits), 3);
  EXPECT_EQ(options->get(options::PumpOptionBits), 1);
  EXPECT_EQ(options->get(options::RoundingStep), Money{500});
  EXPECT_EQ(options->get(options::DefaultCurrencyMargin), 2.5F);
}

TEST_F(ShopTest, ListsPaymentItems) {
  Shop shop = open();
  const auto list = shop.database()->paymentItemList();
  std::set<Text> names;
  for (; !list->atEnd(); list->moveNext()) names.insert(list->current().name);
  EXPECT_EQ(names.size(), 7U);
  EXPECT_EQ(errorOf([&] { list->current(); }).source(), u"TilloraHost.PaymentItemList");
  list->moveFirst();
  EXPECT_EQ(list->current().name, u"Cash");
}

TEST_F(ShopTest, OpeningAgainSeedsNothing) {
  const std::string first = dump(open());
  EXPECT_EQ(dump(open({.seeded = true, .itemCount = 5})), first);
}

TEST_F(ShopTest, AnEmptyShopHasOnlyWhatTheMachineHas) {
  Shop shop = open({.seeded = false, .itemCount = std::nullopt});
  EXPECT_TRUE(shop.database()->classTable()->atEnd());
  EXPECT_TRUE(shop.database()->gradeTable()->atEnd());
  EXPECT_TRUE(shop.database()->webSiteTable()->atEnd());
  EXPECT_TRUE(shop.database()->itemList()->atEnd());
  EXPECT_EQ(shop.settings()->decimalPlaces(), 2);
  EXPECT_EQ(shop.settings()->currencyFormat(), u"$#,##0.00");
  EXPECT_EQ(shop.settings()->decimalSeparator(), u"");
  EXPECT_TRUE(shop.settings()->dispensingAvailable());
  EXPECT_EQ(shop.strings()->string(20000), u"Local");
  EXPECT_EQ(shop.strings()->string(20001), u"Foreign");
}

TEST_F(ShopTest, AStringThatIsNotThereIsAnError) {
  Shop shop = open();
  const Error error = errorOf([&] { shop.strings()->string(20002); });
  EXPECT_EQ(error.number(), shop_error::stringNotFound);
  EXPECT_EQ(error.source(), u"TilloraHost.ResourceStrings");
}

TEST_F(ShopTest, KeepsSettingsAndTheDataFile) {
  Shop shop = open();
  EXPECT_EQ(shop.settings()->setting(u"ReportTitleX"), std::nullopt);
  shop.settings()->setSetting(u"ReportTitleX", u"");
  EXPECT_EQ(shop.settings()->setting(u"ReportTitleX"), u"");
  shop.settings()->setSetting(u"ReportTitleX", Text(u"B&alance\0!", 10));
  EXPECT_EQ(shop.settings()->setting(u"ReportTitleX"), Text(u"B&alance\0!", 10));
  shop.database()->setDataFile(u"C:\\Books\\shop.lvd");
  EXPECT_EQ(shop.database()->dataFile(), u"C:\\Books\\shop.lvd");
  shop.settings()->setSetting(u"DecimalPlaces", u"many");
  EXPECT_EQ(errorOf([&] { shop.settings()->decimalPlaces(); }).number(), error::typeMismatch);
}

TEST_F(ShopTest, DumpsWithoutPasswords) {
  Shop shop = open({.seeded = false, .itemCount = std::nullopt});
  {
    const auto saving = shop.database()->optionsRecord();
    saving->set(options::PasswordStartAdmin, u"secret");
    saving->set(options::PasswordEndOfDay, u"");
    saving->set(options::CompanyAddress, Text(u"1 \"High\" St\r\nS\u00F8by\0\x01", 19));
    saving->set(options::RoundingStep, Money{-12345});
    saving->set(options::DefaultCurrencyMargin, 2.5F);
    saving->set(options::PrintNRGT, true);
    saving->commit();
  }
  shop.settings()->setSetting(u"ReportTitleX", u"t");
  EXPECT_EQ(dump(shop),
            "[options]\n"
            "CompanyAddress = \"1 \\\"High\\\" St\\r\\nS\xC3\xB8"
            "by\\x00\\x01\"\n"
            "DefaultCurrencyMargin = 2.5\n"
            "PasswordStartAdmin = (set)\n"
            "PasswordEndOfDay = (not set)\n"
            "PrintNRGT = True\n"
            "RoundingStep = -1.2345\n"
            "\n[settings]\n"
            "CurrencyFormat = \"$#,##0.00\"\n"
            "DecimalPlaces = \"2\"\n"
            "DispensingAvailable = \"True\"\n"
            "ReportTitleX = \"t\"\n"
            "\n[classes]\n\n[accounts]\n\n[random_prices]\n\n[grades]\n\n[web_sites]\n"
            "\n[currencies]\n\n[terminals]\n\n[items]\n\n[payment_items]\n"
            "\n[strings]\n"
            "20000 = \"Local\"\n"
            "20001 = \"Foreign\"\n");
}

TEST_F(ShopTest, DumpsANumberWithTheDigitsThatTellItFromItsNeighbours) {
  Shop shop = open({.seeded = false, .itemCount = std::nullopt});
  const auto saving = shop.database()->optionsRecord();
  saving->set(options::DefaultCurrencyMargin, 0.1F);
  saving->commit();
  EXPECT_NE(dump(shop).find("DefaultCurrencyMargin = 0.100000001\n"), std::string::npos);
}

TEST_F(ShopTest, MadeUpItemsAreNumberedAndGroupedAndOfEveryKind) {
  Shop shop = open({.seeded = true, .itemCount = 251});
  const std::set<Text> accounts = accountNames(shop);
  std::map<Text, int> types;
  std::set<Text> used;
  std::set<Text> names;
  std::int32_t number = 0;
  for (const auto items = shop.database()->itemList(); !items->atEnd(); items->moveNext()) {
    const Item item = items->current();
    ++types[item.itemType];
    used.insert(item.account);
    names.insert(item.name);
    EXPECT_EQ(item.productNumber, fromUtf8(std::to_string(++number)));
    EXPECT_TRUE(item.name.ends_with(u"-" + item.productNumber)) << number;
    EXPECT_TRUE(item.description.ends_with(u" " + item.productNumber)) << number;
    EXPECT_EQ(item.group, number <= 250 ? u"Group 1" : u"Group 2") << number;
    EXPECT_TRUE(accounts.contains(item.account)) << number;
  }
  EXPECT_EQ(number, 251);
  EXPECT_EQ(names.size(), 251U);
  EXPECT_EQ(used.size(), 5U);
  EXPECT_EQ(types,
            (std::map<Text, int>{
                {u"STOCK", 151}, {u"PART", 25}, {u"GRP", 25}, {u"OTHC", 25}, {u"SERV", 25}}));
}

TEST_F(ShopTest, WalksAHundredThousandItems) {
  constexpr std::int32_t kItems = 100000;
  Shop shop = open({.seeded = true, .itemCount = kItems});
  std::int32_t seen = 0;
  std::set<Text> types;
  for (const auto items = shop.database()->itemList(); !items->atEnd(); items->moveNext()) {
    const Item item = items->current();
    ASSERT_EQ(item.productNumber, fromUtf8(std::to_string(++seen)));
    types.insert(item.itemType);
  }
  EXPECT_EQ(seen, kItems);
  EXPECT_EQ(types, (std::set<Text>{u"GRP", u"OTHC", u"PART", u"SERV", u"STOCK"}));
}

}  // namespace
}  // namespace tillora::host
