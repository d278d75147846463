// Any text as the criteria of a search: it is understood or refused, and never reaches SQL.
#include "host/criteria.h"
#include "host/shop_error.h"
#include "tests/fuzz/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tillora;
  fuzz::Input input(data, size);
  try {
    const host::Criteria criteria(input.text(), host::tables::accounts);
    fuzz::require(criteria.parameterCount() > 0, "criteria have a condition");
    fuzz::require(criteria.sql().find('\'') == std::string::npos, "values are bound");
  } catch (const Error& refused) {
    fuzz::require(!refused.description().empty(), "a refusal says why");
  }
  return 0;
}
