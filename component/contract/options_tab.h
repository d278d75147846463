#pragma once

#include <cstdint>

#include "component/contract/host_objects.h"
#include "component/contract/messages.h"
#include "component/contract/option_changes.h"
#include "component/contract/platform.h"
#include "ui/container.h"
#include "ui/image_list.h"
#include "ui/text_box.h"

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
  // The most used ones. Error `object variable not set` (91) for one that was not handed over.
  JetDatabase& database() const { return requireObject(host().database, u"DBJetObject"); }
  SettingsStore& settings() const { return requireObject(host().settings, u"SettingsObject"); }
  App& app() const { return requireObject(host().app, u"AppObject"); }
  virtual Messages& messages() = 0;
  /// The pictures of the rows of the dialog's lists.
  virtual const ui::ImageList& images() const = 0;
  /// The shop is being set up: the load makes the records that it starts with.
  virtual bool firstUse() const = 0;
  virtual const Platform& platform() const = 0;
  /// Extension of the accounting package's data files, with or without its dot.
  virtual const Text& dataFileExtension() const = 0;
  /// How many normal files match a path with wildcards; 0 if they cannot be listed. Error
  /// `overflow` (6) for more than 32767.
  virtual std::int16_t GetNumberOfFiles(TextView pattern) const = 0;

  /// Enables Apply. Every edit of a control on a page does so by itself; this is for changes that
  /// are not in a control, such as a new row of a list. Does nothing while values are loaded.
  virtual void markChanged() = 0;
  /// The tab strip has this tab; the one for pharmacy dispensing may be missing.
  virtual bool hasTab(TabPage page) const = 0;
  virtual void selectTab(TabPage page) = 0;
  /// False while Enter belongs to a box with several lines.
  virtual void setOkDefault(bool isDefault) = 0;

 protected:
  ~OptionsDialog() = default;
};

/// One part of the dialog: makes its controls on its page at construction, and keeps its edit
/// rules. Its `load` shows the stored values; edits made meanwhile leave Apply as it is. Its `save`
/// writes them back, and enters the groups of options whose values differ.
class OptionsTab {
 public:
  OptionsTab(const OptionsTab&) = delete;
  OptionsTab& operator=(const OptionsTab&) = delete;

 protected:
  explicit OptionsTab(OptionsDialog& dialog) : dialog_(dialog) {}
  ~OptionsTab() = default;

  /// Enter makes a line in this box: OK is not the default button while the box has the focus.
  void letEnterMakeLines(ui::TextBox& box) {
    box.gotFocus = [this] { dialog_.setOkDefault(false); };
    box.lostFocus = [this] { dialog_.setOkDefault(true); };
  }

  OptionsDialog& dialog_;
};

}  // namespace tillora
