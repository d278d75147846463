#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "com/module.h"
#include "tests/testing/function_ref.h"
#include "tests/testing/win32/gallery.h"
#include "tests/testing/win32/windows_desk.h"
#include "ui/win32/raster.h"
#include "ui/win32/thread_windows.h"

// What only a real window shows: tool tips, masked texts, an arrow that is held down.
namespace tillora::testing {
namespace {

class RealControlsTest : public ::testing::Test {
 protected:
  void show(const FunctionRef<void()>& act) {
    desk.whenShown([&](ui::Form&) { act(); });
    gallery.showModal();
  }
  HWND window(const ui::Control& control) { return desk.windows().windowOf(control); }
  /// Processes messages until the condition holds, with patience for the platform's timers.
  bool soon(const FunctionRef<bool()>& isSo, ULONGLONG patience = 20000) {
    const ULONGLONG end = GetTickCount64() + patience;
    while (!isSo() && GetTickCount64() < end) {
      MsgWaitForMultipleObjects(0, nullptr, FALSE, 50, QS_ALLINPUT);
      desk.windows().pumpUntilIdle();
    }
    return isSo();
  }
  /// The tool tips of the form.
  HWND toolTips() {
    for (const HWND tips : ui::win32::threadWindows()) {
      wchar_t name[32] = L"";
      GetClassNameW(tips, name, 32);
      if (lstrcmpW(name, TOOLTIPS_CLASSW) == 0 && GetWindow(tips, GW_OWNER) == window(gallery)) {
        return tips;
      }
    }
    return nullptr;
  }
  std::wstring toolTipOf(const ui::Control& control) {
    wchar_t text[128] = L"";
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.hwnd = window(gallery);
    tool.uId = reinterpret_cast<UINT_PTR>(window(control));
    tool.lpszText = text;
    SendMessageW(toolTips(), TTM_GETTEXTW, std::size(text), reinterpret_cast<LPARAM>(&tool));
    return text;
  }
  /// Moves the pointer there, and once more whenever the condition does not hold within a second:
  /// an earlier move may arrive late, and a control that takes the pointer for gone stops what it
  /// does.
  bool hover(HWND control, POINT point, const FunctionRef<bool()>& until) {
    POINT onScreen = point;
    ClientToScreen(control, &onScreen);
    bool isSo = false;
    for (int i = 0; i < 20 && !isSo; ++i) {
      SetCursorPos(onScreen.x, onScreen.y);
      PostMessageW(control, WM_MOUSEMOVE, 0, MAKELPARAM(point.x, point.y));
      isSo = soon(until, 1000);
    }
    return isSo;
  }

  WindowsDesk desk;
  Gallery gallery{desk.screen()};
  User& user = desk.user();
};

TEST_F(RealControlsTest, AToolTipPopsUpUnderTheMouse) {
  show([&] {
    SendMessageW(window(gallery.name), WM_MOUSEMOVE, 0, 0);
    ASSERT_NE(toolTips(), nullptr);
    EXPECT_EQ(toolTipOf(gallery.name), L"A name of your choice");
    SendMessageW(toolTips(), TTM_SETDELAYTIME, TTDT_INITIAL, 1);
    EXPECT_FALSE(IsWindowVisible(toolTips()));
    EXPECT_TRUE(
        hover(window(gallery.name), {20, 8}, [&] { return IsWindowVisible(toolTips()) != FALSE; }));
  });
}

TEST_F(RealControlsTest, AToolTipFollowsItsControl) {
  show([&] {
    gallery.name.setToolTip(u"Before the mouse was moved");
    SendMessageW(window(gallery.name), WM_MOUSEMOVE, 0, 0);
    EXPECT_EQ(toolTipOf(gallery.name), L"Before the mouse was moved");
    gallery.name.setToolTip(u"Another && one");
    gallery.check.setToolTip(u"New");
    EXPECT_EQ(toolTipOf(gallery.name), L"Another && one");
    EXPECT_EQ(toolTipOf(gallery.check), L"New");
    EXPECT_EQ(SendMessageW(toolTips(), TTM_GETTOOLCOUNT, 0, 0), 2);
    gallery.check.setToolTip(u"");
    EXPECT_EQ(SendMessageW(toolTips(), TTM_GETTOOLCOUNT, 0, 0), 1);
  });
}

/// What the window shows, as pixels.
std::vector<std::uint32_t> pictureOf(HWND control) {
  RECT area{};
  GetClientRect(control, &area);
  const ui::win32::Raster raster(area.right, area.bottom);
  const ui::win32::MemoryDc dc(CreateCompatibleDC(nullptr));
  {
    const ui::win32::Selection selected(dc.get(), raster.bitmap());
    SendMessageW(control, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc.get()),
                 PRF_CLIENT | PRF_ERASEBKGND);
    GdiFlush();
  }
  return {raster.pixels().begin(), raster.pixels().end()};
}

TEST_F(RealControlsTest, AGroupBoxThatIsPaintedAsAWholeHasItsCaption) {
  show([&] {
    const std::vector<std::uint32_t> captioned = pictureOf(window(gallery.group));
    gallery.group.setCaption(u"Other");
    EXPECT_NE(pictureOf(window(gallery.group)), captioned);
  });
}

TEST_F(RealControlsTest, APasswordLooksLikeAsManyStars) {
  show([&] {
    const HWND secret = window(gallery.secret);
    EXPECT_EQ(SendMessageW(secret, EM_GETPASSWORDCHAR, 0, 0), L'*');
    EXPECT_TRUE(GetWindowLongPtrW(secret, GWL_STYLE) & ES_PASSWORD);
    // A plain box with the same room for its text and stars in it.
    RECT area{};
    GetClientRect(secret, &area);
    AdjustWindowRectEx(&area, WS_CHILD, FALSE, WS_EX_CLIENTEDGE);
    const ui::win32::Window stars(
        CreateWindowExW(WS_EX_CLIENTEDGE, WC_EDITW, L"******", WS_CHILD | ES_AUTOHSCROLL, 0, 0,
                        area.right - area.left, area.bottom - area.top, GetParent(secret), nullptr,
                        win32::thisModule(), nullptr));
    SendMessageW(stars.get(), WM_SETFONT,
                 static_cast<WPARAM>(SendMessageW(secret, WM_GETFONT, 0, 0)), FALSE);
    const auto shown = pictureOf(secret);
    EXPECT_EQ(shown, pictureOf(stars.get()));
    SetWindowTextW(stars.get(), L"*****");
    EXPECT_NE(shown, pictureOf(stars.get()));
    SetWindowTextW(stars.get(), L"secret");
    EXPECT_NE(shown, pictureOf(stars.get()));

    user.click(gallery.secret);
    user.selectAll();
    user.type(u"abc");
    user.click(gallery.name);
    SetWindowTextW(stars.get(), L"***");
    EXPECT_EQ(pictureOf(secret), pictureOf(stars.get()));
    EXPECT_EQ(gallery.secret.text(), u"abc");
  });
}

TEST_F(RealControlsTest, AnArrowOfAnUpDownThatIsHeldDownGoesOnStepByStep) {
  std::vector<int> values;
  gallery.upDown.change = [&] { values.push_back(gallery.upDown.value()); };
  show([&] {
    const HWND arrows = window(gallery.upDown);
    const POINT up{5, 3};
    PostMessageW(arrows, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(up.x, up.y));
    EXPECT_TRUE(hover(arrows, up, [&] { return values.size() >= 4; }));
    PostMessageW(arrows, WM_LBUTTONUP, 0, MAKELPARAM(up.x, up.y));
    EXPECT_TRUE(soon([&] { return GetCapture() != arrows; }));
  });
  ASSERT_GE(values.size(), 4U);
  for (std::size_t i = 0; i < values.size(); ++i) {
    EXPECT_EQ(values[i], static_cast<int>(i) + 1) << "one at a time";
  }
}

}  // namespace
}  // namespace tillora::testing
