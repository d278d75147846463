// What the dialogs say to people who cannot see them.
#include <filesystem>
#include <fstream>

#include "com/module.h"
#include "tests/component/automation/server_library.h"
#include "tests/testing/every_dialog.h"
#include "tests/testing/line_changes.h"
#include "tests/testing/win32/embedded_text.h"
#include "tests/testing/win32/screen_reader.h"
#include "tests/testing/win32/windows_desk.h"

namespace tillora::testing {
namespace {

class ScreenReaderTest : public EveryDialogTest {
 protected:
  std::string read(const ui::Control& control) {
    const HWND window = dynamic_cast<WindowsDesk&>(*desk).windows().windowOf(control);
    return readAloud(window, annotations);
  }

  Apartment apartment;
  KeptAnnotations annotations;
};

TEST_F(ScreenReaderTest, ReadsEveryPageAndDialogAsWrittenDown) {
  std::string present;
  visitEverything([&](const std::string& name, ui::Form& form) {
    present += "== " + name + "\n" + read(form) + "\n";
  });
  const std::string expected = embeddedText(5);
  if (present == expected) return;
  const std::string program = toUtf8(win32::pathOfModule(nullptr));
  std::ofstream(std::filesystem::path(program).parent_path() / "screen_reader.txt",
                std::ios::binary)
      << present;
  FAIL() << "Screen readers are told something else than before:\n"
         << lineChanges(expected, present)
         << "If that is intended, copy screen_reader.txt from the build folder to tests/windows/."
         << (annotations.areThePlatforms()
                 ? " It was written under Wine, which keeps no annotations; this platform does."
                 : "");
}

TEST_F(ScreenReaderTest, NothingIsToldBeforeAnybodyAsksNorLeftWhenTheWindowsAreGone) {
  if (annotations.areThePlatforms()) GTEST_SKIP() << "only the platform knows what it keeps";
  open([&](frmOptions& dialog) {
    EXPECT_EQ(annotations.count(), 0U);
    read(dialog);
    EXPECT_GT(annotations.count(), 0U);
  });
  EXPECT_EQ(annotations.count(), 0U);
}

TEST_F(ScreenReaderTest, ANameFollowsTheLabelThatGivesIt) {
  ui::Form form(desk->screen(), u"Form");
  auto& label = form.add<ui::Label>(u"&First");
  auto& combo = form.add<ui::ComboBox>();
  desk->whenShown([&](ui::Form&) {
    EXPECT_EQ(read(combo), "combo box \"First\", focused\n");
    label.setCaption(u"&Second");
    EXPECT_EQ(read(combo), "combo box \"Second\", focused\n");
  });
  form.showModal();
}

}  // namespace
}  // namespace tillora::testing
