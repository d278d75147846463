#include "operations/frmPumpGrade.h"

#include "sales/frmBrowseItems.h"
#include "tests/testing/function_ref.h"
#include "tests/testing/options_test.h"

namespace tillora::testing {
namespace {

using ui::Key;

class PumpGradeDialogTest : public OptionsTest {
 protected:
  PumpGradeDialogTest() {
    host.items = {{u"STOCK", u"100", u"Fuel", u"Unleaded", u"", u""},
                  {u"PART", u"101", u"", u"Diesel", u"", u""}};
    form.EditMode = true;
    form.GradeNumber = 3;
    form.Caption = u"ULP";
    form.Product = u"Fuel:Unleaded";
  }
  void show(const FunctionRef<void()>& act) {
    form.DBJetObject = options_.DBJetObject;
    form.SettingsObject = options_.SettingsObject;
    desk->whenShown([&](ui::Form&) { act(); });
    form.showModal();
  }
  void browse(const FunctionRef<void(frmBrowseItems&)>& act) {
    desk->whenShown([&](ui::Form& shown) { act(dynamic_cast<frmBrowseItems&>(shown)); });
    user.click(form.cmdPumpGrade[frmPumpGrade::browse]);
  }
  ui::TextBox& box(int index) { return form.txtPumpGrade[index]; }

  frmPumpGrade form{desk->screen()};
};

TEST_F(PumpGradeDialogTest, TheTextsOfTheDialog) {
  EXPECT_EQ(form.caption(), u"Edit Pump Grade Information");
  show([&] {
    EXPECT_EQ(form.lblPumpGrade[frmPumpGrade::captionLabel].caption(), u"Caption");
    EXPECT_EQ(form.lblPumpGrade[frmPumpGrade::productLabel].caption(), u"Product");
    const auto& command = form.cmdPumpGrade;
    EXPECT_EQ(command[0].caption(), u"OK");
    EXPECT_EQ(command[0].toolTip(), u"Accept all changes then close this window");
    EXPECT_TRUE(command[0].isDefault());
    EXPECT_EQ(command[1].caption(), u"&Cancel");
    EXPECT_EQ(command[1].toolTip(), u"Cancel all changes and close this window");
    EXPECT_TRUE(command[1].isCancel());
    EXPECT_EQ(command[2].caption(), u"&Browse...");
    EXPECT_EQ(command[2].toolTip(), u"Browse and select a product for this Grade");
  });
}

TEST_F(PumpGradeDialogTest, SaysWhetherTheGradeIsNewAndItsNumber) {
  show([&] {
    EXPECT_EQ(form.caption(), u"Edit Pump Grade Information");
    EXPECT_EQ(form.lblPumpGrade[frmPumpGrade::heading].caption(), u"Edit information for grade 3");
    EXPECT_EQ(box(frmPumpGrade::captionBox).text(), u"ULP");
    EXPECT_EQ(box(frmPumpGrade::productBox).text(), u"Fuel:Unleaded");
  });
  form.EditMode = false;
  form.GradeNumber = 15;
  show([&] {
    EXPECT_EQ(form.caption(), u"New Pump Grade Information");
    EXPECT_EQ(form.lblPumpGrade[frmPumpGrade::heading].caption(),
              u"Create information for grade 15");
  });
}

TEST_F(PumpGradeDialogTest, BeginsInTheCaptionWithItsTextSelectedAndTabsOn) {
  show([&] {
    EXPECT_TRUE(box(frmPumpGrade::captionBox).hasFocus());
    EXPECT_EQ(box(frmPumpGrade::captionBox).selText(), u"ULP");
    const std::vector<ui::Control*> order = {&box(0), &box(1), &form.cmdPumpGrade[2],
                                             &form.cmdPumpGrade[0], &form.cmdPumpGrade[1]};
    for (const ui::Control* control : order) {
      EXPECT_EQ(form.activeControl(), control);
      user.press(Key::tab);
    }
  });
}

TEST_F(PumpGradeDialogTest, EnterFromTheCaptionStoresIt) {
  show([&] {
    user.type(u"Premium");
    user.press(Key::enter);
    EXPECT_FALSE(form.isShown());
  });
  EXPECT_FALSE(form.Cancelled());
  EXPECT_EQ(form.Caption, u"Premium");
}

TEST_F(PumpGradeDialogTest, OkByTheMouseStoresTheCaptionToo) {
  show([&] {
    user.paste(u" a&b 'c' ");
    user.click(form.cmdPumpGrade[frmPumpGrade::ok]);
    EXPECT_FALSE(form.isShown());
  });
  EXPECT_FALSE(form.Cancelled());
  EXPECT_EQ(form.Caption, u" a&b 'c' ");
}

TEST_F(PumpGradeDialogTest, TheCaptionMayBeOfAnyLength) {
  for (const std::size_t length : {std::size_t{0}, std::size_t{256}, std::size_t{40000}}) {
    show([&] {
      user.press(Key::del);
      user.paste(Text(length, u'x'));
      user.press(Key::enter);
    });
    EXPECT_EQ(form.Caption, Text(length, u'x'));
  }
}

TEST_F(PumpGradeDialogTest, TheBoxesHaveTheirNumbers) {
  show([&] {
    EXPECT_EQ(box(0).text(), u"ULP");
    EXPECT_EQ(box(1).text(), u"Fuel:Unleaded");
  });
}

TEST_F(PumpGradeDialogTest, TheCaptionIsStoredWhenItsBoxIsLeft) {
  show([&] {
    user.type(u"Premium");
    EXPECT_EQ(form.Caption, u"ULP");
    user.press(Key::tab);
    EXPECT_EQ(form.Caption, u"Premium");
  });
}

TEST_F(PumpGradeDialogTest, EveryWayOutButOkCancels) {
  const std::vector<std::function<void()>> ways = {
      [&] { user.click(form.cmdPumpGrade[frmPumpGrade::cancel]); }, [&] { user.accessKey(u'c'); },
      [&] { user.press(Key::escape); }, [&] { user.closeWindow(form); },
      [&] { user.press(Key::f4, {.alt = true}); }};
  for (const auto& leave : ways) {
    show([&] {
      user.type(u"x");
      leave();
      EXPECT_FALSE(form.isShown());
    });
    EXPECT_TRUE(form.Cancelled());
    EXPECT_EQ(form.Caption, u"ULP");
  }
  show([&] { user.press(Key::enter); });
  EXPECT_FALSE(form.Cancelled());
}

TEST_F(PumpGradeDialogTest, TheProductIsFilledByTheBrowserOnly) {
  show([&] {
    user.click(box(frmPumpGrade::productBox));
    EXPECT_EQ(box(frmPumpGrade::productBox).selText(), u"Fuel:Unleaded");
    user.type(u"x");
    user.press(Key::del);
    EXPECT_EQ(box(frmPumpGrade::productBox).text(), u"Fuel:Unleaded");
    browse([&](frmBrowseItems& browser) {
      EXPECT_EQ(browser.caption(), u"Grade Product");
      EXPECT_EQ(browser.lblLabel.caption(),
                u"Select the Product to be associated with the grade, then click the OK button.");
      EXPECT_EQ(browser.SelectedValue, u"Fuel:Unleaded");
      EXPECT_EQ(browser.ltvItems.selectedRow(), 1);
      EXPECT_NE(browser.SettingsObject, nullptr);
      user.clickRow(browser.ltvItems, 0);
      user.press(Key::enter);
    });
    EXPECT_TRUE(form.cmdPumpGrade[frmPumpGrade::browse].hasFocus());
    EXPECT_EQ(box(frmPumpGrade::productBox).text(), u"Diesel");
    user.press(Key::tab);
    user.press(Key::enter);
  });
  EXPECT_EQ(form.Product, u"Diesel");
  EXPECT_FALSE(form.Cancelled());
}

TEST_F(PumpGradeDialogTest, ACancelledBrowserLeavesTheProduct) {
  show([&] {
    browse([&](frmBrowseItems& browser) {
      user.clickRow(browser.ltvItems, 0);
      user.press(Key::escape);
    });
    EXPECT_EQ(box(frmPumpGrade::productBox).text(), u"Fuel:Unleaded");
  });
  EXPECT_EQ(form.Product, u"Fuel:Unleaded");
}

TEST_F(PumpGradeDialogTest, NoProductGoesInAsNothingAndComesBackAsNone) {
  form.Product = kNoProduct;
  show([&] {
    browse([&](frmBrowseItems& browser) {
      EXPECT_EQ(browser.SelectedValue, u"");
      EXPECT_EQ(browser.ltvItems.selectedRow(), 0);
      user.press(Key::escape);
    });
    EXPECT_EQ(box(frmPumpGrade::productBox).text(), u"(None)");
    host.items.clear();
    browse([&](frmBrowseItems&) { user.press(Key::enter); });
    EXPECT_EQ(box(frmPumpGrade::productBox).text(), u"(None)");
    user.click(form.cmdPumpGrade[frmPumpGrade::ok]);
  });
  EXPECT_EQ(form.Product, u"(None)");
}

TEST_F(PumpGradeDialogTest, AnEmptyProductBecomesNoneOnceBrowsed) {
  form.Product = u"";
  show([&] {
    EXPECT_EQ(box(frmPumpGrade::productBox).text(), u"");
    browse([&](frmBrowseItems&) { user.press(Key::escape); });
    EXPECT_EQ(box(frmPumpGrade::productBox).text(), u"(None)");
  });
}

TEST_F(PumpGradeDialogTest, ReleasesTheHostsObjectsWhenItCloses) {
  for (const Key key : {Key::enter, Key::escape}) {
    show([&] { user.press(key); });
    EXPECT_EQ(form.DBJetObject, nullptr);
    EXPECT_EQ(form.SettingsObject, nullptr);
  }
}

}  // namespace
}  // namespace tillora::testing
