#include "component/tab_order.h"

#include <algorithm>
#include <vector>

namespace tillora {
namespace {

template <class>
struct PartOf;
template <class Part, class... Args, class Result>
struct PartOf<Result (Part::*)(Args...)> {
  using Type = Part;
};

using SaveStep = void (*)(const Tabs&, OptionsRecord&, OptionChanges&);
using Validation = bool (*)(const Tabs&, const Text& title);

template <auto write>
void step(const Tabs& tabs, OptionsRecord& record, OptionChanges& changes) {
  (tabs.get<typename PartOf<decltype(write)>::Type>().*write)(record, changes);
}

// The save order.
constexpr SaveStep kSaveOrder[] = {
    step<&CompanyDetails::save>,
    step<&CompanyDetails::saveClass>,
};

// The order of the validations: list columns, then In Drawer totals.
const std::vector<Validation> kValidations = {};

}  // namespace

void saveTabs(const Tabs& tabs, OptionsRecord& record, OptionChanges& changes) {
  for (const SaveStep write : kSaveOrder) write(tabs, record, changes);
}

bool validateTabs(const Tabs& tabs, const Text& title) {
  return std::ranges::all_of(kValidations, [&](Validation check) { return check(tabs, title); });
}

}  // namespace tillora
