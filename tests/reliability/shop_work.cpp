#include "tests/reliability/shop_work.h"

#include <sstream>

#include "base/numbers.h"
#include "support/modJetSQLFixup.h"
#include "tests/testing/memory/failing_memory.h"

namespace tillora::testing {
namespace {

Text urlOf(std::int32_t number) { return u"https://shop.example/" + decimalText(number); }

void addSite(Table& sites, const Text& url) {
  sites.addNew();
  sites.set(fields::webSite::URL, url);
  sites.set(fields::webSite::Description, url + u" in words, which take up some room in the row");
  sites.set(fields::webSite::Inactive, false);
  sites.update();
}

}  // namespace

host::Shop openShop(const host::ShopContents& contents) {
  return host::Shop::open(u"shop.db", contents, std::chrono::milliseconds(0));
}

void save(const host::Shop& shop, std::int32_t number) {
  const auto record = shop.database()->optionsRecord();
  record->set(options::LaybyStartNumber, number);
  record->set(options::CompanyName, u"Shop " + decimalText(number));
  record->set(options::LaybyTermsText, Text(5000, static_cast<char16_t>(u'a' + number % 26)));
  const auto sites = shop.database()->webSiteTable();
  sites->moveFirst();
  if (!sites->atEnd()) sites->remove();
  addSite(*sites, urlOf(number));
  const auto grades = shop.database()->gradeTable();
  grades->moveFirst();
  grades->edit();
  grades->set(fields::grade::Caption, u"Grade " + decimalText(number));
  grades->update();
  shop.settings()->setSetting(u"Number", decimalText(number));
  record->commit();
}

bool holdsSave(const host::Shop& shop, std::int32_t number) {
  const auto record = shop.database()->optionsRecord();
  if (record->getOrZero(options::LaybyStartNumber) != number) return false;
  const auto sites = shop.database()->webSiteTable();
  sites->findFirst(u"[URL] = " + QuoteJetLiteral(urlOf(number)));
  const auto grades = shop.database()->gradeTable();
  return record->get(options::CompanyName) == u"Shop " + decimalText(number) && !sites->noMatch() &&
         grades->text(fields::grade::Caption) == u"Grade " + decimalText(number) &&
         shop.settings()->setting(u"Number") == decimalText(number);
}

std::string readAll(const host::Shop& shop) {
  std::string all;
  const auto record = shop.database()->optionsRecord();
  for (const OptionInfo& option : kOptionTable) {
    const Value value = record->read(option.option);
    if (const Text* text = value.as<Text>()) all += toUtf8(*text);
    all += value.isNone() ? '-' : '+';
  }
  const auto accounts = shop.database()->accountTable();
  accounts->findFirst(u"[AccountType] = 'INC' AND [Inactive] = False");
  while (!accounts->noMatch()) {
    all += toUtf8(accounts->text(fields::account::Name));
    accounts->findNext(u"[AccountType] = 'INC' AND [Inactive] = False");
  }
  const auto items = shop.database()->itemList();
  int left = 40;
  for (items->moveFirst(); !items->atEnd() && left > 0; items->moveNext(), --left) {
    all += toUtf8(items->get(&Item::name));
  }
  all += std::to_string(shop.database()->terminalCount(u"[ReportingBits] = 0"));
  all += toUtf8(shop.settings()->currencyFormat());
  return all;
}

std::string contentsOf(const host::Shop& shop) {
  std::ostringstream out;
  out.exceptions(std::ios::badbit);
  shop.dump(out);
  return out.str();
}

}  // namespace tillora::testing
