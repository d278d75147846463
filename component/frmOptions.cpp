#include "component/frmOptions.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "component/first_use.h"
#include "component/save_options.h"
#include "ui/layout.h"

namespace tillora {
namespace {

struct TabInfo {
  const char16_t* caption;
  int helpContext;
};

// Layby and Pump share a help topic.
constexpr std::array<TabInfo, 12> kTabs = {{
    {u"General", 53},
    {u"Lists", 19},
    {u"Transactions", 20},
    {u"Rounding", 21},
    {u"Currency", 22},
    {u"Scanning", 23},
    {u"Layby", 216},
    {u"EOD", 24},
    {u"Pump", 216},
    {u"Web", 26},
    {u"Security", 27},
    {u"FRED", 25},
}};

constexpr ui::Size kClientSize{11400, 8640};
constexpr int kMargin = 120;

}  // namespace

frmOptions::frmOptions(Platform platform)
    : Dialog(platform.screen, u"Options"),
      tabOptions(add<ui::TabStrip>()),
      ilstImages({ui::PictureId::active, ui::PictureId::inactive}),
      platform_(std::move(platform)),
      messages_(platform_.screen, platform_.messageBoxes) {
  makeFrame();
  tabs_ = std::make_unique<Tabs>(static_cast<OptionsDialog&>(*this));
}

void frmOptions::makeFrame() {
  setClientSize(kClientSize);
  for (std::size_t i = 0; i < kTabs.size(); ++i) {
    auto& frame = add<ui::Frame>(Text(), ui::Frame::Border::none);
    frame.setVisible(i == 0);
    fraFrame.set(static_cast<int>(i), frame);
    if (i + 1 < kTabs.size()) tabOptions.addTab(kTabs[i].caption);
  }

  auto& okButton = cmdCommand.set(ok, add<ui::CommandButton>(u"&OK"));
  okButton.setToolTip(u"Apply and save all changes then close this window");
  okButton.setDefault(true);
  auto& applyButton = cmdCommand.set(apply, add<ui::CommandButton>(u"&Apply"));
  applyButton.setToolTip(u"Apply and save all changes");
  applyButton.setEnabled(false);
  auto& cancelButton = cmdCommand.set(cancel, add<ui::CommandButton>(u"&Cancel"));
  cancelButton.setToolTip(u"Cancel all changes and close this window");
  cancelButton.setCancel();
  auto& helpButton = cmdCommand.set(help_, add<ui::CommandButton>(u"&Help"));
  helpButton.setToolTip(u"Display help for this window");

  const int buttons =
      ui::Rows::buttonRow(*this, {&okButton, &applyButton, &cancelButton, &helpButton});
  tabOptions.setBounds({kMargin, kMargin, kClientSize.width - 2 * kMargin, buttons - 2 * kMargin});
  onResize();

  tabOptions.beforeClick = [this](bool& refuse) { tabBeforeClick(refuse); };
  tabOptions.click = [this] { tabClick(); };
  cmdCommand.on(&ui::CommandButton::click, [this](int index) { commandClick(index); });
  help = [this] { showHelp(); };
}

void frmOptions::setHost(HostObjects host) {
  host_ = std::move(host);
  messages_.setSettings(host_.settings);
}

std::int16_t frmOptions::GetNumberOfFiles(TextView pattern) const {
  const auto files = platform_.files.list(pattern);
  std::int16_t count = 0;
  while (files && files->next()) {
    if (count == std::numeric_limits<std::int16_t>::max()) {
      throw Error(error::overflow, u"There are too many files to count.");
    }
    ++count;
  }
  return count;
}

void frmOptions::onLoad() {
  loading_ = true;
  setHelpContext(kTabs.front().helpContext);
  // Asked for first, though nothing shows it: a host program that cannot even tell its title fails
  // before anything of its shop is read.
  app().title();
  if (settings().dispensingAvailable()) {
    tabOptions.addTab(kTabs.back().caption);
  }
  {
    const auto record = database().optionsRecord();
    loadTabs(*tabs_, *record);
  }
  if (FirstUse) {
    prepareFirstUse(*this);
    cmdCommand[apply].setEnabled(!SaveOptions(*this));
  }
  loading_ = false;
}

void frmOptions::onResize() {
  const ui::Rect client = tabOptions.clientArea();
  for (const auto& [index, frame] : fraFrame) frame->setBounds(client);
}

void frmOptions::onQueryUnload(bool& /*cancel*/, ui::UnloadMode /*mode*/) {
  host_.database.reset();
  host_.settings.reset();
  host_.app.reset();
  messages_.setSettings(nullptr);
}

void frmOptions::edited(ui::Control& control) {
  const bool onPage = std::ranges::any_of(
      fraFrame, [&](const auto& entry) { return entry.second->contains(control); });
  if (onPage) markChanged();
}

void frmOptions::markChanged() {
  if (!loading_) cmdCommand[apply].setEnabled(true);
}

ui::Frame& frmOptions::page(TabPage page) { return fraFrame[static_cast<int>(page) - 1]; }

bool frmOptions::hasTab(TabPage page) const { return static_cast<int>(page) <= tabOptions.count(); }

void frmOptions::selectTab(TabPage page) { tabOptions.setSelected(static_cast<int>(page)); }

void frmOptions::setOkDefault(bool isDefault) { cmdCommand[ok].setDefault(isDefault); }

void frmOptions::tabBeforeClick(bool& refuse) {
  ui::Frame& shown = fraFrame[tabOptions.selected() - 1];
  const ui::Control* active = activeControl();
  // Until the dialog is shown a focus is only noted; on a page that is hidden it lapses.
  const bool onPage = isShown() && active != nullptr && shown.contains(*active);
  // Nothing on a hidden page is validated any more: what is pending (from Cancel) is due now.
  if (onPage ? !tabOptions.setFocus() : !validatePending()) {
    refuse = true;
    return;
  }
  shown.setVisible(false);
}

void frmOptions::tabClick() {
  const int index = tabOptions.selected() - 1;
  fraFrame[index].setVisible(true);
  setHelpContext(kTabs[static_cast<std::size_t>(index)].helpContext);
}

void frmOptions::commandClick(int index) {
  switch (index) {
    case ok:
      if (!cmdCommand[apply].enabled() || SaveOptions(*this)) close();
      break;
    case apply:
      SaveOptions(*this);
      break;
    case cancel:
      close();
      break;
    default:  // Help is reached by F1; pressing the button does nothing.
      break;
  }
}

// The dialog is gone from the screen before the host hears that its objects are released.
void frmOptions::close() {
  hide();
  unload();
}

void frmOptions::showHelp() {
  App& program = app();
  platform_.help.show(program.path() + u"\\" + program.title() + u".chm", helpContext());
}

}  // namespace tillora
