#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <initializer_list>

#include "tests/testing/win32/gallery.h"
#include "tests/testing/win32/windows_desk.h"
#include "ui/win32/raster.h"

// Texts in a dark scheme of colours, with the theme that the system has, which may be a light one.
namespace tillora::testing {
namespace {

/// Light texts on dark grounds during its lifetime, in all programs of the desktop.
class DarkColours {
 public:
  DarkColours() {
    std::ranges::transform(kElements, former_.begin(), GetSysColor);
    constexpr COLORREF kDark = RGB(32, 32, 32);
    constexpr COLORREF kLight = RGB(255, 255, 255);
    set({kDark, kLight, RGB(0, 0, 0), kLight});
  }
  DarkColours(const DarkColours&) = delete;
  DarkColours& operator=(const DarkColours&) = delete;
  ~DarkColours() { set(former_); }

 private:
  using Colours = std::array<COLORREF, 4>;
  static constexpr std::array<int, 4> kElements = {COLOR_BTNFACE, COLOR_BTNTEXT, COLOR_WINDOW,
                                                   COLOR_WINDOWTEXT};
  static void set(const Colours& colours) {
    SetSysColors(static_cast<int>(kElements.size()), kElements.data(), colours.data());
    // Wine's common controls keep the former colours until one of them gets this message.
    const ui::win32::Window told(CreateWindowExW(0, WC_LISTVIEWW, L"", WS_POPUP, 0, 0, 0, 0,
                                                 nullptr, nullptr, nullptr, nullptr));
    SendMessageW(told.get(), WM_SYSCOLORCHANGE, 0, 0);
  }
  Colours former_{};
};

double brightness(std::uint32_t pixel) {
  const auto linear = [&](int shift) { return std::pow((pixel >> shift & 0xFF) / 255.0, 2.2); };
  return 0.2126 * linear(16) + 0.7152 * linear(8) + 0.0722 * linear(0);
}

class DarkColoursTest : public ::testing::Test {
 protected:
  HWND windowOf(const ui::Control& control) { return desk.windows().windowOf(control); }

  /// The contrast between the lightest and the darkest pixel that a window shows in an area, as the
  /// accessibility guidelines measure it.
  static double contrastIn(HWND window, const RECT& area) {
    const ui::win32::Raster raster(area.right - area.left, area.bottom - area.top);
    const ui::win32::MemoryDc dc(CreateCompatibleDC(nullptr));
    const ui::win32::Selection selected(dc.get(), raster.bitmap());
    const HDC shown = GetDC(window);
    BitBlt(dc.get(), 0, 0, area.right - area.left, area.bottom - area.top, shown, area.left,
           area.top, SRCCOPY);
    ReleaseDC(window, shown);
    GdiFlush();
    const auto [darkest, lightest] = std::ranges::minmax(raster.pixels(), {}, brightness);
    return (brightness(lightest) + 0.05) / (brightness(darkest) + 0.05);
  }
  static RECT clientOf(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    return area;
  }
  static RECT inside(RECT area, int margin) {
    InflateRect(&area, -margin, -margin);
    return area;
  }

  const DarkColours dark;
  WindowsDesk desk;
  Gallery gallery{desk.screen()};
};

constexpr double kReadable = 4.5;

TEST_F(DarkColoursTest, TextsOfLabelsBoxesAndGroupsCanBeRead) {
  desk.whenShown([&](ui::Form&) {
    for (const ui::Control* control :
         std::initializer_list<const ui::Control*>{&gallery.nameLabel, &gallery.amount}) {
      const HWND window = windowOf(*control);
      EXPECT_GE(contrastIn(window, inside(clientOf(window), 2)), kReadable);
    }
    const HWND group = windowOf(gallery.group);
    RECT caption = clientOf(group);
    caption.left += 10;  // beside the line around the group
    caption.right = caption.left + 30;
    caption.bottom = 13;
    EXPECT_GE(contrastIn(group, caption), kReadable);
  });
  gallery.showModal();
}

TEST_F(DarkColoursTest, TheCaptionOfEveryTabCanBeRead) {
  desk.whenShown([&](ui::Form&) {
    const HWND strip = windowOf(gallery.tabs);
    for (WPARAM tab = 0; tab < gallery.tabs.tabs().size(); ++tab) {
      RECT place{};
      SendMessageW(strip, TCM_GETITEMRECT, tab, reinterpret_cast<LPARAM>(&place));
      EXPECT_GE(contrastIn(strip, inside(place, 4)), kReadable) << tab;
    }
  });
  gallery.showModal();
}

TEST_F(DarkColoursTest, HeadersOfListsCanBeRead) {
  desk.whenShown([&](ui::Form&) {
    gallery.tabs.setSelected(2);
    desk.windows().pumpUntilIdle();
    const auto header =
        reinterpret_cast<HWND>(SendMessageW(windowOf(gallery.list), LVM_GETHEADER, 0, 0));
    RECT place{};
    SendMessageW(header, HDM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&place));
    EXPECT_GE(contrastIn(header, inside(place, 4)), kReadable);
  });
  gallery.showModal();
}

}  // namespace
}  // namespace tillora::testing
