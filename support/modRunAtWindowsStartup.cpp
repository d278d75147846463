#include "support/modRunAtWindowsStartup.h"

#include <algorithm>

#include "base/letter_case.h"

namespace tillora {
namespace {

constexpr TextView kRunKey = u"Software\\Microsoft\\Windows\\CurrentVersion\\Run";

bool contains(const std::vector<Text>& names, const Text& title) {
  return std::ranges::find(names, title) != names.end();
}

void writeValue(RegistryKey& key, const std::vector<Text>& names, const Text& title,
                const Text& exePath) {
  // Writing a name that differs only in letter case would keep the old name.
  for (const Text& name : names) {
    if (name != title && lowerCase(name) == lowerCase(title)) key.removeValue(name);
  }
  key.writeText(title, u"\"" + exePath + u"\"");
}

}  // namespace

bool IsRunAtStartup(Registry& registry, const Text& title) {
  try {
    return contains(registry.open(kRunKey, Registry::Access::read)->valueNames(), title);
  } catch (const Error&) {
    return false;
  }
}

void SetRunAtStartup(Registry& registry, const Text& title, const Text& exePath, bool remove) {
  try {
    const auto key = registry.open(kRunKey, Registry::Access::write);
    const std::vector<Text> names = key->valueNames();
    if (!remove) {
      writeValue(*key, names, title, exePath);
    } else if (contains(names, title)) {
      key->removeValue(title);
    }
  } catch (const Error&) {  // NOLINT(bugprone-empty-catch): the save goes on without the entry
  }
}

}  // namespace tillora
