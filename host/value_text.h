#pragma once

#include <string>

#include "base/values.h"

namespace tillora::host {

/// The amount with four decimals and a point: "-1.2345".
std::string amountText(Money amount);
/// The number with as many digits as it takes to tell it from its neighbours: "2.5".
std::string singleText(float number);

}  // namespace tillora::host
