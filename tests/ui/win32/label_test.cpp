#include <gtest/gtest.h>

#include "tests/testing/function_ref.h"
#include "tests/testing/win32/windows_desk.h"
#include "ui/form.h"
#include "ui/label.h"

namespace tillora::testing {
namespace {

constexpr ui::Colour kRed = 0x0000FF;
constexpr ui::Colour kBlue = 0xFF0000;

class LabelTest : public ::testing::Test {
 protected:
  LabelTest() {
    form.setClientSize({6000, 3000});
    for (ui::Label* label : {&lower, &upper}) label->setBounds({150, 150, 3000, 300});
    lower.setForeColour(kRed);
    upper.setForeColour(kBlue);
    form.add<ui::CheckBox>(u"").setBounds({150, 2000, 300, 300});
  }

  /// How many pixels of a label's window have exactly this colour.
  int pixels(const ui::Label& label, COLORREF colour) {
    const HWND window = desk.windows().windowOf(label);
    RECT area{};
    GetClientRect(window, &area);
    const HDC screen = GetDC(nullptr);
    const ui::win32::MemoryDc dc(CreateCompatibleDC(screen));
    const ui::win32::Bitmap picture(CreateCompatibleBitmap(screen, area.right, area.bottom));
    ReleaseDC(nullptr, screen);
    const ui::win32::Selection selected(dc.get(), picture.get());
    SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc.get()), PRF_CLIENT);
    int count = 0;
    for (int y = 0; y < area.bottom; ++y) {
      for (int x = 0; x < area.right; ++x) count += GetPixel(dc.get(), x, y) == colour;
    }
    return count;
  }
  void show(const FunctionRef<void()>& step) {
    desk.whenShown([&](ui::Form&) { step(); });
    form.showModal();
  }

  WindowsDesk desk;
  ui::Form form{desk.screen(), u"Labels"};
  ui::Label& lower = form.add<ui::Label>(u"Text");
  ui::Label& upper = form.add<ui::Label>(u"Text");
};

TEST_F(LabelTest, OfTwoInOnePlaceTheLaterIsSeenInBothWindows) {
  show([&] {
    for (const ui::Label* label : {&lower, &upper}) {
      EXPECT_GT(pixels(*label, kBlue), 0);
      EXPECT_EQ(pixels(*label, kRed), 0);
    }
  });
}

TEST_F(LabelTest, OneThatIsBroughtToTheFrontIsSeenWhetherBeforeOrAfterItIsShown) {
  lower.bringToFront();
  show([&] {
    EXPECT_GT(pixels(upper, kRed), 0);
    EXPECT_EQ(pixels(upper, kBlue), 0);
    upper.bringToFront();
    EXPECT_GT(pixels(lower, kBlue), 0);
  });
}

TEST_F(LabelTest, AShadowShowsWhereItStandsOut) {
  lower.setBounds({165, 165, 3000, 300});
  show([&] {
    EXPECT_GT(pixels(upper, kRed), 0);
    EXPECT_GT(pixels(upper, kBlue), 0);
    lower.setVisible(false);
    EXPECT_EQ(pixels(upper, kRed), 0);
  });
}

TEST_F(LabelTest, ADecorativeOneIsDrawnAsAnyOther) {
  lower.setVisible(false);
  upper.setCaption(u"&Text");
  show([&] {
    const int before = pixels(upper, kBlue);
    upper.setDecorative(true);
    upper.setCaption(u"&Text");
    EXPECT_EQ(pixels(upper, kBlue), before);
  });
}

TEST_F(LabelTest, ADisabledOneIsGrey) {
  lower.setVisible(false);
  show([&] {
    upper.setEnabled(false);
    EXPECT_EQ(pixels(upper, kBlue), 0);
    EXPECT_GT(pixels(upper, GetSysColor(COLOR_GRAYTEXT)), 0);
  });
}

TEST_F(LabelTest, ANewCaptionTakesThePlaceOfTheOld) {
  lower.setVisible(false);
  show([&] {
    const int before = pixels(upper, kBlue);
    upper.setCaption(u"Text and more text");
    EXPECT_GT(pixels(upper, kBlue), before);
    upper.setCaption(u"");
    EXPECT_EQ(pixels(upper, kBlue), 0);
  });
}

}  // namespace
}  // namespace tillora::testing
