// Acts on the windows of other programs, for script tests and the tour:
//
//   drive COMMAND [ARGUMENT...] [-- COMMAND [ARGUMENT...]]...
//
//   of PROCESS            the id of the program whose windows are waited for: from here on `wait`
//                         fails at once when that program has ended
//   wait TITLE SECONDS    until a top-level window with this title is visible, enabled and has the
//                         keyboard
//   gone TITLE SECONDS    until there is none
//   front TITLE           brings the window to the front, with the keyboard
//   type TEXT             types into the program in front
//   key KEY...            strikes keys: ENTER, ALT+A, CTRL+SHIFT+TAB, F1, x
//   press TITLE CAPTION   clicks the button with this caption (with its ampersand)
//   close TITLE           the window's close box
//   list                  the visible top-level windows: enabled or disabled, class, title
//   text TITLE CLASS N    the text of the window's N-th visible child of a class, from 1
//   texts                 class and text of every window of every program, hidden ones included
//   sleep MILLISECONDS
//
// Commands run in order; the first that fails ends with exit code 1 and says why, and lists the
// windows. After a key or a click the next thing is done when the window in front has processed it,
// or is gone.
#include <fcntl.h>
#include <io.h>

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "com/wide_text.h"
#include "tests/testing/win32/child_program.h"
#include "tests/testing/win32/key_strokes.h"
#include "tools/drive/windows_of_others.h"

namespace tillora::testing {
namespace {

using Arguments = std::vector<std::wstring>;

constexpr DWORD kPollMilliseconds = 20;
constexpr double kFrontSeconds = 10;
constexpr ULONGLONG kMostBusyMilliseconds = 60'000;

KeyStroke parseStroke(std::wstring text) {
  std::ranges::transform(text, text.begin(),
                         [](wchar_t c) { return c >= L'a' && c <= L'z' ? c - L'a' + L'A' : c; });
  struct Named {
    const wchar_t* name;
    WORD key;
  };
  constexpr Named kNames[] = {
      {L"ENTER", VK_RETURN}, {L"ESC", VK_ESCAPE},     {L"TAB", VK_TAB},      {L"SPACE", VK_SPACE},
      {L"UP", VK_UP},        {L"DOWN", VK_DOWN},      {L"LEFT", VK_LEFT},    {L"RIGHT", VK_RIGHT},
      {L"HOME", VK_HOME},    {L"END", VK_END},        {L"PGUP", VK_PRIOR},   {L"PGDN", VK_NEXT},
      {L"DEL", VK_DELETE},   {L"BACKSPACE", VK_BACK}, {L"INSERT", VK_INSERT}};

  KeyStroke stroke;
  const auto take = [&](const std::wstring& prefix) {
    if (!text.starts_with(prefix)) return false;
    text.erase(0, prefix.size());
    return true;
  };
  for (bool more = true; more;) {
    more = false;
    if (take(L"ALT+")) more = stroke.alt = true;
    if (take(L"CTRL+")) more = stroke.ctrl = true;
    if (take(L"SHIFT+")) more = stroke.shift = true;
  }
  for (const Named& named : kNames) {
    if (text == named.name) stroke.key = named.key;
  }
  if (text.size() == 1) stroke.key = LOBYTE(VkKeyScanW(text[0]));
  if (text.size() > 1 && text[0] == L'F' && text[1] >= L'1' && text[1] <= L'9') {
    stroke.key = static_cast<WORD>(VK_F1 - 1 + std::stoi(text.substr(1)));
  }
  if (stroke.key == 0) throw std::runtime_error("unknown key");
  return stroke;
}

/// The program whose windows are waited for, if one was named.
KernelHandle& waitedFor() {
  static KernelHandle program;
  return program;
}

bool hasEnded(const KernelHandle& program) {
  return program && WaitForSingleObject(program.get(), 0) == WAIT_OBJECT_0;
}

HWND need(const std::wstring& title) {
  const HWND window = findWindow(title);
  if (!window) throw std::runtime_error("no such window");
  return window;
}

void waitFor(const std::wstring& title, bool shown, double seconds) {
  const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(seconds * 1000);
  for (;;) {
    const bool ended = hasEnded(waitedFor());
    const HWND window = findWindow(title);
    if (shown ? window && IsWindowEnabled(window) && hasKeyboard(window) : !window) return;
    if (shown && ended) throw std::runtime_error("never shown; the program has ended");
    if (GetTickCount64() >= end) {
      if (!shown) throw std::runtime_error("still shown");
      if (!window) throw std::runtime_error("never shown");
      throw std::runtime_error("never had the keyboard; in front is " +
                               toUtf8(win32::fromWide(textOf(GetForegroundWindow()).c_str())));
    }
    Sleep(kPollMilliseconds);
  }
}

/// Waits until this window's program has processed all that was sent to it: a window is painted
/// when nothing else is waiting.
void waitUntilIdle(HWND front) {
  const RECT corner{0, 0, 1, 1};
  InvalidateRect(front, &corner, FALSE);
  const ULONGLONG end = GetTickCount64() + kMostBusyMilliseconds;
  while (GetUpdateRect(front, nullptr, FALSE)) {
    if (GetTickCount64() >= end) throw std::runtime_error("the window in front is busy");
    Sleep(1);
  }
}

/// A corner of the screen that no window covers; if there is none, one that a window covers.
POINT emptyCorner() {
  const LONG right = GetSystemMetrics(SM_CXSCREEN) - 1;
  const LONG bottom = GetSystemMetrics(SM_CYSCREEN) - 1;
  const POINT corners[] = {{0, 0}, {right, 0}, {0, bottom}, {right, bottom}};
  const auto* empty = std::ranges::find_if(
      corners, [](POINT corner) { return WindowFromPoint(corner) == GetDesktopWindow(); });
  return empty != std::end(corners) ? *empty : corners[3];
}

/// Waits until the window's program has seen all that the display has to report. One report says
/// which keys are down; Wine relies on it, and a late one would release Ctrl between Ctrl and A.
void waitForDisplay(HWND front) {
  waitUntilIdle(front);  // it has sent the display all its requests
  // Moving the pointer waits for the display. The display serves one program at a time, so that the
  // second move comes after what the other program had sent before the first. Not over a window,
  // because a move there is reported to its program, with the keys, and nothing waits for the
  // report of the last one.
  const POINT corner = emptyCorner();
  for (const LONG x : {corner.x == 0 ? 1 : corner.x - 1, corner.x}) SetCursorPos(x, corner.y);
  waitUntilIdle(front);
}

template <class Act>
void actAndWait(Act act) {
  const HWND front = GetForegroundWindow();
  if (!front) throw std::runtime_error("no window is in front");
  waitForDisplay(front);
  act();
  waitUntilIdle(front);
}

bool isModifier(const INPUT& input) {
  const WORD key = input.ki.wVk;
  return key == VK_SHIFT || key == VK_CONTROL || key == VK_MENU;
}

/// Strikes keys, modifiers first. A late report of the display may release these, so they are held
/// until it has come, and go down once more with the key, as keys that are held down do.
void strikeAndWait(const std::vector<INPUT>& inputs) {
  actAndWait([&] {
    const auto key = std::ranges::find_if_not(inputs, &isModifier);
    if (key != inputs.begin()) {
      sendInputs({inputs.begin(), key});
      waitForDisplay(GetForegroundWindow());
    }
    sendInputs(inputs);
  });
}

void list() {
  for (const HWND window : topLevelWindows()) {
    std::wprintf(L"%ls\t%ls\t%ls\n", IsWindowEnabled(window) ? L"enabled" : L"disabled",
                 classOf(window).c_str(), textOf(window).c_str());
  }
}

void run(const Arguments& words) {
  const std::wstring& command = words.front();
  const auto argument = [&](std::size_t i) -> const std::wstring& {
    if (i >= words.size()) throw std::runtime_error("argument missing");
    return words[i];
  };
  if (command == L"of") {
    waitedFor().reset(OpenProcess(SYNCHRONIZE, FALSE, std::stoul(argument(1))));
    if (!waitedFor()) throw std::runtime_error("no such program");
  } else if (command == L"wait") {
    waitFor(argument(1), true, std::stod(argument(2)));
  } else if (command == L"gone") {
    waitFor(argument(1), false, std::stod(argument(2)));
  } else if (command == L"front") {
    SetForegroundWindow(need(argument(1)));
    waitFor(argument(1), true, kFrontSeconds);
  } else if (command == L"type") {
    for (const wchar_t character : argument(1)) {
      strikeAndWait(inputsOf(character));
    }
  } else if (command == L"key") {
    for (std::size_t i = 1; i < words.size(); ++i) {
      strikeAndWait(inputsOf(parseStroke(words[i])));
    }
  } else if (command == L"press") {
    const HWND button = findChild(need(argument(1)), L"Button", argument(2));
    if (!button) throw std::runtime_error("no such button");
    actAndWait([&] { PostMessageW(button, BM_CLICK, 0, 0); });
  } else if (command == L"close") {
    PostMessageW(need(argument(1)), WM_SYSCOMMAND, SC_CLOSE, 0);
  } else if (command == L"list") {
    list();
  } else if (command == L"text") {
    const auto children = childrenOf(need(argument(1)), argument(2));
    const std::size_t number = std::stoul(argument(3));
    if (number < 1 || number > children.size()) throw std::runtime_error("no such child");
    std::wprintf(L"%ls\n", textOf(children[number - 1]).c_str());
  } else if (command == L"texts") {
    for (const HWND window : allWindows()) {
      std::wprintf(L"%ls\t%ls\n", classOf(window).c_str(), textOf(window).c_str());
    }
  } else if (command == L"sleep") {
    Sleep(std::stoul(argument(1)));
  } else {
    throw std::runtime_error("unknown command");
  }
}

}  // namespace
}  // namespace tillora::testing

int wmain(int count, wchar_t** values) {
  _setmode(_fileno(stdout), _O_U8TEXT);
  tillora::testing::Arguments words;
  const tillora::testing::Arguments all(values + 1, values + count);
  for (std::size_t i = 0; i <= all.size(); ++i) {
    if (i < all.size() && all[i] != L"--") {
      words.push_back(all[i]);
      continue;
    }
    if (words.empty()) continue;
    try {
      tillora::testing::run(words);
    } catch (const std::exception& failure) {
      for (const std::wstring& word : words) std::wprintf(L"%ls ", word.c_str());
      std::wprintf(L": %hs. The windows:\n", failure.what());
      tillora::testing::list();
      return 1;
    }
    words.clear();
  }
  return 0;
}
