#include <gtest/gtest.h>

#include "support/modListViewSupport.h"
#include "tests/testing/win32/gallery.h"
#include "tests/testing/win32/windows_desk.h"

namespace tillora::testing {
namespace {

TEST(ColumnWidths, TheWindowShowsColumnsThatFitAndNarrowOnesWide) {
  WindowsDesk desk;
  Gallery gallery{desk.screen()};
  desk.whenShown([&](ui::Form&) {
    desk.user().clickTab(gallery.tabs, 2);
    const HWND window = desk.windows().windowOf(gallery.list);
    const auto width = [&](int column) {
      return static_cast<int>(
          SendMessageW(window, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
    };
    const auto textWidth = [&](const wchar_t* text) {
      return static_cast<int>(
          SendMessageW(window, LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(text)));
    };
    const int pixel = desk.screen().twipsPerPixel().width;
    const Text text = u"A text that is longer than all the others";
    gallery.list.setRow(0, {{text, u"b"}});
    autoSizeColumns(gallery.list, 0, ColumnFit::contents);
    EXPECT_GE(width(0), textWidth(L"A text that is longer than all the others"));
    EXPECT_LT(width(0), textWidth(L"A text that is longer than all the others") + 30);
    EXPECT_GE(width(1), textWidth(L"Article 4"));
    autoSizeColumns(gallery.list, 2, ColumnFit::contents, 1800);
    EXPECT_EQ(width(1), 1830 / pixel);
  });
  gallery.showModal();
}

}  // namespace
}  // namespace tillora::testing
