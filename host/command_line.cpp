#include "host/command_line.h"

#include <algorithm>
#include <cstddef>
#include <limits>

#include "base/error.h"

namespace tillora::host {
namespace {

constexpr std::int32_t kInvalidArgument = basicError(5);

[[noreturn]] void refuse(const Text& what) {
  throw Error(kInvalidArgument, u"TilloraAdministrator", what);
}

class Reader {
 public:
  explicit Reader(const std::vector<Text>& arguments) : arguments_(arguments) {}

  bool atEnd() const { return next_ == arguments_.size(); }
  const Text& take() { return arguments_[next_++]; }

  /// The next argument, unless it begins another switch.
  std::optional<Text> takeValue() {
    if (atEnd() || arguments_[next_].starts_with(u"--")) return std::nullopt;
    return take();
  }
  Text requireValue(const Text& option) {
    if (atEnd()) refuse(option + u" needs a value.");
    return take();
  }

 private:
  const std::vector<Text>& arguments_;
  std::size_t next_ = 0;
};

std::int32_t number(const Text& option, const Text& digits) {
  constexpr std::size_t kMostDigits = 9;
  const bool isNumber =
      !digits.empty() && digits.size() <= kMostDigits &&
      std::ranges::all_of(digits, [](char16_t c) { return c >= u'0' && c <= u'9'; });
  if (!isNumber) refuse(option + u" needs a number, not '" + digits + u"'.");
  std::int32_t value = 0;
  for (const char16_t c : digits) value = value * 10 + (c - u'0');
  return value;
}

std::int16_t tabNumber(const Text& option, const Text& digits) {
  const std::int32_t tab = number(option, digits);
  if (tab > std::numeric_limits<std::int16_t>::max()) refuse(u"There is no tab " + digits + u".");
  return static_cast<std::int16_t>(tab);
}

}  // namespace

CommandLine parseCommandLine(const std::vector<Text>& arguments) {
  CommandLine line;
  for (Reader reader(arguments); !reader.atEnd();) {
    const Text option = reader.take();
    if (option == u"--options") {
      const std::optional<Text> tab = reader.takeValue();
      line.optionsTab = tab ? tabNumber(option, *tab) : std::int16_t{0};
    } else if (option == u"--first-use") {
      line.firstUse = true;
    } else if (option == u"--database") {
      line.database = reader.requireValue(option);
    } else if (option == u"--items") {
      line.items = number(option, reader.requireValue(option));
    } else if (option == u"--log") {
      line.log = reader.requireValue(option);
    } else if (option == u"--dump") {
      line.dump = true;
      if (auto file = reader.takeValue()) line.dumpFile = std::move(file);
    } else if (option == u"--out") {
      line.dumpFile = reader.requireValue(option);
    } else if (option == u"--set-option") {
      Text name = reader.requireValue(option);
      line.optionsToSet.emplace_back(std::move(name), reader.requireValue(option));
    } else {
      refuse(u"Unknown argument '" + option +
             u"'. Known are --options [TAB], --first-use, --database FILE, --items N, --log FILE, "
             u"--dump [FILE], --out FILE and --set-option NAME VALUE.");
    }
  }
  return line;
}

}  // namespace tillora::host
