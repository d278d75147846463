#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "component/frmOptions.h"
#include "component/options.h"
#include "tests/testing/desk.h"
#include "tests/testing/fake_host.h"
#include "tests/testing/fake_machine.h"
#include "tests/testing/function_ref.h"

namespace tillora::testing {

/// The whole component over a host in memory, with a person at the dialog:
///
///     open([&](frmOptions& dialog) { user.type(u"Corner Shop"); user.accessKey(u'o'); });
///     EXPECT_EQ(host.value(options::CompanyName), u"Corner Shop");
class OptionsTest : public ::testing::Test {
 protected:
  /// @param numbers the user's regional settings
  explicit OptionsTest(NumberLocale numbers = {});
  /// Checks that no unexpected form was shown and that nothing of the host is still held.
  void TearDown() override;

  /// Calls ShowOptions; `act` is what the person does while the dialog is open.
  void open(const FunctionRef<void(frmOptions&)>& act);
  /// The same on another tab.
  void openOn(TabPage page, const FunctionRef<void(frmOptions&)>& act);
  /// Opens the dialog and presses OK after `act`.
  void edit(const FunctionRef<void(frmOptions&)>& act);

  /// Saves the defaults once, as a first use does: what is saved after that changes nothing by
  /// itself. Forgets calls, messages and changes so far.
  void saveDefaults();

  /// Opens the dialog on a tab of a host that fails at this call. The failure must come out of
  /// ShowOptions as it was raised, with nothing called after it and no option stored.
  void expectFailureAt(const std::string& call, TabPage page,
                       const FunctionRef<void(frmOptions&)>& act);

  /// Each control has the focus in its turn when Tab is pressed over and over.
  void expectTabOrder(const std::vector<ui::Control*>& order);
  void untickAll(ui::CheckListBox& list);
  /// Makes the dialog and the tabs in it wider and higher by this much (twips).
  static void enlarge(frmOptions& dialog, ui::Size by);
  /// The text boxes of a page that can be typed into at present.
  static std::vector<ui::TextBox*> openBoxes(const ui::Container& page);

  bool applyEnabled(frmOptions& dialog) const;

  /// Says at which call two long lists first differ.
  static void expectSameCalls(const std::vector<std::string>& calls,
                              const std::vector<std::string>& expected);

  std::unique_ptr<Desk> desk = makeDesk();
  User& user = desk->user();
  FakeHost host;
  ScriptedMessageBoxes boxes{desk->screen()};
  FakeMachine machine;  // with the regional settings, before the component asks for them
  Options options_{machine.platform(desk->screen(), boxes)};
  /// The masks of OptionsChanged, one for each save.
  std::vector<std::int32_t> changes;
};

}  // namespace tillora::testing
