#include "bench/windows/catalogue.h"

#include <string>

#include "bench/windows/host_window.h"
#include "host/automation/shop_server.h"

namespace tillora::bench {

using win32::ComPtr;

Catalogue::Catalogue(std::int32_t items)
    : folder_(std::filesystem::temp_directory_path() /
              ("tillora-bench-" + std::to_string(GetCurrentProcessId()))),
      shop_(ComPtr<IDispatch>::adopt(host::automation::kShopClass.create()), u"Shop"),
      owner_(makeHostWindow()) {
  std::filesystem::create_directories(folder_);
  shop_.call(u"OpenSeeded", (folder_ / "shop.db").u16string(), items);
  database_ = ComPtr<IDispatch>(shop_.getObject(u"Database", u"Database").object());
}

ComPtr<IDispatch> Catalogue::object(const char16_t* name) {
  return ComPtr<IDispatch>(shop_.getObject(name, name).object());
}

Catalogue::~Catalogue() {
  database_ = {};
  shop_.call(u"Close");
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

}  // namespace tillora::bench
