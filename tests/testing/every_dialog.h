#pragma once

#include <functional>

#include "tests/testing/options_test.h"

namespace tillora::testing {

/// Shows the options dialog on every tab, and every other dialog, page by page.
class EveryDialog : public OptionsTest {
 protected:
  /// `look` is called for each page while it is shown.
  void showEach(const std::function<void(ui::Form&)>& look);

 private:
  void show(ui::Form& form, const std::function<void(ui::Form&)>& look);
};

}  // namespace tillora::testing
