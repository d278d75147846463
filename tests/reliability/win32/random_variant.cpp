#include "tests/reliability/win32/random_variant.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <limits>

namespace tillora::testing {
namespace {

double anyNumber(RandomChoices& random) {
  using Limits = std::numeric_limits<double>;
  static const std::array kOdd = {0.0,
                                  -0.0,
                                  0.5,
                                  1.5,
                                  32767.5,
                                  -32768.5,
                                  2147483647.5,
                                  -2147483648.5,
                                  1e15,
                                  -1e300,
                                  9.3e14,
                                  Limits::infinity(),
                                  -Limits::infinity(),
                                  Limits::quiet_NaN(),
                                  Limits::denorm_min(),
                                  Limits::max()};
  return random.chance(60) ? random.oneOf(kOdd) : (random.below(2'000'001) - 1'000'000) / 100.0;
}

std::uint64_t anyBits(RandomChoices& random) {
  std::uint64_t bits = 0;
  for (int i = 0; i < 4; ++i) bits = bits << 16 | static_cast<std::uint64_t>(random.below(0x10000));
  // Small numbers, of either sign, are the likely ones.
  if (random.chance(50)) return static_cast<std::uint64_t>(random.below(200) - 100);
  return bits >> random.below(64);
}

}  // namespace

RandomVariant::RandomVariant(RandomChoices& random, int depth) {
  // Its initialiser may leave the second half of the value as it was.
  std::memset(&value_, 0, sizeof value_);
  constexpr int kDeepest = 2;
  const int kind = random.below(10);
  if (kind < 4) {
    makePlain(random);
  } else if (kind < 6) {
    makeText(random);
  } else if (kind == 6) {
    makeArray(random);
  } else if (kind == 7 && depth < kDeepest) {
    makeReference(random, depth);
  } else if (kind == 8) {
    value_.vt = random.chance(80) ? VT_DISPATCH : VT_UNKNOWN;
    if (random.chance(80)) {
      object_ = ScriptedObject::make();
      value_.pdispVal = object_.get();
      object_->AddRef();
    }
  } else {
    // Types that no value has, and those that are only of descriptions.
    static constexpr std::array<VARTYPE, 12> kNone = {
        15,           VT_VOID,     VT_HRESULT,        VT_PTR,
        VT_SAFEARRAY, VT_CARRAY,   VT_USERDEFINED,    VT_LPWSTR,
        VT_RECORD,    VT_FILETIME, VT_VECTOR | VT_I4, 0x0FFF};
    isOwned_ = false;
    value_.vt = random.oneOf(kNone);
  }
}

RandomVariant::~RandomVariant() {
  if (isOwned_) VariantClear(&value_);
}

void RandomVariant::makePlain(RandomChoices& random) {
  static constexpr std::array<VARTYPE, 19> kPlain = {
      VT_EMPTY, VT_NULL, VT_I1, VT_UI1, VT_I2, VT_UI2,  VT_I4,   VT_UI4,     VT_I8,   VT_UI8,
      VT_INT,   VT_UINT, VT_R4, VT_R8,  VT_CY, VT_DATE, VT_BOOL, VT_DECIMAL, VT_ERROR};
  const VARTYPE type = random.oneOf(kPlain);
  if (type == VT_R4) {
    value_.fltVal = static_cast<float>(anyNumber(random));
  } else if (type == VT_R8 || type == VT_DATE) {
    value_.dblVal = anyNumber(random);
  } else if (type == VT_DECIMAL) {
    value_.decVal.Lo64 = anyBits(random);
    value_.decVal.Hi32 = static_cast<ULONG>(anyBits(random));
    value_.decVal.scale = static_cast<BYTE>(random.below(random.chance(80) ? 29 : 256));
    value_.decVal.sign = random.chance(50) ? DECIMAL_NEG : 0;
  } else if (type == VT_ERROR) {
    value_.scode = random.chance(50) ? DISP_E_PARAMNOTFOUND : static_cast<SCODE>(anyBits(random));
  } else {
    value_.ullVal = anyBits(random);
  }
  value_.vt = type;
}

void RandomVariant::makeText(RandomChoices& random) {
  static const std::array<Text, 12> kTexts = {Text(),
                                              Text(u"0"),
                                              Text(u"-1"),
                                              Text(u"True"),
                                              Text(u"1,234.50"),
                                              Text(u"$7.5"),
                                              Text(u"4294967296"),
                                              Text(u"1e400"),
                                              Text(u"31/12/1999"),
                                              Text(3, u'\0'),
                                              Text(1, char16_t{0xDC00}),
                                              Text(u"a name")};
  value_.vt = VT_BSTR;
  if (random.chance(10)) return;  // a null text is an empty one
  Text text = random.oneOf(kTexts);
  if (random.chance(30)) {
    text.clear();
    for (int i = random.below(20); i > 0; --i) text += static_cast<char16_t>(random.below(0x10000));
  } else if (random.chance(5)) {
    text.assign(70'000, u'9');
  }
  // Some have half a character at the end.
  value_.bstrVal = SysAllocStringByteLen(reinterpret_cast<const char*>(text.data()),
                                         static_cast<UINT>(text.size() * sizeof(char16_t)) -
                                             (random.chance(10) && !text.empty() ? 1 : 0));
}

void RandomVariant::makeArray(RandomChoices& random) {
  static constexpr std::array<VARTYPE, 6> kElements = {VT_UI1,  VT_I4,      VT_R8,
                                                       VT_BSTR, VT_VARIANT, VT_DISPATCH};
  const VARTYPE element = random.oneOf(kElements);
  value_.vt = static_cast<VARTYPE>(VT_ARRAY | element);
  if (random.chance(20)) return;
  std::array<SAFEARRAYBOUND, 3> bounds{};
  for (SAFEARRAYBOUND& bound : bounds) {
    bound = {static_cast<ULONG>(random.below(4)), static_cast<LONG>(random.below(3) - 1)};
  }
  value_.parray = SafeArrayCreate(element, static_cast<UINT>(1 + random.below(3)), bounds.data());
}

void RandomVariant::makeReference(RandomChoices& random, int depth) {
  target_.reset(new RandomVariant(random, depth + 1));
  VARIANT& target = target_->value_;
  isOwned_ = false;
  if ((target.vt & VT_BYREF) != 0 || random.chance(30)) {
    value_.vt = VT_BYREF | VT_VARIANT;
    value_.pvarVal = &target;
  } else {
    value_.vt = static_cast<VARTYPE>(VT_BYREF | target.vt);
    // A decimal fills the whole value.
    value_.byref = target.vt == VT_DECIMAL ? static_cast<void*>(&target) : &target.llVal;
  }
  if (random.chance(20)) value_.byref = nullptr;
}

win32::Variant RandomVariant::copy() const {
  win32::Variant made;
  if (!isOwned_ || FAILED(VariantCopy(made.address(), const_cast<VARIANT*>(&value_))))
    *made.address() = value_;
  return made;
}

ULONG RandomVariant::heldReferences() const {
  if (target_) return target_->heldReferences();
  return object_ ? object_->references() - 2 : 0;
}

}  // namespace tillora::testing
