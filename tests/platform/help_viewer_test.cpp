#include "platform/help_viewer.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <string>
#include <vector>

#include "com/wide_text.h"

namespace tillora::win32 {
namespace {

/// A file in the user's folder for temporary ones, gone at the end.
class TemporaryFile {
 public:
  TemporaryFile() {
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    wchar_t path[MAX_PATH];
    GetTempFileNameW(folder, L"hlp", 0, path);
    path_ = fromWide(path, std::char_traits<wchar_t>::length(path));
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() { remove(); }
  void remove() const { DeleteFileW(wide(path_)); }
  const Text& path() const { return path_; }

 private:
  Text path_;
};

TEST(HelpViewerTest, AnExistingFileIsOpenedAtItsTopic) {
  std::vector<std::pair<Text, Text>> started;
  HelpViewer viewer(
      [&](const Text& program, const Text& line) { started.emplace_back(program, line); });
  const TemporaryFile file;
  viewer.show(file.path(), 216);
  ASSERT_EQ(started.size(), 1U);
  EXPECT_EQ(started[0].first, helpViewerPath());
  EXPECT_EQ(started[0].second,
            u"\"" + helpViewerPath() + u"\" -mapid 216 \"" + file.path() + u"\"");
  file.remove();
  viewer.show(file.path(), 216);
  EXPECT_EQ(started.size(), 1U);
}

}  // namespace
}  // namespace tillora::win32
