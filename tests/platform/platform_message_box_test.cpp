#include "platform/platform_message_box.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <vector>

#include "com/wide_text.h"
#include "tests/testing/win32/dialog_person.h"

namespace tillora::win32 {
namespace {

using testing::DialogPerson;

/// Reads the text of the next message box of the thread and presses a button of it.
class Presser {
 public:
  explicit Presser(int button)
      : person_([this, button](HWND box) {
          lookAt(box);
          PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
        }) {}

  Text text() {
    EXPECT_EQ(person_.finish(), 1);
    return text_;
  }
  /// After text(): the title of the box.
  const Text& title() const { return title_; }
  /// After text(): no text of the box treats an ampersand as the mark of an access key.
  bool ampersandsShow() const { return ampersandsShow_; }
  /// After text(): all buttons can be seen and clicked.
  bool buttonsAreOnScreen() const { return buttonsAreOnScreen_; }

 private:
  void lookAt(HWND box) {
    wchar_t title[64]{};
    GetWindowTextW(box, title, 64);
    title_ = fromWide(title);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(box, MONITOR_DEFAULTTOPRIMARY), &monitor);
    for (HWND child = GetWindow(box, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
      std::vector<wchar_t> text(static_cast<std::size_t>(GetWindowTextLengthW(child)) + 1);
      if (GetWindowTextW(child, text.data(), static_cast<int>(text.size())) == 0) continue;
      text_ += fromWide(text.data()) + u"|";
      wchar_t name[32]{};
      GetClassNameW(child, name, 32);
      if (lstrcmpiW(name, L"Static") == 0) {
        const LONG_PTR style = GetWindowLongPtrW(child, GWL_STYLE);
        ampersandsShow_ = ampersandsShow_ && (style & SS_NOPREFIX) != 0;
      } else if (IsWindowVisible(child)) {
        RECT area{};
        GetWindowRect(child, &area);
        RECT seen{};
        IntersectRect(&seen, &area, &monitor.rcWork);
        buttonsAreOnScreen_ = buttonsAreOnScreen_ && EqualRect(&seen, &area);
      }
    }
  }

  bool ampersandsShow_ = true;
  bool buttonsAreOnScreen_ = true;
  Text title_;
  Text text_;
  DialogPerson person_;
};

TEST(PlatformMessageBoxTest, ShowsBothTextsAndSaysWhichButtonWasPressed) {
  Presser presser(IDYES);
  PlatformMessageBox box(nullptr);
  box.setSettingsStore(nullptr);
  EXPECT_EQ(box.show(u"First.", message_style::questionYesNo, u"Box of the test", u"Second."),
            MessageResult::yes);
  EXPECT_NE(presser.text().find(u"First.\r\n\r\nSecond."), Text::npos);
  EXPECT_EQ(presser.title(), u"Box of the test");
}

TEST(PlatformMessageBoxTest, AnswersOkAndNo) {
  {
    Presser presser(IDOK);
    EXPECT_EQ(PlatformMessageBox(nullptr).show(u"Text.", message_style::exclamation,
                                               u"Warning of the test", u""),
              MessageResult::ok);
    presser.text();
  }
  Presser presser(IDNO);
  EXPECT_EQ(PlatformMessageBox(nullptr).show(u"Text.", message_style::questionYesNo,
                                             u"Question of the test", u""),
            MessageResult::no);
  presser.text();
}

TEST(PlatformMessageBoxTest, TextsAreShownLiterally) {
  const Text shown = u"100% %s%n%1 &File && <b> {0} \\n 'q' \"\r\nx after";
  Text odd = shown;
  odd[odd.rfind(u' ')] = u'\0';
  Presser presser(IDYES);
  EXPECT_EQ(PlatformMessageBox(nullptr).show(odd, message_style::questionYesNo,
                                             Text(u"A & B %s\0tail", 13), odd),
            MessageResult::yes);
  EXPECT_NE(presser.text().find(shown + u"\r\n\r\n" + shown + u"|"), Text::npos);
  EXPECT_EQ(presser.title(), u"A & B %s tail");
  EXPECT_TRUE(presser.ampersandsShow());
}

TEST(PlatformMessageBoxTest, AVeryLongTextLeavesTheButtonsInReach) {
  for (const char16_t* part : {u"x", u"word ", u"\r\n", u"\U0001f6d2"}) {
    Text text = u"It begins ";
    while (text.size() < 10000) text += part;
    text += u" and ends.";
    Presser presser(IDNO);
    EXPECT_EQ(PlatformMessageBox(nullptr).show(text, message_style::questionYesNo,
                                               u"Long text of the test", u"Really?"),
              MessageResult::no);
    const Text shown = presser.text();
    EXPECT_TRUE(presser.buttonsAreOnScreen()) << toUtf8(part);
    EXPECT_NE(shown.find(u"It begins "), Text::npos);
    EXPECT_NE(shown.find(u" ... "), Text::npos);
    EXPECT_NE(shown.find(u" and ends.\r\n\r\nReally?|"), Text::npos);
    EXPECT_EQ(toUtf8(shown).find("\xEF\xBF\xBD"), std::string::npos) << "half a character";
  }
}

}  // namespace
}  // namespace tillora::win32
