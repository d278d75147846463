// Keeps the tables of the documents in step with the component's own tables.
//
//   document_tables [--check] FILE...
//
// What stands between the lines "<!-- table: NAME -->" and "<!-- end of table -->" is made anew;
// see tables.h for the names. With --check nothing is written: a table that differs is a failure.
#include <cstdio>
#include <fstream>
#include <iterator>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "tools/document_tables/tables.h"

namespace {

constexpr std::string_view kBegin = "<!-- table: ";
constexpr std::string_view kBeginEnd = " -->\n";
constexpr std::string_view kEnd = "<!-- end of table -->\n";

/// The document with its tables made anew; none, with a message, if that cannot be done.
std::optional<std::string> refreshed(const char* file, std::string_view document) {
  std::string result;
  while (true) {
    const std::size_t begin = document.find(kBegin);
    if (begin == std::string_view::npos) return result.append(document);
    const std::size_t nameAt = begin + kBegin.size();
    const std::size_t nameEnd = document.find(kBeginEnd, nameAt);
    const std::size_t end = document.find(kEnd, nameAt);
    if (nameEnd == std::string_view::npos || end == std::string_view::npos || end < nameEnd) {
      std::fprintf(stderr, "%s: a table has no end\n", file);
      return std::nullopt;
    }
    const std::string name(document.substr(nameAt, nameEnd - nameAt));
    const auto table = tillora::docs::table(name);
    if (!table) {
      std::fprintf(stderr, "%s: there is no table '%s'\n", file, name.c_str());
      return std::nullopt;
    }
    result.append(document.substr(0, nameEnd + kBeginEnd.size())).append("\n");
    result.append(*table).append("\n").append(kEnd);
    document.remove_prefix(end + kEnd.size());
  }
}

std::optional<std::string> contentOf(const char* file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) {
    std::fprintf(stderr, "%s cannot be read\n", file);
    return std::nullopt;
  }
  return std::string(std::istreambuf_iterator<char>(stream), {});
}

bool process(const char* file, bool check) {
  const auto document = contentOf(file);
  if (!document) return false;
  const auto wanted = refreshed(file, *document);
  if (!wanted) return false;
  if (*wanted == *document) return true;
  if (check) {
    std::fprintf(stderr, "%s: a table is out of date; the target `tables` makes it anew\n", file);
    return false;
  }
  std::ofstream stream(file, std::ios::binary);
  stream << *wanted;
  stream.close();
  if (!stream) {
    std::fprintf(stderr, "%s cannot be written\n", file);
    return false;
  }
  std::printf("%s\n", file);
  return true;
}

}  // namespace

int main(int count, char** arguments) {
  std::span<char*> files(arguments + 1, static_cast<std::size_t>(count - 1));
  const bool check = !files.empty() && std::string_view(files.front()) == "--check";
  if (check) files = files.subspan(1);
  bool good = !files.empty();
  for (const char* file : files) good = process(file, check) && good;
  return good ? 0 : 1;
}
