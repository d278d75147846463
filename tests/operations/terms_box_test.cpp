#include "operations/layby.h"
#include "tests/testing/headless_desk.h"
#include "tests/testing/options_test.h"

namespace tillora::testing {
namespace {

// On a screen whose pixels are not square, width and height cannot be confused.
class TermsBoxTest : public OptionsTest {
 protected:
  TermsBoxTest() {
    dynamic_cast<HeadlessScreen&>(desk->screen()).pixel = {.width = 12, .height = 20};
  }
};

TEST_F(TermsBoxTest, TheMarginBelowIsTheLeftOneInPixels) {
  openOn(TabPage::layby, [&](frmOptions& dialog) {
    const ui::Rect page = dialog.tabOptions.clientArea();
    const ui::Rect& place = dialog.tabs().laybyOptions.txtLayby[LaybyOptions::terms].bounds();
    ASSERT_GT(place.left, 0);
    EXPECT_EQ(place.width, page.width - 2 * place.left);
    EXPECT_EQ(place.height, page.height - place.top - 20 * (place.left / 12));
  });
}

}  // namespace
}  // namespace tillora::testing
