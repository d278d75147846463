#include "component/first_use.h"

#include "support/modJetSQLFixup.h"

namespace tillora {
namespace {

constexpr std::int32_t kLocalCurrencyString = 20000;
constexpr std::int32_t kForeignCurrencyString = 20001;

void addCurrency(Table& currencies, const Text& name) {
  currencies.findFirst(u"[Name] = " + QuoteJetLiteral(name));
  if (!currencies.noMatch()) return;
  currencies.addNew();
  currencies.set(fields::currency::Name, name);
  currencies.update();
}

}  // namespace

void prepareFirstUse(const OptionsDialog& dialog) {
  try {
    ResourceStrings& strings = requireObject(dialog.host().resources, u"ResourceObject");
    const auto currencies = dialog.database().currencyTable();
    for (const std::int32_t number : {kLocalCurrencyString, kForeignCurrencyString}) {
      addCurrency(*currencies, strings.string(number));
    }
  } catch (const Error&) {  // NOLINT(bugprone-empty-catch): this step is meant to be quiet
  }
}

}  // namespace tillora
