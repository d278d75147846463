#pragma once

#include "ui/buttons.h"
#include "ui/win32/control_view.h"

namespace tillora::ui::win32 {

/// A check box. The object ticks itself; the window only shows it.
class CheckBoxView final : public ViewOf<CheckBox> {
 public:
  using ViewOf::ViewOf;
  void create(HWND parent) override;
  void show(Property what) override;
  void command(WORD code) override;
};

class OptionButtonView final : public ViewOf<OptionButton> {
 public:
  using ViewOf::ViewOf;
  void create(HWND parent) override;
  void show(Property what) override;
  void command(WORD code) override;

 protected:
  LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override;
};

/// A push button. The dialog shows which one is the default.
class CommandButtonView final : public ViewOf<CommandButton> {
 public:
  using ViewOf::ViewOf;
  void create(HWND parent) override;
  void command(WORD code) override;
};

}  // namespace tillora::ui::win32
