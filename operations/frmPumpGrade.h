#pragma once

#include <cstdint>
#include <memory>

#include "component/contract/host_objects.h"
#include "support/dialog.h"
#include "ui/control_array.h"
#include "ui/label.h"
#include "ui/text_box.h"

namespace tillora {

/// The product of a grade that has none.
inline constexpr TextView kNoProduct = u"(None)";

/// Edits the caption and the product of one pump grade.
class frmPumpGrade final : public EditDialog {
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
  /// For the item browser. Released when the dialog closes.
  std::shared_ptr<SettingsStore> SettingsObject;
  std::shared_ptr<JetDatabase> DBJetObject;

  ui::ControlArray<ui::Label> lblPumpGrade;
  ui::ControlArray<ui::TextBox> txtPumpGrade;
  ui::ControlArray<ui::CommandButton> cmdPumpGrade;

 private:
  void onLoad() override;
  void onUnload() override;

  void browseProduct();
};

}  // namespace tillora
