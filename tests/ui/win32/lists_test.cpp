#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "tests/testing/function_ref.h"
#include "tests/testing/win32/gallery.h"
#include "tests/testing/win32/windows_desk.h"

namespace tillora::testing {
namespace {

using ui::Key;

class ListViewTest : public ::testing::Test {
 protected:
  /// Shows the gallery with its list in front.
  void show(const FunctionRef<void()>& step) {
    desk.whenShown([&](ui::Form&) {
      user.clickTab(gallery.tabs, 2);
      step();
    });
    gallery.showModal();
  }
  HWND window() { return desk.windows().windowOf(gallery.list); }
  int shownRow() {
    return static_cast<int>(
        SendMessageW(window(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
  }
  std::wstring cell(int row, int column) {
    std::wstring text(100, L'\0');
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    const LRESULT length = SendMessageW(window(), LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                                        reinterpret_cast<LPARAM>(&item));
    text.resize(static_cast<std::size_t>(length));
    return text;
  }

  /// How many colours the first column has in a row, without its icon.
  std::size_t coloursBesideIcon(int row) {
    const HDC screen = GetDC(nullptr);
    RECT area{};
    GetClientRect(window(), &area);
    const ui::win32::MemoryDc dc(CreateCompatibleDC(screen));
    const ui::win32::Bitmap picture(CreateCompatibleBitmap(screen, area.right, area.bottom));
    ReleaseDC(nullptr, screen);
    const ui::win32::Selection selected(dc.get(), picture.get());
    SendMessageW(window(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc.get()), PRF_CLIENT);
    RECT cells{};
    cells.left = LVIR_BOUNDS;
    SendMessageW(window(), LVM_GETITEMRECT, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(&cells));
    const auto end = static_cast<LONG>(SendMessageW(window(), LVM_GETCOLUMNWIDTH, 0, 0));
    std::set<COLORREF> colours;
    for (LONG y = cells.top; y < cells.bottom; ++y) {
      for (LONG x = GetSystemMetrics(SM_CXSMICON) + 4; x < end; ++x) {
        colours.insert(GetPixel(dc.get(), x, y));
      }
    }
    return colours.size();
  }

  WindowsDesk desk;
  Gallery gallery{desk.screen()};
  ui::ListView& list = gallery.list;
  User& user = desk.user();
};

TEST_F(ListViewTest, ShowsRowsAndColumns) {
  show([&] {
    EXPECT_EQ(SendMessageW(window(), LVM_GETITEMCOUNT, 0, 0), 5);
    EXPECT_EQ(cell(2, 0), L"A2");
    EXPECT_EQ(cell(4, 1), L"Article 4");
    EXPECT_EQ(SendMessageW(window(), LVM_GETCOLUMNWIDTH, 1, 0), 180);
  });
}

TEST_F(ListViewTest, FollowsChangesOfItsRows) {
  show([&] {
    list.setRow(1, {{u"B", u"Other"}});
    EXPECT_EQ(cell(1, 1), L"Other");
    list.setSelectedRow(2);
    list.removeRow(2);
    EXPECT_EQ(SendMessageW(window(), LVM_GETITEMCOUNT, 0, 0), 4);
    EXPECT_EQ(list.selectedRow(), 2);
    EXPECT_EQ(shownRow(), 2);
    list.setRows({});
    EXPECT_EQ(SendMessageW(window(), LVM_GETITEMCOUNT, 0, 0), 0);
    EXPECT_EQ(shownRow(), -1);
  });
}

TEST_F(ListViewTest, RowsAreChosenByMouseAndKeys) {
  int clicks = 0;
  list.itemClick = [&] { ++clicks; };
  show([&] {
    user.clickRow(list, 2);
    EXPECT_EQ(list.selectedRow(), 2);
    user.press(Key::down, {});
    EXPECT_EQ(list.selectedRow(), 3);
    user.press(Key::home, {});
    EXPECT_EQ(list.selectedRow(), 0);
    EXPECT_EQ(clicks, 3);
    EXPECT_EQ(shownRow(), 0);
  });
}

TEST_F(ListViewTest, TypingFindsTheRow) {
  show([&] {
    list.setRows({{{u"Apple"}}, {{u"banana"}}, {{u"Cherry"}}, {{u"Blueberry"}}});
    user.press(Key::tab, {.shift = true});
    user.clickRow(list, 0);
    user.type(u"bl");
    EXPECT_EQ(list.selectedRow(), 3);
  });
}

TEST_F(ListViewTest, ADoubleClickReportsWhereItWas) {
  ui::Point last;
  int doubleClicks = 0;
  list.mouse = [&](ui::Point point) { last = point; };
  list.doubleClick = [&] { ++doubleClicks; };
  show([&] {
    user.doubleClickRow(list, 1);
    EXPECT_EQ(doubleClicks, 1);
    EXPECT_EQ(list.hitTest(last), 1);
    EXPECT_EQ(list.selectedRow(), 1);
    user.doubleClickBelow(list);
    EXPECT_EQ(doubleClicks, 2);
    EXPECT_EQ(list.hitTest(last), -1);
  });
}

TEST_F(ListViewTest, AClickBelowTheRowsKeepsTheSelection) {
  show([&] {
    user.clickRow(list, 1);
    user.doubleClickBelow(list);
    EXPECT_EQ(list.selectedRow(), 1);
    EXPECT_EQ(shownRow(), 1);
  });
}

TEST_F(ListViewTest, TwoClicksApartAreNotADoubleClick) {
  int doubleClicks = 0;
  list.doubleClick = [&] { ++doubleClicks; };
  show([&] {
    user.clickRow(list, 1);
    user.clickRow(list, 1);
    EXPECT_EQ(doubleClicks, 0);
  });
}

TEST_F(ListViewTest, AHeaderIsNotARow) {
  show([&] {
    EXPECT_EQ(list.hitTest({150, 30}), -1);
    EXPECT_EQ(list.hitTest({150, 100000}), -1);
  });
}

TEST_F(ListViewTest, AHeaderHasTheStylesOfTheListAndKeepsWhatMakesItAWindow) {
  const auto style = [&] {
    const auto header = reinterpret_cast<HWND>(SendMessageW(window(), LVM_GETHEADER, 0, 0));
    return GetWindowLongPtrW(header, GWL_STYLE);
  };
  show([&] {
    const LONG_PTR before = style();
    EXPECT_EQ(before & (HDS_BUTTONS | HDS_FULLDRAG), HDS_BUTTONS | HDS_FULLDRAG);
    EXPECT_NE(before & WS_CHILD, 0);
    EXPECT_NE(before & WS_VISIBLE, 0);
    list.setHeaderStyle(list.headerStyle() ^ ui::kHeaderButtons);
    EXPECT_EQ(style(), before & ~LONG_PTR{HDS_BUTTONS});
    list.setHeaderStyle(list.headerStyle() ^ ui::kHeaderButtons);
    EXPECT_EQ(style(), before);
    list.setHeaderStyle(0);
    EXPECT_EQ(style(), before & ~LONG_PTR{HDS_BUTTONS | HDS_FULLDRAG});
  });
}

TEST_F(ListViewTest, IconsComeFromTheImageListAndARowWithoutOneShowsNone) {
  list.setRow(2, {{u"none"}, ui::PictureId::none});
  list.setRow(3, {{u"a picture of no list"}, ui::PictureId::key});
  show([&] {
    const auto images =
        reinterpret_cast<HIMAGELIST>(SendMessageW(window(), LVM_GETIMAGELIST, LVSIL_SMALL, 0));
    EXPECT_EQ(ImageList_GetImageCount(images), 2);
    const auto icon = [&](int row) {
      LVITEMW item{};
      item.mask = LVIF_IMAGE;
      item.iItem = row;
      SendMessageW(window(), LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
      return item.iImage;
    };
    EXPECT_EQ(icon(0), 0);  // active
    EXPECT_EQ(icon(1), 1);
    EXPECT_EQ(icon(2), -1);
    EXPECT_EQ(icon(3), -1);
  });
}

TEST_F(ListViewTest, APictureWithoutATextBesideItIsToldInWordsButNotPainted) {
  list.setRow(1, {{u"", u"Text"}, ui::PictureId::inactive});
  show([&] {
    EXPECT_EQ(cell(0, 0), L"A0");
    EXPECT_EQ(cell(1, 0), L"Inactive");
    EXPECT_EQ(cell(1, 1), L"Text");
    EXPECT_GT(coloursBesideIcon(0), 1U);
    EXPECT_EQ(coloursBesideIcon(1), 1U);
  });
}

TEST_F(ListViewTest, ARowFarDownIsScrolledIntoView) {
  std::vector<ui::ListItem> rows(1000);
  list.setRows(rows);
  list.setSelectedRow(900);
  list.ensureVisible(900);
  show([&] {
    const LRESULT top = SendMessageW(window(), LVM_GETTOPINDEX, 0, 0);
    const LRESULT page = SendMessageW(window(), LVM_GETCOUNTPERPAGE, 0, 0);
    EXPECT_LE(top, 900);
    EXPECT_GE(top + page, 900);
    list.ensureVisible(0);
    EXPECT_EQ(SendMessageW(window(), LVM_GETTOPINDEX, 0, 0), 0);
  });
}

TEST_F(ListViewTest, AHundredThousandRowsOpenAsFastAsTen) {
  const auto timeToShow = [&](int count) {
    std::vector<ui::ListItem> rows;
    rows.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) rows.push_back({{u"code", u"description"}});
    list.setRows(std::move(rows));
    LARGE_INTEGER start{};
    LARGE_INTEGER end{};
    LARGE_INTEGER perSecond{};
    QueryPerformanceFrequency(&perSecond);
    show([&] {
      user.clickTab(gallery.tabs, 1);
      QueryPerformanceCounter(&start);
      user.clickTab(gallery.tabs, 2);
      QueryPerformanceCounter(&end);
      EXPECT_EQ(SendMessageW(window(), LVM_GETITEMCOUNT, 0, 0), count);
    });
    gallery.tabs.setSelected(1);
    return static_cast<double>(end.QuadPart - start.QuadPart) /
           static_cast<double>(perSecond.QuadPart);
  };
  // The best of three each: other programs use the machine too.
  const auto best = [&](int count) {
    return std::min({timeToShow(count), timeToShow(count), timeToShow(count)});
  };
  const double few = best(10);
  const double many = best(100000);
  // A list that handled every row would take seconds.
  EXPECT_LT(many, few + 0.25);
}

}  // namespace
}  // namespace tillora::testing
