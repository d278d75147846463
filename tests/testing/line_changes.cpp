#include "tests/testing/line_changes.h"

#include <algorithm>
#include <sstream>
#include <utility>
#include <vector>

namespace tillora::testing {
namespace {

using Lines = std::vector<std::string>;

Lines linesIn(const std::string& text) {
  Lines lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

/// [i][j] is the length of the longest common subsequence of the lines from i and from j on.
std::vector<std::vector<std::size_t>> commonLines(const Lines& before, const Lines& after) {
  std::vector common(before.size() + 1, std::vector<std::size_t>(after.size() + 1));
  for (std::size_t i = before.size(); i-- > 0;) {
    for (std::size_t j = after.size(); j-- > 0;) {
      common[i][j] = before[i] == after[j] ? common[i + 1][j + 1] + 1
                                           : std::max(common[i + 1][j], common[i][j + 1]);
    }
  }
  return common;
}

}  // namespace

std::string lineChanges(const std::string& before, const std::string& after) {
  const Lines old = linesIn(before);
  const Lines fresh = linesIn(after);
  const auto common = commonLines(old, fresh);
  std::string changes;
  std::string last;  // the last line of both, until it is written
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < old.size() || j < fresh.size()) {
    if (i < old.size() && j < fresh.size() && old[i] == fresh[j]) {
      last = "  " + old[i] + "\n";
      ++i;
      ++j;
      continue;
    }
    changes += std::exchange(last, "");
    const bool isGone =
        j == fresh.size() || (i < old.size() && common[i + 1][j] >= common[i][j + 1]);
    changes += isGone ? "- " + old[i++] + "\n" : "+ " + fresh[j++] + "\n";
  }
  return changes;
}

}  // namespace tillora::testing
