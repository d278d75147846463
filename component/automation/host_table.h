#pragma once

#include <memory>

#include "component/automation/dispatch_object.h"
#include "component/contract/host_objects.h"

/// The record, tables and lists of items of a host's JetDatabase, through their automation objects.
namespace tillora::automation {

std::unique_ptr<OptionsRecord> makeOptionsRecord(DispatchObject object);
std::unique_ptr<Table> makeTable(DispatchObject object);
std::unique_ptr<Cursor<Item>> makeItemCursor(DispatchObject object);
std::unique_ptr<Cursor<PaymentItem>> makePaymentItemCursor(DispatchObject object);

}  // namespace tillora::automation
