#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <optional>

#include "component/automation/dispatch_object.h"
#include "component/automation/options_object.h"
#include "component/frmOptions.h"
#include "tests/component/automation/automation_host.h"
#include "tests/component/automation/event_listener.h"
#include "tests/testing/fake_machine.h"
#include "tests/testing/function_ref.h"
#include "tests/testing/headless_desk.h"

namespace tillora::automation {

/// An Options object as a client sees it, with a host in memory behind automation objects and a
/// dialog without windows.
class OptionsObjectTest : public ::testing::Test {
 protected:
  OptionsObjectTest()
      : object(win32::ComPtr<OptionsObject>::adopt(
            new OptionsObject(std::make_unique<DeskServices>(*this)))),
        client(std::in_place, win32::ComPtr<IDispatch>(object.get()), u"Options") {}

  void giveHost() {
    object->putref_DBJetObject(automationHost.database.get());
    object->putref_AppObject(automationHost.app.get());
    object->putref_MsgSndObject(automationHost.sender.get());
    object->putref_ResourceObject(automationHost.strings.get());
    object->putref_SettingsObject(automationHost.settings.get());
  }
  /// What the person does while the next dialog is open.
  void whileOpen(std::function<void(frmOptions&)> act) {
    desk.whenShown(
        [act = std::move(act)](ui::Form& form) { act(dynamic_cast<frmOptions&>(form)); });
  }
  /// Changes the first box of the first tab, the name of the business.
  void rename(frmOptions& dialog, const Text& name) {
    desk.user().click(dialog.tabs().companyDetails.txtCompanyDetails[0]);
    desk.user().selectAll();
    desk.user().type(name);
  }

  /// Number, source and description of the failure that a late-bound call raises.
  Error failureOf(const testing::FunctionRef<void()>& action) {
    try {
      action();
    } catch (const Error& error) {
      return error;
    }
    ADD_FAILURE() << "nothing was raised";
    return {0, u"", u""};
  }

  testing::FakeHost host;
  testing::AutomationHost automationHost{host};
  testing::HeadlessDesk desk;
  testing::ScriptedMessageBoxes boxes{desk.screen()};
  testing::FakeMachine machine;
  long locksBefore = win32::ModuleLock::count();
  win32::ComPtr<OptionsObject> object;
  /// The same object, called by names.
  std::optional<DispatchObject> client;

 private:
  class DeskServices final : public Services {
   public:
    explicit DeskServices(OptionsObjectTest& test) : test_(test) {}
    Platform platform() override {
      return test_.machine.platform(test_.desk.screen(), test_.boxes);
    }

   private:
    OptionsObjectTest& test_;
  };
};

}  // namespace tillora::automation
