// Values of every type, sensible or not, for every member of the component's classes, and from
// every member of a host's objects: they are taken or refused, and nothing is left.
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <iostream>
#include <set>

#include "base/error.h"
#include "component/automation/random_price_record.h"
#include "component/contract/option_table.h"
#include "tests/component/automation/options_fixture.h"
#include "tests/reliability/win32/random_variant.h"

namespace tillora::automation {
namespace {

using testing::isLongRun;
using testing::RandomChoices;
using testing::RandomVariant;
using testing::ScriptedObject;
using win32::ComPtr;
using win32::Variant;

class RandomValuesTest : public OptionsObjectTest {
 protected:
  /// Calls any member in any way with any values, and forgets them again.
  HRESULT callAny(IDispatch& called) {
    constexpr std::array<WORD, 8> kWays = {DISPATCH_METHOD,
                                           DISPATCH_PROPERTYGET,
                                           DISPATCH_PROPERTYPUT,
                                           DISPATCH_PROPERTYPUTREF,
                                           DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                                           DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF,
                                           0,
                                           0xFFFF};
    const DISPID member = random.below(13) - 1;
    const WORD way = random.chance(50) ? kWays[2] : random.oneOf(kWays);
    const bool isPut = (way & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    std::vector<std::unique_ptr<RandomVariant>> values;
    std::vector<VARIANT> arguments;
    for (int i = random.chance(80) ? (isPut ? 1 : 0) : random.below(4); i > 0; --i) {
      values.push_back(std::make_unique<RandomVariant>(random));
      arguments.push_back(values.back()->get());
    }
    const std::vector<VARIANT> before = arguments;
    DISPID newValue = DISPID_PROPERTYPUT;
    const bool isNamed = isPut && !arguments.empty() && random.chance(90);
    DISPPARAMS parameters{arguments.data(), isNamed ? &newValue : nullptr,
                          static_cast<UINT>(arguments.size()), isNamed ? 1U : 0U};
    Variant result;
    EXCEPINFO exception{};
    UINT wrong = 0;
    const HRESULT called_ = called.Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, way, &parameters,
                                          random.chance(80) ? result.address() : nullptr,
                                          random.chance(80) ? &exception : nullptr,
                                          random.chance(80) ? &wrong : nullptr);
    for (BSTR text : {exception.bstrSource, exception.bstrDescription, exception.bstrHelpFile}) {
      SysFreeString(text);
    }
    EXPECT_TRUE(arguments.empty() || std::memcmp(arguments.data(), before.data(),
                                                 arguments.size() * sizeof(VARIANT)) == 0);
    if (&called == static_cast<IDispatch*>(object.get())) forgetObjects();
    for (const auto& value : values) EXPECT_EQ(value->heldReferences(), 0U);
    return called_;
  }

  void forgetObjects() {
    object->putref_DBJetObject(nullptr);
    object->putref_AppObject(nullptr);
    object->putref_MsgSndObject(nullptr);
    object->putref_ResourceObject(nullptr);
    object->putref_SettingsObject(nullptr);
  }

  int rounds(int everyDay, int inALongRun) const { return isLongRun() ? inALongRun : everyDay; }
  void report(int count, const char* what) const {
    if (isLongRun()) std::cout << "seed " << random.seed() << ": " << count << what << '\n';
  }

  RandomChoices random;
};

TEST_F(RandomValuesTest, ForEveryMemberOfOptionsAreTakenOrRefused) {
  std::set<HRESULT> results;
  const int calls = rounds(20'000, 2'000'000);
  for (int i = 0; i < calls && !HasFailure(); ++i) results.insert(callAny(*object.get()));
  for (const HRESULT usual : {S_OK, DISP_E_MEMBERNOTFOUND, DISP_E_BADPARAMCOUNT,
                              DISP_E_TYPEMISMATCH, DISP_E_OVERFLOW, DISP_E_EXCEPTION}) {
    EXPECT_TRUE(results.contains(usual)) << std::hex << usual;
  }
  report(calls, " calls of Options");

  giveHost();
  object->put_FirstUse(VARIANT_FALSE);
  object->put_SelectedTab(0);
  whileOpen([&](frmOptions& dialog) {
    rename(dialog, u"Corner Shop");
    desk.user().accessKey(u'o');
  });
  client->call(u"ShowOptions");
  EXPECT_EQ(host.value(options::CompanyName), u"Corner Shop");
  EXPECT_EQ(host.sent.size(), 1U);
}

TEST_F(RandomValuesTest, ForEveryMemberOfTheRecordAreTakenOrRefused) {
  const auto record = ComPtr<IDispatch>::adopt(new RandomPriceRecord);
  const int calls = rounds(20'000, 2'000'000);
  int taken = 0;
  for (int i = 0; i < calls && !HasFailure(); ++i) taken += callAny(*record.get()) == S_OK ? 1 : 0;
  EXPECT_GT(taken, calls / 20);
  report(calls, " calls of clsRandomPrice");
}

TEST_F(RandomValuesTest, AWholeNumberIsTakenAsThePlatformConvertsIt) {
  DispatchObject record(ComPtr<IDispatch>::adopt(new RandomPriceRecord), u"clsRandomPrice");
  DISPID newValue = DISPID_PROPERTYPUT;
  const int puts = rounds(20'000, 1'000'000);
  int taken = 0;
  for (int i = 0; i < puts && !HasFailure(); ++i) {
    RandomVariant given(random);
    VARIANT argument = given.get();
    // What the platform does not survive itself.
    const bool isNone = argument.vt == VT_DECIMAL && argument.decVal.scale > 28;
    if ((argument.vt & VT_BYREF) != 0 || isNone) continue;
    const LONG before = record.getLong(u"mlPrefix");
    DISPPARAMS parameters{&argument, &newValue, 1, 1};
    const HRESULT put =
        record.object()->Invoke(3, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &parameters,
                                nullptr, nullptr, nullptr);
    Variant theirs;
    const HRESULT converted =
        VariantChangeTypeEx(theirs.address(), &argument, LOCALE_USER_DEFAULT, 0, VT_I4);
    const LONG after = record.getLong(u"mlPrefix");
    if (SUCCEEDED(put)) {
      EXPECT_EQ(converted, S_OK) << "type " << argument.vt;
      EXPECT_EQ(after, theirs.get().lVal) << "type " << argument.vt;
      ++taken;
    } else {
      EXPECT_EQ(after, before) << "type " << argument.vt;
      // An unsigned number beyond a Long is refused where the platform makes it negative.
      EXPECT_TRUE(FAILED(converted) || put == DISP_E_OVERFLOW) << "type " << argument.vt;
    }
  }
  EXPECT_GT(taken, puts / 10);
  report(puts, " numbers");
}

/// A host that gives anything instead of what it stores.
class RandomHostTest : public RandomValuesTest {
 protected:
  RandomHostTest() {
    for (const OptionInfo& option : kOptionTable) options_.insert(option.name);
    host.fillEveryTab();
    giveHost();
  }
  ~RandomHostTest() override { ScriptedObject::onGiven = nullptr; }

  HRESULT show(bool givesAnything) {
    ScriptedObject::onGiven = nullptr;
    if (givesAnything) {
      // A table that never ends is another matter.
      ScriptedObject::onGiven = [this](const Text& member, Variant& value) {
        if (member == u"EOF" || !random.chance(options_.contains(member) ? percent_ : 1)) return;
        given_.push_back(std::make_unique<RandomVariant>(random));
        value = given_.back()->copy();
      };
    }
    const auto act = [&](ui::Form& form) {
      auto& dialog = dynamic_cast<frmOptions&>(form);
      for (int tab = 12; tab > 0; --tab) desk.user().clickTab(dialog.tabOptions, tab);
      rename(dialog, u"Corner Shop");
      desk.user().accessKey(u'o');
    };
    desk.whenShown(act);
    VARIANT_BOOL shown = VARIANT_FALSE;
    const HRESULT result = object->ShowOptions(&shown);
    desk.dropSteps();
    ScriptedObject::onGiven = nullptr;
    for (const auto& value : given_) EXPECT_EQ(value->heldReferences(), 0U);
    given_.clear();
    return result;
  }

  /// In how many of a hundred reads an option is anything.
  int percent_ = 0;

 private:
  std::set<Text> options_;
  std::vector<std::unique_ptr<RandomVariant>> given_;
};

TEST_F(RandomHostTest, ThatGivesAnythingIsSurvived) {
  const std::set<HRESULT> expected = {S_OK, error::typeMismatch, error::overflow,
                                      error::objectNotSet};
  std::set<HRESULT> results;
  const int dialogs = rounds(40, 6000);
  for (int i = 0; i < dialogs && !HasFailure(); ++i) {
    percent_ = random.chance(50) ? 1 : 50;
    const HRESULT result = show(true);
    results.insert(result);
    EXPECT_TRUE(expected.contains(result)) << std::hex << result;
    automationHost.records.clear();  // which hold a reference each
    EXPECT_EQ(host.liveRecords, 0);
    EXPECT_EQ(host.live, 5);
    host.stored.clear();
    host.sent.clear();
    host.calls.clear();

    EXPECT_EQ(show(false), S_OK);
    EXPECT_EQ(host.sent.size(), 1U);
    EXPECT_EQ(host.value(options::CompanyName), u"Corner Shop");
    host.stored.clear();
    automationHost.records.clear();
  }
  EXPECT_TRUE(results.contains(error::typeMismatch));
  report(dialogs, " hosts that give anything");
}

}  // namespace
}  // namespace tillora::automation
