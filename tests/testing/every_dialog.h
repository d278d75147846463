#pragma once

#include <functional>
#include <string>

#include "tests/testing/options_test.h"

namespace tillora::testing {

/// Everything that the component shows, with something in it.
class EveryDialogTest : public OptionsTest {
 protected:
  EveryDialogTest();

  using Visit = std::function<void(const std::string& name, ui::Form& form)>;
  /// Opens the options dialog and goes from page to page by keyboard; `visit` is called on each.
  void visitEveryPage(const Visit& visit);
  /// Opens each of the other dialogs.
  void visitEveryOtherDialog(const Visit& visit);
  void visitEverything(const Visit& visit) {
    visitEveryPage(visit);
    visitEveryOtherDialog(visit);
  }

 private:
  void show(const std::string& name, ui::Form& form, const Visit& visit);
};

}  // namespace tillora::testing
