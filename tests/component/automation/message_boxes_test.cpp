#include "component/automation/message_boxes.h"

#include <gtest/gtest.h>

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
  const testing::ServerLibrary server;
  // Any registered class shows it; the component's own counts its objects.
  AutomationMessageBoxes boxes(noOwner, u"TilloraOptions.Options");
  const auto first = boxes.create();
  const auto second = boxes.create();
  EXPECT_EQ(dynamic_cast<win32::PlatformMessageBox*>(first.get()), nullptr);
  EXPECT_EQ(server.liveObjects(), 2);
}

}  // namespace
}  // namespace tillora::automation
