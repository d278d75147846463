#include <windows.h>

#include <algorithm>
#include <functional>
#include <vector>

#include "bench/windows/benchmarks.h"
#include "bench/windows/catalogue.h"
#include "bench/windows/measure.h"
#include "com/variant.h"
#include "component/automation/host_adapters.h"
#include "sales/frmBrowseItems.h"
#include "tests/testing/win32/driven_screen.h"

namespace tillora::bench {
namespace {

using automation::DispatchObject;
using win32::ComPtr;
using win32::Variant;

constexpr int kBrowseRounds = 15;

/// The calls of a walk and nothing else: ids looked up once, texts released as they come.
class BareWalk {
 public:
  explicit BareWalk(IDispatch* list) : list_(list) {
    moveFirst_ = id(list_, L"MoveFirst");
    moveNext_ = id(list_, L"MoveNext");
    eof_ = id(list_, L"EOF");
    current_ = id(list_, L"Current");
  }

  /// @param wanted the type of an item decides whether its other properties are read.
  std::size_t run(const std::function<bool(TextView type)>& wanted,
                  const std::vector<const wchar_t*>& properties) {
    std::size_t units = 0;
    std::vector<DISPID> ids;
    DISPID type = DISPID_UNKNOWN;
    call(list_, moveFirst_, DISPATCH_METHOD);
    for (; call(list_, eof_, DISPATCH_PROPERTYGET).get().boolVal == VARIANT_FALSE;
         call(list_, moveNext_, DISPATCH_METHOD)) {
      const Variant item = call(list_, current_, DISPATCH_PROPERTYGET);
      IDispatch* const object = item.get().pdispVal;
      if (ids.empty()) {
        type = id(object, L"ItemType");
        for (const wchar_t* name : properties) ids.push_back(id(object, name));
      }
      const Variant itemType = call(object, type, DISPATCH_PROPERTYGET);
      const BSTR text = itemType.get().bstrVal;
      if (!wanted({reinterpret_cast<const char16_t*>(text), SysStringLen(text)})) continue;
      for (const DISPID property : ids) {
        units += SysStringLen(call(object, property, DISPATCH_PROPERTYGET).get().bstrVal);
      }
    }
    return units;
  }

 private:
  static DISPID id(IDispatch* object, const wchar_t* name) {
    auto* text = const_cast<wchar_t*>(name);
    DISPID found = DISPID_UNKNOWN;
    object->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &found);
    return found;
  }
  static Variant call(IDispatch* object, DISPID member, WORD flags) {
    DISPPARAMS none{};
    Variant result;
    object->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &none, result.out(), nullptr,
                   nullptr);
    return result;
  }

  IDispatch* list_;
  DISPID moveFirst_;
  DISPID moveNext_;
  DISPID eof_;
  DISPID current_;
};

struct Purpose {
  const char* name;
  double budget;
  frmBrowseItems::Purpose type;
  std::function<bool(TextView type)> wanted;
  std::vector<const wchar_t*> properties;
};

class Browsing {
 public:
  explicit Browsing(const Catalogue& catalogue) : catalogue_(catalogue) {}

  bool run() {
    const auto sold = [](TextView type) {
      return type == u"PART" || type == u"STOCK" || type == u"GRP";
    };
    bool kept = true;
    kept = measure({"browse products, 100,000 items",
                    1.3,
                    frmBrowseItems::gradeProduct,
                    sold,
                    {L"ProductNumber", L"Group", L"Name", L"Description"}}) &&
           kept;
    kept = measure({"browse rounding items, 100,000 items",
                    1.15,
                    frmBrowseItems::roundingItem,
                    [](TextView type) { return type == u"OTHC"; },
                    {L"Group", L"Name", L"Description", L"Account"}}) &&
           kept;
    return kept;
  }

 private:
  bool measure(const Purpose& purpose) {
    bytes_ = 0;
    std::vector<double> product;
    std::vector<double> floor;
    for (int round = 0; round < kBrowseRounds; ++round) {
      product.push_back(browse(purpose.type));
      floor.push_back(walk(purpose));
    }
    if (rows_ > 0) {
      std::printf("%d rows, %.0f bytes each\n", rows_,
                  static_cast<double>(bytes_) / static_cast<double>(rows_));
    }
    return report(purpose.name, product, floor, purpose.budget);
  }

  double browse(frmBrowseItems::Purpose type) {
    frmBrowseItems dialog(screen_);
    dialog.BrowseType = type;
    dialog.DBJetObject = automation::makeJetDatabase(catalogue_.database());
    auto end = Clock::now();
    const std::size_t before = privateBytes();
    screen_.modalShown = [&](ui::Form& form) {
      end = Clock::now();
      rows_ = dialog.ltvItems.count();
      // Later rounds find memory that earlier ones have used.
      const std::size_t now = privateBytes();
      bytes_ = std::max(bytes_, now > before ? now - before : 0);
      form.unload();
    };
    const auto start = Clock::now();
    dialog.showModal();
    return milliseconds(start, end);
  }

  double walk(const Purpose& purpose) {
    const auto start = Clock::now();
    const DispatchObject list =
        DispatchObject(ComPtr<IDispatch>(catalogue_.database()), u"JetDatabase")
            .getObject(u"ItemList", u"ItemList");
    BareWalk(list.object()).run(purpose.wanted, purpose.properties);
    return milliseconds(start, Clock::now());
  }

  const Catalogue& catalogue_;
  testing::DrivenScreen screen_;
  int rows_ = 0;
  std::size_t bytes_ = 0;
};

}  // namespace

bool measureBrowsing(const Catalogue& catalogue) { return Browsing(catalogue).run(); }

}  // namespace tillora::bench
