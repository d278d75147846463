#pragma once

#include <memory>
#include <tuple>
#include <type_traits>

#include "component/contract/options_tab.h"
#include "identity/company_details.h"
#include "identity/fred_link.h"
#include "identity/ledvane_link.h"
#include "identity/passwords.h"
#include "identity/start_up_entry.h"
#include "identity/web_sites.h"
#include "operations/end_of_day.h"
#include "operations/layby.h"
#include "operations/pump.h"
#include "operations/random_price.h"
#include "sales/currency_conversion.h"
#include "sales/list_columns.h"
#include "sales/rounding.h"
#include "sales/transactions.h"

namespace tillora {

/// The parts of the tabs, one of each type.
template <class... Parts>
class TabParts {
 public:
  explicit TabParts(OptionsDialog& dialog) : parts_{std::make_unique<Parts>(dialog)...} {}

  template <class Part>
  Part& get() const {
    static_assert((std::is_same_v<Part, Parts> || ...), "the part is missing in the load order");
    return *std::get<std::unique_ptr<Part>>(parts_);
  }
  void load(OptionsRecord& record) const { (get<Parts>().load(record), ...); }

 private:
  std::tuple<std::unique_ptr<Parts>...> parts_;
};

/// The load order: the parts are made and loaded in this order.
using Tabs = TabParts<   //
    CompanyDetails,      // General
    LedvaneLink,         //
    StartUpEntry,        //
    TransactionOptions,  // Transactions
    Rounding,            // Rounding
    CurrencyConversion,  // Currency
    RandomPrice,         // Scanning
    LaybyOptions,        // Layby
    ListColumns,         // Lists
    EndOfDay,            // EOD
    FredLink,            // FRED
    PumpGrades,          // Pump
    WebSites,            // Web
    Passwords            // Security
    >;

/// What a save does before its validations: one that they refuse has done it.
void applyBeforeValidations(const Tabs& tabs, const Text& title);

/// Runs every part's write-back in the save order.
void saveTabs(const Tabs& tabs, OptionsRecord& record, OptionChanges& changes);

/// Asks the parts, before anything is written, whether the choices can be saved. A part that says
/// no has shown its message, which begins with the host program's title, and selected its tab.
bool validateTabs(const Tabs& tabs, const Text& title);

}  // namespace tillora
