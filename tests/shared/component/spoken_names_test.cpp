// What screen readers call the controls.
#include <map>

#include "tests/testing/every_dialog.h"
#include "tests/testing/function_ref.h"

namespace tillora::testing {
namespace {

using ui::Kind;

class SpokenNames : public EveryDialogTest {
 protected:
  /// Calls `act` with every control that is seen.
  static void forEachSeen(const ui::Container& holder,
                          const FunctionRef<void(const ui::Control&)>& act) {
    for (const ui::Control* control : holder.children()) {
      if (!control->visible()) continue;
      act(*control);
      if (const auto* inner = dynamic_cast<const ui::Container*>(control)) forEachSeen(*inner, act);
    }
  }
};

TEST_F(SpokenNames, EveryControlHasOne) {
  visitEverything([](const std::string& where, ui::Form& form) {
    forEachSeen(form, [&](const ui::Control& control) {
      if (control.kind() == Kind::label) return;
      EXPECT_NE(control.spokenName(), u"")
          << "kind " << static_cast<int>(control.kind()) << " on " << where;
    });
  });
}

TEST_F(SpokenNames, TellTheControlsOfAPageApart) {
  visitEverything([](const std::string& where, ui::Form& form) {
    std::map<Text, int> named;
    forEachSeen(form, [&](const ui::Control& control) {
      // A label is called what the box after it is, a page what its tab is.
      if (control.kind() == Kind::label || control.kind() == Kind::frame) return;
      EXPECT_EQ(++named[control.spokenName()], 1)
          << toUtf8(control.spokenName()) << " on " << where;
    });
  });
}

TEST_F(SpokenNames, APasswordButtonIsCalledWhatItsDialogIs) {
  openOn(TabPage::security, [&](frmOptions& dialog) {
    Passwords& part = dialog.tabs().passwords;
    for (const auto& [index, button] : part.cmdSecurity) {
      user.click(part.chkSecurity[index]);
      desk->whenShown([&](ui::Form& form) {
        // The host's title is not known before the dialog is shown.
        const Text shown =
            index == Passwords::startAdmin ? Text(u"Password to start ") : form.caption();
        EXPECT_TRUE(button->spokenName().starts_with(shown)) << toUtf8(button->spokenName());
      });
      user.click(*button);
    }
    EXPECT_EQ(part.cmdSecurity[Passwords::transferData].caption(), u"Pa&ssword...");
  });
}

}  // namespace
}  // namespace tillora::testing
