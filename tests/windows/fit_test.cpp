// Nothing is cut off and nothing overlaps, whatever the font and the resolution: measured on the
// real windows of every page and dialog, at the resolution that the program runs with.
// tests/scripts/fit_test.sh repeats it at others.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "com/wide_text.h"
#include "tests/testing/every_dialog.h"
#include "tests/testing/win32/windows_desk.h"
#include "ui/win32/raster.h"
#include "ui/win32/window_text.h"

namespace tillora::testing {
namespace {

using ui::Kind;

struct FontOfForms {
  const wchar_t* name;  ///< null: the platform's message font
  int points;
};

int screenDpi() {
  const ui::win32::MemoryDc dc(CreateCompatibleDC(nullptr));
  return GetDeviceCaps(dc.get(), LOGPIXELSY);
}

LOGFONTW toLogFont(const FontOfForms& font) {
  if (font.name == nullptr) return ui::win32::messageFont();
  LOGFONTW wanted{};
  wanted.lfHeight = -MulDiv(font.points, screenDpi(), 72);
  wanted.lfWeight = FW_NORMAL;
  wanted.lfCharSet = DEFAULT_CHARSET;
  lstrcpynW(wanted.lfFaceName, font.name, LF_FACESIZE);
  return wanted;
}

bool isInstalled(const LOGFONTW& wanted) {
  const ui::win32::MemoryDc dc(CreateCompatibleDC(nullptr));
  const ui::win32::Font font(CreateFontIndirectW(&wanted));
  const ui::win32::Selection selected(dc.get(), font.get());
  wchar_t name[LF_FACESIZE] = L"";
  GetTextFaceW(dc.get(), LF_FACESIZE, name);
  return lstrcmpiW(name, wanted.lfFaceName) == 0;
}

HFONT fontOf(HWND window) {
  return reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0));
}

long widthOf(const RECT& rect) { return rect.right - rect.left; }
long heightOf(const RECT& rect) { return rect.bottom - rect.top; }

RECT clientOf(HWND window) {
  RECT area{};
  GetClientRect(window, &area);
  return area;
}

RECT placeOf(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  return place;
}

/// The client area where it is on the screen.
RECT insideOf(HWND window) {
  RECT area = clientOf(window);
  MapWindowPoints(window, HWND_DESKTOP, reinterpret_cast<POINT*>(&area), 2);
  return area;
}

std::string toString(const RECT& rect) {
  return "(" + std::to_string(rect.left) + " " + std::to_string(rect.top) + ", " +
         std::to_string(widthOf(rect)) + " x " + std::to_string(heightOf(rect)) + ")";
}

/// The rows of pixels in the area that are not all alike, and where the last such pixel ends.
struct Ink {
  long top = 0;
  long bottom = 0;
  long right = 0;
};

template <class Paint>
Ink inkIn(const RECT& area, Paint&& paint) {
  const ui::win32::Raster raster(area.right, area.bottom);
  const ui::win32::MemoryDc dc(CreateCompatibleDC(nullptr));
  const ui::win32::Selection selected(dc.get(), raster.bitmap());
  FillRect(dc.get(), &area, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
  paint(dc.get());
  GdiFlush();
  Ink ink{-1, -1, area.left};
  for (long row = area.top; row < area.bottom; ++row) {
    const auto width = static_cast<std::size_t>(area.right);
    const auto pixels = raster.pixels().subspan(static_cast<std::size_t>(row) * width, width);
    const auto left = pixels.begin() + area.left;
    const auto last = std::find_if(pixels.rbegin(), std::make_reverse_iterator(left),
                                   [&](std::uint32_t pixel) { return pixel != pixels.back(); });
    if (last.base() == left) continue;
    if (ink.top < 0) ink.top = row;
    ink.bottom = row + 1;
    ink.right = std::max(ink.right, static_cast<long>(last.base() - pixels.begin()));
  }
  return ink;
}

class FitTest : public EveryDialogTest, public ::testing::WithParamInterface<FontOfForms> {
 protected:
  DrivenScreen& windows() { return static_cast<WindowsDesk&>(*desk).windows(); }
  HWND windowOf(const ui::Control& control) { return windows().windowOf(control); }

  /// The size of a text in the window's own font, pixels.
  static SIZE measured(HWND window, TextView text, const ui::win32::Font* other = nullptr) {
    const ui::win32::MemoryDc dc(CreateCompatibleDC(nullptr));
    const auto font = other ? other->get() : fontOf(window);
    const ui::win32::Selection selected(dc.get(), font);
    SIZE size{};
    GetTextExtentPoint32W(dc.get(), reinterpret_cast<const wchar_t*>(text.data()),
                          static_cast<int>(text.size()), &size);
    if (text.empty()) GetTextExtentPoint32W(dc.get(), L" ", 1, &size), size.cx = 0;
    return size;
  }
  /// How wide the window's own font draws a text, pixels: some platforms measure less. What draws a
  /// text into its measure cuts off the rest.
  static long drawnWidth(HWND window, TextView text) {
    const SIZE size = measured(window, text);
    return inkIn({0, 0, size.cx * 2 + 1, size.cy},
                 [&](HDC dc) {
                   const ui::win32::Selection font(dc, fontOf(window));
                   TextOutW(dc, 0, 0, reinterpret_cast<const wchar_t*>(text.data()),
                            static_cast<int>(text.size()));
                 })
        .right;
  }
  static int pixels(int at96) { return MulDiv(at96, screenDpi(), 96); }

  void expectTextFits(const ui::Control& control, HWND window);
  void expectFits(const ui::Label& label, HWND window);
  void expectFits(const ui::TextBox& box, HWND window);
  void expectFits(const ui::ComboBox& combo, HWND window);
  void expectFits(const ui::ListView& list, HWND window);
  void expectFits(const ui::CheckListBox& list, HWND window);
  void expectFits(const ui::TabStrip& tabs, HWND window);
  void expectTidy(const ui::Container& holder);
};

void FitTest::expectFits(const ui::Label& label, HWND window) {
  const ui::win32::MemoryDc dc(CreateCompatibleDC(nullptr));
  const ui::win32::Selection selected(dc.get(), fontOf(window));
  const std::wstring text = ui::win32::forWindow(ui::withPlainAmpersandsDoubled(label.caption()));
  const RECT area = clientOf(window);
  RECT needed = area;
  DrawTextW(dc.get(), text.data(), static_cast<int>(text.size()), &needed,
            DT_CALCRECT | DT_WORDBREAK | DT_EXPANDTABS);
  EXPECT_LE(needed.bottom, area.bottom) << "the label's text is " << toString(needed);
  EXPECT_LE(needed.right, area.right);
  const Ink ink = inkIn({0, 0, area.right * 2, area.bottom}, [&](HDC target) {
    const ui::win32::Selection font(target, fontOf(window));
    RECT place = area;
    DrawTextW(target, text.data(), static_cast<int>(text.size()), &place,
              DT_NOCLIP | DT_WORDBREAK | DT_EXPANDTABS);
  });
  EXPECT_LE(ink.right, area.right) << "the label is drawn beyond its window";
}

void FitTest::expectFits(const ui::TextBox& box, HWND window) {
  RECT text{};
  SendMessageW(window, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&text));
  const SIZE digit = measured(window, u"0");
  EXPECT_GE(heightOf(text), digit.cy);
  if (box.multiLine()) return;
  constexpr int kShortBox = 5;
  const int digits = box.maxLength() > 0 ? std::min(box.maxLength(), kShortBox) : kShortBox;
  EXPECT_GE(widthOf(text), digit.cx * digits) << "room for " << digits << " digits";
  const RECT whole = placeOf(window);
  const long above = insideOf(window).top + text.top - whole.top;
  const long below = whole.bottom - whole.top - above - digit.cy;
  EXPECT_LE(std::abs(above - below), 1) << above << " pixels above the text, " << below << " below";
}

void FitTest::expectFits(const ui::ComboBox& combo, HWND window) {
  COMBOBOXINFO info{};
  info.cbSize = sizeof info;
  ASSERT_TRUE(GetComboBoxInfo(window, &info));
  EXPECT_GE(heightOf(info.rcItem), measured(window, u"0").cy);
  const auto dropped = SendMessageW(window, CB_GETDROPPEDWIDTH, 0, 0);
  for (const Text& item : combo.items()) {
    EXPECT_GE(dropped, measured(window, item).cx + GetSystemMetrics(SM_CXVSCROLL)) << toUtf8(item);
  }
  if (combo.listIndex() >= 0) {
    const SIZE size = measured(window, combo.text());
    EXPECT_GE(widthOf(info.rcItem), size.cx) << toUtf8(combo.text());
    if (GetFocus() == window) return;  // which has a rectangle around the text
    const Ink painted = inkIn(info.rcItem, [&](HDC dc) {
      SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
    });
    const Ink text = inkIn({0, 0, size.cx + 1, size.cy}, [&](HDC dc) {
      const ui::win32::Selection font(dc, fontOf(window));
      TextOutW(dc, 1, 0, ui::win32::forWindow(combo.text()).c_str(),
               static_cast<int>(combo.text().size()));
    });
    const long top = (info.rcItem.top + info.rcItem.bottom - size.cy) / 2;
    EXPECT_LE(std::abs(painted.top - (top + text.top)), 1) << toUtf8(combo.text());
    EXPECT_LE(std::abs(painted.bottom - (top + text.bottom)), 1) << toUtf8(combo.text());
  }
}

void FitTest::expectFits(const ui::ListView& list, HWND window) {
  const auto header = reinterpret_cast<HWND>(SendMessageW(window, LVM_GETHEADER, 0, 0));
  EXPECT_GE(heightOf(clientOf(header)), measured(header, u"0").cy);
  EXPECT_FALSE(GetWindowLongPtrW(window, GWL_STYLE) & WS_HSCROLL) << "a column is not in view";
  for (std::size_t i = 0; i < list.columns().size(); ++i) {
    const Text& text = list.columns()[i].header;
    if (text.empty()) continue;
    RECT place{};
    SendMessageW(header, HDM_GETITEMRECT, i, reinterpret_cast<LPARAM>(&place));
    // Without visual styles, a header has three edges beside its text and one around it.
    const int edges = 8 * GetSystemMetrics(SM_CXEDGE);
    EXPECT_GE(widthOf(place), measured(header, text).cx + edges) << toUtf8(text);
    EXPECT_LE(drawnWidth(header, text), measured(header, text).cx + 1) << toUtf8(text);
  }
}

void FitTest::expectFits(const ui::CheckListBox& list, HWND window) {
  const int last = list.count() - 1;
  for (int row = 0; row <= last; ++row) {
    RECT label{};
    label.left = LVIR_LABEL;
    SendMessageW(window, LVM_GETITEMRECT, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(&label));
    const SIZE text = measured(window, list.rows()[static_cast<std::size_t>(row)].text);
    EXPECT_LE(label.left + text.cx, clientOf(window).right)
        << toUtf8(list.rows()[static_cast<std::size_t>(row)].text);
    EXPECT_GE(heightOf(label), text.cy);
  }
}

void FitTest::expectFits(const ui::TabStrip& tabs, HWND window) {
  EXPECT_EQ(SendMessageW(window, TCM_GETROWCOUNT, 0, 0), 1);
  for (std::size_t i = 0; i < tabs.tabs().size(); ++i) {
    RECT place{};
    SendMessageW(window, TCM_GETITEMRECT, i, reinterpret_cast<LPARAM>(&place));
    const SIZE text = measured(window, tabs.tabs()[i]);
    EXPECT_GE(widthOf(place), text.cx) << toUtf8(tabs.tabs()[i]);
    EXPECT_GE(heightOf(place), text.cy);
    EXPECT_LE(place.right, clientOf(window).right);
  }
}

void FitTest::expectTextFits(const ui::Control& control, HWND window) {
  const RECT area = clientOf(window);
  const SIZE caption = measured(window, ui::withoutAccessKey(control.caption()));
  switch (control.kind()) {
    case Kind::checkBox:
    case Kind::optionButton:
      EXPECT_GE(area.right, caption.cx + pixels(13) + pixels(4));
      EXPECT_GE(area.bottom, caption.cy);
      break;
    case Kind::commandButton:
      EXPECT_GE(area.right, caption.cx + pixels(10));
      EXPECT_GE(area.bottom, caption.cy + pixels(6));
      break;
    case Kind::frame:
      if (control.caption().empty()) break;
      EXPECT_GE(area.right, caption.cx + pixels(16));
      EXPECT_LE(drawnWidth(window, ui::withoutAccessKey(control.caption())), caption.cx + 1);
      break;
    case Kind::label:
      expectFits(static_cast<const ui::Label&>(control), window);
      break;
    case Kind::textBox:
      expectFits(static_cast<const ui::TextBox&>(control), window);
      break;
    case Kind::comboBox:
      expectFits(static_cast<const ui::ComboBox&>(control), window);
      break;
    case Kind::listView:
      expectFits(static_cast<const ui::ListView&>(control), window);
      break;
    case Kind::checkListBox:
      expectFits(static_cast<const ui::CheckListBox&>(control), window);
      break;
    case Kind::tabStrip:
      expectFits(static_cast<const ui::TabStrip&>(control), window);
      break;
    default:
      break;
  }
}

bool isSeen(const ui::Control& control) {
  const auto* label = dynamic_cast<const ui::Label*>(&control);
  return control.visible() && (label == nullptr || !label->decorative());
}

bool liesOn(const ui::Control& page, const ui::Control& tabs) {
  return page.kind() == Kind::frame && tabs.kind() == Kind::tabStrip;
}

/// The control is as high as boxes and buttons are in one row.
bool isOfOneLine(const ui::Control& control) {
  const auto* box = dynamic_cast<const ui::TextBox*>(&control);
  return control.fillsRow() && (box == nullptr || !box->multiLine());
}

void FitTest::expectTidy(const ui::Container& holder) {
  const RECT inside = insideOf(windowOf(holder));
  EXPECT_FALSE(holder.scrolling().across() || holder.scrolling().down());
  std::vector<const ui::Control*> seen;
  for (const ui::Control* control : holder.children()) {
    if (isSeen(*control)) seen.push_back(control);
  }
  for (std::size_t i = 0; i < seen.size(); ++i) {
    const ui::Control& control = *seen[i];
    const HWND window = windowOf(control);
    ASSERT_NE(window, nullptr);
    const RECT place = placeOf(window);
    SCOPED_TRACE("control " + std::to_string(i) + " \"" + toUtf8(control.caption()) + "\" " +
                 toString(place));
    EXPECT_GT(widthOf(place), 0);
    RECT shared{};
    IntersectRect(&shared, &place, &inside);
    EXPECT_TRUE(EqualRect(&shared, &place))
        << "only " << toString(shared) << " is inside " << toString(inside);
    for (std::size_t j = 0; j < i; ++j) {
      const ui::Control& other = *seen[j];
      const RECT otherPlace = placeOf(windowOf(other));
      if (!liesOn(control, other) && !liesOn(other, control)) {
        EXPECT_FALSE(IntersectRect(&shared, &place, &otherPlace))
            << "overlaps \"" << toUtf8(other.caption()) << "\" " << toString(otherPlace);
      }
      const bool share = place.top < otherPlace.bottom && otherPlace.top < place.bottom;
      if (share && isOfOneLine(control) && isOfOneLine(other)) {
        EXPECT_EQ(heightOf(place), heightOf(otherPlace))
            << "\"" << toUtf8(other.caption()) << "\" in the same row";
      }
    }
    expectTextFits(control, window);
    if (const auto* inner = dynamic_cast<const ui::Container*>(&control)) expectTidy(*inner);
  }
}

TEST_P(FitTest, EveryPageAndDialogShowsAllItsControlsInFull) {
  const LOGFONTW font = toLogFont(GetParam());
  if (!isInstalled(font)) GTEST_SKIP() << "this font is not installed here";
  windows().setFont(font);
  visitEverything([this](const std::string& name, ui::Form& form) {
    SCOPED_TRACE(name);
    expectTidy(form);
  });
}

class ScreenSizeTest : public EveryDialogTest {
 protected:
  DrivenScreen& windows() { return static_cast<WindowsDesk&>(*desk).windows(); }
  HWND windowOf(const ui::Control& control) { return windows().windowOf(control); }
  static bool contains(const RECT& outer, const RECT& inner) {
    RECT shared{};
    IntersectRect(&shared, &outer, &inner);
    return EqualRect(&shared, &inner) != FALSE;
  }
  /// All of the control, as far as what holds it has room for it.
  bool isSeen(const ui::Control& control) {
    const RECT place = placeOf(windowOf(control));
    const ui::Container* holder = control.parent();
    for (; holder != nullptr; holder = holder->parent()) {
      const RECT inside = insideOf(windowOf(*holder));
      const bool fits = heightOf(place) <= heightOf(inside) && widthOf(place) <= widthOf(inside);
      if (fits && !contains(inside, place)) return false;
    }
    return true;
  }
};

TEST_F(ScreenSizeTest, EveryDialogOpensInsideTheWorkAreaAndShowsTheControlWithTheFocus) {
  visitEverything([this](const std::string& name, ui::Form& form) {
    SCOPED_TRACE(name);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(windowOf(form), MONITOR_DEFAULTTOPRIMARY), &monitor);
    const RECT whole = placeOf(windowOf(form));
    EXPECT_TRUE(contains(monitor.rcWork, whole)) << toString(whole);
    ui::Control* const first = form.activeControl();
    do {
      ui::Control* const control = form.activeControl();
      ASSERT_NE(control, nullptr);
      EXPECT_TRUE(isSeen(*control))
          << toUtf8(control->caption()) << " " << toString(placeOf(windowOf(*control)));
      user.press(ui::Key::tab);
    } while (form.activeControl() != first);
  });
}

TEST_F(ScreenSizeTest, TheOptionsDialogGrowsByItsBorderAndNeverShrinksBelowItsFirstSize) {
  open([&](frmOptions& dialog) {
    const HWND window = windowOf(dialog);
    EXPECT_TRUE(GetWindowLongPtrW(window, GWL_STYLE) & WS_THICKFRAME);
    const RECT first = placeOf(window);
    MINMAXINFO limits{};
    SendMessageW(window, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
    EXPECT_EQ(limits.ptMinTrackSize.x, widthOf(first));
    EXPECT_EQ(limits.ptMinTrackSize.y, heightOf(first));

    const HWND pageWindow = windowOf(dialog.fraFrame[0]);
    const HWND nameWindow = windowOf(dialog.tabs().companyDetails.txtCompanyDetails[0]);
    const HWND okWindow = windowOf(dialog.cmdCommand[0]);
    const RECT page = placeOf(pageWindow);
    const RECT name = placeOf(nameWindow);
    const RECT ok = placeOf(okWindow);
    constexpr int kMore = 60;
    SetWindowPos(window, nullptr, first.left, first.top, widthOf(first) + kMore,
                 heightOf(first) + kMore, SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_EQ(widthOf(placeOf(pageWindow)), widthOf(page) + kMore);
    EXPECT_EQ(heightOf(placeOf(pageWindow)), heightOf(page) + kMore);
    EXPECT_EQ(widthOf(placeOf(nameWindow)), widthOf(name) + kMore);
    EXPECT_EQ(placeOf(okWindow).left, ok.left + kMore);
    EXPECT_EQ(placeOf(okWindow).top, ok.top + kMore);
    EXPECT_FALSE(applyEnabled(dialog));
  });
}

TEST_F(ScreenSizeTest, ANewMessageFontIsFollowedWhileTheDialogIsOpen) {
  open([&](frmOptions& dialog) {
    const HWND window = windowOf(dialog);
    const HWND name = windowOf(dialog.tabs().companyDetails.txtCompanyDetails[0]);
    const RECT first = placeOf(window);
    const RECT box = placeOf(name);
    LOGFONTW larger = ui::win32::messageFont();
    larger.lfHeight = larger.lfHeight * 3 / 2;
    windows().setFont(larger);
    SendMessageW(window, WM_SETTINGCHANGE, SPI_SETNONCLIENTMETRICS, 0);
    LOGFONTW shown{};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(name, WM_GETFONT, 0, 0)), sizeof shown, &shown);
    EXPECT_EQ(shown.lfHeight, larger.lfHeight);
    EXPECT_GT(heightOf(placeOf(name)), heightOf(box));
    EXPECT_GT(widthOf(placeOf(window)), widthOf(first));
    EXPECT_FALSE(applyEnabled(dialog));
    user.type(u"Still a dialog");
    EXPECT_EQ(dialog.tabs().companyDetails.txtCompanyDetails[0].text(), u"Still a dialog");
  });
}

TEST_F(ScreenSizeTest, TheNextDialogHasTheMessageFontOfItsTime) {
  RECT first{};
  open([&](frmOptions& dialog) { first = placeOf(windowOf(dialog)); });
  LOGFONTW larger = ui::win32::messageFont();
  larger.lfHeight = larger.lfHeight * 3 / 2;
  windows().setFont(larger);
  open([&](frmOptions& dialog) {
    EXPECT_GT(widthOf(placeOf(windowOf(dialog))), widthOf(first));
    EXPECT_GT(heightOf(placeOf(windowOf(dialog))), heightOf(first));
  });
}

INSTANTIATE_TEST_SUITE_P(Fonts, FitTest,
                         ::testing::Values(FontOfForms{nullptr, 0}, FontOfForms{L"Tahoma", 8},
                                           FontOfForms{L"Tahoma", 12}, FontOfForms{L"Open Sans", 9},
                                           FontOfForms{L"DejaVu Sans", 9}),
                         [](const auto& font) {
                           if (font.param.name == nullptr) return std::string("MessageFont");
                           std::string name;
                           for (const wchar_t c : std::wstring(font.param.name)) {
                             if (c != L' ') name += static_cast<char>(c);
                           }
                           return name + std::to_string(font.param.points);
                         });

}  // namespace
}  // namespace tillora::testing
