#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

#include "com/module.h"
#include "tests/testing/function_ref.h"
#include "tests/testing/win32/gallery.h"
#include "tests/testing/win32/windows_desk.h"

namespace tillora::testing {
namespace {

using ui::Key;

BOOL CALLBACK count(HWND /*window*/, LPARAM counter) {
  ++*reinterpret_cast<int*>(counter);
  return TRUE;
}

int windowsOfThread() {
  int windows = 0;
  EnumThreadWindows(GetCurrentThreadId(), &count, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

class ModalityTest : public ::testing::Test {
 protected:
  void expectHostIsBack() {
    EXPECT_TRUE(IsWindowEnabled(desk.host()));
    EXPECT_EQ(GetActiveWindow(), desk.host());
    EXPECT_EQ(windowsOfThread(), before);
    EXPECT_EQ(desk.screen().pointer(), ui::Pointer::standard);
    EXPECT_EQ(desk.windows().topWindow(), nullptr);
  }
  /// Shows the gallery, in which the step makes a handler throw, and expects the failure back.
  void expectFailure(const FunctionRef<void()>& step) {
    desk.whenShown([&](ui::Form&) {
      desk.screen().setPointer(ui::Pointer::hourglass);
      step();
    });
    EXPECT_THROW(gallery.showModal(), std::runtime_error);
    EXPECT_FALSE(gallery.isShown());
    expectHostIsBack();
  }
  static void fail() { throw std::runtime_error("a handler failed"); }

  WindowsDesk desk;
  int before = windowsOfThread();
  Gallery gallery{desk.screen()};
  User& user = desk.user();
};

TEST_F(ModalityTest, TheOwnerIsDisabledMeanwhileAndActiveAfterwards) {
  desk.whenShown([&](ui::Form&) {
    const HWND dialog = desk.windows().topWindow();
    EXPECT_FALSE(IsWindowEnabled(desk.host()));
    EXPECT_EQ(GetWindow(dialog, GW_OWNER), desk.host());
    EXPECT_EQ(GetActiveWindow(), dialog);
  });
  gallery.showModal();
  expectHostIsBack();
}

TEST_F(ModalityTest, TheFocusReturnsToTheWindowThatHadIt) {
  const ui::win32::Window field(CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 10, 10, 100,
                                                20, desk.host(), nullptr, win32::thisModule(),
                                                nullptr));
  SetFocus(field.get());
  gallery.showModal();
  EXPECT_EQ(GetFocus(), field.get());
  EXPECT_EQ(desk.unexpectedForms(), 1);
}

TEST_F(ModalityTest, EveryOtherWindowOfTheThreadIsDisabledButOneThatWasStaysSo) {
  const auto make = [](DWORD style) {
    return ui::win32::Window(CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | style, 0, 0,
                                             99, 99, nullptr, nullptr, win32::thisModule(),
                                             nullptr));
  };
  const auto second = make(WS_VISIBLE);
  const auto disabled = make(WS_VISIBLE | WS_DISABLED);
  SetActiveWindow(desk.host());
  desk.whenShown([&](ui::Form&) { EXPECT_FALSE(IsWindowEnabled(second.get())); });
  gallery.showModal();
  EXPECT_TRUE(IsWindowEnabled(second.get()));
  EXPECT_FALSE(IsWindowEnabled(disabled.get()));
}

TEST_F(ModalityTest, ItIsCentredOnItsOwner) {
  desk.whenShown([&](ui::Form&) {
    RECT own{};
    RECT host{};
    GetWindowRect(desk.windows().topWindow(), &own);
    GetWindowRect(desk.host(), &host);
    EXPECT_NEAR(own.left + own.right, host.left + host.right, 2);
    EXPECT_NEAR(own.top + own.bottom, host.top + host.bottom, 2);
  });
  gallery.showModal();
}

TEST_F(ModalityTest, ItStaysOnTheScreenIfItsOwnerIsAtTheEdge) {
  SetWindowPos(desk.host(), nullptr, -850, -650, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  desk.whenShown([&](ui::Form&) {
    RECT own{};
    GetWindowRect(desk.windows().topWindow(), &own);
    EXPECT_EQ(own.left, 0);
    EXPECT_EQ(own.top, 0);
  });
  gallery.showModal();
}

TEST_F(ModalityTest, RunsNestToAnyDepth) {
  constexpr int kDepth = 5;
  std::vector<HWND> shown;
  std::function<void()> showAnother = [&] {
    Gallery inner(desk.screen());
    desk.whenShown([&](ui::Form& form) {
      shown.push_back(desk.windows().topWindow());
      if (shown.size() < kDepth) {
        inner.apply.click = showAnother;
        user.click(inner.name);
        user.click(inner.apply);
        EXPECT_TRUE(IsWindowEnabled(desk.windows().topWindow()));
        EXPECT_EQ(GetActiveWindow(), desk.windows().windowOf(form));
        EXPECT_EQ(GetFocus(), desk.windows().windowOf(inner.apply));
      }
    });
    inner.showModal();
  };
  showAnother();
  EXPECT_EQ(shown.size(), kDepth);
  expectHostIsBack();
}

TEST_F(ModalityTest, AFormThatIsHiddenInsideAHandlerIsOffTheScreenAtOnce) {
  gallery.apply.click = [&] {
    const HWND dialog = desk.windows().topWindow();
    EXPECT_TRUE(IsWindowVisible(dialog));
    gallery.hide();
    EXPECT_FALSE(IsWindowVisible(dialog));
    EXPECT_TRUE(IsWindowEnabled(desk.host()));
    EXPECT_EQ(GetActiveWindow(), desk.host());
  };
  desk.whenShown([&](ui::Form&) { user.click(gallery.apply); });
  gallery.showModal();
  expectHostIsBack();
}

TEST_F(ModalityTest, AFormThatWillNotCloseStays) {
  desk.whenShown([&](ui::Form& form) {
    gallery.stays = true;
    user.closeWindow(form);
    EXPECT_TRUE(gallery.isShown());
    gallery.stays = false;
    user.press(Key::f4, {.alt = true});
    EXPECT_FALSE(gallery.isShown());
  });
  gallery.showModal();
  expectHostIsBack();
}

TEST_F(ModalityTest, F1RaisesHelpWhateverHasTheFocus) {
  int raised = 0;
  gallery.help = [&] { ++raised; };
  desk.whenShown([&](ui::Form&) {
    for (ui::Control* control :
         {static_cast<ui::Control*>(&gallery.name), static_cast<ui::Control*>(&gallery.second),
          static_cast<ui::Control*>(&gallery.apply)}) {
      user.click(*control);
      user.press(Key::f1, {});
    }
  });
  gallery.showModal();
  EXPECT_EQ(raised, 3);
}

TEST_F(ModalityTest, TheProgramsEndUnloadsTheForm) {
  // The desk would close the form; the message is to do it.
  desk.windows().modalShown = [](ui::Form&) { PostQuitMessage(7); };
  gallery.showModal();
  EXPECT_FALSE(gallery.isLoaded());
  MSG message{};
  ASSERT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
  EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
  EXPECT_EQ(message.wParam, 7U);
  expectHostIsBack();
}

TEST_F(ModalityTest, TheProgramsEndEndsAFormThatWillNotClose) {
  gallery.stays = true;
  desk.windows().modalShown = [](ui::Form&) { PostQuitMessage(0); };
  gallery.showModal();
  EXPECT_FALSE(gallery.isShown());
  MSG message{};
  EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

TEST_F(ModalityTest, AFailureInAClickIsThrownToTheCaller) {
  gallery.apply.click = &fail;
  expectFailure([&] { user.click(gallery.apply); });
}

TEST_F(ModalityTest, AFailureInAKeyHandlerIsThrownToTheCaller) {
  gallery.name.keyPress = [](char16_t&) { fail(); };
  expectFailure([&] {
    user.click(gallery.name);
    user.type(u"a");
  });
}

TEST_F(ModalityTest, AFailureInAnEditIsThrownToTheCaller) {
  gallery.name.change = &fail;
  expectFailure([&] {
    user.click(gallery.name);
    user.type(u"a");
  });
}

TEST_F(ModalityTest, AFailureWhenTheTabIsSwitchedIsThrownToTheCaller) {
  gallery.tabs.click = &fail;
  expectFailure([&] { user.clickTab(gallery.tabs, 2); });
}

TEST_F(ModalityTest, AFailureInAValidationIsThrownToTheCaller) {
  gallery.name.validate = [](bool&) { fail(); };
  expectFailure([&] {
    user.click(gallery.name);
    user.press(Key::tab, {});
  });
}

TEST_F(ModalityTest, AFailureInADoubleClickIsThrownToTheCaller) {
  gallery.list.doubleClick = &fail;
  expectFailure([&] {
    user.clickTab(gallery.tabs, 2);
    user.doubleClickRow(gallery.list, 1);
  });
}

TEST_F(ModalityTest, AFailureInANestedFormEndsAllOfThem) {
  Gallery inner(desk.screen());
  inner.apply.click = &fail;
  gallery.apply.click = [&] { inner.showModal(); };
  expectFailure([&] {
    desk.whenShown([&](ui::Form&) { user.click(inner.apply); });
    user.click(gallery.apply);
  });
  EXPECT_FALSE(inner.isShown());
}

TEST_F(ModalityTest, AFailureThatIsCaughtOutsideANestedFormLeavesTheOuterOneUsable) {
  Gallery inner(desk.screen());
  inner.apply.click = &fail;
  gallery.apply.click = [&] { EXPECT_THROW(inner.showModal(), std::runtime_error); };
  desk.whenShown([&](ui::Form&) {
    desk.whenShown([&](ui::Form&) { user.click(inner.apply); });
    user.click(gallery.apply);
    EXPECT_TRUE(gallery.isShown());
    user.click(gallery.name);
    user.type(u"on");
    EXPECT_EQ(gallery.name.text(), u"on");
  });
  gallery.showModal();
  expectHostIsBack();
}

TEST_F(ModalityTest, NoWindowIsLeftOverBySeveralRuns) {
  for (int i = 0; i < 20; ++i) {
    desk.whenShown([&](ui::Form&) { user.clickTab(gallery.tabs, 2); });
    gallery.showModal();
    gallery.tabs.setSelected(1);
  }
  expectHostIsBack();
  // The count does see a window that is left over.
  const ui::win32::Window left(CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 9, 9, nullptr,
                                               nullptr, win32::thisModule(), nullptr));
  EXPECT_EQ(windowsOfThread(), before + 1);
}

TEST_F(ModalityTest, TheHourglassIsShownOverAllWindowsUntilItIsTakenBack) {
  desk.whenShown([&](ui::Form&) {
    const HWND dialog = desk.windows().topWindow();
    const HWND field = desk.windows().windowOf(gallery.name);
    desk.screen().setPointer(ui::Pointer::hourglass);
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_WAIT));
    SetCursor(nullptr);
    for (const HWND window : {dialog, field}) {
      SendMessageW(window, WM_SETCURSOR, reinterpret_cast<WPARAM>(window),
                   MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
      EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_WAIT));
    }
    desk.screen().setPointer(ui::Pointer::standard);
    SendMessageW(field, WM_SETCURSOR, reinterpret_cast<WPARAM>(field),
                 MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_IBEAM));
  });
  gallery.showModal();
}

}  // namespace
}  // namespace tillora::testing
