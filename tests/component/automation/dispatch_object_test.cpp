#include "component/automation/dispatch_object.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "tests/component/automation/scripted_object.h"
#include "tests/testing/function_ref.h"

namespace tillora::automation {
namespace {

using testing::Call;
using testing::Failing;
using testing::ScriptedObject;
using win32::ComPtr;
using win32::Variant;

class DispatchObjectTest : public ::testing::Test {
 protected:
  ComPtr<ScriptedObject> scripted = ScriptedObject::make();
  DispatchObject object{ComPtr<IDispatch>(scripted.get()), u"JetDatabase"};

  void gives(const Text& member, const std::function<Variant()>& value) {
    scripted->add(member, [value](const Call&) { return value(); });
  }
  void fails(const Text& member, const Failing& failing) {
    scripted->add(member, [failing](const Call&) -> Variant { throw failing; });
  }
  Error failureOf(const testing::FunctionRef<void()>& action) {
    try {
      action();
    } catch (const Error& error) {
      return error;
    }
    ADD_FAILURE() << "nothing was raised";
    return {0, u"", u""};
  }
};

const Error kSaid(basicError(1001), u"Shop.Database", u"The disk is full.", u"shop.hlp", 7);

TEST_F(DispatchObjectTest, LooksUpEachNameOnce) {
  gives(u"DataFile", [] { return Variant(u"C:\\books.dat"); });
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(object.getText(u"DataFile"), u"C:\\books.dat");
    EXPECT_FALSE(object.knows(u"Missing"));
  }
  EXPECT_EQ(scripted->lookUps.at(u"DataFile"), 1);
  EXPECT_EQ(scripted->lookUps.at(u"Missing"), 1);
}

TEST_F(DispatchObjectTest, CallsObjectsThatKnowTheirNamesOnlyThroughTheExtendedInterface) {
  scripted->namesOnlyByEx = true;
  gives(u"DataFile", [] { return Variant(u"x"); });
  EXPECT_EQ(object.getText(u"DataFile"), u"x");
  EXPECT_EQ(object.getText(u"DataFile"), u"x");
  EXPECT_EQ(scripted->lookUps.at(u"DataFile"), 1);
}

TEST_F(DispatchObjectTest, PassesArgumentsInOrderAndByValue) {
  std::vector<VARTYPE> types;
  scripted->add(u"Show", [&](const Call& call) {
    for (const VARIANT* argument : call.arguments) types.push_back(argument->vt);
    EXPECT_EQ(call.flags, DISPATCH_METHOD);
    EXPECT_EQ(call.text(0), u"text");
    EXPECT_EQ(call.arguments.at(1)->lVal, 48);
    return Variant(std::int32_t{1});
  });
  object.call(u"Show", u"text", std::int32_t{48}, DateTime{2.5});
  EXPECT_EQ(types, (std::vector<VARTYPE>{VT_BSTR, VT_I4, VT_DATE}));
}

TEST_F(DispatchObjectTest, PutsTheNewValueLast) {
  Text put;
  scripted->add(u"Setting", [&](const Call& call) {
    EXPECT_EQ(call.flags, DISPATCH_PROPERTYPUT);
    put = call.text(0) + u"=" + call.text(1);
    return Variant();
  });
  object.put(u"Setting", TextView(u"Name"), TextView(u"Value"));
  EXPECT_EQ(put, u"Name=Value");
}

TEST_F(DispatchObjectTest, SetsObjectsByReferenceOrByValueIfTheHostWantsThat) {
  std::vector<WORD> flags;
  scripted->add(u"SettingsStore", [&](const Call& call) {
    flags.push_back(call.flags);
    if (call.flags == DISPATCH_PROPERTYPUTREF) throw Failing{DISP_E_MEMBERNOTFOUND, {}};
    EXPECT_EQ(call.arguments.at(0)->pdispVal, scripted.get());
    return Variant();
  });
  object.putReference(u"SettingsStore", scripted.get());
  EXPECT_EQ(flags, (std::vector<WORD>{DISPATCH_PROPERTYPUTREF, DISPATCH_PROPERTYPUT}));
}

TEST_F(DispatchObjectTest, ReadsValuesGivenByReference) {
  static BSTR text = SysAllocString(L"by reference");
  gives(u"Title", [] {
    Variant value;
    value.address()->vt = VT_BSTR | VT_BYREF;
    value.address()->pbstrVal = &text;
    return value;
  });
  EXPECT_EQ(object.getText(u"Title"), u"by reference");
}

TEST_F(DispatchObjectTest, TextKeepsNulsAndEmptyValuesAreEmptyText) {
  const Text withNul(u"a\0b", 3);
  gives(u"Nul", [&] { return Variant(withNul); });
  gives(u"Empty", [] { return Variant(); });
  gives(u"Null", [] {
    Variant value;
    value.address()->vt = VT_NULL;
    return value;
  });
  EXPECT_EQ(object.getText(u"Nul"), withNul);
  EXPECT_EQ(object.getText(u"Empty"), u"");
  EXPECT_EQ(object.getText(u"Null"), u"");
}

TEST_F(DispatchObjectTest, ConvertsByThePlatformsRules) {
  gives(u"Number", [] { return Variant(u"12"); });
  gives(u"Half", [] { return Variant(2.5); });
  gives(u"One", [] { return Variant(std::int32_t{1}); });
  EXPECT_EQ(object.getLong(u"Number"), 12);
  EXPECT_EQ(object.getLong(u"Half"), 2);
  EXPECT_TRUE(object.getBoolean(u"One"));
}

TEST_F(DispatchObjectTest, ValuesThatDoNotFitAreErrorsThatNameTheMember) {
  gives(u"Far", [] { return Variant(1e12); });
  gives(u"Word", [] { return Variant(u"twelve"); });
  const Error overflow = failureOf([&] { object.getLong(u"Far"); });
  EXPECT_EQ(overflow.number(), error::overflow);
  EXPECT_EQ(overflow.description(), u"JetDatabase.Far gave a value that is too large.");
  const Error mismatch = failureOf([&] { object.getLong(u"Word"); });
  EXPECT_EQ(mismatch.number(), error::typeMismatch);
  EXPECT_EQ(mismatch.description(), u"JetDatabase.Word gave a value of another type.");
}

TEST_F(DispatchObjectTest, AMissingObjectIsAnError) {
  gives(u"ClassTable", [] { return Variant(static_cast<IDispatch*>(nullptr)); });
  gives(u"GradeTable", [] { return Variant(); });
  gives(u"ItemList", [] { return Variant(std::int32_t{5}); });
  EXPECT_EQ(failureOf([&] { object.getObject(u"ClassTable", u"ClassTable"); }).number(),
            error::objectNotSet);
  EXPECT_EQ(failureOf([&] { object.getObject(u"GradeTable", u"GradeTable"); }).number(),
            error::objectNotSet);
  EXPECT_EQ(failureOf([&] { object.getObject(u"ItemList", u"ItemList"); }).number(),
            error::typeMismatch);
}

TEST_F(DispatchObjectTest, MissingMembersAreNamed) {
  const Error error = failureOf([&] { object.call(u"Commit"); });
  EXPECT_EQ(error.number(), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(error.source(), u"JetDatabase");
  EXPECT_NE(error.description().find(u"JetDatabase.Commit failed"), Text::npos);
}

class SaidFailure : public DispatchObjectTest,
                    public ::testing::WithParamInterface<Failing::How> {};

TEST_P(SaidFailure, ArrivesAsTheHostSaidIt) {
  fails(u"Commit", {basicError(1001), kSaid, GetParam()});
  const Error error = failureOf([&] { object.call(u"Commit"); });
  EXPECT_EQ(error.number(), basicError(1001));
  EXPECT_EQ(error.source(), u"Shop.Database");
  EXPECT_EQ(error.description(), u"The disk is full.");
  EXPECT_EQ(error.helpFile(), u"shop.hlp");
  EXPECT_EQ(error.helpContext(), 7U);
}

INSTANTIATE_TEST_SUITE_P(Ways, SaidFailure,
                         ::testing::Values(Failing::How::exception, Failing::How::deferred,
                                           Failing::How::wCode, Failing::How::errorObject));

TEST_F(DispatchObjectTest, CustomNumbersAboveObjectErrorStayAsTheyAre) {
  const auto number = static_cast<std::int32_t>(0x80040000U + 513);
  const Error custom(number, u"Shop", u"Custom.");
  fails(u"Commit", {number, custom, Failing::How::exception});
  EXPECT_EQ(failureOf([&] { object.call(u"Commit"); }).number(), number);
}

TEST_F(DispatchObjectTest, BareBasicNumbersBecomeFailures) {
  const Error bare(61, u"Shop", u"Disk full.");
  fails(u"Commit", {61, bare, Failing::How::exception});
  EXPECT_EQ(failureOf([&] { object.call(u"Commit"); }).number(), basicError(61));
}

TEST_F(DispatchObjectTest, BareResultsGetASentenceWithObjectMemberAndNumber) {
  fails(u"Commit", {E_ACCESSDENIED, {}});
  const Error error = failureOf([&] { object.call(u"Commit"); });
  EXPECT_EQ(error.number(), E_ACCESSDENIED);
  EXPECT_EQ(error.source(), u"JetDatabase");
  EXPECT_EQ(error.description().rfind(u"JetDatabase.Commit failed: ", 0), 0U);
  EXPECT_NE(error.description().find(u"(0x80070005)."), Text::npos);
}

TEST_F(DispatchObjectTest, AnEarlierErrorObjectIsNotTakenForTheHosts) {
  ComPtr<ICreateErrorInfo> stale;
  ASSERT_EQ(CreateErrorInfo(stale.out()), S_OK);
  wchar_t text[] = L"Someone else's failure.";
  stale->SetDescription(text);
  SetErrorInfo(0, stale.query<IErrorInfo>().get());
  fails(u"Commit", {E_FAIL, {}});
  EXPECT_EQ(failureOf([&] { object.call(u"Commit"); }).description().find(u"Someone"), Text::npos);
}

TEST_F(DispatchObjectTest, HoldsOneReference) {
  EXPECT_EQ(scripted->references(), 2U);
  {
    gives(u"Self", [&] { return Variant(scripted.get()); });
    const DispatchObject self = object.getObject(u"Self", u"Self");
    EXPECT_EQ(self.object(), scripted.get());
    EXPECT_EQ(scripted->references(), 3U);
  }
  EXPECT_EQ(scripted->references(), 2U);
}

}  // namespace
}  // namespace tillora::automation
