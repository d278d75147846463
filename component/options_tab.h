#pragma once

#include <cstdint>

#include "component/host_objects.h"
#include "component/messages.h"
#include "component/option_changes.h"
#include "component/platform.h"
#include "ui/container.h"

namespace tillora {

/// The tabs of the dialog by their number in the tab strip.
enum class TabPage : std::uint8_t {
  general = 1,
  lists,
  transactions,
  rounding,
  currency,
  scanning,
  layby,
  eod,
  pump,
  web,
  security,
  fred,
};

/// What a tab part needs of the dialog that it is on.
class OptionsDialog {
 public:
  /// The frame that holds the controls of a tab.
  virtual ui::Frame& page(TabPage page) = 0;
  /// The host's objects, as they were handed over.
  virtual const HostObjects& host() const = 0;
  virtual Messages& messages() = 0;
  /// The shop is being set up: the load makes the records that it starts with.
  virtual bool firstUse() const = 0;
  /// The host program's title up to its last blank ("Tillora"), as it was at load.
  virtual const Text& shortProductName() const = 0;
  virtual const Platform& platform() const = 0;

  /// There is something to apply. Every edit of a control on a page says so by itself; this is for
  /// changes that no control holds, such as a new row of a list. Nothing while values are loaded.
  virtual void markChanged() = 0;
  virtual void selectTab(TabPage page) = 0;
  /// False while Enter belongs to a box with several lines.
  virtual void setOkDefault(bool isDefault) = 0;

 protected:
  ~OptionsDialog() = default;
};

/// One part of the dialog: makes its controls on its page when it is made, shows the stored values,
/// keeps its edit rules, and writes the values back.
class OptionsTab {
 public:
  explicit OptionsTab(OptionsDialog& dialog) : dialog_(dialog) {}
  virtual ~OptionsTab() = default;
  OptionsTab(const OptionsTab&) = delete;
  OptionsTab& operator=(const OptionsTab&) = delete;

  /// Stored values into controls. Edits made meanwhile leave Apply as it is.
  virtual void load(OptionsRecord& record) = 0;
  /// Controls into stored values; enters the groups of options whose values differ.
  virtual void save(OptionsRecord& record, OptionChanges& changes) = 0;

 protected:
  OptionsDialog& dialog_;
};

}  // namespace tillora
