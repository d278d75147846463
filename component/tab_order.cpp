#include "component/tab_order.h"

#include <algorithm>
#include <vector>

namespace tillora {
namespace {

template <class Part, class Result, class... Args>
Part partOf(Result (Part::*)(Args...));

/// Writes of the parts, one after the other.
template <auto... writes>
struct Writes {
  static void run(const Tabs& tabs, OptionsRecord& record, OptionChanges& changes) {
    ((tabs.get<decltype(partOf(writes))>().*writes)(record, changes), ...);
  }
  template <class Part>
  static constexpr bool cover = (std::is_same_v<Part, decltype(partOf(writes))> || ...);
};

// The save order.
using SaveOrder = Writes<        //
    &CompanyDetails::save,       //
    &LedvaneLink::save,          //
    &CompanyDetails::saveClass,  //
    &TransactionOptions::save,   //
    &Rounding::save,             //
    &CurrencyConversion::save,   //
    &RandomPrice::save,          //
    &LaybyOptions::save,         //
    &ListColumns::save,          //
    &EndOfDay::save,             //
    &FredLink::save,             //
    &PumpGrades::save,           //
    &WebSites::save,             //
    &Passwords::save             //
    >;

// Applied before the validations.
constexpr auto kAppliedFirst = &StartUpEntry::apply;

template <class Part>
constexpr bool isSaved =
    SaveOrder::cover<Part> || std::is_same_v<Part, decltype(partOf(kAppliedFirst))>;

template <class... Parts>
constexpr bool savesEvery(const TabParts<Parts...>*) {
  return (isSaved<Parts> && ...);
}
static_assert(savesEvery(static_cast<const Tabs*>(nullptr)), "a part is missing in the save order");

// What is asked before a save writes, in this order: each a part's function that shows its message
// and selects its tab where it says no.
using Validation = bool (*)(const Tabs&, const Text& title);
const std::vector<Validation> kValidations = {
    [](const Tabs& tabs, const Text& title) { return tabs.get<ListColumns>().validate(title); },
    [](const Tabs& tabs, const Text& title) { return tabs.get<EndOfDay>().validate(title); },
    [](const Tabs& tabs, const Text& title) { return tabs.get<LedvaneLink>().validate(title); },
};

}  // namespace

void applyBeforeValidations(const Tabs& tabs, const Text& title) {
  (tabs.get<decltype(partOf(kAppliedFirst))>().*kAppliedFirst)(title);
}

void saveTabs(const Tabs& tabs, OptionsRecord& record, OptionChanges& changes) {
  SaveOrder::run(tabs, record, changes);
}

bool validateTabs(const Tabs& tabs, const Text& title) {
  return std::ranges::all_of(kValidations, [&](Validation check) { return check(tabs, title); });
}

}  // namespace tillora
