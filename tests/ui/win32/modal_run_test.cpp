#include "ui/win32/modal_run.h"
#include "tests/testing/function_ref.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <thread>
#include <vector>

#include "com/module.h"
#include "platform/platform_message_box.h"
#include "tests/testing/win32/gallery.h"
#include "tests/testing/win32/loop_watchdog.h"
#include "tests/testing/win32/windows_desk.h"
#include "ui/win32/dpi_context.h"
#include "ui/win32/thread_windows.h"

// How a modal run ends and what may happen while it lasts, in its own message loop.
namespace tillora::testing {
namespace {

constexpr UINT kAsked = WM_APP + 7;
constexpr const wchar_t* kBoxTitle = L"A message over the form";

/// A window of the host program, with the messages that it gets.
class HostWindow {
 public:
  using Handler = std::function<void(UINT message, WPARAM wParam, LPARAM lParam)>;

  explicit HostWindow(DWORD style = WS_OVERLAPPEDWINDOW | WS_VISIBLE)
      : window_(CreateWindowExW(0, L"STATIC", L"Another window of the host", style, 60, 60, 400,
                                300, nullptr, nullptr, win32::thisModule(), nullptr)) {
    SetWindowSubclass(window_.get(), &procedure, 1, reinterpret_cast<DWORD_PTR>(this));
  }
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;
  ~HostWindow() { destroy(); }

  HWND get() const { return window_.get(); }
  void destroy() { window_.reset(); }

  Handler handler;

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                    UINT_PTR /*id*/, DWORD_PTR data) {
    auto& host = *reinterpret_cast<HostWindow*>(data);
    const Handler handler = host.handler;
    if (handler) handler(message, wParam, lParam);
    if (message == WM_NCDESTROY) RemoveWindowSubclass(window, &procedure, 1);
    return DefSubclassProc(window, message, wParam, lParam);
  }

  ui::win32::Window window_;
};

/// A form with a box and a button that opens what comes next.
class Level final : public ui::Form {
 public:
  explicit Level(ui::Screen& screen) : Form(screen, u"Level") {
    setClientSize({3000, 1500});
    box.setBounds({120, 120, 2000, 345});
    next.setBounds({120, 600, 1200, 375});
    list.addItem(u"One");
    list.addItem(u"Two");
    list.setBounds({120, 1050, 2000, 345});
  }

  ui::TextBox& box{add<ui::TextBox>()};
  ui::CommandButton& next{add<ui::CommandButton>(u"&Next")};
  ui::ComboBox& list{add<ui::ComboBox>()};
  std::vector<ui::UnloadMode> unloads;

 protected:
  void onQueryUnload(bool& /*cancel*/, ui::UnloadMode mode) override { unloads.push_back(mode); }
};

/// What a host does to let messages pass in one of its calls.
void letMessagesPass() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

class ModalRunTest : public ::testing::Test {
 protected:
  ModalRunTest() {
    SetForegroundWindow(owner.get());
    SetActiveWindow(owner.get());
  }

  /// Opens this many forms, each from a handler of the one below; acts when the last one is shown.
  void open(int depth, const FunctionRef<void()>& act) {
    for (int i = 0; i < depth; ++i) levels.push_back(std::make_unique<Level>(screen));
    for (int i = 0; i + 1 < depth; ++i) {
      level(i).next.click = [this, i] {
        level(i + 1).showModal();
        if (nextEnded) nextEnded(level(i));
      };
    }
    int shown = 0;
    screen.modalShown = [&](ui::Form&) {
      if (++shown < depth) {
        pressNext(shown - 1);
      } else {
        act();
      }
    };
    const LoopWatchdog watchdog;
    level(0).showModal();
    EXPECT_EQ(shown, depth);
  }
  static void closeByUser(HWND form) { PostMessageW(form, WM_CLOSE, 0, 0); }
  Level& level(int i) { return *levels.at(static_cast<std::size_t>(i)); }
  HWND window(const ui::Control& control) const { return screen.windowOf(control); }
  /// The button is clicked when the form waits for the user.
  void pressNext(int i) {
    const HWND button = window(level(i).next);
    PostMessageW(window(level(i)), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(button), BN_CLICKED),
                 reinterpret_cast<LPARAM>(button));
  }
  /// The last form's button shows a message box of the platform; its answer is kept.
  void showBox(UINT style) {
    levels.back()->next.click = [this, style] {
      win32::PlatformMessageBox box(screen.topWindow());
      answer = box.show(u"A message", static_cast<std::int32_t>(style),
                        reinterpret_cast<const char16_t*>(kBoxTitle), {});
    };
    pressNext(static_cast<int>(levels.size()) - 1);
  }
  static HWND shownBox() {
    const HWND box = FindWindowExW(nullptr, nullptr, L"#32770", kBoxTitle);
    return box && IsWindowVisible(box) ? box : nullptr;
  }
  void expectAllEnded() {
    for (const auto& form : levels) {
      EXPECT_FALSE(form->isShown());
      EXPECT_FALSE(form->isLoaded());
      EXPECT_EQ(form->unloads, std::vector<ui::UnloadMode>{ui::UnloadMode::system});
    }
    expectHostIsBack();
  }
  void expectHostIsBack() {
    EXPECT_TRUE(IsWindowEnabled(desk.host()));
    EXPECT_EQ(screen.topWindow(), nullptr);
    EXPECT_TRUE(screen.canShow());
    EXPECT_EQ(screen.pointer(), ui::Pointer::standard);
    for (const HWND left : ui::win32::threadWindows()) {
      wchar_t text[32] = L"";
      GetWindowTextW(left, text, 32);
      EXPECT_STRNE(text, L"Level");
      EXPECT_STRNE(text, kBoxTitle);
    }
  }

  WindowsDesk desk;
  DrivenScreen& screen = desk.windows();
  HostWindow owner;
  std::vector<std::unique_ptr<Level>> levels;
  /// Called inside the handler of a form that opened another, when that one has ended.
  std::function<void(Level&)> nextEnded;
  std::optional<MessageResult> answer;
};

enum class Way { timer, postedMessage, otherThread };

/// The owner ends, in whichever way: with this depth of forms, and a message box over the last one.
class OwnersEndTest : public ModalRunTest,
                      public ::testing::WithParamInterface<std::tuple<Way, int, bool>> {
 protected:
  void destroyOwner(Way way, bool withBox) {
    owner.handler = [this, withBox](UINT message, WPARAM wParam, LPARAM) {
      if (message != kAsked && (message != WM_TIMER || wParam != 7)) return;
      if (withBox && !shownBox()) {
        // Once more, until it is there.
        if (message == kAsked) PostMessageW(owner.get(), kAsked, 0, 0);
        return;
      }
      owner.destroy();
    };
    switch (way) {
      case Way::timer:
        SetTimer(owner.get(), 7, 1, nullptr);
        break;
      case Way::postedMessage:
        PostMessageW(owner.get(), kAsked, 0, 0);
        break;
      case Way::otherThread:
        other = std::thread([this, withBox] {
          while (withBox && !shownBox()) Sleep(1);
          SendMessageW(owner.get(), kAsked, 0, 0);
        });
        break;
    }
  }

  std::thread other;
};

TEST_P(OwnersEndTest, EndsEveryFormAsACloseDoes) {
  const auto [way, depth, withBox] = GetParam();
  open(depth, [&, way = way, withBox = withBox] {
    EXPECT_FALSE(IsWindowEnabled(desk.host()));
    if (withBox) showBox(MB_OK);
    destroyOwner(way, withBox);
  });
  if (other.joinable()) other.join();
  EXPECT_EQ(answer, withBox ? std::optional(MessageResult::cancel) : std::nullopt);
  expectAllEnded();
}

INSTANTIATE_TEST_SUITE_P(EachWay, OwnersEndTest,
                         ::testing::Combine(::testing::Values(Way::timer, Way::postedMessage,
                                                              Way::otherThread),
                                            ::testing::Values(1, 2, 3), ::testing::Bool()));

TEST_F(ModalRunTest, AnOwnerThatEndsBeforeTheFirstMessageIsWaitedForEndsTheForm) {
  open(1, [&] { owner.destroy(); });
  expectAllEnded();
}

TEST_F(ModalRunTest, AnOwnerThatEndsInsideAHandlerEndsTheFormWhenTheHandlerReturns) {
  open(1, [&] {
    level(0).next.click = [&] {
      owner.destroy();
      EXPECT_FALSE(level(0).isShown());
      EXPECT_TRUE(level(0).isLoaded());
      EXPECT_TRUE(IsWindowEnabled(desk.host()));
      level(0).box.setText(u"still harmless");
      level(0).box.setEnabled(false);
      level(0).setCaption(u"Level");
    };
    pressNext(0);
  });
  expectAllEnded();
}

TEST_F(ModalRunTest, NothingIsShownOverAFormWhoseWindowIsGone) {
  Level second(screen);
  open(1, [&] {
    level(0).next.click = [&] {
      EXPECT_TRUE(screen.canShow());
      owner.destroy();
      EXPECT_FALSE(screen.canShow());
      EXPECT_EQ(screen.topWindow(), nullptr);
      second.showModal();
    };
    pressNext(0);
  });
  EXPECT_EQ(second.unloads, std::vector<ui::UnloadMode>{ui::UnloadMode::system});
  expectAllEnded();
}

TEST_F(ModalRunTest, AFormWhoseWindowAloneIsDestroyedEndsAndTheOneBelowGoesOn) {
  nextEnded = [&](Level& below) {
    EXPECT_TRUE(screen.canShow());
    EXPECT_TRUE(below.isShown());
    EXPECT_TRUE(IsWindowEnabled(window(below)));
    EXPECT_EQ(GetActiveWindow(), window(below));
    closeByUser(window(below));
  };
  open(2, [&] {
    owner.handler = [&](UINT message, WPARAM, LPARAM) {
      if (message == kAsked) DestroyWindow(window(level(1)));
    };
    PostMessageW(owner.get(), kAsked, 0, 0);
  });
  EXPECT_EQ(level(1).unloads, std::vector<ui::UnloadMode>{ui::UnloadMode::system});
  EXPECT_EQ(level(0).unloads, std::vector<ui::UnloadMode>{ui::UnloadMode::user});
  expectHostIsBack();
}

TEST_F(ModalRunTest, TheProgramsEndEndsEveryFormAndIsPassedOn) {
  open(3, [] { PostQuitMessage(3); });
  MSG message{};
  EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
  expectAllEnded();
}

TEST_F(ModalRunTest, ASessionEndThatIsOnlyQueriedLeavesTheForms) {
  nextEnded = [&](Level& below) { closeByUser(window(below)); };
  open(2, [&] {
    for (const HWND form : {window(level(0)), window(level(1))}) {
      EXPECT_TRUE(SendMessageW(form, WM_QUERYENDSESSION, 0, 0));
      SendMessageW(form, WM_ENDSESSION, FALSE, 0);
    }
    EXPECT_TRUE(level(0).isShown());
    EXPECT_TRUE(level(1).isShown());
    closeByUser(window(level(1)));
  });
}

TEST_F(ModalRunTest, TheSessionsEndEndsEveryFormAndTheBoxOverThem) {
  for (const bool withBox : {false, true}) {
    for (const int told : {0, 2}) {
      levels.clear();
      answer.reset();
      std::thread system;
      open(3, [&] {
        if (withBox) showBox(MB_YESNO);
        // As the system does it: one window after the other, from outside.
        system = std::thread([&, form = window(level(told))] {
          while (withBox && !shownBox()) Sleep(1);
          EXPECT_TRUE(SendMessageW(form, WM_QUERYENDSESSION, 0, 0));
          SendMessageW(form, WM_ENDSESSION, TRUE, 0);
        });
      });
      system.join();
      EXPECT_EQ(answer, withBox ? std::optional(MessageResult::cancel) : std::nullopt);
      expectAllEnded();
      EXPECT_TRUE(IsWindowEnabled(owner.get()));
    }
  }
}

TEST_F(ModalRunTest, ACloseOfALowerFormIsAnsweredByTheTopmost) {
  struct Close {
    UINT message;
    WPARAM wParam;
  };
  for (const Close close :
       {Close{WM_CLOSE, 0}, Close{WM_COMMAND, IDCANCEL}, Close{WM_SYSCOMMAND, SC_CLOSE}}) {
    levels.clear();
    int ended = 0;
    nextEnded = [&](Level& below) {
      ++ended;
      EXPECT_TRUE(below.isShown());
      EXPECT_TRUE(level(0).isShown());
      PostMessageW(window(level(0)), close.message, close.wParam, 0);
    };
    open(3, [&] { PostMessageW(window(level(0)), close.message, close.wParam, 0); });
    EXPECT_EQ(ended, 2);
    for (const auto& form : levels) {
      EXPECT_EQ(form->unloads, std::vector<ui::UnloadMode>{ui::UnloadMode::user});
    }
    expectHostIsBack();
  }
}

TEST_F(ModalRunTest, ACloseOfAFormUnderAMessageBoxIsAnsweredByTheBox) {
  int answered = 0;
  open(2, [&] {
    levels.back()->next.click = [&] {
      win32::PlatformMessageBox box(screen.topWindow());
      for (const HWND form : {window(level(1)), window(level(0))}) {
        closeByUser(form);
        box.show(u"A message", MB_OK, u"Title", {});
        ++answered;
        EXPECT_TRUE(level(1).isShown());
        EXPECT_TRUE(level(0).isShown());
      }
      owner.destroy();
    };
    pressNext(1);
  });
  EXPECT_EQ(answered, 2);
  expectAllEnded();
}

TEST_F(ModalRunTest, MessagesToALowerFormDoNothing) {
  open(2, [&] {
    const HWND button = window(level(0).next);
    int pressed = 0;
    level(0).next.click = [&] { ++pressed; };
    SendMessageW(button, BM_CLICK, 0, 0);
    SendMessageW(window(level(0).box), WM_CHAR, L'x', 1);
    EXPECT_EQ(pressed, 0);
    EXPECT_EQ(level(0).box.text(), u"");
    owner.destroy();
  });
}

TEST_F(ModalRunTest, HiddenWindowsAreDisabledTooAndCannotBeUsedWhenTheyAreShownMeanwhile) {
  HostWindow hidden(WS_OVERLAPPEDWINDOW);
  HostWindow disabled(WS_OVERLAPPEDWINDOW | WS_DISABLED);
  nextEnded = [&](Level& below) {
    EXPECT_FALSE(IsWindowEnabled(hidden.get()));
    closeByUser(window(below));
  };
  open(2, [&] {
    EXPECT_FALSE(IsWindowEnabled(hidden.get()));
    ShowWindow(hidden.get(), SW_SHOWNA);
    EXPECT_FALSE(IsWindowEnabled(hidden.get()));
    closeByUser(window(level(1)));
  });
  EXPECT_TRUE(IsWindowEnabled(hidden.get()));
  EXPECT_FALSE(IsWindowEnabled(disabled.get()));
  EXPECT_TRUE(IsWindowEnabled(owner.get()));
}

TEST_F(ModalRunTest, WindowsOfTheFormAndThoseThatTheHostMakesMeanwhileStayUsable) {
  open(1, [&] {
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    ASSERT_TRUE(GetComboBoxInfo(window(level(0).list), &info));
    EXPECT_TRUE(IsWindowEnabled(info.hwndList));
    const HostWindow made;
    EXPECT_TRUE(IsWindowEnabled(made.get()));
    closeByUser(window(level(0)));
  });
}

TEST_F(ModalRunTest, TheOwnerHearsEachTimeThatNothingIsLeftToDo) {
  std::vector<HWND> idle;
  open(1, [&] {
    owner.handler = [&](UINT message, WPARAM wParam, LPARAM lParam) {
      if (message != WM_ENTERIDLE) return;
      EXPECT_EQ(wParam, static_cast<WPARAM>(MSGF_DIALOGBOX));
      idle.push_back(reinterpret_cast<HWND>(lParam));
      PostMessageW(idle.back(), idle.size() < 3 ? WM_NULL : WM_CLOSE, 0, 0);
    };
    idle.clear();
    EXPECT_NE(window(level(0)), nullptr);
  });
  ASSERT_EQ(idle.size(), 3U);
}

TEST_F(ModalRunTest, TheOwnerHearsOfTheIdlenessOfAFormOverAnother) {
  HWND over = nullptr;
  HWND told = nullptr;
  open(2, [&] {
    over = window(level(1));
    owner.handler = [&](UINT message, WPARAM, LPARAM lParam) {
      if (message != WM_ENTERIDLE || told) return;
      told = reinterpret_cast<HWND>(lParam);
      PostMessageW(owner.get(), kAsked, 0, 0);
      owner.handler = [&](UINT asked, WPARAM, LPARAM) {
        if (asked == kAsked) owner.destroy();
      };
    };
  });
  EXPECT_EQ(told, over);
  expectAllEnded();
}

TEST_F(ModalRunTest, AnOwnerThatEndsAsItHearsOfIdlenessEndsTheForm) {
  open(1, [&] {
    owner.handler = [&](UINT message, WPARAM, LPARAM) {
      if (message == WM_ENTERIDLE) owner.destroy();
    };
  });
  expectAllEnded();
}

int filtered = 0;

LRESULT CALLBACK takeLetterQ(int code, WPARAM wParam, LPARAM lParam) {
  if (code == MSGF_DIALOGBOX) {
    ++filtered;
    const auto& message = *reinterpret_cast<const MSG*>(lParam);
    if (message.message == WM_CHAR && message.wParam == L'q') return TRUE;
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

TEST_F(ModalRunTest, AHostsMessageFilterSeesEveryMessageFirstAndCanUseItUp) {
  const HHOOK hook = SetWindowsHookExW(WH_MSGFILTER, &takeLetterQ, nullptr, GetCurrentThreadId());
  filtered = 0;
  open(1, [&] {
    const HWND box = window(level(0).box);
    for (const wchar_t letter : {L'a', L'q', L'b'}) PostMessageW(box, WM_CHAR, letter, 1);
    PostMessageW(box, WM_CHAR, L'c', 1);
    level(0).box.change = [&] {
      if (level(0).box.text().ends_with(u'c')) closeByUser(window(level(0)));
    };
  });
  UnhookWindowsHookEx(hook);
  EXPECT_GE(filtered, 4);
  EXPECT_EQ(level(0).box.text(), u"abc");
}

/// What is done while a handler lets messages pass, in a form with every kind of control.
class BusyFormTest : public ModalRunTest {
 protected:
  /// Acts inside a handler of the form.
  void inAHandler(const FunctionRef<void()>& act) {
    screen.modalShown = [&](ui::Form&) {
      gallery.apply.click = [&] { act(); };
      post(gallery.apply);
    };
    const LoopWatchdog watchdog;
    gallery.showModal();
  }
  void post(const ui::Control& button) {
    PostMessageW(window(gallery), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(window(button)), BN_CLICKED),
                 reinterpret_cast<LPARAM>(window(button)));
  }
  void close() { PostMessageW(window(gallery), WM_CLOSE, 0, 0); }
  static void click(HWND control, LPARAM point = MAKELPARAM(5, 5)) {
    PostMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, point);
    PostMessageW(control, WM_LBUTTONUP, 0, point);
  }
  static Text shownText(HWND control) {
    wchar_t text[64] = L"";
    const int length = GetWindowTextW(control, text, 64);
    return {reinterpret_cast<const char16_t*>(text), static_cast<std::size_t>(length)};
  }

  Gallery gallery{screen};
};

TEST_F(BusyFormTest, ButtonsKeysAndTheMouseDoNothing) {
  int pressed = 0;
  gallery.name.setText(u"before");
  gallery.help = [&] { ++pressed; };
  inAHandler([&] {
    ++pressed;
    const HWND name = window(gallery.name);
    SetFocus(name);
    SendMessageW(name, EM_SETSEL, 0, 3);
    click(name, MAKELPARAM(40, 5));
    for (const WPARAM key : {WPARAM{'A'}, WPARAM{VK_BACK}, WPARAM{VK_RETURN}, WPARAM{VK_TAB}}) {
      PostMessageW(name, WM_KEYDOWN, key, 1);
      PostMessageW(name, WM_KEYUP, key, LPARAM{1} << 31);
    }
    PostMessageW(name, WM_CHAR, L'x', 1);
    click(window(gallery.check));
    click(window(gallery.second));
    click(window(gallery.upDown));
    click(window(gallery.combo));
    click(window(gallery.tabs), MAKELPARAM(70, 8));
    post(gallery.apply);
    post(gallery.ok);
    SendMessageW(window(gallery.apply), BM_CLICK, 0, 0);
    SendMessageW(window(gallery), WM_HELP, 0, 0);
    letMessagesPass();
    EXPECT_EQ(shownText(name), u"before");
    EXPECT_EQ(SendMessageW(name, EM_GETSEL, 0, 0), MAKELONG(0, 3));
    EXPECT_FALSE(SendMessageW(window(gallery.combo), CB_GETDROPPEDSTATE, 0, 0));
    EXPECT_TRUE(gallery.isShown());
    close();
  });
  EXPECT_EQ(pressed, 1);
  EXPECT_EQ(gallery.name.text(), u"before");
  EXPECT_FALSE(gallery.check.value());
  EXPECT_FALSE(gallery.second.value());
  EXPECT_EQ(gallery.upDown.value(), 0);
  EXPECT_EQ(gallery.combo.listIndex(), -1);
  EXPECT_EQ(gallery.tabs.selected(), 1);
}

TEST_F(BusyFormTest, WhatAnotherProgramPutsIntoItsWindowsIsTakenBack) {
  gallery.name.setText(u"before");
  gallery.list.setSelectedRow(1);
  inAHandler([&] {
    const HWND name = window(gallery.name);
    SetWindowTextW(name, L"after");
    EXPECT_EQ(shownText(name), u"before");
    SendMessageW(name, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L"x"));
    EXPECT_EQ(shownText(name), u"before");

    gallery.tabs.setSelected(2);
    const HWND list = window(gallery.list);
    LVITEMW row{};
    row.stateMask = row.state = LVIS_SELECTED;
    SendMessageW(list, LVM_SETITEMSTATE, 3, reinterpret_cast<LPARAM>(&row));
    EXPECT_EQ(SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED), 1);

    const HWND checks = window(gallery.checks);
    LVITEMW tick{};
    tick.stateMask = LVIS_STATEIMAGEMASK;
    tick.state = INDEXTOSTATEIMAGEMASK(2);
    SendMessageW(checks, LVM_SETITEMSTATE, 2, reinterpret_cast<LPARAM>(&tick));
    EXPECT_EQ(SendMessageW(checks, LVM_GETITEMSTATE, 2, LVIS_STATEIMAGEMASK),
              INDEXTOSTATEIMAGEMASK(1));

    SendMessageW(window(gallery.tabs), TCM_SETCURFOCUS, 0, 0);
    EXPECT_EQ(SendMessageW(window(gallery.tabs), TCM_GETCURSEL, 0, 0), 1);
    close();
  });
  EXPECT_EQ(gallery.name.text(), u"before");
  EXPECT_EQ(gallery.list.selectedRow(), 1);
  EXPECT_FALSE(gallery.checks.checked(2));
  EXPECT_EQ(gallery.tabs.selected(), 2);
}

TEST_F(BusyFormTest, NothingIsPastedIntoABoxThatHandlesThePaste) {
  int pasted = 0;
  gallery.name.paste = [&](TextView, bool& used) {
    ++pasted;
    used = true;
    gallery.name.setSelText(u"pasted");
  };
  inAHandler([&] {
    SendMessageW(window(gallery.name), WM_PASTE, 0, 0);
    EXPECT_EQ(pasted, 0);
    // The handler has returned when this comes.
    PostMessageW(window(gallery.name), WM_PASTE, 0, 0);
    close();
  });
  EXPECT_EQ(pasted, 1);
  EXPECT_EQ(gallery.name.text(), u"pasted");
}

TEST_F(BusyFormTest, AChoiceThatAnotherProgramMakesInAComboBoxIsTakenBack) {
  inAHandler([&] {
    const HWND combo = window(gallery.combo);
    SendMessageW(combo, CB_SETCURSEL, 2, 0);
    SendMessageW(GetParent(combo), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(combo), CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(combo));
    EXPECT_EQ(SendMessageW(combo, CB_GETCURSEL, 0, 0), CB_ERR);
    close();
  });
  EXPECT_EQ(gallery.combo.listIndex(), -1);
}

TEST_F(BusyFormTest, ACloseIsRememberedUntilTheHandlerHasReturned) {
  inAHandler([&] {
    close();
    letMessagesPass();
    EXPECT_TRUE(gallery.isShown());
    EXPECT_TRUE(IsWindowVisible(window(gallery)));
    gallery.name.setText(u"the handler's own doing");
  });
  EXPECT_FALSE(gallery.isLoaded());
  EXPECT_EQ(gallery.name.text(), u"the handler's own doing");
}

TEST_F(BusyFormTest, AWindowThatTheHostShowsInItsCallCanBeUsed) {
  int got = 0;
  inAHandler([&] {
    HostWindow message;
    message.handler = [&](UINT what, WPARAM, LPARAM) {
      if (what == WM_CHAR || what == WM_LBUTTONDOWN) ++got;
    };
    EXPECT_TRUE(IsWindowEnabled(message.get()));
    PostMessageW(message.get(), WM_CHAR, L'x', 1);
    click(message.get());
    letMessagesPass();
    close();
  });
  EXPECT_EQ(got, 2);
}

/// Changes the platform's message font during its lifetime.
class OtherMessageFont {
 public:
  OtherMessageFont() {
    former_.cbSize = sizeof former_;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, former_.cbSize, &former_, 0);
    NONCLIENTMETRICSW larger = former_;
    larger.lfMessageFont.lfHeight = larger.lfMessageFont.lfHeight * 2;
    SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, larger.cbSize, &larger, 0);
  }
  OtherMessageFont(const OtherMessageFont&) = delete;
  OtherMessageFont& operator=(const OtherMessageFont&) = delete;
  ~OtherMessageFont() {
    SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, former_.cbSize, &former_, 0);
  }

 private:
  NONCLIENTMETRICSW former_{};
};

TEST(ScreenSessionTest, TakesFontsAndSizesAnew) {
  ui::win32::Screen screen;
  int before = 0;
  {
    const ui::ScreenSession session(screen);
    before = screen.lineHeight();
  }
  {
    const OtherMessageFont larger;
    const ui::ScreenSession session(screen);
    EXPECT_GT(screen.lineHeight(), before * 3 / 2);
    EXPECT_GT(screen.textWidth(u"Tillora"), 0);
  }
  const ui::ScreenSession session(screen);
  EXPECT_EQ(screen.lineHeight(), before);
}

/// The thread's awareness of resolutions, 0 to 2, by the platform's functions if it has them.
class Awareness {
 public:
  bool isKnown() const { return set_ && get_ && of_; }
  int ofThread() const { return of_(get_()); }
  int ofWindow(HWND window) const { return of_(window_(window)); }
  HANDLE set(INT_PTR context) const { return set_(reinterpret_cast<HANDLE>(context)); }

 private:
  template <class Function>
  static Function find(const char* name) {
    return reinterpret_cast<Function>(
        reinterpret_cast<void (*)()>(GetProcAddress(GetModuleHandleW(L"user32"), name)));
  }

  HANDLE(WINAPI* set_)(HANDLE) = find<HANDLE(WINAPI*)(HANDLE)>("SetThreadDpiAwarenessContext");
  HANDLE(WINAPI* get_)() = find<HANDLE(WINAPI*)()>("GetThreadDpiAwarenessContext");
  HANDLE(WINAPI* window_)(HWND) = find<HANDLE(WINAPI*)(HWND)>("GetWindowDpiAwarenessContext");
  int(WINAPI* of_)(HANDLE) = find<int(WINAPI*)(HANDLE)>("GetAwarenessFromDpiAwarenessContext");
};

constexpr INT_PTR kUnaware = -1;
constexpr INT_PTR kSystemAware = -2;
constexpr INT_PTR kPerMonitorAware = -3;
constexpr INT_PTR kPerMonitorAwareV2 = -4;

TEST(ScreenSessionTest, IsScaledByTheSystemInAPerMonitorAwareProgram) {
  const Awareness awareness;
  ASSERT_TRUE(awareness.isKnown());
  for (const INT_PTR context : {kPerMonitorAware, kPerMonitorAwareV2}) {
    const HANDLE former = awareness.set(context);
    ASSERT_EQ(awareness.ofThread(), 2);
    ui::win32::Screen screen;
    EXPECT_EQ(awareness.ofThread(), 2);
    {
      const ui::ScreenSession session(screen);
      EXPECT_EQ(awareness.ofThread(), 1);
      const HostWindow made;
      EXPECT_EQ(awareness.ofWindow(made.get()), 1);
      {
        const ui::win32::ProgramsScaling call;
        EXPECT_EQ(awareness.ofThread(), 2);
        {
          const ui::win32::ProgramsScaling inside;
          EXPECT_EQ(awareness.ofThread(), 2);
        }
        EXPECT_EQ(awareness.ofThread(), 2);
      }
      EXPECT_EQ(awareness.ofThread(), 1);
    }
    EXPECT_EQ(awareness.ofThread(), 2);
    const ui::win32::ProgramsScaling outside;
    EXPECT_EQ(awareness.ofThread(), 2);
    awareness.set(reinterpret_cast<INT_PTR>(former));
  }
}

TEST(ScreenSessionTest, LeavesAProgramThatTheSystemScalesAnywayAsItIs) {
  const Awareness awareness;
  ASSERT_TRUE(awareness.isKnown());
  for (const INT_PTR context : {kUnaware, kSystemAware}) {
    const HANDLE former = awareness.set(context);
    const int before = awareness.ofThread();
    ui::win32::Screen screen;
    const ui::ScreenSession session(screen);
    EXPECT_EQ(awareness.ofThread(), before);
    const ui::win32::ProgramsScaling call;
    EXPECT_EQ(awareness.ofThread(), before);
    awareness.set(reinterpret_cast<INT_PTR>(former));
  }
}

}  // namespace
}  // namespace tillora::testing
