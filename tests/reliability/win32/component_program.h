#pragma once

#include <gtest/gtest.h>

#include <windows.h>
// commctrl.h needs windows.h first.
#include <commctrl.h>

#include <cstdint>

#include "component/automation/options_server.h"
#include "tests/component/automation/automation_host.h"
#include "tests/component/automation/server_library.h"
#include "tests/testing/win32/scratch_registry.h"

namespace tillora::testing {

/// A person at the dialog, called by a timer of its thread; uses no memory.
class Visitor {
 public:
  enum class End : std::uint8_t { close, save };
  /// Sees every tab that there is.
  static constexpr int kEveryTab = -1;

  /// @param tab to go to, from 1; 0 stays
  Visitor(int tab, End end) : tab_(tab), end_(end), timer_(SetTimer(nullptr, 0, 1, &tick)) {
    current_ = this;
  }
  ~Visitor() {
    KillTimer(nullptr, timer_);
    current_ = nullptr;
  }
  Visitor(const Visitor&) = delete;
  Visitor& operator=(const Visitor&) = delete;

 private:
  static BOOL CALLBACK find(HWND window, LPARAM found) {
    wchar_t title[32] = L"";
    GetWindowTextW(window, title, 32);
    if (lstrcmpW(title, L"Options") != 0 || !IsWindowVisible(window)) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
  }
  static void CALLBACK tick(HWND /*window*/, UINT /*message*/, UINT_PTR /*id*/, DWORD /*time*/) {
    HWND dialog = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), &find, reinterpret_cast<LPARAM>(&dialog));
    if (dialog != nullptr && current_ != nullptr) current_->act(dialog);
  }
  void act(HWND dialog) {
    const HWND tabs = FindWindowExW(dialog, nullptr, WC_TABCONTROLW, nullptr);
    const auto count = static_cast<int>(SendMessageW(tabs, TCM_GETITEMCOUNT, 0, 0));
    const int visits = tab_ == kEveryTab ? count : 1;
    if (acts_ == 0 && end_ == End::save) SendMessageW(GetFocus(), WM_CHAR, L'x', 1);
    if (acts_ < visits) {
      const int tab = tab_ == kEveryTab ? count - acts_ : tab_;
      if (tab > 0) SendMessageW(tabs, TCM_SETCURFOCUS, static_cast<WPARAM>(tab - 1), 0);
    } else if (acts_ == visits && end_ == End::save) {
      SendMessageW(FindWindowExW(dialog, nullptr, L"Button", L"&OK"), BM_CLICK, 0, 0);
    } else {
      PostMessageW(dialog, WM_CLOSE, 0, 0);
    }
    ++acts_;
  }

  static inline Visitor* current_ = nullptr;
  int tab_;
  End end_;
  int acts_ = 0;
  UINT_PTR timer_;
};

/// A host program with the component linked into it, so that its memory is the program's: a window,
/// and something on every tab.
class ComponentProgram {
 public:
  ComponentProgram()
      : owner_(CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20, 400,
                               200, nullptr, nullptr, nullptr, nullptr)) {
    SetForegroundWindow(owner_);
    SetActiveWindow(owner_);
    host.fillEveryTab();
  }
  ~ComponentProgram() { DestroyWindow(owner_); }
  ComponentProgram(const ComponentProgram&) = delete;
  ComponentProgram& operator=(const ComponentProgram&) = delete;

  HWND owner() const { return owner_; }

  /// Null if memory runs out.
  static win32::ComPtr<_Options> create() {
    win32::ComPtr<IClassFactory> factory;
    win32::ComPtr<_Options> options;
    if (isDone(win32::getClassObject(automation::kOptionsServer, CLSID_Options, IID_IClassFactory,
                                     factory.outVoid()))) {
      isDone(factory->CreateInstance(nullptr, IID__Options, options.outVoid()));
    }
    return options;
  }
  /// Fails the test if it is another failure than that of memory.
  static bool isDone(HRESULT result) {
    EXPECT_TRUE(result == S_OK || result == E_OUTOFMEMORY) << std::hex << result;
    return result == S_OK;
  }
  void giveObjects(_Options& options) {
    options.putref_DBJetObject(objects_.database.get());
    options.putref_AppObject(objects_.app.get());
    options.putref_MsgSndObject(objects_.sender.get());
    options.putref_ResourceObject(objects_.strings.get());
    options.putref_SettingsObject(objects_.settings.get());
  }
  /// Forgets what was stored and called, and how its objects were used.
  void forget() {
    host.stored.clear();
    host.calls.clear();
    host.writes.clear();
    host.sent.clear();
    objects_.records.clear();
    for (ScriptedObject* object :
         {objects_.database.get(), objects_.app.get(), objects_.sender.get(),
          objects_.strings.get(), objects_.settings.get()}) {
      EXPECT_EQ(object->references(), 1U);
      object->calls.clear();
    }
  }

  FakeHost host;

 private:
  AutomationHost objects_{host};
  ScratchRegistry registry_;
  Apartment apartment_;
  HWND owner_;
};

}  // namespace tillora::testing
