#include "identity/ledvane_link.h"

#include "base/numbers.h"
#include "base/text_rules.h"
#include "support/check_box_bits.h"
#include "ui/layout.h"

namespace tillora {
namespace {

constexpr int kLineItemIndent = 270;  // under the caption of the box that they belong to

// The file dialog's pattern, for an extension with or without its dot.
Text patternOf(TextView extension) {
  if (extension.starts_with(u'.')) extension.remove_prefix(1);
  return extension.empty() ? Text(u"*.*") : u"*." + Text(extension);
}

// The files of transactions that were made for this data file and are not posted yet.
Text waitingFiles(const Text& dataFile) {
  return dataFile.substr(0, dataFile.find_last_of(u"\\/:") + 1) + u"LVPst*.pos";
}

}  // namespace

LedvaneLink::LedvaneLink(OptionsDialog& dialog) : OptionsTab(dialog) {
  ui::Rows& group = dialog.page(TabPage::general).rows().group(fraGeneral, u"Ledvane");
  group.field({lblDataFile.setCaption(u"Da&ta File"), fill(txtLedvane.setLocked(true)),
               cmdLedvane.setCaption(u"Change&...")
                   .setToolTip(u"Change the Ledvane data file used by Tillora")});
  group.row({check(summarise, u"&Summarise transactions for posting to Ledvane")});
  group.row({check(withDescription,
                   u"S&ummarise line items where possible (including product description)")},
            kLineItemIndent);
  group.row({check(withoutDescription,
                   u"S&ummarise line items where possible (excluding product description)")},
            kLineItemIndent);

  enableLineItems();
  cmdLedvane.click = [this] { change(); };
  chkLedvane[summarise].click = [this] { enableLineItems(); };
}

ui::Cell LedvaneLink::check(Box index, Text caption) {
  return fill(chkLedvane.add(index, std::move(caption)));
}

void LedvaneLink::load(OptionsRecord& record) {
  txtLedvane.setText(dialog_.database().dataFile());
  showBits(chkLedvane, record.getOrDefault(options::LVSummariseBits));
}

void LedvaneLink::enableLineItems() {
  const bool enabled = chkLedvane[summarise].value();
  chkLedvane[withDescription].setEnabled(enabled);
  chkLedvane[withoutDescription].setEnabled(enabled);
}

void LedvaneLink::change() {
  const Text title = dialog_.app().title();
  JetDatabase& database = dialog_.database();
  // The file that transactions were posted to so far, whatever has been chosen since.
  if (!mayChange(database, database.dataFile(), title)) return;

  const Text pattern = patternOf(dialog_.dataFileExtension());
  const std::optional<Text> chosen = dialog_.platform().fileDialogs.open(
      {.title = u"Change Ledvane Data File", .filter = u"Ledvane Data Files", .pattern = pattern});
  if (!chosen) return;
  choice_ = chosen;
  txtLedvane.setText(*chosen);
}

bool LedvaneLink::validate(const Text& title) {
  if (!choice_) return true;
  JetDatabase& database = dialog_.database();
  const Text current = database.dataFile();
  if (*choice_ == current) {
    choice_.reset();
    return true;
  }
  if (mayChange(database, current, title)) return true;
  dialog_.selectTab(TabPage::general);
  return false;
}

bool LedvaneLink::mayChange(JetDatabase& database, const Text& current, const Text& title) {
  const Text terminal = beforeLastBlank(title) + u" terminal";
  if (database.terminalCount(u"[ReportingBits] = 0") > 0) {
    refuse(u"One or more " + terminal +
               u"s have un-processed transactions.\r\n\r\n"
               u"These transactions must be posted to the current Ledvane data file before "
               u"changing to a new Ledvane data file.",
           u"To post the transactions to the current Ledvane data file, perform an End-Of-Day on "
           u"each " +
               terminal +
               u", then use the Post Transactions to Ledvane wizard.  You may then change the "
               u"Ledvane data file.",
           current);
    return false;
  }

  const int waiting = current.empty() ? 0 : dialog_.GetNumberOfFiles(waitingFiles(current));
  if (waiting == 0) return true;
  const Text count = waiting == 1 ? Text(u"There is 1 transaction file")
                                  : u"There are " + decimalText(waiting) + u" transaction files";
  refuse(count +
             u" waiting to be posted to Ledvane.\r\n\r\n"
             u"The transaction file(s) must be posted to the current Ledvane data file before "
             u"changing to a new Ledvane data file.",
         u"Use the Post Transactions to Ledvane wizard to post the transaction file(s) to the "
         u"current Ledvane data file.",
         current);
  return false;
}

void LedvaneLink::refuse(const Text& reason, const Text& advice, const Text& current) {
  dialog_.messages().warn(reason, u"Cannot change Ledvane Data File", advice);
  choice_.reset();
  txtLedvane.reformat(current);
}

void LedvaneLink::save(OptionsRecord& record, OptionChanges& changes) {
  if (choice_) {
    dialog_.database().setDataFile(*choice_);
    changes.setDataFile();
    choice_.reset();
  }
  saveBits(record, options::LVSummariseBits, tickedBits(chkLedvane));
}

}  // namespace tillora
