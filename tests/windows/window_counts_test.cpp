// How many windows the dialog makes, and how often they are painted.
#include <map>

#include "tests/testing/every_dialog.h"
#include "tests/testing/win32/holdings.h"
#include "tests/testing/win32/thread_of_window.h"
#include "tests/testing/win32/windows_desk.h"

namespace tillora::testing {
namespace {

/// Counts how often the windows of this thread are painted during its lifetime.
class Paints {
 public:
  Paints()
      : taken_(WH_GETMESSAGE, &taken, GetCurrentThreadId()),
        sent_(WH_CALLWNDPROC, &sent, GetCurrentThreadId()) {
    counts.clear();
  }

  static inline std::map<HWND, int> counts;

 private:
  static LRESULT CALLBACK taken(int code, WPARAM removed, LPARAM message) {
    const auto& taken = *reinterpret_cast<const MSG*>(message);
    if (removed == PM_REMOVE && taken.message == WM_PAINT) ++counts[taken.hwnd];
    return CallNextHookEx(nullptr, code, removed, message);
  }
  static LRESULT CALLBACK sent(int code, WPARAM wParam, LPARAM message) {
    const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(message);
    if (sent.message == WM_PAINT) ++counts[sent.hwnd];
    return CallNextHookEx(nullptr, code, wParam, message);
  }

  ThreadHook taken_;
  ThreadHook sent_;
};

class WindowCountsTest : public EveryDialogTest {
 protected:
  DrivenScreen& windows() { return dynamic_cast<WindowsDesk&>(*desk).windows(); }
  /// The number of windows that the controls of the holder have.
  int expectWindowsOfWhatIsSeen(const ui::Container& holder, bool seen) {
    int count = 0;
    for (const ui::Control* child : holder.children()) {
      const bool childSeen = seen && child->visible();
      EXPECT_EQ(windows().windowOf(*child) != nullptr, childSeen) << toUtf8(child->caption());
      count += childSeen ? 1 : 0;
      if (const auto* inner = dynamic_cast<const ui::Container*>(child)) {
        count += expectWindowsOfWhatIsSeen(*inner, childSeen);
      }
    }
    return count;
  }
  void expectEachPaintedOnceAtMost(const std::string& when) {
    EXPECT_FALSE(Paints::counts.empty()) << when;
    for (const auto& [window, count] : Paints::counts) {
      wchar_t name[40] = L"";
      wchar_t text[40] = L"";
      GetClassNameW(window, name, 40);
      GetWindowTextW(window, text, 40);
      EXPECT_LE(count, 1) << when << ": " << toUtf8(win32::fromWide(name)) << " \""
                          << toUtf8(win32::fromWide(text)) << '"';
    }
    Paints::counts.clear();
  }
};

TEST_F(WindowCountsTest, TheFirstPageAloneHasWindowsWhenTheDialogOpens) {
  host.fillEveryTab();
  open([&](frmOptions& dialog) {
    const int shown = expectWindowsOfWhatIsSeen(dialog, true);
    EXPECT_EQ(childWindows(windows().topWindow()), shown) << "windows of no control";
    EXPECT_EQ(shown, 36);
  });
}

TEST_F(WindowCountsTest, EachControlIsPaintedOnceAtMostWhenAPageComesIntoView) {
  host.fillEveryTab();
  const Paints paints;
  open([&](frmOptions& dialog) {
    expectEachPaintedOnceAtMost("opening");
    for (int round = 1; round <= 2; ++round) {
      for (const Text& tab : dialog.tabOptions.tabs()) {
        user.press(ui::Key::tab, {.ctrl = true});
        windows().pumpUntilIdle();
        expectEachPaintedOnceAtMost("visit " + std::to_string(round) + " after " + toUtf8(tab));
      }
    }
  });
}

}  // namespace
}  // namespace tillora::testing
