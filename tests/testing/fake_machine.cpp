#include "tests/testing/fake_machine.h"

#include <algorithm>

#include "base/letter_case.h"

namespace tillora::testing {

namespace {

class FakeListing final : public FileListing {
 public:
  explicit FakeListing(int files) : left_(files) {}
  bool next() override { return left_-- > 0; }

 private:
  int left_;
};

class FakeRegistryKey final : public RegistryKey {
 public:
  explicit FakeRegistryKey(FakeRegistry& registry) : registry_(registry) {}

  std::vector<Text> valueNames() override {
    if (registry_.readsFail) throw Error(5, u"Registry", u"Access is denied.");
    std::vector<Text> names;
    for (const auto& [name, data] : registry_.values) names.push_back(name);
    return names;
  }
  void writeText(TextView name, TextView data) override {
    refuseWrites();
    if (registry_.textsCannotBeWritten) throw Error(8, u"Registry", u"There is no room.");
    const auto found = find(name);
    if (found == registry_.values.end()) {
      registry_.values.emplace_back(name, data);
    } else {
      found->second = data;
    }
  }
  void removeValue(TextView name) override {
    refuseWrites();
    const auto found = find(name);
    if (found == registry_.values.end()) throw Error(2, u"Registry", u"There is no such value.");
    registry_.values.erase(found);
  }

 private:
  void refuseWrites() const {
    if (registry_.writesFail) throw Error(5, u"Registry", u"Access is denied.");
  }
  std::vector<std::pair<Text, Text>>::iterator find(TextView name) {
    return std::ranges::find(registry_.values, lowerCase(name),
                             [](const auto& value) { return lowerCase(value.first); });
  }

  FakeRegistry& registry_;
};

}  // namespace

std::optional<Text> ScriptedFileDialogs::open(const FileRequest& request) {
  shown.push_back(
      {Text(request.title), Text(request.filter), Text(request.pattern), request.keepsShortcuts});
  if (answers.empty()) return std::nullopt;
  const auto answer = answers.front();
  answers.erase(answers.begin());
  return answer;
}

std::unique_ptr<FileListing> FakeFiles::list(TextView pattern) {
  listed.emplace_back(pattern);
  const auto found = matches.find(Text(pattern));
  if (found == matches.end()) return nullptr;
  return std::make_unique<FakeListing>(found->second);
}

Text FakeFiles::profileValue(TextView file, TextView section, TextView key) {
  const Text path = Text(file) + u"|" + Text(section) + u"|" + Text(key);
  const auto found = profile.find(path);
  return found == profile.end() ? Text() : found->second;
}

std::unique_ptr<RegistryKey> FakeRegistry::open(TextView path, Access access) {
  if (key.empty() || key != path) throw Error(2, u"Registry", u"There is no such key.");
  if (readOnly && access == Access::write) throw Error(5, u"Registry", u"Access is denied.");
  return std::make_unique<FakeRegistryKey>(*this);
}

}  // namespace tillora::testing
