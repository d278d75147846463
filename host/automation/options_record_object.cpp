#include "host/automation/options_record_object.h"

#include <TilloraOptions.h>

#include <algorithm>
#include <array>
#include <utility>

#include "host/shop_error.h"
#include "host/stored_options.h"

namespace tillora::host::automation {

using win32::Bstr;

namespace {

constexpr DISPID kNoValue = 1000;
constexpr DISPID kCommit = 1001;

const OptionInfo* findOptionById(DISPID id) {
  const auto* const found = std::ranges::find(kOptionTable, id, &OptionInfo::dispatchId);
  return found == kOptionTable.end() ? nullptr : found;
}

VARTYPE variantType(OptionType type) {
  switch (type) {
    case OptionType::Text:
      return VT_BSTR;
    case OptionType::Long:
      return VT_I4;
    case OptionType::Integer:
      return VT_I2;
    case OptionType::Byte:
      return VT_UI1;
    case OptionType::Single:
      return VT_R4;
    case OptionType::Currency:
      return VT_CY;
    case OptionType::Boolean:
      break;
  }
  return VT_BOOL;
}

Variant zero(OptionType type) {
  switch (type) {
    case OptionType::Text:
      return Variant(TextView());
    case OptionType::Long:
      return Variant(std::int32_t{0});
    case OptionType::Integer:
      return Variant(std::int16_t{0});
    case OptionType::Byte:
      return Variant(std::uint8_t{0});
    case OptionType::Single:
      return Variant(0.0F);
    case OptionType::Currency:
      return Variant(Money{});
    case OptionType::Boolean:
      break;
  }
  return Variant(false);
}

Value valueOf(const VARIANT& variant) {
  switch (variant.vt) {
    case VT_BSTR:
      return Bstr::textOf(variant.bstrVal);
    case VT_I4:
      return std::int32_t{variant.lVal};
    case VT_I2:
      return std::int16_t{variant.iVal};
    case VT_UI1:
      return std::uint8_t{variant.bVal};
    case VT_R4:
      return variant.fltVal;
    case VT_CY:
      return Money{variant.cyVal.int64};
    case VT_BOOL:
      return variant.boolVal != VARIANT_FALSE;
    default:
      return {};
  }
}

}  // namespace

OptionsRecordObject::OptionsRecordObject(std::unique_ptr<OptionsRecord> record)
    : HostObject(DIID_OptionsRecord), record_(std::move(record)) {}

DISPID OptionsRecordObject::findMember(TextView name) const {
  if (const OptionInfo* option = findOption(name)) return option->dispatchId;
  if (sameName(name, u"NoValue")) return kNoValue;
  if (sameName(name, u"Commit")) return kCommit;
  return DISPID_UNKNOWN;
}

Variant OptionsRecordObject::get(DISPID member, const Arguments& arguments) {
  arguments.require(0, 0);
  if (member == kNoValue) return Variant(noValue_);
  if (member == kCommit) {
    record_->commit();
    return Variant();
  }
  const OptionInfo* const option = findOptionById(member);
  if (option == nullptr) throw CallRefused{DISP_E_MEMBERNOTFOUND};
  const Value value = record_->read(option->option);
  noValue_ = std::holds_alternative<std::monostate>(value);
  return noValue_ ? zero(option->type) : win32::toVariant(value);
}

void OptionsRecordObject::put(DISPID member, const Arguments& arguments) {
  const OptionInfo* const option = findOptionById(member);
  if (option == nullptr) throw CallRefused{DISP_E_MEMBERNOTFOUND};
  arguments.require(1, 1);
  const bool none = arguments.value(0).vt == VT_NULL;
  record_->write(option->option,
                 none ? Value() : valueOf(arguments.converted(0, variantType(option->type)).get()));
}

}  // namespace tillora::host::automation
