#pragma once

#include <cstdint>

#include "component/contract/messages.h"
#include "component/contract/platform.h"
#include "support/dialog.h"
#include "ui/control_array.h"
#include "ui/label.h"
#include "ui/text_box.h"

namespace tillora {

/// Edits one web-site entry.
class frmWebSite final : public EditDialog {
 public:
  /// Indexes of cmdWebSite.
  enum Command : std::uint8_t { ok, cancel, browse };
  /// Indexes of txtWebSite.
  enum Box : std::uint8_t { description, url };
  /// Indexes of lblWebSite.
  enum Label : std::uint8_t { instruction, descriptionLabel, urlLabel };

  frmWebSite(const Platform& platform, Messages& messages);

  bool EditMode = false;  ///< an existing entry; else a new one
  Text Description;
  Text URL;
  bool Inactive = false;
  /// A text was edited since the dialog was loaded.
  bool Changed = false;

  ui::ControlArray<ui::Label> lblWebSite;
  ui::ControlArray<ui::TextBox> txtWebSite;
  ui::ControlArray<ui::CommandButton> cmdWebSite;
  ui::CheckBox chkInactive;

 private:
  void onLoad() override;

  void accept();
  void browseShortcut();

  const Platform& platform_;
  Messages& messages_;
};

}  // namespace tillora
