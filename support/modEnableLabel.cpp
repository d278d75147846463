#include "support/modEnableLabel.h"

#include "ui/form.h"

namespace tillora {

void enableLabel(ui::Label& label, ui::Label& shadow, bool enabled) {
  label.setEnabled(enabled);
  if (!enabled) {
    shadow.placeAsShadow(label.bounds());
    shadow.setCaption(label.caption());
    shadow.setDecorative(true);
    shadow.setAlignment(label.alignment());
    shadow.setForeColour(ui::kButtonHighlight);
  }
  shadow.setVisible(!enabled);
  label.bringToFront();
}

}  // namespace tillora
