#include "ui/win32/metrics.h"

#include <gtest/gtest.h>

#include "tests/testing/win32/windows_desk.h"

namespace tillora::testing {
namespace {

using ui::win32::messageFont;
using ui::win32::Metrics;

TEST(MetricsTest, TwipsBecomePixelsOfTheScreen) {
  EXPECT_EQ(Metrics(96, messageFont()).toPixels(1440), 96);
  EXPECT_EQ(Metrics(144, messageFont()).toPixels(1440), 144);
  EXPECT_EQ(Metrics(96, messageFont()).twipsPerPixel(), (ui::Size{15, 15}));
  EXPECT_EQ(Metrics(144, messageFont()).twipsPerPixel(), (ui::Size{10, 10}));
  EXPECT_EQ(Metrics(144, messageFont()).toTwips(144), 1440);
}

TEST(MetricsTest, ControlsThatMeetInTwipsMeetInPixels) {
  for (const int dpi : {96, 120, 144, 168, 192}) {
    const Metrics metrics(dpi, messageFont());
    for (int left = 0; left < 400; left += 7) {
      const RECT first = metrics.toPixels(ui::Rect{left, left, 101, 53});
      const RECT second = metrics.toPixels(ui::Rect{left + 101, left + 53, 99, 77});
      EXPECT_EQ(first.right, second.left) << dpi << " " << left;
      EXPECT_EQ(first.bottom, second.top) << dpi << " " << left;
    }
  }
}

TEST(MetricsTest, TextIsAsWideAsItsCharacters) {
  const Metrics metrics(ui::win32::screenDpi(), messageFont());
  EXPECT_EQ(metrics.textWidth(u""), 0);
  EXPECT_GT(metrics.textWidth(u"Wide text"), metrics.textWidth(u"Wide"));
  EXPECT_GT(metrics.textWidth(u"&Apply"), metrics.textWidth(u"Apply"));
  EXPECT_GT(metrics.lineHeight(), 0);
  EXPECT_EQ(metrics.lineHeight() % metrics.twipsPerPixel().height, 0);
}

TEST(MetricsTest, TheTabClientAreaIsInsideTheStripAndKnownBeforeItsWindow) {
  WindowsDesk desk;
  ui::Form form(desk.screen(), u"Tabs");
  form.setClientSize({9000, 6000});
  auto& tabs = form.add<ui::TabStrip>();
  tabs.setBounds({150, 300, 7500, 4500});
  tabs.addTab(u"General");
  tabs.addTab(u"Lists");
  const ui::Rect before = tabs.clientArea();
  EXPECT_GT(before.left, 150);
  EXPECT_GT(before.top, 300 + desk.screen().lineHeight());
  EXPECT_LT(before.right(), 150 + 7500);
  EXPECT_LT(before.bottom(), 300 + 4500);
  desk.whenShown([&](ui::Form&) {
    const HWND strip = desk.windows().windowOf(tabs);
    RECT shown{0, 0, 500, 300};
    SendMessageW(strip, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&shown));
    EXPECT_EQ(before.left, (10 + shown.left) * 15);
    EXPECT_EQ(before.top, (20 + shown.top) * 15);
    EXPECT_EQ(before.width, (shown.right - shown.left) * 15);
    EXPECT_EQ(before.height, (shown.bottom - shown.top) * 15);
  });
  form.showModal();
}

}  // namespace
}  // namespace tillora::testing
