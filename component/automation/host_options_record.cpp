#include "component/automation/host_table.h"
#include "component/automation/values.h"

namespace tillora::automation {

namespace {

class AutomationOptionsRecord final : public OptionsRecord {
 public:
  explicit AutomationOptionsRecord(DispatchObject object) : object_(std::move(object)) {}

  Value read(OptionId option) override {
    const OptionInfo& info = optionInfo(option);
    const auto stored = object_.get(info.name);
    if (stored.isEmptyOrNull() || object_.getBoolean(u"NoValue")) return {};
    return toOptionValue(object_, stored, info.type, info.name);
  }
  void write(OptionId option, const Value& value) override {
    object_.put(optionInfo(option).name, value);
  }
  void commit() override { object_.call(u"Commit"); }

 private:
  DispatchObject object_;
};

}  // namespace

std::unique_ptr<OptionsRecord> makeOptionsRecord(DispatchObject object) {
  return std::make_unique<AutomationOptionsRecord>(std::move(object));
}

}  // namespace tillora::automation
