#include "component/automation/message_boxes.h"

#include <gtest/gtest.h>

#include "component/automation/options_server.h"
#include "platform/platform_message_box.h"
#include "tests/component/automation/server_library.h"

namespace tillora::automation {
namespace {

HWND noOwner() { return nullptr; }

TEST(MessageBoxesTest, WithoutARegisteredClassThePlatformsBoxIsUsed) {
  const testing::Apartment apartment;
  const auto box = AutomationMessageBoxes(noOwner, u"TilloraTest.NoSuchClass").create();
  EXPECT_NE(dynamic_cast<win32::PlatformMessageBox*>(box.get()), nullptr);
}

TEST(MessageBoxesTest, ARegisteredClassIsCreatedAnewEachTime) {
  const testing::Apartment apartment;
  // Any class shows it; the component's own counts its objects, which this program makes itself.
  const auto factory = win32::ClassFactory::make(kOptionsServer.classes.front());
  DWORD registration = 0;
  ASSERT_EQ(CoRegisterClassObject(CLSID_Options, factory.get(), CLSCTX_INPROC_SERVER,
                                  REGCLS_MULTIPLEUSE, &registration),
            S_OK);
  const long before = win32::ModuleLock::count();
  AutomationMessageBoxes boxes(noOwner, u"TilloraOptions.Options");
  const auto first = boxes.create();
  const auto second = boxes.create();
  EXPECT_EQ(dynamic_cast<win32::PlatformMessageBox*>(first.get()), nullptr);
  EXPECT_EQ(win32::ModuleLock::count(), before + 2);
  CoRevokeClassObject(registration);
}

}  // namespace
}  // namespace tillora::automation
