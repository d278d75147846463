// Programs of either kind of apartment show the dialog, hear its events, may end with the
// component's objects alive or its dialog open, and find the component by their manifest.
#include <fstream>

#include "TilloraOptions.h"
#include "com/bstr.h"
#include "tests/clients/client_fixture.h"

namespace tillora::testing {
namespace {

namespace fs = std::filesystem;

class ApartmentsTest : public ClientTest, public ::testing::WithParamInterface<const char*> {
 protected:
  bool isMultiThreaded() const { return GetParam() == std::string("mta"); }
  std::wstring apartment() const { return isMultiThreaded() ? L" mta" : L" sta"; }
};
INSTANTIATE_TEST_SUITE_P(Either, ApartmentsTest, ::testing::Values("sta", "mta"),
                         [](const auto& apartment) { return std::string(apartment.param); });

TEST_P(ApartmentsTest, TheDialogIsShownAndItsEventsAreHeard) {
  program(L"com_client.exe", L"show " + shop() + apartment());
  drive(
      L"wait Options 60 -- key ALT+M CTRL+A -- type \"Corner Shop\" -- key ALT+A -- key ESC "
      L"-- gone Options 60");
  finish();
  expectPrinted("advise: 0x00000000");
  expectPrinted(isMultiThreaded() ? "dialog: in another thread" : "dialog: in the caller's thread");
  expectPrinted("changes heard");
  expectPrinted("show: 0x00000000 ");
  expectPrinted("listener released: yes");
  expectPrinted("done");
}

TEST_P(ApartmentsTest, AProgramMayEndWithObjectsAlive) {
  program(L"com_client.exe", L"leave" + apartment());
  finish();
  expectPrinted("leaving");
}

HRESULT findTypeLibrary() {
  win32::Bstr path;
  return QueryPathOfRegTypeLib(LIBID_TilloraOptions, 1, 0, LOCALE_NEUTRAL, path.out());
}

/// Takes back that Wine registers a type library that a program finds by its manifest.
class TypeLibraryRemoval {
 public:
  TypeLibraryRemoval() = default;
  TypeLibraryRemoval(const TypeLibraryRemoval&) = delete;
  TypeLibraryRemoval& operator=(const TypeLibraryRemoval&) = delete;
  ~TypeLibraryRemoval() {
    UnRegisterTypeLib(LIBID_TilloraOptions, 1, 0, LOCALE_NEUTRAL,
                      sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32);
  }
};

TEST_P(ApartmentsTest, AProgramWithAManifestNeedsNoRegistration) {
  ASSERT_NE(findTypeLibrary(), S_OK) << "it is registered, so this would show nothing";
  const TypeLibraryRemoval removal;
  for (const wchar_t* file :
       {L"com_client.exe", L"TilloraOptions.dll", L"TilloraOptions.Component.manifest"}) {
    fs::copy_file(programFolder() / file, folder() / file);
  }
  const HRSRC manifest = FindResourceW(nullptr, MAKEINTRESOURCEW(5), MAKEINTRESOURCEW(24));
  ASSERT_NE(manifest, nullptr);
  std::ofstream(folder() / "com_client.exe.manifest", std::ios::binary)
      .write(static_cast<const char*>(LockResource(LoadResource(nullptr, manifest))),
             static_cast<std::streamsize>(SizeofResource(nullptr, manifest)));

  start(quoted(folder() / "com_client.exe") + L" create" + apartment());
  finish();
  expectPrinted("create by name: 0x00000000");
  expectPrinted("create: 0x00000000");
  expectPrinted("library: " + (folder() / "TilloraOptions.dll").string());
  expectPrinted("by name: 0x00000000 no");
}

class OpenDialogTest : public ClientTest {};

TEST_F(OpenDialogTest, AProgramMayEndWithTheDialogOpen) {
  program(L"com_client.exe", L"leave open " + shop());
  finish();
  expectPrinted("leaving");
}

}  // namespace
}  // namespace tillora::testing
