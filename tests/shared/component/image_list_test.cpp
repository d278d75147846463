// The image list of the options dialog, and the lists that take their icons from it.
#include "identity/web_sites.h"
#include "operations/pump.h"
#include "operations/random_price.h"
#include "tests/testing/options_test.h"

namespace tillora::testing {
namespace {

class OptionsImages : public OptionsTest {};

TEST_F(OptionsImages, ActiveIsTheFirstAndInactiveTheSecond) {
  open([](frmOptions& dialog) {
    EXPECT_EQ(dialog.ilstImages.indexOf(ui::PictureId::active), 1);
    EXPECT_EQ(dialog.ilstImages.indexOf(ui::PictureId::inactive), 2);
    EXPECT_EQ(dialog.ilstImages.pictures().size(), 2U);
  });
}

TEST_F(OptionsImages, ListsWithIconsTakeThemFromIt) {
  open([](frmOptions& dialog) {
    EXPECT_EQ(dialog.tabs().webSites.ltvWeb.smallIcons(), &dialog.ilstImages);
    EXPECT_EQ(dialog.tabs().randomPrice.ltvRandomPrice.smallIcons(), &dialog.ilstImages);
    EXPECT_EQ(dialog.tabs().pumpGrades.ltvPump.smallIcons(), nullptr);
  });
}

}  // namespace
}  // namespace tillora::testing
