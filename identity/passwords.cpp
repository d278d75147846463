#include "identity/passwords.h"

#include <utility>

#include "identity/frmPasswordSet.h"
#include "support/check_box_bits.h"
#include "ui/layout.h"

namespace tillora {
namespace {

struct Row {
  Passwords::Program program;
  const char16_t* caption;
  const char16_t* buttonCaption;
  const char16_t* dialogCaption;
  std::int32_t bit;  // in the order in which the protections were introduced
  const Option<OptionType::Text>& password;
};

// By Passwords::Protection.
const std::array<Row, Passwords::count> kRows = {{
    {Passwords::administrator, u"Password required to start &Ledvane Point of Sale Administrator",
     u"&Password...", u"Password to start ", 32, options::PasswordStartAdmin},
    {Passwords::administrator, u"Password required to &Transfer Data from Ledvane", u"Pa&ssword...",
     u"Password for Transfer Data", 1, options::PasswordTransferData},
    {Passwords::administrator, u"Password required to Post Tra&nsactions to Ledvane",
     u"Pass&word...", u"Password to Post Transactions", 2, options::PasswordPostTransactions},
    {Passwords::administrator, u"Password required to Co&mpact the Database", u"Passwo&rd...",
     u"Password to Compact the Database", 4, options::PasswordCompactDatabase},
    {Passwords::administrator, u"Password req&uired to access the Options window", u"Passwor&d...",
     u"Password to access Options", 8, options::PasswordAdminOptions},
    {Passwords::administrator, u"Password required to De&lete a Terminal", u"Password&...",
     u"Password to Delete a Terminal", 16, options::PasswordDeleteTerminal},
    {Passwords::administrator, u"Password required to C&hange Prices", u"&Password...",
     u"Password to Change Prices", 64, options::PasswordChangePrices},
    {Passwords::administrator, u"Password required to access Promot&ions", u"Pa&ssword...",
     u"Password to access Promotions", 128, options::PasswordPromotions},
    {Passwords::terminal, u"Password required to perform &End Of Day processing", u"Pass&word...",
     u"Password for End Of Day", 1, options::PasswordEndOfDay},
    {Passwords::terminal, u"Password required to access the Opt&ions window", u"Passwo&rd...",
     u"Password to access Options", 2, options::PasswordTerminalOptions},
    {Passwords::terminal, u"Use &Global Manager Override Password", u"Passwor&d...",
     u"Global Manager Override Password", 4, options::PasswordGlobalOverride},
}};

const Row& rowOf(int index) { return kRows.at(static_cast<std::size_t>(index)); }

const Option<OptionType::Long>& bitsOf(int program) {
  return program == Passwords::administrator ? options::AdminSecurityBits
                                             : options::TerminalSecurityBits;
}

}  // namespace

Passwords::Passwords(OptionsDialog& dialog) : OptionsTab(dialog) {
  addGroup(administrator, u"Ledvane Point of Sale Administrator");
  addGroup(terminal, u"Ledvane Point of Sale Terminal");
  chkSecurity.on(&ui::CheckBox::click, [this](int index) { enableButton(index); });
  cmdSecurity.on(&ui::CommandButton::click, [this](int index) { setPassword(index); });
}

void Passwords::addGroup(Program program, Text caption) {
  ui::Rows& page = dialog_.page(TabPage::security).rows();
  ui::Rows& group = page.group(fraSecurity.add(program), std::move(caption));
  for (int i = 0; i < count; ++i) {
    const Row& row = rowOf(i);
    if (row.program != program) continue;
    ui::CheckBox& box = chkSecurity.add(i, row.caption);
    ui::CommandButton& button = cmdSecurity.add(i, row.buttonCaption);
    button.setToolTip(u"Show the set password window").setEnabled(false);
    group.row({fill(box), button});

    // The buttons look alike; screen readers call each what its dialog is called.
    Text name = row.dialogCaption;
    if (i == startAdmin) name += fraSecurity[program].caption();
    if (i == adminOptions || i == terminalOptions) {  // alike in both groups
      const Text which = u", " + fraSecurity[program].caption();
      box.setAccessibleName(ui::withoutAccessKey(row.caption) + which);
      name += which;
    }
    button.setAccessibleName(std::move(name));
  }
}

void Passwords::load(OptionsRecord& record) {
  for (const auto& [program, frame] : fraSecurity) {
    const auto bits = record.get(bitsOf(program));
    for (const auto& [index, box] : chkSecurity) {
      // The override is left as it is if nothing is stored.
      if (rowOf(index).program != program || (!bits && index == globalOverride)) continue;
      box->setValue((bits.value_or(0) & rowOf(index).bit) != 0);
    }
  }
  for (std::size_t i = 0; i < count; ++i) passwords_[i] = record.getSecret(kRows[i].password);
}

void Passwords::enableButton(int index) {
  cmdSecurity[index].setEnabled(chkSecurity[index].value());
}

void Passwords::setPassword(int index) {
  dialog_.markChanged();
  SecretText& password = passwords_.at(static_cast<std::size_t>(index));
  frmPasswordSet dialog(dialog_.platform().screen, dialog_.messages());
  dialog.Password = password;
  dialog.setCaption(dialogCaption(index));
  dialog.showModal();
  password = std::move(dialog.Password);
}

Text Passwords::dialogCaption(int index) const {
  Text caption = rowOf(index).dialogCaption;
  if (index == startAdmin) caption += dialog_.app().title();
  return caption;
}

void Passwords::save(OptionsRecord& record) {
  for (const auto& [program, frame] : fraSecurity) {
    const auto& bits = bitsOf(program);
    record.set(bits, 0);
    for (const auto& [index, box] : chkSecurity) {
      const Row& row = rowOf(index);
      if (row.program != program) continue;
      SecretText& password = passwords_.at(static_cast<std::size_t>(index));
      if (box->value()) {
        addBit(record, bits, row.bit);
      } else {
        password = SecretText();
      }
      record.setSecret(row.password, password);
    }
  }
}

}  // namespace tillora
