#include "component/automation/member_call.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <vector>

#include "component/automation/host_failure.h"
#include "component/automation/random_price_record.h"
#include "component/automation/values.h"
#include "tests/component/automation/options_fixture.h"
#include "tests/component/automation/server_library.h"

namespace tillora::automation {
namespace {

using testing::ScriptedObject;
using win32::Bstr;
using win32::ComPtr;
using win32::Variant;

constexpr WORD kGet = DISPATCH_PROPERTYGET;
constexpr WORD kPut = DISPATCH_PROPERTYPUT;
constexpr WORD kPutRef = DISPATCH_PROPERTYPUTREF;
constexpr WORD kMethod = DISPATCH_METHOD;
constexpr WORD kAllFlags = kGet | kPut | kPutRef | kMethod;

struct CallAnswer {
  HRESULT result;
  Variant value;
  UINT argument = 99;
};

/// A call by id, as some clients make it.
CallAnswer invoke(IDispatch& object, DISPID member, WORD flags, VARIANT* value = nullptr) {
  DISPID newValue = DISPID_PROPERTYPUT;
  const bool isPut = value != nullptr && (flags & (kPut | kPutRef)) != 0;
  DISPPARAMS parameters{value, isPut ? &newValue : nullptr, value == nullptr ? 0U : 1U,
                        isPut ? 1U : 0U};
  CallAnswer answer{};
  ExceptionInfo exception;
  answer.result =
      object.Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                    isPut ? nullptr : answer.value.out(), exception.out(), &answer.argument);
  return answer;
}

/// A value of every type that a variant can have, objects apart.
std::vector<VARIANT> plainValues() {
  std::vector<VARIANT> values;
  for (VARTYPE type = VT_EMPTY; type <= VT_UINT; ++type) {
    if (type == VT_DISPATCH || type == VT_UNKNOWN || type == VT_VARIANT) continue;
    VARIANT value{};
    value.vt = type;
    values.push_back(value);
  }
  VARIANT array{};
  array.vt = VT_ARRAY | VT_I4;
  values.push_back(array);
  return values;
}

/// The same behind a reference, as Basic passes variables.
std::vector<VARIANT> references(std::vector<VARIANT>& values) {
  std::vector<VARIANT> all;
  for (VARIANT& value : values) {
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = &value;
    all.push_back(reference);
  }
  return all;
}

class MemberCallTest : public OptionsObjectTest {
 protected:
  /// The results of a put of each value.
  std::vector<HRESULT> puts(IDispatch& target, DISPID member, WORD flags) {
    std::vector<VARIANT> values = plainValues();
    const std::vector<VARIANT> byReference = references(values);
    Variant nothing(static_cast<IDispatch*>(nullptr));
    Variant anObject(static_cast<IDispatch*>(automationHost.app.get()));
    values.insert(values.end(), byReference.begin(), byReference.end());
    values.push_back(nothing.get());
    values.push_back(anObject.get());
    std::vector<HRESULT> results;
    for (VARIANT& value : values) results.push_back(invoke(target, member, flags, &value).result);
    return results;
  }
  /// The ids of the properties that take the host's objects.
  std::vector<DISPID> objectProperties() {
    std::vector<DISPID> ids;
    for (std::wstring name :
         {L"DBJetObject", L"AppObject", L"MsgSndObject", L"ResourceObject", L"SettingsObject"}) {
      LPOLESTR named = name.data();
      DISPID id = DISPID_UNKNOWN;
      EXPECT_EQ(object->GetIDsOfNames(IID_NULL, &named, 1, LOCALE_USER_DEFAULT, &id), S_OK);
      ids.push_back(id);
    }
    return ids;
  }
  static bool all(const std::vector<HRESULT>& results, HRESULT expected) {
    return std::ranges::all_of(results, [&](HRESULT result) { return result == expected; });
  }

  ComPtr<IDispatch> record = ComPtr<IDispatch>::adopt(new RandomPriceRecord);
};

TEST_F(MemberCallTest, APutToAReadOnlyPropertyFindsNoMemberWhateverIsPut) {
  constexpr DISPID kChangedDataFile = 3;
  for (const WORD flags : {kPut, kPutRef, WORD{kPut | kPutRef}}) {
    EXPECT_TRUE(all(puts(*object.get(), kChangedDataFile, flags), DISP_E_MEMBERNOTFOUND)) << flags;
    EXPECT_EQ(invoke(*object.get(), kChangedDataFile, flags).result, DISP_E_MEMBERNOTFOUND);
  }
  EXPECT_EQ(invoke(*object.get(), kChangedDataFile, kGet).value.get().boolVal, VARIANT_FALSE);
}

TEST_F(MemberCallTest, AMethodCannotBePut) {
  constexpr DISPID kShowOptions = 10;
  for (const WORD flags : {kPut, kPutRef, kGet}) {
    EXPECT_TRUE(all(puts(*object.get(), kShowOptions, flags), DISP_E_MEMBERNOTFOUND)) << flags;
  }
}

TEST_F(MemberCallTest, MembersAreFoundForTheKindsOfCallThatTheyAreMadeForOnly) {
  struct Expected {
    IDispatch* object;
    DISPID member;
    int kinds;
  };
  std::vector<Expected> members;
  for (const DISPID objectProperty : objectProperties()) {
    members.push_back({object.get(), objectProperty, kPutRef | kPut});
  }
  for (const DISPID value : {4, 6, 8}) members.push_back({object.get(), value, kPut});
  members.push_back({object.get(), 3, kGet});
  members.push_back({object.get(), 10, kMethod});
  for (DISPID field = 1; field <= 6; ++field) members.push_back({record.get(), field, kGet | kPut});

  // Nothing is passed: a member that is found misses its argument, or fails for lack of host
  // objects.
  const auto isFound = [](const Expected& tried, WORD flags) {
    return invoke(*tried.object, tried.member, flags).result != DISP_E_MEMBERNOTFOUND;
  };
  for (const Expected& tried : members) {
    for (WORD flags = 0; flags <= kAllFlags; ++flags) {
      // A plain put to an object property is let through; mixed flags find whatever there is.
      const bool mixedPut = (flags & kPut) != 0 && flags != kPut;
      const int kinds = mixedPut && tried.kinds == (kPutRef | kPut) ? int{kPutRef} : tried.kinds;
      EXPECT_EQ(isFound(tried, flags), (flags & kinds) != 0)
          << "member " << tried.member << " flags " << flags;
    }
  }
  for (const DISPID none : {0, -1, -4, 7, 11, 1000, 0x60000000, 0x60020000}) {
    EXPECT_EQ(invoke(*record.get(), none, kAllFlags).result, DISP_E_MEMBERNOTFOUND) << none;
    if (none == 7) continue;
    EXPECT_EQ(invoke(*object.get(), none, kAllFlags).result, DISP_E_MEMBERNOTFOUND) << none;
  }
}

TEST_F(MemberCallTest, AWrongNumberOfArgumentsIsRefused) {
  VARIANT value = Variant(std::int16_t{1}).get();
  EXPECT_EQ(invoke(*object.get(), 3, kGet, &value).result, DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(invoke(*object.get(), 10, kMethod, &value).result, DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(invoke(*object.get(), 8, kPut).result, DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(
      object->Invoke(8, IID_NULL, LOCALE_USER_DEFAULT, kPut, nullptr, nullptr, nullptr, nullptr),
      E_INVALIDARG);
}

TEST_F(MemberCallTest, OnlyObjectsArePutToObjectProperties) {
  for (const DISPID property : objectProperties()) {
    for (const WORD flags : {kPut, kPutRef}) {
      std::vector<VARIANT> values = plainValues();
      for (VARIANT& value : values) {
        const CallAnswer answer = invoke(*object.get(), property, flags, &value);
        EXPECT_EQ(answer.result, DISP_E_TYPEMISMATCH) << property << " type " << value.vt;
        EXPECT_EQ(answer.argument, 0U);
      }
      Variant nothing(static_cast<IDispatch*>(nullptr));
      EXPECT_EQ(invoke(*object.get(), property, flags, nothing.address()).result, S_OK);
    }
  }
  VARIANT unknown{};
  unknown.vt = VT_UNKNOWN;
  unknown.punkVal = automationHost.app.get();
  EXPECT_EQ(invoke(*object.get(), 2, kPutRef, &unknown).result, S_OK);
  EXPECT_EQ(automationHost.app->references(), 2U);
  IDispatch* variable = automationHost.app.get();
  VARIANT reference{};
  reference.vt = VT_BYREF | VT_DISPATCH;
  reference.ppdispVal = &variable;
  EXPECT_EQ(invoke(*object.get(), 2, kPutRef, &reference).result, S_OK);
  EXPECT_EQ(automationHost.app->references(), 2U);
}

VARIANT number(VARTYPE type, unsigned long long bits) {
  VARIANT value{};
  value.vt = type;
  value.ullVal = bits;
  return value;
}

TEST_F(MemberCallTest, NumbersBeyondAPropertysTypeOverflow) {
  constexpr DISPID kSelectedTab = 8;
  constexpr DISPID kPrefix = 3;
  VARIANT beyondLong[] = {
      number(VT_UI4, 0x80000000), number(VT_UI4, 0xFFFFFFFF),          number(VT_UINT, 0xFFFFFFFF),
      number(VT_UI8, ~0ULL),      number(VT_UI8, 0x100000000),         number(VT_I8, 0x80000000),
      number(VT_I8, 1ULL << 63),  Variant(2147483648.0).get(),         Variant(-2147483649.0).get(),
      Variant(3e9F).get(),        Variant(Money{30000000000000}).get()};
  VARIANT seven = Variant(std::int32_t{7}).get();
  ASSERT_EQ(invoke(*record.get(), kPrefix, kPut, &seven).result, S_OK);
  for (VARIANT& value : beyondLong) {
    EXPECT_EQ(invoke(*record.get(), kPrefix, kPut, &value).result, DISP_E_OVERFLOW) << value.vt;
    EXPECT_EQ(invoke(*object.get(), kSelectedTab, kPut, &value).result, DISP_E_OVERFLOW);
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = &value;
    EXPECT_EQ(invoke(*record.get(), kPrefix, kPut, &reference).result, DISP_E_OVERFLOW);
  }
  EXPECT_EQ(invoke(*record.get(), kPrefix, kGet).value.get().lVal, 7);
  VARIANT beyondInteger[] = {number(VT_UI2, 0x8000), number(VT_UI2, 0xFFFF), number(VT_I4, 40000),
                             number(VT_UI4, 40000), Variant(32768.0).get()};
  for (VARIANT& value : beyondInteger) {
    EXPECT_EQ(invoke(*object.get(), kSelectedTab, kPut, &value).result, DISP_E_OVERFLOW);
    EXPECT_EQ(invoke(*record.get(), kPrefix, kPut, &value).result, S_OK) << value.vt;
  }
  EXPECT_EQ(invoke(*record.get(), kPrefix, kGet).value.get().lVal, 32768);
}

TEST_F(MemberCallTest, EveryTypeOfNumberIsTakenIfItFits) {
  constexpr DISPID kPrefix = 3;
  for (const VARTYPE type :
       {VT_I1, VT_UI1, VT_I2, VT_UI2, VT_I4, VT_UI4, VT_INT, VT_UINT, VT_I8, VT_UI8}) {
    VARIANT value = number(static_cast<VARTYPE>(type), 20);
    EXPECT_EQ(invoke(*record.get(), kPrefix, kPut, &value).result, S_OK) << type;
    EXPECT_EQ(invoke(*record.get(), kPrefix, kGet).value.get().lVal, 20) << type;
    EXPECT_EQ(invoke(*object.get(), 8, kPut, &value).result, S_OK) << type;
  }
}

DispatchObject anyHostObject() {
  return {ComPtr<IDispatch>(ScriptedObject::make().get()), u"OptionsRecord"};
}

TEST(HostValueTest, NumbersBeyondAnOptionsTypeAreAnOverflowOfTheHost) {
  const DispatchObject object = anyHostObject();
  const auto errorOf = [&](const VARIANT& stored, OptionType type) {
    Variant value;
    *value.address() = stored;
    try {
      toOptionValue(object, value, type, u"LVSummariseBits");
    } catch (const Error& error) {
      return error.number();
    }
    return std::int32_t{0};
  };
  EXPECT_EQ(errorOf(number(VT_UI4, 0xFFFFFFFF), OptionType::Long), error::overflow);
  EXPECT_EQ(errorOf(number(VT_UINT, 0x80000000), OptionType::Long), error::overflow);
  EXPECT_EQ(errorOf(number(VT_UI8, ~0ULL), OptionType::Long), error::overflow);
  EXPECT_EQ(errorOf(number(VT_I8, 1ULL << 32), OptionType::Long), error::overflow);
  EXPECT_EQ(errorOf(number(VT_UI2, 0xFFFF), OptionType::Integer), error::overflow);
  EXPECT_EQ(errorOf(number(VT_I1, 0xFF), OptionType::Byte), error::overflow);
  EXPECT_EQ(errorOf(number(VT_UI4, 0x7FFFFFFF), OptionType::Long), 0);
  EXPECT_EQ(errorOf(number(VT_UI2, 0x7FFF), OptionType::Integer), 0);
  EXPECT_EQ(errorOf(number(VT_I1, 0x7F), OptionType::Byte), 0);
}

TEST(HostValueTest, NumbersBeyondALongInATableAreAnOverflowOfTheHost) {
  const DispatchObject object = anyHostObject();
  for (const VARIANT& stored : {number(VT_UI4, 0xFFFFFFFF), number(VT_UI8, ~0ULL)}) {
    Variant value;
    *value.address() = stored;
    try {
      toFieldValue(object, value, FieldType::Long, u"Field");
      ADD_FAILURE() << stored.vt;
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), error::overflow);
    }
  }
}

/// The interfaces of an object whose failures come with error information, of those given.
std::vector<IID> withErrorInfo(IUnknown& object, const std::vector<IID>& tried) {
  std::vector<IID> found;
  const auto support = ComPtr<IUnknown>(&object).query<ISupportErrorInfo>();
  if (!support) return found;
  for (const IID& id : tried) {
    if (support->InterfaceSupportsErrorInfo(id) == S_OK) found.push_back(id);
  }
  return found;
}

TEST_F(MemberCallTest, ObjectsSayWhichInterfacesExplainTheirFailures) {
  const std::vector<IID> tried = {IID_IUnknown,
                                  IID_IDispatch,
                                  IID__Options,
                                  IID__clsRandomPrice,
                                  DIID___Options,
                                  IID_IProvideClassInfo,
                                  IID_IProvideClassInfo2,
                                  IID_ISupportErrorInfo,
                                  IID_IConnectionPointContainer,
                                  IID_IConnectionPoint,
                                  IID_IEnumConnectionPoints,
                                  IID_IEnumConnections,
                                  IID_IClassFactory,
                                  IID_NULL};
  using Ids = std::vector<IID>;
  const auto options = ComPtr<_Options>(object.get());
  EXPECT_EQ(withErrorInfo(*options.get(), tried),
            (Ids{IID__Options, IID_IProvideClassInfo, IID_IProvideClassInfo2,
                 IID_IConnectionPointContainer}));
  EXPECT_EQ(withErrorInfo(*record.get(), tried),
            (Ids{IID__clsRandomPrice, IID_IProvideClassInfo, IID_IProvideClassInfo2}));

  const auto point = testing::connectionPoint(*options.get());
  EXPECT_EQ(withErrorInfo(*point.get(), tried), Ids{IID_IConnectionPoint});
  ComPtr<IEnumConnections> connections;
  ASSERT_EQ(point->EnumConnections(connections.out()), S_OK);
  EXPECT_EQ(withErrorInfo(*connections.get(), tried), Ids{IID_IEnumConnections});
  ComPtr<IEnumConnectionPoints> points;
  ASSERT_EQ(options.query<IConnectionPointContainer>()->EnumConnectionPoints(points.out()), S_OK);
  EXPECT_EQ(withErrorInfo(*points.get(), tried), Ids{IID_IEnumConnectionPoints});
  const testing::ServerLibrary server;
  EXPECT_EQ(withErrorInfo(*server.factory().get(), tried), Ids{IID_IClassFactory});
}

}  // namespace
}  // namespace tillora::automation
