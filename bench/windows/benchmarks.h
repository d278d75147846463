#pragma once

namespace tillora::bench {

// Each prints its ratios and tells whether its budgets are kept. Floor and product take turns;
// medians count.

/// Opening the options dialog, against making its windows with nothing behind them.
bool measureOpening();
/// Opening the item browser over 100,000 items of the reference host, against a bare walk of the
/// same cursor that reads the same properties.
bool measureBrowsing();

}  // namespace tillora::bench
