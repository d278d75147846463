#include "platform/user_registry.h"

#include <windows.h>

#include "base/error.h"
#include "com/wide_text.h"

namespace tillora::win32 {
namespace {

struct CloseKey {
  using pointer = HKEY;
  void operator()(HKEY key) const { RegCloseKey(key); }
};

void require(LSTATUS status, const char16_t* what) {
  if (status == ERROR_SUCCESS) return;
  throw Error(HRESULT_FROM_WIN32(static_cast<DWORD>(status)),
              Text(u"The registry key could not be ") + what + u".");
}

class OpenKey final : public RegistryKey {
 public:
  explicit OpenKey(HKEY key) : key_(key) {}

  std::vector<Text> valueNames() override {
    constexpr DWORD kLongestName = 16384;
    std::vector<Text> names;
    Text name(kLongestName, u'\0');
    for (DWORD index = 0;; ++index) {
      auto length = static_cast<DWORD>(name.size());
      const LSTATUS status =
          RegEnumValueW(key_.get(), index, reinterpret_cast<wchar_t*>(name.data()), &length,
                        nullptr, nullptr, nullptr, nullptr);
      if (status == ERROR_NO_MORE_ITEMS) return names;
      require(status, u"read");
      names.push_back(name.substr(0, length));
    }
  }

  void writeText(TextView name, TextView data) override {
    const Text value(data);
    const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(char16_t));
    require(RegSetValueExW(key_.get(), wide(Text(name)), 0, REG_SZ,
                           reinterpret_cast<const BYTE*>(value.c_str()), bytes),
            u"written");
  }

  void removeValue(TextView name) override {
    require(RegDeleteValueW(key_.get(), wide(Text(name))), u"written");
  }

 private:
  std::unique_ptr<HKEY, CloseKey> key_;
};

}  // namespace

std::unique_ptr<RegistryKey> UserRegistry::open(TextView key, Access access) {
  const REGSAM rights = access == Access::read ? KEY_QUERY_VALUE : KEY_QUERY_VALUE | KEY_SET_VALUE;
  HKEY opened = nullptr;
  require(RegOpenKeyExW(HKEY_CURRENT_USER, wide(Text(key)), 0, rights, &opened), u"opened");
  return std::make_unique<OpenKey>(opened);
}

}  // namespace tillora::win32
