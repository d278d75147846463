// Any text, quoted for criteria: a search finds the row that holds this very text, and no other.
#include "host/shop.h"
#include "support/modJetSQLFixup.h"
#include "tests/fuzz/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tillora;
  static const host::Shop shop =
      host::Shop::open(u":memory:", {.seeded = false, .itemCount = std::nullopt});
  fuzz::Input input(data, size);
  const Text name = input.text();
  const auto accounts = shop.database()->accountTable();
  for (const Text& each : {Text(u"another"), name}) {
    accounts->addNew();
    accounts->set(fields::account::Name, each);
    accounts->update();
  }
  accounts->findFirst(u"[Name] = " + QuoteJetLiteral(name));
  fuzz::require(!accounts->noMatch(), "the row is found");
  fuzz::require(accounts->text(fields::account::Name) == name, "it holds the text");
  accounts->findFirst(u"[Name] = 'another'");
  fuzz::require(accounts->text(fields::account::Name) == u"another", "the other row is found");
  for (accounts->moveFirst(); !accounts->atEnd(); accounts->moveNext()) accounts->remove();
  return 0;
}
