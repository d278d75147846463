#include <windows.h>

#include <objbase.h>

#include <cstdio>
#include <vector>

#include "TilloraOptions.h"
#include "bench/windows/benchmarks.h"
#include "bench/windows/catalogue.h"
#include "bench/windows/measure.h"
#include "com/com_ptr.h"
#include "com/module.h"
#include "tests/component/automation/server_library.h"

namespace tillora::bench {
namespace {

/// A host's window, which closes each dialog over it once that is shown and idle.
class HostWindow {
 public:
  HostWindow() {
    WNDCLASSW look{};
    look.lpfnWndProc = &procedure;
    look.hInstance = win32::thisModule();
    look.lpszClassName = L"BenchmarkHost";
    RegisterClassW(&look);
    window_ = CreateWindowExW(0, look.lpszClassName, L"Benchmark", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                              20, 20, 900, 700, nullptr, nullptr, look.hInstance, nullptr);
    SetActiveWindow(window_);
  }
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;
  ~HostWindow() { DestroyWindow(window_); }

  static inline Clock::time_point shown;

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_ENTERIDLE) {
      shown = Clock::now();
      PostMessageW(reinterpret_cast<HWND>(lParam), WM_CLOSE, 0, 0);
      return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
  }

  HWND window_;
};

/// From CreateObject to a dialog that shows its first page and waits for the user, milliseconds.
double createAndShow(Catalogue& shop) {
  const auto start = Clock::now();
  {
    win32::ComPtr<_Options> options;
    if (FAILED(CoCreateInstance(CLSID_Options, nullptr, CLSCTX_INPROC_SERVER, IID__Options,
                                options.outVoid()))) {
      std::printf("TilloraOptions.dll is not registered\n");
      return 0;
    }
    options->putref_DBJetObject(shop.database());
    options->putref_AppObject(shop.object(u"App").get());
    options->putref_MsgSndObject(shop.object(u"Messages").get());
    options->putref_ResourceObject(shop.object(u"Strings").get());
    options->putref_SettingsObject(shop.object(u"Settings").get());
    VARIANT_BOOL accepted = VARIANT_FALSE;
    options->ShowOptions(&accepted);
  }
  CoFreeUnusedLibrariesEx(0, 0);
  return milliseconds(start, HostWindow::shown);
}

}  // namespace

void measureCreating() {
  const testing::Apartment apartment;
  Catalogue shop(0);
  const HostWindow window;
  const double cold = createAndShow(shop);
  // Kept loaded, as by a host that keeps one of its objects.
  const testing::ServerLibrary library;
  std::vector<double> warm(21);
  for (double& round : warm) round = createAndShow(shop);
  std::printf("from CreateObject to the first page      cold %.0f ms, warm %.0f ms\n", cold,
              median(warm));
}

}  // namespace tillora::bench
