#include "support/win32/platform_message_box.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <thread>

#include "support/win32/wide_text.h"

namespace tillora::win32 {
namespace {

/// Waits for a message box with this title, reads its text and presses a button.
class Presser {
 public:
  Presser(const wchar_t* title, int button)
      : thread_([this, title, button] {
          HWND box = nullptr;
          for (int attempt = 0; attempt < 500 && box == nullptr; ++attempt) {
            Sleep(10);
            box = FindWindowW(L"#32770", title);
          }
          if (box == nullptr) return;
          wchar_t buffer[256] = L"";
          for (HWND child = GetWindow(box, GW_CHILD); child != nullptr;
               child = GetWindow(child, GW_HWNDNEXT)) {
            if (GetWindowTextW(child, buffer, 256) > 0) text_ += fromWide(buffer) + u"|";
          }
          PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
        }) {}

  Text text() {
    thread_.join();
    return text_;
  }

 private:
  Text text_;
  std::thread thread_;
};

TEST(PlatformMessageBoxTest, ShowsBothTextsAndSaysWhichButtonWasPressed) {
  Presser presser(L"Box of the test", IDYES);
  PlatformMessageBox box(nullptr);
  box.setSettingsStore(nullptr);
  EXPECT_EQ(box.show(u"First.", message_style::questionYesNo, u"Box of the test", u"Second."),
            MessageResult::yes);
  EXPECT_NE(presser.text().find(u"First.\r\n\r\nSecond."), Text::npos);
}

TEST(PlatformMessageBoxTest, AnswersOkAndNo) {
  {
    Presser presser(L"Warning of the test", IDOK);
    EXPECT_EQ(PlatformMessageBox(nullptr).show(u"Text.", message_style::exclamation,
                                               u"Warning of the test", u""),
              MessageResult::ok);
    presser.text();
  }
  Presser presser(L"Question of the test", IDNO);
  EXPECT_EQ(PlatformMessageBox(nullptr).show(u"Text.", message_style::questionYesNo,
                                             u"Question of the test", u""),
            MessageResult::no);
  presser.text();
}

}  // namespace
}  // namespace tillora::win32
