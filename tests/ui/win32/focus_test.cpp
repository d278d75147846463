#include <gtest/gtest.h>

#include <future>
#include <thread>

#include "com/module.h"
#include "tests/testing/function_ref.h"
#include "tests/testing/win32/gallery.h"
#include "tests/testing/win32/windows_desk.h"

namespace tillora::testing {
namespace {

using ui::Key;

class FocusTest : public ::testing::Test {
 protected:
  /// Shows the gallery and runs the step in it.
  void show(const FunctionRef<void()>& step) {
    desk.whenShown([&](ui::Form&) { step(); });
    gallery.showModal();
    EXPECT_EQ(desk.unusedSteps(), 0);
    EXPECT_EQ(desk.unexpectedForms(), 0);
  }
  /// The form's focus and the platform's are the same.
  void expectFocus(const ui::Control& control) {
    EXPECT_EQ(gallery.activeControl(), &control);
    EXPECT_EQ(GetFocus(), desk.windows().windowOf(control));
  }
  /// The name is refused from now on; counts how often it is asked.
  void refuseName() {
    gallery.name.validate = [this](bool& cancel) {
      ++validations;
      cancel = true;
    };
  }
  void countFocusEvents() {
    gallery.name.gotFocus = [this] { ++focusEvents; };
    gallery.name.lostFocus = [this] { ++focusEvents; };
  }

  WindowsDesk desk;
  Gallery gallery{desk.screen()};
  User& user = desk.user();
  int validations = 0;
  int focusEvents = 0;
};

TEST_F(FocusTest, IsOnTheFirstControlAtTheStart) {
  show([&] { expectFocus(gallery.tabs); });
}

TEST_F(FocusTest, StartsWhereItWasSetBeforeTheFormWasShown) {
  gallery.notes.setFocus();
  show([&] { expectFocus(gallery.notes); });
}

TEST_F(FocusTest, TabWalksTheControlsInOrderAndRound) {
  show([&] {
    for (ui::Control* next :
         {static_cast<ui::Control*>(&gallery.name), static_cast<ui::Control*>(&gallery.notes),
          static_cast<ui::Control*>(&gallery.secret), static_cast<ui::Control*>(&gallery.check),
          static_cast<ui::Control*>(&gallery.first), static_cast<ui::Control*>(&gallery.combo),
          static_cast<ui::Control*>(&gallery.amount), static_cast<ui::Control*>(&gallery.ok),
          static_cast<ui::Control*>(&gallery.cancel), static_cast<ui::Control*>(&gallery.apply),
          static_cast<ui::Control*>(&gallery.tabs)}) {
      user.press(Key::tab, {});
      expectFocus(*next);
    }
    user.press(Key::tab, {.shift = true});
    expectFocus(gallery.apply);
  });
}

TEST_F(FocusTest, FollowsTheMouseIntoEveryKind) {
  show([&] {
    for (ui::Control* control :
         {static_cast<ui::Control*>(&gallery.name), static_cast<ui::Control*>(&gallery.notes),
          static_cast<ui::Control*>(&gallery.check), static_cast<ui::Control*>(&gallery.second),
          static_cast<ui::Control*>(&gallery.apply)}) {
      user.click(*control);
      expectFocus(*control);
    }
    user.clickTab(gallery.tabs, 2);
    user.clickRow(gallery.list, 1);
    expectFocus(gallery.list);
    user.clickCheck(gallery.checks, 1);
    expectFocus(gallery.checks);
  });
}

TEST_F(FocusTest, AnAccessKeyMovesItAndUsesTheControl) {
  show([&] {
    user.accessKey(u'n');
    expectFocus(gallery.name);
    user.accessKey(u't');
    expectFocus(gallery.check);
    EXPECT_TRUE(gallery.check.value());
    user.accessKey(u's');
    expectFocus(gallery.second);
    EXPECT_TRUE(gallery.second.value());
    EXPECT_FALSE(gallery.first.value());
  });
}

TEST_F(FocusTest, ADisabledControlCannotBeReached) {
  gallery.name.setEnabled(false);
  gallery.check.setEnabled(false);
  show([&] {
    user.click(gallery.name);
    user.click(gallery.check);
    user.accessKey(u't');
    EXPECT_FALSE(gallery.check.value());
    EXPECT_NE(gallery.activeControl(), &gallery.name);
    user.type(u"x");
    EXPECT_EQ(gallery.name.text(), u"");
  });
}

TEST_F(FocusTest, LeavesAControlThatIsDisabledWhileItHasIt) {
  show([&] {
    user.click(gallery.apply);
    gallery.apply.setEnabled(false);
    EXPECT_NE(gallery.activeControl(), &gallery.apply);
    ASSERT_NE(gallery.activeControl(), nullptr);
    expectFocus(*gallery.activeControl());
  });
}

TEST_F(FocusTest, ARefusedControlKeepsItWhateverTheUserTries) {
  show([&] {
    user.click(gallery.name);
    refuseName();
    user.press(Key::tab, {});
    expectFocus(gallery.name);
    user.click(gallery.notes);
    expectFocus(gallery.name);
    user.click(gallery.check);
    EXPECT_FALSE(gallery.check.value());
    user.clickTab(gallery.tabs, 2);
    EXPECT_EQ(gallery.tabs.selected(), 1);
    EXPECT_TRUE(gallery.firstPage.visible());
    user.press(Key::enter, {});
    user.click(gallery.ok);
    user.accessKey(u't');
    expectFocus(gallery.name);
    EXPECT_TRUE(gallery.isShown());
    EXPECT_EQ(validations, 7);
  });
}

TEST_F(FocusTest, CancelAndTheCloseBoxDoNotValidate) {
  show([&] {
    user.click(gallery.name);
    refuseName();
    user.click(gallery.cancel);
    EXPECT_FALSE(gallery.isShown());
    EXPECT_EQ(validations, 0);
  });
}

TEST_F(FocusTest, EscDoesNotValidate) {
  show([&] {
    user.click(gallery.name);
    refuseName();
    user.press(Key::escape, {});
    EXPECT_FALSE(gallery.isShown());
    EXPECT_EQ(validations, 0);
  });
}

TEST_F(FocusTest, AnArrowOfAnUpDownValidatesWithoutTakingIt) {
  show([&] {
    user.click(gallery.name);
    refuseName();
    user.spin(gallery.upDown, 1);
    EXPECT_EQ(validations, 1);
    EXPECT_EQ(gallery.upDown.value(), 0);
    gallery.name.validate = nullptr;
    user.spin(gallery.upDown, 1);
    user.spin(gallery.upDown, 1);
    user.spin(gallery.upDown, -1);
    EXPECT_EQ(gallery.upDown.value(), 1);
    expectFocus(gallery.name);
  });
}

TEST_F(FocusTest, PutElsewhereByAnotherToolItIsTakenOver) {
  show([&] {
    user.click(gallery.name);
    SetFocus(desk.windows().windowOf(gallery.notes));
    desk.windows().pumpUntilIdle();
    expectFocus(gallery.notes);
  });
}

TEST_F(FocusTest, PutElsewhereByAnotherToolItIsStillValidated) {
  show([&] {
    user.click(gallery.name);
    refuseName();
    SetFocus(desk.windows().windowOf(gallery.notes));
    desk.windows().pumpUntilIdle();
    EXPECT_EQ(validations, 1);
    expectFocus(gallery.name);
  });
}

TEST_F(FocusTest, SwitchingToAnotherProgramAndBackRaisesNothing) {
  show([&] {
    user.click(gallery.name);
    refuseName();
    countFocusEvents();
    // A window of another thread is another program to this one.
    std::promise<void> switched;
    std::promise<void> finished;
    std::thread other([&] {
      const ui::win32::Window window(
          CreateWindowExW(0, L"STATIC", L"Other", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 200, 100,
                          nullptr, nullptr, win32::thisModule(), nullptr));
      SetForegroundWindow(window.get());
      switched.set_value();
      finished.get_future().wait();
    });
    switched.get_future().wait();
    desk.windows().pumpUntilIdle();
    EXPECT_EQ(GetActiveWindow(), nullptr);
    SetForegroundWindow(desk.windows().topWindow());
    desk.windows().pumpUntilIdle();
    finished.set_value();
    other.join();
    expectFocus(gallery.name);
    EXPECT_EQ(validations, 0);
    EXPECT_EQ(focusEvents, 0);
  });
}

TEST_F(FocusTest, AFocusedButtonLooksLikeTheDefault) {
  const auto looksDefault = [&](const ui::CommandButton& button) {
    const auto style = GetWindowLongPtrW(desk.windows().windowOf(button), GWL_STYLE);
    return (style & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
  };
  const auto defaultId = [&] {
    return SendMessageW(desk.windows().topWindow(), DM_GETDEFID, 0, 0);
  };
  show([&] {
    EXPECT_TRUE(looksDefault(gallery.ok));
    user.click(gallery.apply);
    EXPECT_TRUE(looksDefault(gallery.apply));
    EXPECT_FALSE(looksDefault(gallery.ok));
    user.click(gallery.name);
    EXPECT_TRUE(looksDefault(gallery.ok));
    EXPECT_EQ(defaultId(),
              MAKELRESULT(GetDlgCtrlID(desk.windows().windowOf(gallery.ok)), DC_HASDEFID));
    gallery.ok.setDefault(false);
    EXPECT_FALSE(looksDefault(gallery.ok));
    EXPECT_EQ(defaultId(), 0);
  });
}

}  // namespace
}  // namespace tillora::testing
