#include "tests/testing/options_test.h"

#include <algorithm>

#include "tests/testing/function_ref.h"

namespace tillora::testing {

OptionsTest::OptionsTest(NumberLocale numbers) : machine(std::move(numbers)) {
  HostObjects objects = host.objects();
  options_.DBJetObject = std::move(objects.database);
  options_.AppObject = std::move(objects.app);
  options_.MsgSndObject = std::move(objects.messageSender);
  options_.ResourceObject = std::move(objects.resources);
  options_.SettingsObject = std::move(objects.settings);
  options_.OptionsChanged = [this](std::int32_t& mask) { changes.push_back(mask); };
}

void OptionsTest::TearDown() {
  EXPECT_EQ(desk->unexpectedForms(), 0);
  EXPECT_EQ(desk->unusedSteps(), 0);
  EXPECT_EQ(desk->screen().pointer(), ui::Pointer::standard);
  options_.DBJetObject.reset();
  options_.AppObject.reset();
  options_.MsgSndObject.reset();
  options_.ResourceObject.reset();
  options_.SettingsObject.reset();
  EXPECT_EQ(host.live, 0);
}

void OptionsTest::open(const FunctionRef<void(frmOptions&)>& act) {
  desk->whenShown([&](ui::Form& form) { act(dynamic_cast<frmOptions&>(form)); });
  EXPECT_TRUE(options_.ShowOptions());
}

void OptionsTest::edit(const FunctionRef<void(frmOptions&)>& act) {
  open([&](frmOptions& dialog) {
    act(dialog);
    user.accessKey(u'o');
  });
}

void OptionsTest::openOn(TabPage page, const FunctionRef<void(frmOptions&)>& act) {
  options_.SelectedTab = static_cast<std::int16_t>(page);
  open(act);
  options_.SelectedTab = 0;
}

void OptionsTest::saveDefaults() {
  options_.FirstUse = true;
  open([](frmOptions&) {});
  options_.FirstUse = false;
  host.calls.clear();
  host.sent.clear();
  changes.clear();
}

void OptionsTest::expectFailureAt(const std::string& call, TabPage page,
                                  const FunctionRef<void(frmOptions&)>& act) {
  const auto stored = host.stored;
  host.calls.clear();
  host.failingCall = call;
  options_.SelectedTab = static_cast<std::int16_t>(page);
  desk->whenShown([&](ui::Form& form) { act(dynamic_cast<frmOptions&>(form)); });
  FakeHost::expectFailure([&] { options_.ShowOptions(); });
  EXPECT_EQ(host.calls.back(), call);
  EXPECT_EQ(host.stored, stored);
  host.failingCall.clear();
  options_.SelectedTab = 0;
}

void OptionsTest::expectTabOrder(const std::vector<ui::Control*>& order) {
  for (const ui::Control* control : order) {
    EXPECT_TRUE(control->hasFocus());
    user.press(ui::Key::tab);
  }
}

void OptionsTest::enlarge(frmOptions& dialog, ui::Size by) {
  ui::Rect strip = dialog.tabOptions.bounds();
  strip.width += by.width;
  strip.height += by.height;
  dialog.tabOptions.setBounds(strip);
  const ui::Size size = dialog.clientSize();
  dialog.setClientSize({size.width + by.width, size.height + by.height});
}

void OptionsTest::untickAll(ui::CheckListBox& list) {
  for (int row = 0; row < list.count(); ++row) {
    if (list.checked(row)) user.clickCheck(list, row);
  }
}

std::vector<ui::TextBox*> OptionsTest::openBoxes(const ui::Container& page) {
  std::vector<ui::TextBox*> found;
  for (const auto& control : page.children()) {
    if (control->kind() == ui::Kind::frame) {
      const auto inner = openBoxes(static_cast<const ui::Frame&>(*control));
      found.insert(found.end(), inner.begin(), inner.end());
    } else if (control->kind() == ui::Kind::textBox && control->effectivelyEnabled()) {
      auto& box = static_cast<ui::TextBox&>(*control);
      if (!box.locked()) found.push_back(&box);
    }
  }
  return found;
}

void OptionsTest::expectSameCalls(const std::vector<std::string>& calls,
                                  const std::vector<std::string>& expected) {
  const auto [call, wanted] = std::ranges::mismatch(calls, expected);
  EXPECT_TRUE(call == calls.end() && wanted == expected.end())
      << "call " << call - calls.begin() + 1 << " is "
      << (call == calls.end() ? "missing" : "\"" + *call + "\"") << ", expected was "
      << (wanted == expected.end() ? "none" : "\"" + *wanted + "\"");
}

bool OptionsTest::applyEnabled(frmOptions& dialog) const {
  return dialog.cmdCommand[frmOptions::apply].enabled();
}

}  // namespace tillora::testing
