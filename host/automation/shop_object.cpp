#include "host/automation/shop_object.h"

#include <TilloraHost.h>

#include <array>
#include <sstream>
#include <utility>

#include "host/automation/program_objects.h"
#include "host/automation/shop_objects.h"
#include "host/shop_error.h"

namespace tillora::host::automation {
namespace {

template <class Object, class... Args>
ComPtr<IDispatch> make(Args&&... args) {
  return ComPtr<IDispatch>::adopt(new Object(std::forward<Args>(args)...));
}

}  // namespace

ShopObject::ShopObject()
    : TableObject(DIID__Shop), messages_(make<MessageSenderObject>()), app_(make<AppObject>()) {}

ShopObject::~ShopObject() = default;

void ShopObject::open(const Text& path, const ShopContents& contents) {
  Shop opened = Shop::open(path, contents);
  close();
  database_ = make<JetDatabaseObject>(opened.database());
  settings_ = make<SettingsStoreObject>(opened.settings());
  strings_ = make<ResourceStringsObject>(opened.strings());
  shop_ = std::move(opened);
}

void ShopObject::close() {
  database_.reset();
  settings_.reset();
  strings_.reset();
  if (shop_) shop_->close();
  shop_.reset();
}

Shop& ShopObject::shop() {
  if (!shop_) {
    fail(shop_error::shopClosed, u"Shop",
         u"No shop is open. Call Open, OpenSeeded or CreateEmpty.");
  }
  return *shop_;
}

Text ShopObject::dump() {
  std::ostringstream out;
  out.exceptions(std::ios::badbit);  // otherwise it would go on without memory, and leave texts out
  shop().dump(out);
  return fromUtf8(out.str());
}

std::span<const Member<ShopObject>> ShopObject::members() {
  using Self = ShopObject;
  static constexpr std::array<Member<Self>, 10> kMembers = {{
      {1, u"Open", 1,
       [](Self& self, const Arguments& arguments) {
         self.open(arguments.text(0), {});
         return Variant();
       }},
      {2, u"OpenSeeded", 2,
       [](Self& self, const Arguments& arguments) {
         self.open(arguments.text(0), {.seeded = true, .itemCount = arguments.number(1)});
         return Variant();
       }},
      {3, u"CreateEmpty", 1,
       [](Self& self, const Arguments& arguments) {
         self.open(arguments.text(0), {.seeded = false, .itemCount = std::nullopt});
         return Variant();
       }},
      {4, u"Database", 0,
       [](Self& self, const Arguments&) {
         self.shop();
         return Variant(self.database_.get());
       }},
      {5, u"Settings", 0,
       [](Self& self, const Arguments&) {
         self.shop();
         return Variant(self.settings_.get());
       }},
      {6, u"Strings", 0,
       [](Self& self, const Arguments&) {
         self.shop();
         return Variant(self.strings_.get());
       }},
      {7, u"Messages", 0,
       [](Self& self, const Arguments&) { return Variant(self.messages_.get()); }},
      {8, u"App", 0, [](Self& self, const Arguments&) { return Variant(self.app_.get()); }},
      {9, u"Dump", 0, [](Self& self, const Arguments&) { return Variant(self.dump()); }},
      {10, u"Close", 0,
       [](Self& self, const Arguments&) {
         self.close();
         return Variant();
       }},
  }};
  return kMembers;
}

}  // namespace tillora::host::automation
