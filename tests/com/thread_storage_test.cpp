#include "com/thread_storage.h"

#include <windows.h>
#include <TilloraHost.h>
#include <TilloraOptions.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "com/com_ptr.h"
#include "com/variant.h"

namespace tillora::win32 {
namespace {

std::size_t freeIndexes() {
  std::vector<DWORD> taken;
  for (DWORD index = TlsAlloc(); index != TLS_OUT_OF_INDEXES; index = TlsAlloc()) {
    taken.push_back(index);
  }
  for (const DWORD index : taken) TlsFree(index);
  return taken.size();
}

struct Library {
  const wchar_t* name;
  const CLSID& classId;
  const wchar_t* failingMethod;
};
void PrintTo(const Library& library, std::ostream* stream) {
  *stream << std::filesystem::path(library.name).string();
}

class ThreadStorageTest : public ::testing::TestWithParam<Library> {
 protected:
  // Other tests keep the library itself loaded.
  ThreadStorageTest() {
    wchar_t program[MAX_PATH];
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    const auto folder = std::filesystem::path(program).parent_path();
    copy_ = std::filesystem::temp_directory_path() /
            (L"copy-" + std::to_wstring(GetCurrentProcessId()) + L"-" + GetParam().name);
    std::filesystem::copy_file(folder / GetParam().name, copy_,
                               std::filesystem::copy_options::overwrite_existing);
  }
  ~ThreadStorageTest() override {
    std::error_code ignored;
    std::filesystem::remove(copy_, ignored);
  }

  /// Loads the library, makes a method of its class fail, and unloads it.
  void loadFailUnload() {
    const HMODULE module = LoadLibraryW(copy_.c_str());
    ASSERT_NE(module, nullptr);
    callFailing(module);
    FreeLibrary(module);
    ASSERT_EQ(GetModuleHandleW(copy_.filename().c_str()), nullptr) << "it stays loaded";
  }

 private:
  void callFailing(HMODULE module) {
    using GetClassObject = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
    const auto getClassObject = reinterpret_cast<GetClassObject>(
        reinterpret_cast<void (*)()>(GetProcAddress(module, "DllGetClassObject")));
    ASSERT_NE(getClassObject, nullptr);
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(getClassObject(GetParam().classId, IID_IClassFactory, factory.outVoid()), S_OK);
    ComPtr<IDispatch> object;
    ASSERT_EQ(factory->CreateInstance(nullptr, IID_IDispatch, object.outVoid()), S_OK);
    auto* name = const_cast<wchar_t*>(GetParam().failingMethod);
    DISPID method = DISPID_UNKNOWN;
    ASSERT_EQ(object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &method), S_OK);
    DISPPARAMS none{};
    Variant result;
    EXCEPINFO exception{};
    EXPECT_EQ(object->Invoke(method, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none,
                             result.out(), &exception, nullptr),
              DISP_E_EXCEPTION);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
  }

  std::filesystem::path copy_;
};

TEST_P(ThreadStorageTest, LoadingFailingAndUnloadingKeepsNoIndex) {
  loadFailUnload();  // the program's own runtime takes an index at its first need
  const std::size_t before = freeIndexes();
  constexpr int kRounds = 4;
  for (int round = 0; round < kRounds; ++round) loadFailUnload();
  EXPECT_EQ(freeIndexes(), before);
}

INSTANTIATE_TEST_SUITE_P(Libraries, ThreadStorageTest,
                         ::testing::Values(Library{L"TilloraOptions.dll", CLSID_Options,
                                                   L"ShowOptions"},
                                           Library{L"TilloraHost.dll", CLSID_Shop, L"Dump"}));

}  // namespace
}  // namespace tillora::win32
