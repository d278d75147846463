#pragma once

#include <cstdint>
#include <set>

#include "component/contract/options_tab.h"
#include "ui/buttons.h"
#include "ui/control_array.h"
#include "ui/label.h"
#include "ui/lists.h"

namespace tillora {

/// The web sites that the point-of-sale system offers to its users.
class WebSites final : public OptionsTab {
 public:
  /// Indexes of cmdWeb.
  enum Command : std::uint8_t { add, edit, remove };
  /// Columns of ltvWeb.
  enum Column : std::uint8_t { icon, description, url };

  explicit WebSites(OptionsDialog& dialog);
  void load();
  void save();

  ui::Label lblWeb;
  ui::ListView ltvWeb;
  ui::ControlArray<ui::CommandButton> cmdWeb;

 private:
  void commandClick(int index);
  void addSite();
  void editSite();
  void deleteSite();
  void rowsChanged();

  /// The URLs of the table's rows that were loaded or saved here, and are therefore deleted when
  /// they are no longer listed.
  std::set<Text> ours_;
};

}  // namespace tillora
