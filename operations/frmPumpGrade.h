#pragma once

#include <cstdint>
#include <memory>

#include "component/dialog.h"
#include "component/host_objects.h"
#include "ui/control_array.h"
#include "ui/label.h"
#include "ui/text_box.h"

namespace tillora {

/// The product of a grade that has none.
inline constexpr TextView kNoProduct = u"(None)";

/// The caption and the product of one pump grade. The caller sets the variables, shows the dialog
/// modally, and takes Caption and Product back unless it was cancelled.
class frmPumpGrade final : public Dialog {
 public:
  /// Indexes of cmdPumpGrade.
  enum Command : std::uint8_t { ok, cancel, browse };
  /// Indexes of txtPumpGrade.
  enum Box : std::uint8_t { captionBox, productBox };
  /// Indexes of lblPumpGrade.
  enum Label : std::uint8_t { heading, captionLabel, productLabel };

  explicit frmPumpGrade(ui::Screen& screen);

  bool EditMode = false;  ///< an existing grade; else a new one
  std::int32_t GradeNumber = 0;
  Text Caption;  ///< takes the box's text when the box is left
  Text Product;
  /// Every way out but OK cancels.
  bool Cancelled = false;
  /// For the item browser. Released when the dialog closes.
  std::shared_ptr<SettingsStore> SettingsObject;
  std::shared_ptr<JetDatabase> DBJetObject;

  ui::ControlArray<ui::Label> lblPumpGrade;
  ui::ControlArray<ui::TextBox> txtPumpGrade;
  ui::ControlArray<ui::CommandButton> cmdPumpGrade;

 private:
  void onLoad() override;
  void onQueryUnload(bool& cancel, ui::UnloadMode mode) override;
  void onUnload() override;

  void makeControls();
  void layOut();
  void browseProduct();
  void leave(bool cancelled);
};

}  // namespace tillora
