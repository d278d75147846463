#pragma once

#include <cstdint>
#include <memory>

#include "component/contract/host_objects.h"
#include "component/contract/messages.h"
#include "component/contract/options_tab.h"
#include "component/contract/platform.h"
#include "component/tab_order.h"
#include "support/dialog.h"
#include "ui/buttons.h"
#include "ui/control_array.h"
#include "ui/image_list.h"
#include "ui/tab_strip.h"

namespace tillora {

/// The options dialog: its tab strip and pages, its four buttons, and the state of Apply, which is
/// the dialog's only record of unsaved changes. What is on the pages belongs to the tab parts
/// (tab_order.h); the save is save_options.h.
class frmOptions final : public Dialog, private OptionsDialog {
 public:
  enum Command : std::uint8_t { ok, apply, cancel, help_ };

  explicit frmOptions(Platform platform);

  /// Set by the caller before the dialog is loaded.
  bool FirstUse = false;
  Text LVFileExtension;
  void setHost(HostObjects host);
  /// Read by the caller when the dialog has closed: a save has changed the data file.
  bool ChangedDataFile = false;

  ui::TabStrip tabOptions;
  const ui::ImageList ilstImages;                  ///< pictures of the rows of its lists
  ui::ControlArray<ui::Frame> fraFrame;            ///< by tab number less 1
  ui::ControlArray<ui::CommandButton> cmdCommand;  ///< by Command

  /// A save succeeded; the mask of option_changes.h.
  ui::Event<std::int32_t&> changed;

  /// The parts of the tabs with their controls.
  Tabs& tabs() { return *tabs_; }
  const Platform& platform() const override { return platform_; }
  const HostObjects& host() const override { return host_; }
  using OptionsDialog::app;
  using OptionsDialog::database;
  const ui::ImageList& images() const override { return ilstImages; }
  std::int16_t GetNumberOfFiles(TextView pattern) const override;

 private:
  void onLoad() override;
  void onQueryUnload(bool& cancel, ui::UnloadMode mode) override;
  ui::Control* firstFocus() override { return firstOnPage(tabOptions); }
  void edited(ui::Control& control) override;

  ui::Frame& page(TabPage page) override;
  Messages& messages() override { return messages_; }
  bool firstUse() const override { return FirstUse; }
  const Text& dataFileExtension() const override { return LVFileExtension; }
  void markChanged() override;
  bool hasTab(TabPage page) const override;
  void selectTab(TabPage page) override;
  void setOkDefault(bool isDefault) override;

  void describeFrame();
  ui::Control& addButton(Command index, Text caption, Text toolTip);
  void tabBeforeClick(bool& refuse);
  void tabClick();
  void commandClick(int index);
  void close();
  void showHelp();

  Platform platform_;
  HostObjects host_;
  Messages messages_;
  std::unique_ptr<Tabs> tabs_;
  bool loading_ = false;
};

}  // namespace tillora
