#pragma once

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

/// The parts of the tabs, made in this order: those that share a page lay themselves out from top
/// to bottom.
struct Tabs {
  explicit Tabs(OptionsDialog& dialog);

  // General
  CompanyDetails companyDetails;
  LedvaneLink ledvaneLink;
  StartUpEntry startUpEntry;

  TransactionOptions transactionOptions;
  Rounding rounding;
  CurrencyConversion currencyConversion;
  RandomPrice randomPrice;
  LaybyOptions laybyOptions;
  ListColumns listColumns;
  EndOfDay endOfDay;
  FredLink fredLink;
  PumpGrades pumpGrades;
  WebSites webSites;
  Passwords passwords;
};

/// Shows the stored values in every part, in the load order.
void loadTabs(Tabs& tabs, OptionsRecord& record);

/// What a save does before its validations, even if these then refuse.
void applyBeforeValidations(Tabs& tabs, const Text& title);

/// Asks the parts, before anything is written, whether the choices can be saved. A part that says
/// no has shown its message, which begins with the host program's title, and selected its tab.
bool validateTabs(Tabs& tabs, const Text& title);

/// Runs every part's write-back in the save order.
void saveTabs(Tabs& tabs, OptionsRecord& record, OptionChanges& changes);

}  // namespace tillora
