#include "component/automation/host_adapters.h"

#include <limits>

#include "component/automation/host_table.h"
#include "component/automation/offered_interface.h"
#include "component/automation/values.h"

namespace tillora::automation {

using win32::ComPtr;

namespace {

class AutomationJetDatabase final : public JetDatabase {
 public:
  explicit AutomationJetDatabase(DispatchObject object) : object_(std::move(object)) {}

  std::unique_ptr<tillora::OptionsRecord> optionsRecord() override {
    return makeOptionsRecord(object_.getObject(u"OptionsRecord", u"OptionsRecord"));
  }
  std::unique_ptr<Table> classTable() override { return table(u"ClassTable"); }
  std::unique_ptr<Table> accountTable() override { return table(u"AccountTable"); }
  std::unique_ptr<Table> randomPriceTable() override { return table(u"RandomPriceTable"); }
  std::unique_ptr<Table> gradeTable() override { return table(u"GradeTable"); }
  std::unique_ptr<Table> webSiteTable() override { return table(u"WebSiteTable"); }
  std::unique_ptr<Table> currencyTable() override { return table(u"CurrencyTable"); }
  std::unique_ptr<Cursor<Item>> itemList() override {
    return makeItemCursor(object_.getObject(u"ItemList", u"ItemList"));
  }
  std::unique_ptr<Cursor<PaymentItem>> paymentItemList() override {
    return makePaymentItemCursor(object_.getObject(u"PaymentItemList", u"PaymentItemList"));
  }
  std::int32_t terminalCount(TextView criteria) override {
    return object_.getLong(u"TerminalCount", criteria);
  }
  Text dataFile() override { return object_.getText(u"DataFile"); }
  void setDataFile(TextView path) override { object_.put(u"DataFile", path); }

 private:
  // Failures of a table's members are named after the property that gave the table.
  std::unique_ptr<Table> table(const char16_t* member) {
    return makeTable(object_.getObject(member, member));
  }

  DispatchObject object_;
};

class AutomationSettingsStore final : public SettingsStore {
 public:
  explicit AutomationSettingsStore(DispatchObject object) : object_(std::move(object)) {}

  std::optional<std::int16_t> decimalPlaces() override {
    const auto places = object_.get(u"DecimalPlaces");
    if (places.isEmptyOrNull()) return std::nullopt;
    using Limits = std::numeric_limits<std::int16_t>;
    const double number = object_.converted(places, VT_R8, u"DecimalPlaces").get().dblVal;
    if (number > Limits::max()) return Limits::max();
    if (number < Limits::min()) return Limits::min();
    return object_.converted(places, VT_I2, u"DecimalPlaces").get().iVal;
  }
  Text currencyFormat() override { return object_.getText(u"CurrencyFormat"); }
  Text decimalSeparator() override { return object_.getText(u"DecimalSeparator"); }
  bool dispensingAvailable() override {
    constexpr const char16_t* kMember = u"DispensingAvailable";
    if (!object_.knows(kMember)) return false;
    const auto available = object_.get(kMember);
    return !available.isEmptyOrNull() &&
           object_.converted(available, VT_BOOL, kMember).get().boolVal != VARIANT_FALSE;
  }
  std::optional<Text> setting(TextView name) override {
    const auto value = object_.get(u"Setting", name);
    if (value.isEmptyOrNull()) return std::nullopt;
    return object_.text(value, u"Setting");
  }
  void setSetting(TextView name, TextView value) override { object_.put(u"Setting", name, value); }

  IDispatch* object() const { return object_.object(); }

 private:
  DispatchObject object_;
};

class AutomationMessageSender final : public MessageSender {
 public:
  explicit AutomationMessageSender(DispatchObject object) : object_(std::move(object)) {}
  void send(DateTime when) override { object_.call(u"Send", when); }

 private:
  DispatchObject object_;
};

class AutomationResourceStrings final : public ResourceStrings {
 public:
  explicit AutomationResourceStrings(DispatchObject object) : object_(std::move(object)) {}
  Text string(std::int32_t number) override { return object_.getText(u"ResourceString", number); }

 private:
  DispatchObject object_;
};

class AutomationApp final : public App {
 public:
  explicit AutomationApp(DispatchObject object) : object_(std::move(object)) {}
  Text title() override { return object_.getText(u"Title"); }
  Text path() override { return object_.getText(u"Path"); }

 private:
  DispatchObject object_;
};

class AutomationMessageBox final : public HostMessageBox {
 public:
  explicit AutomationMessageBox(DispatchObject object) : object_(std::move(object)) {}

  void setSettingsStore(const std::shared_ptr<SettingsStore>& settings) override {
    object_.putReference(u"SettingsStore", settings ? automationObject(*settings) : nullptr);
  }
  MessageResult show(TextView text, std::int32_t style, TextView title,
                     TextView secondaryText) override {
    const auto button = secondaryText.empty()
                            ? object_.call(u"Show", text, style, title)
                            : object_.call(u"Show", text, style, title, secondaryText);
    return static_cast<MessageResult>(
        std::int32_t{object_.converted(button, VT_I4, u"Show").get().lVal});
  }

 private:
  DispatchObject object_;
};

template <class Adapter, class Interface>
std::shared_ptr<Interface> adapt(IDispatch* object, const HostInterface& wanted,
                                 TextView property) {
  if (object == nullptr) return nullptr;
  return std::make_shared<Adapter>(requireInterface(*object, wanted, property));
}

}  // namespace

std::shared_ptr<JetDatabase> makeJetDatabase(IDispatch* object) {
  return adapt<AutomationJetDatabase, JetDatabase>(object, host_interfaces::jetDatabase,
                                                   u"DBJetObject");
}

std::shared_ptr<MessageSender> makeMessageSender(IDispatch* object) {
  return adapt<AutomationMessageSender, MessageSender>(object, host_interfaces::messageSender,
                                                       u"MsgSndObject");
}

std::shared_ptr<ResourceStrings> makeResourceStrings(IDispatch* object) {
  return adapt<AutomationResourceStrings, ResourceStrings>(object, host_interfaces::resourceStrings,
                                                           u"ResourceObject");
}

std::shared_ptr<SettingsStore> makeSettingsStore(IDispatch* object) {
  return adapt<AutomationSettingsStore, SettingsStore>(object, host_interfaces::settingsStore,
                                                       u"SettingsObject");
}

std::shared_ptr<App> makeApp(IDispatch* object) {
  if (object == nullptr) return nullptr;
  return std::make_shared<AutomationApp>(DispatchObject(ComPtr<IDispatch>(object), u"App"));
}

IDispatch* automationObject(const SettingsStore& settings) {
  const auto* const adapter = dynamic_cast<const AutomationSettingsStore*>(&settings);
  return adapter == nullptr ? nullptr : adapter->object();
}

std::unique_ptr<HostMessageBox> makeHostMessageBox(ComPtr<IDispatch> object) {
  return std::make_unique<AutomationMessageBox>(
      DispatchObject(std::move(object), u"HostMessageBox"));
}

}  // namespace tillora::automation
