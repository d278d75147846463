#include "com/value_conversion.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <utility>
#include <vector>

namespace tillora::win32 {
namespace {

template <class Number>
VARIANT holding(VARTYPE type, Number number) {
  VARIANT value{};
  value.vt = type;
  static_assert(sizeof number <= sizeof value.ullVal);
  std::memcpy(&value.ullVal, &number, sizeof number);
  return value;
}

/// The limits of every whole-number type and their neighbours inside, with their amounts. A value
/// beyond signed 64 bits counts as the largest of those.
std::vector<std::pair<VARIANT, long long>> wholeNumbers() {
  std::vector<std::pair<VARIANT, long long>> all;
  const auto add = [&]<class Integer>(VARTYPE type, Integer) {
    using Limits = std::numeric_limits<Integer>;
    for (const Integer number : {Limits::min(), static_cast<Integer>(Limits::min() + 1), Integer{0},
                                 Integer{5}, static_cast<Integer>(Limits::max() / 2 + 1),
                                 static_cast<Integer>(Limits::max() - 1), Limits::max()}) {
      const bool beyond = sizeof(Integer) == 8 && !Limits::is_signed &&
                          number > static_cast<Integer>(std::numeric_limits<long long>::max());
      all.emplace_back(holding(type, number), beyond ? std::numeric_limits<long long>::max()
                                                     : static_cast<long long>(number));
    }
  };
  add(VT_I1, std::int8_t{});
  add(VT_UI1, std::uint8_t{});
  add(VT_I2, std::int16_t{});
  add(VT_UI2, std::uint16_t{});
  add(VT_I4, std::int32_t{});
  add(VT_UI4, std::uint32_t{});
  add(VT_INT, std::int32_t{});
  add(VT_UINT, std::uint32_t{});
  add(VT_I8, std::int64_t{});
  add(VT_UI8, std::uint64_t{});
  return all;
}

template <class Integer, class Read>
void expectExactly(VARTYPE wanted, Read&& read) {
  using Limits = std::numeric_limits<Integer>;
  int fitting = 0;
  int beyond = 0;
  for (const auto& [value, number] : wholeNumbers()) {
    SCOPED_TRACE(::testing::Message() << number << " of type " << value.vt << " as " << wanted);
    Variant result;
    const HRESULT changed = changeType(result, value, wanted);
    if (number < Limits::min() || number > Limits::max()) {
      ++beyond;
      EXPECT_EQ(changed, DISP_E_OVERFLOW);
      continue;
    }
    ++fitting;
    ASSERT_EQ(changed, S_OK);
    EXPECT_EQ(result.type(), wanted);
    EXPECT_EQ(read(result.get()), static_cast<Integer>(number));
  }
  EXPECT_GT(fitting, 10);
  EXPECT_GT(beyond, 10);
}

TEST(ValueConversionTest, WholeNumbersFitOrOverflowAndNeverWrap) {
  expectExactly<std::uint8_t>(VT_UI1, [](const VARIANT& value) { return value.bVal; });
  expectExactly<std::int16_t>(VT_I2, [](const VARIANT& value) { return value.iVal; });
  expectExactly<std::int32_t>(VT_I4, [](const VARIANT& value) { return value.lVal; });
}

TEST(ValueConversionTest, OtherNumbersFollowThePlatform) {
  Variant result;
  ASSERT_EQ(changeType(result, Variant(2.5).get(), VT_I4), S_OK);
  EXPECT_EQ(result.get().lVal, 2);
  ASSERT_EQ(changeType(result, Variant(Money{35000}).get(), VT_I2), S_OK);
  EXPECT_EQ(result.get().iVal, 4);
  EXPECT_EQ(changeType(result, Variant(3e9).get(), VT_I4), DISP_E_OVERFLOW);
  EXPECT_EQ(changeType(result, Variant(u"3000000000").get(), VT_I4), DISP_E_OVERFLOW);
  EXPECT_EQ(changeType(result, Variant(u"two").get(), VT_I4), DISP_E_TYPEMISMATCH);
  ASSERT_EQ(changeType(result, holding(VT_UI4, 0xFFFFFFFFU), VT_R8), S_OK);
  EXPECT_EQ(result.get().dblVal, 4294967295.0);
  ASSERT_EQ(changeType(result, holding(VT_UI4, 0xFFFFFFFFU), VT_BSTR), S_OK);
  EXPECT_EQ(Bstr::textOf(result.get().bstrVal), u"4294967295");
}

TEST(ValueConversionTest, ReferencesAreFollowed) {
  ULONG number = 0xFFFFFFFF;
  VARIANT toNumber{};
  toNumber.vt = VT_UI4 | VT_BYREF;
  toNumber.pulVal = &number;
  VARIANT toVariant{};
  toVariant.vt = VT_VARIANT | VT_BYREF;
  toVariant.pvarVal = &toNumber;
  Variant result;
  for (const VARIANT& reference : {toNumber, toVariant}) {
    number = 0xFFFFFFFF;
    EXPECT_EQ(changeType(result, reference, VT_I4), DISP_E_OVERFLOW);
    number = 12;
    ASSERT_EQ(changeType(result, reference, VT_I4), S_OK);
    EXPECT_EQ(result.get().lVal, 12);
  }
}

TEST(ValueConversionTest, OnlyAnObjectConvertsToAnObject) {
  Variant result;
  for (const Variant& value : {Variant(), Variant(std::int32_t{0}), Variant(u"object")}) {
    EXPECT_EQ(changeType(result, value.get(), VT_DISPATCH), DISP_E_TYPEMISMATCH) << value.type();
  }
  ASSERT_EQ(changeType(result, Variant(static_cast<IDispatch*>(nullptr)).get(), VT_DISPATCH), S_OK);
  EXPECT_EQ(result.get().pdispVal, nullptr);
}

TEST(ValueConversionTest, AMissingConversionIsATypeMismatch) {
  Variant result;
  constexpr VARTYPE kTypes[] = {VT_NULL,   VT_ERROR,  VT_VARIANT, VT_ARRAY | VT_I4,
                                VT_RECORD, VT_LPWSTR, VT_CLSID,   0x0FFF};
  for (const VARTYPE type : kTypes) {
    const VARIANT value = holding(type, 0);
    for (const VARTYPE wanted : {VT_I2, VT_I4, VT_BOOL, VT_BSTR}) {
      EXPECT_EQ(changeType(result, value, wanted), DISP_E_TYPEMISMATCH) << type << " " << wanted;
    }
  }
}

TEST(ValueConversionTest, ADecimalOfMoreDecimalsThanThereAreIsNoNumber) {
  VARIANT value{};
  value.decVal.Lo64 = 5;
  value.decVal.Hi32 = 0;
  value.decVal.sign = 0;
  value.decVal.scale = 28;
  value.vt = VT_DECIMAL;
  Variant result;
  EXPECT_EQ(changeType(result, value, VT_BSTR), S_OK);
  for (const VARTYPE wanted : {VT_BSTR, VT_I4, VT_R8, VT_BOOL}) {
    value.decVal.scale = 29;
    EXPECT_EQ(changeType(result, value, wanted), DISP_E_TYPEMISMATCH);
    value.decVal.scale = 255;
    EXPECT_EQ(changeType(result, value, wanted), DISP_E_TYPEMISMATCH);
  }
}

}  // namespace
}  // namespace tillora::win32
