#include <windows.h>
#include <gtest/gtest.h>

#include "host/automation/shop_server.h"
#include "host/options_saved_message.h"
#include "tests/host/automation/late_bound.h"
#include "tests/testing/win32/dialog_person.h"

namespace tillora::host::automation {
namespace {

LateBound make(const win32::ServerClass& creatable) {
  return LateBound(ComPtr<IDispatch>::adopt(creatable.create()));
}

TEST(AppObjectTest, HasATitleAndTheProgramsFolder) {
  const LateBound app = make(kShopClass).object(L"App");
  EXPECT_EQ(app.call(L"Title").text(), u"Tillora Administrator");
  const Text path = app.call(L"Path").text();
  ASSERT_FALSE(path.empty());
  EXPECT_NE(path.back(), u'\\');
  EXPECT_EQ(app.put(L"Title", u"Other Program").result, S_OK);
  EXPECT_EQ(app.call(L"Title").text(), u"Other Program");
  EXPECT_EQ(app.put(L"Path", u"C:\\Elsewhere").result, S_OK);
  EXPECT_EQ(app.call(L"Path").text(), u"C:\\Elsewhere");
}

/// A top-level window that keeps what it receives about saves.
class Listener {
 public:
  Listener() {
    WNDCLASSW description{};
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = L"TilloraTestListener";
    RegisterClassW(&description);
    window_ = CreateWindowExW(0, description.lpszClassName, L"", WS_OVERLAPPED, 0, 0, 10, 10,
                              nullptr, nullptr, description.hInstance, nullptr);
    number_ = RegisterWindowMessageW(OptionsSavedMessage::kName);
  }
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;
  ~Listener() { DestroyWindow(window_); }

  double wait() {
    heard_ = 0;
    const ULONGLONG end = GetTickCount64() + 5000;
    MSG message;
    for (ULONGLONG now = GetTickCount64(); heard_ == 0 && now < end; now = GetTickCount64()) {
      MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
      while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    }
    return heard_;
  }

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM other) {
    if (message == number_) {
      heard_ =
          OptionsSavedMessage{static_cast<std::uint32_t>(wide), static_cast<std::uint32_t>(other)}
              .when()
              .days;
    }
    return DefWindowProcW(window, message, wide, other);
  }

  static inline UINT number_ = 0;
  static inline double heard_ = 0;
  HWND window_ = nullptr;
};

TEST(MessageSenderObjectTest, EveryTopLevelWindowHearsTheTimeOfTheSave) {
  Listener listener;
  const LateBound sender = make(kShopClass).object(L"Messages");
  const double when = 45678.987654321;
  EXPECT_EQ(sender.call(L"Send", DateTime{when}).result, S_OK);
  EXPECT_EQ(listener.wait(), when);
}

/// Reads the texts of the next message box of the thread and presses a button of it.
class Presser {
 public:
  explicit Presser(int button)
      : person_([this, button](HWND box) {
          wchar_t title[64]{};
          GetWindowTextW(box, title, 64);
          title_ = win32::fromWide(title);
          EnumChildWindows(box, collect, reinterpret_cast<LPARAM>(&texts_));
          PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
        }) {}

  /// All of them, each followed by a slash.
  const Text& texts() {
    EXPECT_EQ(person_.finish(), 1);
    return texts_;
  }
  /// After texts().
  const Text& title() const { return title_; }

 private:
  static BOOL CALLBACK collect(HWND child, LPARAM texts) {
    wchar_t text[512];
    const auto length = static_cast<std::size_t>(GetWindowTextW(child, text, 512));
    *reinterpret_cast<Text*>(texts) += win32::fromWide(text, length) + u'/';
    return TRUE;
  }

  Text title_;
  Text texts_;
  testing::DialogPerson person_;
};

TEST(HostMessageBoxObjectTest, ShowsTheTextsAndReturnsTheButton) {
  const LateBound box = make(kHostMessageBoxClass);
  EXPECT_EQ(box.put(L"SettingsStore", static_cast<IDispatch*>(nullptr)).result, S_OK);
  {
    Presser presser(IDNO);
    const Answer answer =
        box.call(L"Show", u"Are you sure ?", std::int32_t{292}, u"Delete grade", u"It is used.");
    EXPECT_EQ(answer.value.get().lVal, IDNO);
    EXPECT_NE(presser.texts().find(u"Are you sure ?\r\n\r\nIt is used."), Text::npos)
        << toUtf8(presser.texts());
    EXPECT_EQ(presser.title(), u"Delete grade");
  }
  Presser presser(IDOK);
  EXPECT_EQ(box.call(L"Show", u"Wrong.", std::int32_t{48}, u"Tillora").value.get().lVal, IDOK);
  EXPECT_NE(presser.texts().find(u"Wrong./"), Text::npos) << toUtf8(presser.texts());
  EXPECT_EQ(presser.title(), u"Tillora");
}

TEST(HostMessageBoxObjectTest, TheSecondaryTextMayBeLeftOut) {
  const LateBound box = make(kHostMessageBoxClass);
  EXPECT_EQ(box.call(L"Show", u"a", std::int32_t{48}).result, DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(box.call(L"SettingsStore").result, DISP_E_MEMBERNOTFOUND);
}

}  // namespace
}  // namespace tillora::host::automation
