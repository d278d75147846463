#pragma once

#include <memory>

#include "component/contract/host_objects.h"
#include "host/automation/host_object.h"

namespace tillora::host::automation {

/// The record of stored options: one property per row of the option table, NoValue and Commit.
class OptionsRecordObject final : public HostObject {
 public:
  explicit OptionsRecordObject(std::unique_ptr<OptionsRecord> record);

 protected:
  DISPID findMember(TextView name) const override;
  Variant get(DISPID member, const Arguments& arguments) override;
  /// Null stores no value.
  void put(DISPID member, const Arguments& arguments) override;

 private:
  std::unique_ptr<OptionsRecord> record_;
  bool noValue_ = false;
};

}  // namespace tillora::host::automation
