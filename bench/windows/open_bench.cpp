#include <memory>
#include <vector>

#include "bench/windows/bare_windows.h"
#include "bench/windows/benchmarks.h"
#include "bench/windows/measure.h"
#include "com/module.h"
#include "component/frmOptions.h"
#include "component/options.h"
#include "tests/testing/fake_host.h"
#include "tests/testing/fake_machine.h"
#include "tests/testing/win32/driven_screen.h"
#include "ui/win32/visual_styles.h"

namespace tillora::bench {
namespace {

constexpr int kRounds = 21;
constexpr double kFirstPageBudget = 1.5;
constexpr double kAllPagesBudget = 0.3;

class Opening {
 public:
  Opening() {
    HostObjects objects = host_.objects();
    options_.DBJetObject = std::move(objects.database);
    options_.AppObject = std::move(objects.app);
    options_.MsgSndObject = std::move(objects.messageSender);
    options_.ResourceObject = std::move(objects.resources);
    options_.SettingsObject = std::move(objects.settings);
  }

  bool run() {
    record();
    std::vector<double> product;
    std::vector<double> firstPage;
    std::vector<double> allPages;
    for (int round = 0; round < kRounds; ++round) {
      product.push_back(openProduct());
      firstPage.push_back(openBare(*firstPage_));
      allPages.push_back(openBare(*allPages_));
    }
    std::printf("windows: %zu with the first page, %zu with all pages\n", firstPage_->count(),
                allPages_->count());
    const bool first = report("open to the first page", product, firstPage, kFirstPageBudget);
    const bool all = report("open, against all pages", product, allPages, kAllPagesBudget);
    return first && all;
  }

 private:
  void record() {
    screen_.modalShown = [this](ui::Form& form) {
      firstPage_ = std::make_unique<BareWindows>(screen_.topWindow());
      auto& dialog = dynamic_cast<frmOptions&>(form);
      for (int tab = 1; tab <= dialog.tabOptions.count(); ++tab) {
        dialog.tabOptions.setSelected(tab);
        screen_.pumpUntilIdle();
      }
      dialog.tabOptions.setSelected(1);
      allPages_ = std::make_unique<BareWindows>(screen_.topWindow());
      form.unload();
    };
    options_.ShowOptions();
  }

  double openProduct() {
    const auto start = Clock::now();
    auto end = start;
    screen_.modalShown = [&](ui::Form& form) {
      end = Clock::now();
      form.unload();
    };
    options_.ShowOptions();
    return milliseconds(start, end);
  }

  double openBare(const BareWindows& windows) {
    const ui::win32::VisualStyles styles;
    const auto start = Clock::now();
    const auto dialog = windows.open(owner_.get());
    return milliseconds(start, Clock::now());
  }

  ui::win32::Window owner_{CreateWindowExW(0, L"STATIC", L"Benchmark",
                                           WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20, 900, 700,
                                           nullptr, nullptr, win32::thisModule(), nullptr)};
  testing::DrivenScreen screen_;
  testing::FakeHost host_;
  testing::ScriptedMessageBoxes boxes_{screen_};
  testing::FakeMachine machine_;
  Options options_{machine_.platform(screen_, boxes_)};
  std::unique_ptr<BareWindows> firstPage_;
  std::unique_ptr<BareWindows> allPages_;
};

}  // namespace

bool measureOpening() { return Opening().run(); }

}  // namespace tillora::bench
