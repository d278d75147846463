#include <algorithm>
#include <functional>
#include <memory>
#include <vector>

#include "bench/windows/bare_windows.h"
#include "bench/windows/benchmarks.h"
#include "bench/windows/host_window.h"
#include "bench/windows/measure.h"
#include "bench/windows/property_sheet.h"
#include "component/frmOptions.h"
#include "component/options.h"
#include "tests/testing/fake_host.h"
#include "tests/testing/fake_machine.h"
#include "tests/testing/win32/driven_screen.h"
#include "ui/win32/dpi_context.h"
#include "ui/win32/visual_styles.h"

namespace tillora::bench {
namespace {

constexpr int kOpenRounds = 21;
constexpr double kSheetBudget = 1.0;
constexpr double kBareBudget = 1.2;

/// Milliseconds of one contender's life, and what it takes up when all its pages have been shown.
struct Times {
  double open = 0;
  double firstVisits = 0;
  double secondVisits = 0;
  double close = 0;
};

std::vector<double> valuesOf(const std::vector<Times>& all, double Times::* time) {
  std::vector<double> values(all.size());
  std::ranges::transform(all, values.begin(), std::mem_fn(time));
  return values;
}

struct Space {
  std::size_t windows = 0;
  std::size_t privateBytes = 0;
};

BOOL CALLBACK countOne(HWND /*window*/, LPARAM count) {
  ++*reinterpret_cast<std::size_t*>(count);
  return TRUE;
}

std::size_t windowsIn(HWND window) {
  std::size_t count = 1;
  EnumChildWindows(window, &countOne, reinterpret_cast<LPARAM>(&count));
  return count;
}

/// What the component's dialog has around it too.
struct SameSurroundings {
  ui::win32::VisualStyles styles;
  ui::win32::SystemScaling scaling;
};

class Opening {
 public:
  Opening() {
    HostObjects objects = host_.objects();
    options_.DBJetObject = std::move(objects.database);
    options_.AppObject = std::move(objects.app);
    options_.MsgSndObject = std::move(objects.messageSender);
    options_.ResourceObject = std::move(objects.resources);
    options_.SettingsObject = std::move(objects.settings);
    host_.dispensingAvailable = true;
  }

  bool run() {
    SetCursorPos(0, 0);  // a dialog that opens under the pointer would make its tool tips
    record();
    std::vector<Times> ours;
    std::vector<Times> oursFirstPage;
    std::vector<Times> sheet;
    std::vector<Times> sheetFirstPage;
    std::vector<Times> bare;
    for (int round = 0; round < kOpenRounds; ++round) {
      oursFirstPage.push_back(measureOurs(false));
      sheetFirstPage.push_back(measureSheet(false));
      ours.push_back(measureOurs(true));
      sheet.push_back(measureSheet(true));
      bare.push_back(measureBare());
    }
    std::printf("all pages: ours %zu windows, %zu KB; property sheet %zu windows, %zu KB\n",
                ourSpace_.windows, ourSpace_.privateBytes / 1024, sheetSpace_.windows,
                sheetSpace_.privateBytes / 1024);
    bool kept = true;
    const auto compare = [&](const char* what, const std::vector<Times>& product,
                             const std::vector<Times>& floor, double Times::* time, double budget) {
      kept = report(what, valuesOf(product, time), valuesOf(floor, time), budget) && kept;
    };
    compare("open to the first page", oursFirstPage, sheetFirstPage, &Times::open, kSheetBudget);
    compare("close, first page alone", oursFirstPage, sheetFirstPage, &Times::close, kSheetBudget);
    compare("first visit of the other pages", ours, sheet, &Times::firstVisits, kSheetBudget);
    compare("second visit of them", ours, sheet, &Times::secondVisits, kSheetBudget);
    compare("close, all pages visited", ours, sheet, &Times::close, kSheetBudget);
    compare("open, against the same windows bare", oursFirstPage, bare, &Times::open, kBareBudget);
    return kept;
  }

 private:
  void visitOthers(frmOptions& dialog) {
    for (int tab = 2; tab <= dialog.tabOptions.count(); ++tab) {
      dialog.tabOptions.setSelected(tab);
      screen_.pumpUntilIdle();
    }
  }

  void record() {
    screen_.modalShown = [this](ui::Form& form) {
      firstPage_ = std::make_unique<BareWindows>(screen_.topWindow());
      auto& dialog = dynamic_cast<frmOptions&>(form);
      visitOthers(dialog);
      dialog.tabOptions.setSelected(1);
      sheet_ = std::make_unique<PlatformSheet>(screen_.topWindow());
      form.unload();
    };
    options_.ShowOptions();
    std::printf("the first page: %zu windows; %d pages\n", firstPage_->count(), sheet_->pages());
  }

  Times measureOurs(bool allPages) {
    Times times;
    const std::size_t before = privateBytes();
    const auto start = Clock::now();
    auto closing = start;
    screen_.modalShown = [&](ui::Form& form) {
      auto& dialog = dynamic_cast<frmOptions&>(form);
      times.open = milliseconds(start, Clock::now());
      if (allPages) {
        times.firstVisits = timed([&] { visitOthers(dialog); });
        times.secondVisits = timed([&] { visitOthers(dialog); });
        ourSpace_ = {windowsIn(screen_.topWindow()), privateBytes() - before};
      }
      closing = Clock::now();
      form.unload();
    };
    options_.ShowOptions();
    pump();
    times.close = milliseconds(closing, Clock::now());
    return times;
  }

  Times measureSheet(bool allPages) {
    const SameSurroundings surroundings;
    Times times;
    const std::size_t before = privateBytes();
    HWND sheet = nullptr;
    times.open = timed([&] { sheet = sheet_->open(owner_.get()); });
    if (allPages) {
      const auto visitAll = [&] {
        for (int page = 1; page < sheet_->pages(); ++page) PlatformSheet::visit(sheet, page);
      };
      times.firstVisits = timed(visitAll);
      times.secondVisits = timed(visitAll);
      sheetSpace_ = {windowsIn(sheet), privateBytes() - before};
    }
    times.close = timed([&] { PlatformSheet::close(sheet); });
    return times;
  }

  Times measureBare() {
    const SameSurroundings surroundings;
    ui::win32::Window dialog;
    return {.open = timed([&] { dialog = firstPage_->open(owner_.get()); })};
  }

  const ui::win32::Window owner_ = makeHostWindow();
  testing::DrivenScreen screen_;
  testing::FakeHost host_;
  testing::ScriptedMessageBoxes boxes_{screen_};
  testing::FakeMachine machine_;
  Options options_{machine_.platform(screen_, boxes_)};
  std::unique_ptr<BareWindows> firstPage_;
  std::unique_ptr<PlatformSheet> sheet_;
  Space ourSpace_;
  Space sheetSpace_;
};

}  // namespace

bool measureOpening() { return Opening().run(); }

}  // namespace tillora::bench
