// A person who does anything at all, with a host and a machine that fail now and then: the dialog
// never gets into an invalid state, and whatever is stored was written by a save.
#include <gtest/gtest.h>

#include <array>
#include <iostream>

#include "identity/company_details.h"
#include "operations/layby.h"
#include "tests/testing/options_test.h"
#include "tests/testing/random_choices.h"
#include "tests/testing/whole_page.h"

namespace tillora::testing {
namespace {

using ui::Key;

class RandomUser : public OptionsTest {
 protected:
  RandomUser() {
    host.dispensingAvailable = true;
    host.classes = {{{u"Name", Text(u"Retail")}, {u"Hidden", false}},
                    {{u"Name", Text(u"Online and mail orders")}, {u"Hidden", false}}};
    host.accounts = {
        {{u"Name", Text(u"Sales")}, {u"Inactive", false}, {u"AccountType", Text(u"INC")}}};
    host.items = {{u"STOCK", u"1", u"Fuel", u"ULP", u"Unleaded", u"Sales"},
                  {u"OTHC", u"2", u"Other", u"Rounding", u"Rounding", u"Sales"}};
    host.paymentItems = {{u"Cash", u"Cash", u"Sales"}};
    host.onCall = [this](const std::string& call) { commits_ += call == "commit" ? 1 : 0; };
  }

  int below(int bound) { return random_.below(bound); }
  bool chance(int percent) { return random_.chance(percent); }
  template <class Range>
  const auto& oneOf(const Range& range) {
    return random_.oneOf(range);
  }

  /// A number of actions, in this form and in those that they open.
  void use(ui::Form& form, int actions) {
    for (int i = 0; i < actions && form.isShown() && !HasFatalFailure(); ++i) {
      if (desk->unusedSteps() == 0) {
        desk->whenShown([this](ui::Form& opened) { use(opened, below(25)); });
      }
      ++actions_;
      act(form);
      if (form.isShown()) expectSound(form);
    }
    desk->dropSteps();
  }

  void act(ui::Form& form) {
    constexpr std::array kKeys = {
        Key::tab,   Key::left, Key::right,     Key::up,    Key::down,     Key::home,   Key::end,
        Key::space, Key::del,  Key::backspace, Key::enter, Key::pageDown, Key::insert, Key::escape};
    auto* dialog = dynamic_cast<frmOptions*>(&form);
    const bool couldApply = dialog != nullptr && applyEnabled(*dialog);
    const int commits = commits_;
    const ui::Control* const left = form.activeControl();
    const Text before = textOf(left);
    switch (below(10)) {
      case 0:
      case 1: {
        const Key key = oneOf(kKeys);
        if (key == Key::escape && chance(90)) break;
        user.press(key, {.shift = chance(30), .ctrl = chance(20), .alt = false});
        break;
      }
      case 2:
      case 3:
        user.type(Text(1, static_cast<char16_t>(chance(50) ? u'0' + below(10) : below(0x100))));
        break;
      case 4:
        user.paste(clipboard());
        break;
      case 5:
        user.accessKey(static_cast<char16_t>(u'a' + below(26)));
        break;
      case 6:
        move(dialog);
        if (dialog != nullptr && dialog->isShown() && !couldApply && textOf(left) == before) {
          EXPECT_FALSE(applyEnabled(*dialog)) << "moving about enabled Apply";
        }
        break;
      case 7:
        if (chance(20)) user.press(Key::f1);
        break;
      default:
        clickAnything(form);
    }
    // A box may correct a stored text when it is left, and that is an edit.
    if (dialog != nullptr && !couldApply && textOf(left) == before) {
      EXPECT_EQ(commits_, commits) << "a save without an edit";
    }
  }

  static Text textOf(const ui::Control* control) {
    const auto* box = dynamic_cast<const ui::TextBox*>(control);
    return box != nullptr ? box->text() : Text();
  }

  void move(frmOptions* dialog) {
    if (dialog != nullptr && chance(50)) {
      user.clickTab(dialog->tabOptions, 1 + below(dialog->tabOptions.count()));
    } else {
      user.press(Key::tab, {.shift = chance(50), .ctrl = chance(30), .alt = false});
    }
  }

  Text clipboard() {
    static const std::array<Text, 14> kOdd = {Text(u""),
                                              Text(u"7"),
                                              Text(u"xx xx"),
                                              Text(u"'"),
                                              Text(5000, u'9'),
                                              Text(5, u'\0'),
                                              Text(u"12 345 678 901"),
                                              Text(u"-1,234.56"),
                                              Text(u"1e308"),
                                              Text(u"one\r\ntwo\r\n\r\n"),
                                              Text(u"\r"),
                                              Text(1, char16_t{0xD800}),
                                              Text(u"\u202E\u00A0\uFEFF\u20AC"),
                                              Text(u"%s%n|;&\"<\t")};
    return oneOf(kOdd);
  }

  void clickAnything(ui::Form& form) {
    const std::vector<ui::Control*> controls = visibleControls(form);
    if (controls.empty()) return;
    ui::Control& control = *oneOf(controls);
    switch (control.kind()) {
      case ui::Kind::comboBox: {
        auto& combo = static_cast<ui::ComboBox&>(control);
        if (combo.count() > 0) user.choose(combo, below(combo.count()));
        break;
      }
      case ui::Kind::checkListBox: {
        auto& list = static_cast<ui::CheckListBox&>(control);
        if (list.count() > 0) user.clickCheck(list, below(list.count()));
        break;
      }
      case ui::Kind::listView:
        clickList(static_cast<ui::ListView&>(control));
        break;
      case ui::Kind::upDown:
        user.spin(static_cast<ui::UpDown&>(control), chance(50) ? +1 : -1);
        break;
      case ui::Kind::tabStrip: {
        auto& tabs = static_cast<ui::TabStrip&>(control);
        user.clickTab(tabs, 1 + below(tabs.count()));
        break;
      }
      default:
        user.click(control);
    }
  }

  void clickList(ui::ListView& list) {
    if (list.count() == 0 || chance(10)) {
      user.doubleClickBelow(list);
    } else if (chance(50)) {
      user.clickRow(list, below(list.count()));
    } else {
      user.doubleClickRow(list, below(list.count()));
    }
  }

  /// What the host and the machine do while the next dialog is open.
  void prepareRound() {
    host.calls.clear();
    host.writes.clear();
    host.tableSteps = 0;
    host.sent.clear();
    changes.clear();
    boxes.shown.clear();
    machine.help.topics.clear();
    machine.files.listed.clear();
    machine.fileDialogs.shown.clear();
    host.failingNumber = chance(15) ? below(600) : -1;
    host.failingStep = chance(10) ? below(300) : -1;
    machine.registry.writesFail = chance(10);
    machine.registry.readsFail = chance(10);
    machine.registry.readOnly = chance(10);
    boxes.answers.clear();
    constexpr std::array kAnswers = {MessageResult::ok, MessageResult::yes, MessageResult::no,
                                     MessageResult::cancel};
    for (int i = below(8); i > 0; --i) boxes.answers.push_back(oneOf(kAnswers));
    machine.fileDialogs.answers.clear();
    static const std::array<std::optional<Text>, 4> kFiles = {
        std::nullopt, u"C:\\Books\\Shop.lvd", u"D:\\\u20AC\\other", u"shortcut.url"};
    for (int i = below(4); i > 0; --i) machine.fileDialogs.answers.push_back(oneOf(kFiles));
    options_.SelectedTab = static_cast<std::int16_t>(chance(50) ? 0 : 1 + below(12));
    options_.FirstUse = chance(3);
  }

  /// One dialog from its opening to its end. What it leaves is in order even if it fails.
  void sit(int actions) {
    prepareRound();
    const auto before = host.stored;
    const int commits = commits_;
    const int live = host.live;
    const bool mayFail = host.failingNumber >= 0 || host.failingStep >= 0;
    desk->whenShown([&](ui::Form& form) {
      if (!options_.FirstUse) {
        EXPECT_FALSE(applyEnabled(dynamic_cast<frmOptions&>(form)));
      }
      use(form, actions);
    });
    try {
      options_.ShowOptions();
      EXPECT_EQ(host.sent.size(), changes.size());
    } catch (const Error& error) {
      ++failures_;
      EXPECT_TRUE(mayFail) << error.what();
      EXPECT_EQ(error.number(), FakeHost::failure().number()) << error.what();
    }
    desk->dropSteps();
    if (commits_ == commits) {
      EXPECT_EQ(host.stored, before);
    }
    saves_ += commits_ - commits;
    EXPECT_EQ(host.live, live);
    EXPECT_EQ(host.liveRecords, 0);
    EXPECT_EQ(desk->unexpectedForms(), 0);
    EXPECT_EQ(desk->screen().pointer(), ui::Pointer::standard);
  }

  void expectSound(ui::Form& form) {
    const ui::Control* active = form.activeControl();
    ASSERT_NE(active, nullptr);
    ASSERT_TRUE(active->canFocus());
    ASSERT_FALSE(form.isBusy());
    ASSERT_EQ(desk->screen().pointer(), ui::Pointer::standard);
    for (const ui::Control* control : visibleControls(form)) {
      if (control->kind() != ui::Kind::textBox) continue;
      const auto& box = static_cast<const ui::TextBox&>(*control);
      ASSERT_LE(box.selStart() + box.selLength(), static_cast<int>(box.text().size()));
    }
    if (auto* dialog = dynamic_cast<frmOptions*>(&form)) expectSoundDialog(*dialog);
  }

  static void expectSoundDialog(frmOptions& dialog) {
    for (const auto& [index, frame] : dialog.fraFrame) {
      ASSERT_EQ(frame->visible(), index == dialog.tabOptions.selected() - 1);
    }
    const auto& box = dialog.tabs().companyDetails.txtCompanyDetails;
    const bool writesLines = box[CompanyDetails::address].hasFocus() ||
                             dialog.tabs().laybyOptions.txtLayby[LaybyOptions::terms].hasFocus();
    ASSERT_EQ(dialog.defaultButton() == nullptr, writesLines);
    for (const auto& [index, text] : box) {
      if (text->maxLength() > 0) {
        ASSERT_LE(static_cast<int>(text->text().size()), text->maxLength()) << index;
      }
    }
  }

  long actions_ = 0;
  int saves_ = 0;
  int failures_ = 0;
  RandomChoices random_;

 private:
  int commits_ = 0;
};

TEST_F(RandomUser, NeverGetsTheDialogIntoABadState) {
  long wanted = isLongRun() ? 1'000'000 : 5'000;
  if (desk->hasWindows()) wanted = isLongRun() ? 50'000 : 150;
  if (isLongRun()) std::cout << "seed " << random_.seed() << std::endl;  // a crash must not lose it
  while (actions_ < wanted && !HasFailure()) sit(200);
  if (isLongRun() || HasFailure()) {
    std::cout << "seed " << random_.seed() << ": " << actions_ << " actions, " << saves_
              << " saves, " << failures_ << " failures of the host\n";
  }
  EXPECT_GT(saves_, 0);
  EXPECT_GT(failures_, 0);
}

}  // namespace
}  // namespace tillora::testing
