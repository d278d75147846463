#include "host/automation/options_record_object.h"

#include <TilloraOptions.h>

#include <algorithm>
#include <utility>

#include "host/shop_error.h"
#include "host/stored_options.h"

namespace tillora::host::automation {

namespace {

const OptionInfo* findOptionById(DISPID id) {
  const auto* const found = std::ranges::find(kOptionTable, id, &OptionInfo::dispatchId);
  return found == kOptionTable.end() ? nullptr : found;
}

}  // namespace

OptionsRecordObject::OptionsRecordObject(std::unique_ptr<OptionsRecord> record)
    : HostObject(DIID_OptionsRecord), record_(std::move(record)) {}

DISPID OptionsRecordObject::findMember(TextView name) const {
  if (const OptionInfo* option = findOption(name)) return option->dispatchId;
  if (sameName(name, u"NoValue")) return DISPID_OPTIONSRECORD_NOVALUE;
  if (sameName(name, u"Commit")) return DISPID_OPTIONSRECORD_COMMIT;
  return DISPID_UNKNOWN;
}

Variant OptionsRecordObject::get(DISPID member, const Arguments& arguments) {
  arguments.require(0, 0);
  if (member == DISPID_OPTIONSRECORD_NOVALUE) return Variant(noValue_);
  if (member == DISPID_OPTIONSRECORD_COMMIT) {
    record_->commit();
    return Variant();
  }
  const OptionInfo* const option = findOptionById(member);
  if (option == nullptr) throw CallRefused{DISP_E_MEMBERNOTFOUND};
  const Value value = record_->read(option->option);
  noValue_ = value.isNone();
  return noValue_ ? win32::toVariant(zeroOf(option->type)) : win32::toVariant(value);
}

void OptionsRecordObject::put(DISPID member, const Arguments& arguments) {
  const OptionInfo* const option = findOptionById(member);
  if (option == nullptr) throw CallRefused{DISP_E_MEMBERNOTFOUND};
  arguments.require(1, 1);
  const bool none = arguments.value(0).vt == VT_NULL;
  const VARTYPE wanted = win32::variantType(zeroOf(option->type));
  record_->write(option->option,
                 none ? Value() : win32::toValue(arguments.converted(0, wanted).get()));
}

}  // namespace tillora::host::automation
