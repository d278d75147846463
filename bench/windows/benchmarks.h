#pragma once

namespace tillora::bench {

class Catalogue;

// Those with budgets print their ratios and return whether the budgets are kept. Floor and product
// take turns; the median of the rounds' ratios counts.

/// From CreateObject to the first page, for the first time in this program and later; without a
/// budget. To be measured first.
void measureCreating();
/// Opening the options dialog, visiting its pages and closing it, against a property sheet of the
/// platform's with the same windows; opening also against these windows with nothing behind them.
bool measureOpening();
/// Opening the item browser over the catalogue, against a bare walk of the same cursor that reads
/// the same properties.
bool measureBrowsing(const Catalogue& catalogue);
/// Scrolling the item browser's list and typing ahead in it, against a list of the platform's that
/// holds the same texts itself.
bool measureList(const Catalogue& catalogue);

}  // namespace tillora::bench
