#include "component/tab_order.h"

namespace tillora {

Tabs::Tabs(OptionsDialog& dialog)
    : companyDetails(dialog),
      ledvaneLink(dialog),
      startUpEntry(dialog),
      transactionOptions(dialog),
      rounding(dialog),
      currencyConversion(dialog),
      randomPrice(dialog),
      laybyOptions(dialog),
      listColumns(dialog),
      endOfDay(dialog),
      fredLink(dialog),
      pumpGrades(dialog),
      webSites(dialog),
      passwords(dialog) {}

void loadTabs(Tabs& tabs, OptionsRecord& record) {
  tabs.companyDetails.load(record);
  tabs.ledvaneLink.load(record);
  tabs.startUpEntry.load();
  tabs.transactionOptions.load(record);
  tabs.rounding.load(record);
  tabs.currencyConversion.load(record);
  tabs.randomPrice.load(record);
  tabs.laybyOptions.load(record);
  tabs.listColumns.load(record);
  tabs.endOfDay.load(record);
  tabs.fredLink.load(record);
  tabs.pumpGrades.load(record);
  tabs.webSites.load();
  tabs.passwords.load(record);
}

void applyBeforeValidations(Tabs& tabs, const Text& title) { tabs.startUpEntry.apply(title); }

bool validateTabs(Tabs& tabs, const Text& title) {
  return tabs.listColumns.validate(title) && tabs.endOfDay.validate(title) &&
         tabs.ledvaneLink.validate(title);
}

void saveTabs(Tabs& tabs, OptionsRecord& record, OptionChanges& changes) {
  tabs.companyDetails.save(record);
  tabs.ledvaneLink.save(record, changes);
  tabs.companyDetails.saveClass(record);
  tabs.transactionOptions.save(record);
  tabs.rounding.save(record, changes);
  tabs.currencyConversion.save(record, changes);
  tabs.randomPrice.save(record);
  tabs.laybyOptions.save(record);
  tabs.listColumns.save(record, changes);
  tabs.endOfDay.save(record);
  tabs.fredLink.save(record, changes);
  tabs.pumpGrades.save(record);
  tabs.webSites.save();
  tabs.passwords.save(record);
}

}  // namespace tillora
