// A person who does anything at all: the dialog never gets into an invalid state, and whatever is
// stored was written by a save.
#include <gtest/gtest.h>

#include <array>
#include <random>

#include "identity/company_details.h"
#include "operations/layby.h"
#include "tests/testing/options_test.h"

namespace tillora::testing {
namespace {

using ui::Key;

class RandomUser : public OptionsTest {
 protected:
  int below(int bound) { return std::uniform_int_distribution(0, bound - 1)(random_); }
  bool chance(int percent) { return below(100) < percent; }

  void act(frmOptions& dialog) {
    constexpr std::array kKeys = {Key::tab,  Key::left,      Key::right, Key::up,
                                  Key::down, Key::home,      Key::end,   Key::space,
                                  Key::del,  Key::backspace, Key::f1};
    switch (below(8)) {
      case 0:
      case 1:
        user.press(kKeys[static_cast<std::size_t>(below(static_cast<int>(kKeys.size())))],
                   {.shift = chance(30), .ctrl = chance(10), .alt = false});
        break;
      case 2:
      case 3:
        user.type(Text(1, static_cast<char16_t>(chance(50) ? u'0' + below(10) : below(0x100))));
        break;
      case 4:
        user.paste(Text(static_cast<std::size_t>(below(6)), u"7x '"[below(4)]));
        break;
      case 5:
        user.accessKey(static_cast<char16_t>(u'a' + below(26)));
        break;
      case 6:
        user.clickTab(dialog.tabOptions, 1 + below(dialog.tabOptions.count()));
        break;
      default:
        clickAnything(dialog);
    }
  }

  void clickAnything(frmOptions& dialog) {
    std::vector<ui::Control*> controls;
    collect(dialog.fraFrame[dialog.tabOptions.selected() - 1], controls);
    if (controls.empty() || chance(20)) {
      user.click(dialog.cmdCommand[below(4)]);
      return;
    }
    ui::Control& control =
        *controls[static_cast<std::size_t>(below(static_cast<int>(controls.size())))];
    if (control.kind() == ui::Kind::comboBox) {
      auto& combo = static_cast<ui::ComboBox&>(control);
      user.choose(combo, below(combo.count()));
    } else if (control.kind() == ui::Kind::checkListBox) {
      auto& list = static_cast<ui::CheckListBox&>(control);
      user.clickCheck(list, below(list.count()));
    } else if (control.kind() == ui::Kind::upDown) {
      user.spin(static_cast<ui::UpDown&>(control), chance(50) ? +1 : -1);
    } else {
      user.click(control);
    }
  }

  static void collect(const ui::Container& holder, std::vector<ui::Control*>& controls) {
    for (const auto& control : holder.children()) {
      if (control->kind() == ui::Kind::frame) {
        collect(static_cast<const ui::Frame&>(*control), controls);
      } else if (control->effectivelyVisible()) {
        controls.push_back(control);
      }
    }
  }

  void expectSound(frmOptions& dialog) {
    const ui::Control* active = dialog.activeControl();
    ASSERT_NE(active, nullptr);
    ASSERT_TRUE(active->canFocus());
    for (const auto& [index, frame] : dialog.fraFrame) {
      ASSERT_EQ(frame->visible(), index == dialog.tabOptions.selected() - 1);
    }
    const auto& box = dialog.tabs().companyDetails.txtCompanyDetails;
    const bool writesLines = box[CompanyDetails::address].hasFocus() ||
                             dialog.tabs().laybyOptions.txtLayby[LaybyOptions::terms].hasFocus();
    ASSERT_EQ(dialog.defaultButton() == nullptr, writesLines);
    for (const auto& [index, text] : box) {
      const int size = static_cast<int>(text->text().size());
      ASSERT_LE(text->selStart() + text->selLength(), size);
      if (text->maxLength() > 0) {
        ASSERT_LE(size, text->maxLength()) << index;
      }
    }
    ASSERT_EQ(desk->screen().pointer(), ui::Pointer::standard);
  }

 private:
  std::mt19937 random_{20261120};
};

TEST_F(RandomUser, NeverGetsTheDialogIntoABadState) {
  host.dispensingAvailable = true;
  host.classes = {{{u"Name", Text(u"Retail")}, {u"Hidden", false}},
                  {{u"Name", Text(u"Online and mail orders")}, {u"Hidden", false}}};
  std::size_t saves = 0;
  for (int round = 0; round < 200 && !HasFatalFailure(); ++round) {
    const auto before = host.stored;
    changes.clear();
    open([&](frmOptions& dialog) {
      for (int i = 0; i < 200 && dialog.isShown() && !HasFatalFailure(); ++i) {
        // A dialog over this one is shown and closed.
        if (desk->unusedSteps() == 0) desk->whenShown([](ui::Form&) {});
        act(dialog);
        if (dialog.isShown()) expectSound(dialog);
      }
      desk->dropSteps();
    });
    if (changes.empty()) {
      ASSERT_EQ(host.stored, before);
    }
    saves += changes.size();
  }
  EXPECT_EQ(saves, host.sent.size());
  EXPECT_GT(saves, 50U);
}

}  // namespace
}  // namespace tillora::testing
