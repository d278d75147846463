#pragma once

#include "ui/form.h"

namespace tillora {

/// A dialog of the component. Its text boxes select their whole text when they receive the focus,
/// before their own gotFocus.
class Dialog : public ui::Form {
 protected:
  using Form::Form;
  void onFocus(ui::Control& control) override;
};

}  // namespace tillora
