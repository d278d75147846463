// Dialog after dialog in real windows, each with all of its tabs seen: nothing of them is left.
#include <gtest/gtest.h>

#include <iostream>
#include <memory>
#include <vector>

#include "tests/reliability/win32/component_program.h"
#include "tests/testing/function_ref.h"
#include "tests/testing/long_run.h"
#include "tests/testing/memory/failing_memory.h"
#include "tests/testing/win32/holdings.h"

namespace tillora::testing {
namespace {

class ManyRealDialogsTest : public ::testing::Test {
 protected:
  struct Kept {
    std::size_t windows;
    long gdi;
    long handles;
    long blocks;   ///< of memory
    long objects;  ///< of the component
  };

  static Kept kept() {
    const long blocks = FailingMemory::blocks();
    const Holdings held;
    return {held.windows.size(), static_cast<long>(held.gdi), static_cast<long>(held.handles),
            blocks, win32::ModuleLock::count()};
  }

  /// What so many dialogs leave behind, each after `act`.
  /// @param tab that is seen in each
  Kept keptAfter(int dialogs, int tab, const FunctionRef<void()>& act) {
    showOne(tab);  // what is made once is not counted
    const Kept before = kept();
    for (int i = 0; i < dialogs; ++i) {
      showOne(tab);
      act();
    }
    const Kept after = kept();
    return {after.windows - before.windows, after.gdi - before.gdi, after.handles - before.handles,
            after.blocks - before.blocks, after.objects - before.objects};
  }

  ComponentProgram program;

 private:
  void showOne(int tab) {
    const auto options = ComponentProgram::create();
    program.giveObjects(*options.get());
    const Visitor visitor(tab, Visitor::End::close);
    VARIANT_BOOL shown = VARIANT_FALSE;
    ASSERT_EQ(options->ShowOptions(&shown), S_OK);
    options->putref_DBJetObject(nullptr);
    options->putref_AppObject(nullptr);
    options->putref_MsgSndObject(nullptr);
    options->putref_ResourceObject(nullptr);
    options->putref_SettingsObject(nullptr);
    program.forget();
  }
};

TEST_F(ManyRealDialogsTest, LeaveNothing) {
  const int dialogs = isLongRun() ? 1000 : 2;
  const Kept left = keptAfter(dialogs, Visitor::kEveryTab, [] {});
  EXPECT_EQ(left.windows, 0U);
  EXPECT_EQ(left.blocks, 0);
  EXPECT_EQ(left.objects, 0);
  // A platform's own stock of device contexts and handles grows and shrinks by a few.
  EXPECT_LT(left.gdi, dialogs);
  EXPECT_LT(left.handles, dialogs);
  if (isLongRun()) {
    std::cout << dialogs << " dialogs left " << left.gdi << " GDI objects and " << left.handles
              << " handles\n";
  }
}

TEST_F(ManyRealDialogsTest, WhatEachDialogLeavesIsSeen) {
  constexpr int kDialogs = 3;
  std::vector<std::unique_ptr<int>> blocks;
  std::vector<win32::ComPtr<_Options>> objects;
  std::vector<HWND> windows;
  std::vector<HGDIOBJ> brushes;
  blocks.reserve(kDialogs);
  objects.reserve(kDialogs);
  windows.reserve(kDialogs);
  brushes.reserve(kDialogs);
  const Kept left = keptAfter(kDialogs, 1, [&] {
    blocks.push_back(std::make_unique<int>(0));
    windows.push_back(CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                                      nullptr, nullptr));
    brushes.push_back(CreateSolidBrush(static_cast<COLORREF>(brushes.size())));
  });
  EXPECT_EQ(left.windows, std::size_t{kDialogs});
  EXPECT_GE(left.gdi, kDialogs);
  EXPECT_EQ(left.blocks, kDialogs);
  EXPECT_EQ(left.objects, 0);
  const Kept alive = keptAfter(kDialogs, 1, [&] { objects.push_back(ComponentProgram::create()); });
  EXPECT_EQ(alive.objects, kDialogs);
  for (const HWND window : windows) DestroyWindow(window);
  for (const HGDIOBJ brush : brushes) DeleteObject(brush);
}

}  // namespace
}  // namespace tillora::testing
