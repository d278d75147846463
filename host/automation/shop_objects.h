#pragma once

#include <memory>

#include "component/contract/host_objects.h"
#include "host/automation/host_object.h"

namespace tillora::host::automation {

/// The shop database.
class JetDatabaseObject final : public TableObject<JetDatabaseObject> {
 public:
  explicit JetDatabaseObject(std::shared_ptr<JetDatabase> database);
  static std::span<const Member<JetDatabaseObject>> members();

 private:
  std::shared_ptr<JetDatabase> database_;
};

/// Settings of the machine. A decimal separator that the shop does not set is the user's own.
class SettingsStoreObject final : public TableObject<SettingsStoreObject> {
 public:
  explicit SettingsStoreObject(std::shared_ptr<SettingsStore> settings);
  static std::span<const Member<SettingsStoreObject>> members();

 private:
  std::shared_ptr<SettingsStore> settings_;
};

/// Numbered strings.
class ResourceStringsObject final : public TableObject<ResourceStringsObject> {
 public:
  explicit ResourceStringsObject(std::shared_ptr<ResourceStrings> strings);
  static std::span<const Member<ResourceStringsObject>> members();

 private:
  std::shared_ptr<ResourceStrings> strings_;
};

}  // namespace tillora::host::automation
