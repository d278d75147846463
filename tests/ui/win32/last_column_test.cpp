// The last column of a list takes what the others leave, as with the platform's own width code.
#include <gtest/gtest.h>

#include "support/modListViewSupport.h"
#include "tests/testing/function_ref.h"
#include "tests/testing/win32/gallery.h"
#include "tests/testing/win32/windows_desk.h"

namespace tillora::testing {
namespace {

class LastColumn : public ::testing::Test {
 protected:
  void show(const FunctionRef<void()>& step) {
    desk.whenShown([&](ui::Form&) {
      desk.user().clickTab(gallery.tabs, 2);
      step();
    });
    gallery.showModal();
  }
  HWND window() { return desk.windows().windowOf(list); }
  int width(int column) {
    return static_cast<int>(
        SendMessageW(window(), LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
  }
  int bothWidths() { return width(0) + width(1); }
  int clientWidth() {
    RECT area{};
    GetClientRect(window(), &area);
    return static_cast<int>(area.right);
  }
  bool has(LONG_PTR style) { return (GetWindowLongPtrW(window(), GWL_STYLE) & style) != 0; }
  int platformsWidth() {
    SendMessageW(window(), LVM_SETCOLUMNWIDTH, 1, LVSCW_AUTOSIZE_USEHEADER);
    return width(1);
  }

  WindowsDesk desk;
  Gallery gallery{desk.screen()};
  ui::ListView& list = gallery.list;
};

TEST_F(LastColumn, FillsTheListAsThePlatformsWidthCodeDoes) {
  autoSizeColumns(list, 0, ColumnFit::contentsOrHeader);  // before the window is made
  show([&] {
    EXPECT_EQ(bothWidths(), clientWidth());
    const int own = width(1);
    EXPECT_EQ(own, platformsWidth());
    EXPECT_FALSE(has(WS_HSCROLL));
    autoSizeColumns(list, 0, ColumnFit::contents);
    EXPECT_LT(bothWidths(), clientWidth());
    autoSizeColumns(list, 0, ColumnFit::contentsOrHeader);  // and while it shows
    EXPECT_EQ(width(1), own);
  });
}

TEST_F(LastColumn, LeavesRoomForTheScrollBarThatLongListsHave) {
  show([&] {
    autoSizeColumns(list, 0, ColumnFit::contentsOrHeader);
    const int before = width(1);
    list.setRows(std::vector<ui::ListItem>(1000, {{u"Code", u"Description"}}));
    EXPECT_TRUE(has(WS_VSCROLL));
    EXPECT_LT(width(1), before);
    EXPECT_EQ(bothWidths(), clientWidth());
    EXPECT_FALSE(has(WS_HSCROLL));
    list.setRows({});
    EXPECT_EQ(width(1), before);
  });
}

TEST_F(LastColumn, LeavesRoomForTheScrollBarOfAListThatBeginsLong) {
  list.setRows(std::vector<ui::ListItem>(1000, {{u"Code", u"Description"}}));
  autoSizeColumns(list, 0, ColumnFit::contentsOrHeader);
  show([&] {
    EXPECT_TRUE(has(WS_VSCROLL));
    EXPECT_EQ(bothWidths(), clientWidth());
    EXPECT_FALSE(has(WS_HSCROLL));
  });
}

TEST_F(LastColumn, IsNeverNarrowerThanItsTexts) {
  list.setRow(4, {{u"A4", Text(200, u'x')}});
  autoSizeColumns(list, 0, ColumnFit::contentsOrHeader);
  show([&] {
    const std::wstring longest(200, L'x');
    EXPECT_GE(width(1), SendMessageW(window(), LVM_GETSTRINGWIDTHW, 0,
                                     reinterpret_cast<LPARAM>(longest.c_str())));
    EXPECT_GT(bothWidths(), clientWidth());
    EXPECT_TRUE(has(WS_HSCROLL));
  });
}

TEST_F(LastColumn, FollowsTheListWhenThatBecomesWider) {
  autoSizeColumns(list, 0, ColumnFit::contentsOrHeader);
  show([&] {
    const int before = width(1);
    ui::Rect place = list.bounds();
    place.width += 1500;
    list.setBounds(place);
    EXPECT_EQ(width(1), before + 100);
    EXPECT_EQ(bothWidths(), clientWidth());
  });
}

TEST_F(LastColumn, KeepsTheWidthThatTheProgramGivesIt) {
  autoSizeColumns(list, 0, ColumnFit::contentsOrHeader);
  show([&] {
    list.setColumnWidth(1, 1500);
    EXPECT_EQ(width(1), 100);
    list.setRows({});
    EXPECT_EQ(width(1), 100);
  });
}

}  // namespace
}  // namespace tillora::testing
