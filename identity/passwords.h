#pragma once

#include <array>
#include <cstdint>

#include "base/secret_text.h"
#include "component/contract/options_tab.h"
#include "ui/buttons.h"
#include "ui/control_array.h"

namespace tillora {

/// Which functions of the Administrator and of the terminals ask for a password, and which one.
class Passwords final : public OptionsTab {
 public:
  /// Indexes of fraSecurity.
  enum Program : std::uint8_t { administrator, terminal };
  /// Indexes of chkSecurity and cmdSecurity, from top to bottom.
  enum Protection : std::uint8_t {
    startAdmin,
    transferData,
    postTransactions,
    compactDatabase,
    adminOptions,
    deleteTerminal,
    changePrices,
    promotions,
    endOfDay,
    terminalOptions,
    globalOverride,
    count
  };

  explicit Passwords(OptionsDialog& dialog);
  void load(OptionsRecord& record);
  /// An unticked protection loses its password.
  void save(OptionsRecord& record);

  ui::ControlArray<ui::Frame> fraSecurity;
  ui::ControlArray<ui::CheckBox> chkSecurity;
  ui::ControlArray<ui::CommandButton> cmdSecurity;

 private:
  void addGroup(Program program, Text caption);

  void enableButton(int index);
  void setPassword(int index);
  Text dialogCaption(int index) const;

  std::array<SecretText, count> passwords_;  ///< as they are while the dialog is open
};

}  // namespace tillora
