// What opening the dialog costs, against making its windows with nothing behind them. Floor and
// product take turns; medians count. Ends with exit code 1 where a budget is not kept.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <optional>
#include <vector>

#include "bench/windows/bare_windows.h"
#include "component/frmOptions.h"
#include "component/options.h"
#include "tests/testing/fake_host.h"
#include "tests/testing/fake_machine.h"
#include "ui/win32/module.h"
#include "ui/win32/screen.h"

namespace tillora::bench {
namespace {

constexpr int kRounds = 21;
constexpr double kFirstPageBudget = 1.5;
constexpr double kAllPagesBudget = 0.3;

using Clock = std::chrono::steady_clock;

double milliseconds(Clock::time_point from, Clock::time_point to) {
  return std::chrono::duration<double, std::milli>(to - from).count();
}

double median(std::vector<double> values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

class Bench {
 public:
  Bench() {
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
    const bool first = report("open to the first page", median(product), median(firstPage),
                              firstPage_->count(), kFirstPageBudget);
    const bool all = report("open, against all pages", median(product), median(allPages),
                            allPages_->count(), kAllPagesBudget);
    return first && all;
  }

 private:
  static bool report(const char* what, double product, double floor, std::size_t windows,
                     double budget) {
    const double ratio = product / floor;
    std::printf("%-26s product %7.2f ms  floor %7.2f ms (%zu windows)  ratio %.2f  budget %.2f\n",
                what, product, floor, windows, ratio, budget);
    return ratio <= budget;
  }

  void record() {
    screen_.modalShown = [this](ui::Form& form) {
      firstPage_.emplace(screen_.topWindow());
      auto& dialog = dynamic_cast<frmOptions&>(form);
      for (int tab = 1; tab <= dialog.tabOptions.count(); ++tab) {
        dialog.tabOptions.setSelected(tab);
        screen_.pumpUntilIdle();
      }
      dialog.tabOptions.setSelected(1);
      allPages_.emplace(screen_.topWindow());
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
                                           nullptr, nullptr, ui::win32::thisModule(), nullptr)};
  ui::win32::Screen screen_;
  testing::FakeHost host_;
  testing::ScriptedMessageBoxes boxes_{screen_};
  testing::FakeMachine machine_;
  Options options_{machine_.platform(screen_, boxes_)};
  std::optional<BareWindows> firstPage_;
  std::optional<BareWindows> allPages_;
};

}  // namespace
}  // namespace tillora::bench

int main() { return tillora::bench::Bench().run() ? 0 : 1; }
