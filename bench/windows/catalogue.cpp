#include "bench/windows/catalogue.h"

#include <string>

#include "com/module.h"
#include "host/automation/shop_server.h"

namespace tillora::bench {

using win32::ComPtr;

Catalogue::Catalogue()
    : folder_(std::filesystem::temp_directory_path() /
              ("tillora-bench-" + std::to_string(GetCurrentProcessId()))),
      shop_(ComPtr<IDispatch>::adopt(host::automation::kShopClass.create()), u"Shop"),
      owner_(CreateWindowExW(0, L"STATIC", L"Benchmark", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20,
                             900, 700, nullptr, nullptr, win32::thisModule(), nullptr)) {
  constexpr std::int32_t kItems = 100'000;
  std::filesystem::create_directories(folder_);
  shop_.call(u"OpenSeeded", (folder_ / "shop.db").u16string(), kItems);
  database_ = ComPtr<IDispatch>(shop_.getObject(u"Database", u"Database").object());
}

Catalogue::~Catalogue() {
  database_ = {};
  shop_.call(u"Close");
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

}  // namespace tillora::bench
