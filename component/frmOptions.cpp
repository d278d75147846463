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

}  // namespace

frmOptions::frmOptions(Platform platform)
    : Dialog(platform.screen, u"Options"),
      ilstImages({ui::PictureId::active, ui::PictureId::inactive}),
      platform_(std::move(platform)),
      messages_(platform_.screen, platform_.messageBoxes) {
  describeFrame();
  tabs_ = std::make_unique<Tabs>(static_cast<OptionsDialog&>(*this));
}

void frmOptions::describeFrame() {
  setResizable();
  std::vector<ui::Frame*> pages;
  for (std::size_t i = 0; i < kTabs.size(); ++i) {
    const auto index = static_cast<int>(i);
    pages.push_back(&fraFrame.add(index, Text(), ui::Frame::Border::none));
    pages.back()->setAccessibleName(kTabs[i].caption).setVisible(i == 0);
    if (i + 1 < kTabs.size()) tabOptions.addTab(kTabs[i].caption);
  }
  tabOptions.setAccessibleName(u"Pages of options");
  rows().tabs(tabOptions, pages);
  rows().buttons({&addButton(ok, u"&OK", u"Apply and save all changes then close this window"),
                  &addButton(apply, u"&Apply", u"Apply and save all changes"),
                  &addButton(cancel, u"&Cancel", u"Cancel all changes and close this window"),
                  &addButton(help_, u"&Help", u"Display help for this window")});
  cmdCommand[ok].setDefault(true);
  cmdCommand[apply].setEnabled(false);
  cmdCommand[cancel].setCancel();

  tabOptions.beforeClick = [this](bool& refuse) { tabBeforeClick(refuse); };
  tabOptions.click = [this] { tabClick(); };
  cmdCommand.on(&ui::CommandButton::click, [this](int index) { commandClick(index); });
  help = [this] { showHelp(); };
}

ui::Control& frmOptions::addButton(Command index, Text caption, Text toolTip) {
  return cmdCommand.add(index, std::move(caption)).setToolTip(std::move(toolTip));
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
  // Read first, though nothing shows it: a host program that cannot even give its title fails
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
  // Before the dialog is shown a focus is only noted; if its page is hidden it is forgotten.
  const bool onPage = isShown() && active != nullptr && shown.contains(*active);
  // Nothing on a hidden page is validated later, so a pending validation (from Cancel) runs now.
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

// The dialog leaves the screen before its references to the host's objects are released.
void frmOptions::close() {
  hide();
  unload();
}

void frmOptions::showHelp() {
  App& program = app();
  platform_.help.show(program.path() + u"\\" + program.title() + u".chm", helpContext());
}

}  // namespace tillora
