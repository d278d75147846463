// What is selected when a text box of a dialog receives the focus, by whatever way.
#include "identity/company_details.h"
#include "tests/testing/options_test.h"

namespace tillora::testing {
namespace {

class FocusSelection : public OptionsTest {};

TEST_F(FocusSelection, EveryWayIntoATextBoxSelectsItsText) {
  host.store(options::CompanyName, u"Corner Shop");
  host.store(options::CompanyPhone, u"08 1234 5678");
  open([&](frmOptions& dialog) {
    const auto& box = dialog.tabs().companyDetails.txtCompanyDetails;
    EXPECT_EQ(box[CompanyDetails::name].selText(), u"Corner Shop") << "at the start";
    user.click(box[CompanyDetails::phone]);
    EXPECT_EQ(box[CompanyDetails::phone].selText(), u"08 1234 5678") << "by the mouse";
    user.accessKey(u'm');
    EXPECT_EQ(box[CompanyDetails::name].selText(), u"Corner Shop") << "by its access key";
    user.press(ui::Key::end);
    user.press(ui::Key::tab);
    user.press(ui::Key::tab, {.shift = true});
    EXPECT_EQ(box[CompanyDetails::name].selText(), u"Corner Shop") << "by Tab";
  });
}

TEST_F(FocusSelection, TypingAfterAClickReplacesTheText) {
  host.store(options::CompanyPhone, u"08 1234 5678");
  edit([&](frmOptions& dialog) {
    user.click(dialog.tabs().companyDetails.txtCompanyDetails[CompanyDetails::phone]);
    user.type(u"1");
  });
  EXPECT_EQ(host.value(options::CompanyPhone), u"1");
}

}  // namespace
}  // namespace tillora::testing
