#include "host/app/options_view.h"

#include "host/text_encoding.h"

namespace tillora::host::app {
namespace {

enum Column : std::uint8_t { tab, name, value, before };

constexpr ReportList::Column kColumns[] = {
    {u"Tab", 100}, {u"Option", 190}, {u"Stored value", 300}, {u"Before the last save", 150}};

}  // namespace

OptionsView::~OptionsView() {
  if (bold_ != nullptr) DeleteObject(bold_);
}

void OptionsView::create(HWND parent, int id, int dpi) {
  list_.create(parent, id, kColumns, dpi);
  for (const OptionRow& row : options_.rows()) {
    list_.addRow({fromUtf8(row.option->tab), row.option->name});
  }
}

void OptionsView::setFont(HFONT font) {
  LOGFONTW described{};
  GetObjectW(font, sizeof described, &described);
  described.lfWeight = FW_BOLD;
  if (bold_ != nullptr) DeleteObject(bold_);
  bold_ = CreateFontIndirectW(&described);
  SendMessageW(window(), WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

int OptionsView::update(const std::vector<Text>& values, bool afterSave) {
  options_.update(values, afterSave);
  int index = 0;
  int firstChanged = -1;
  int changed = 0;
  for (const OptionRow& row : options_.rows()) {
    list_.setText(index, value, row.value);
    list_.setText(index, before, row.before);
    if (row.changed && firstChanged < 0) firstChanged = index;
    changed += row.changed ? 1 : 0;
    ++index;
  }
  if (firstChanged >= 0) list_.show(firstChanged);
  InvalidateRect(window(), nullptr, FALSE);
  return changed;
}

LRESULT OptionsView::customDraw(NMLVCUSTOMDRAW& draw) const {
  if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT) return CDRF_DODEFAULT;
  const auto row = static_cast<std::size_t>(draw.nmcd.dwItemSpec);
  if (row >= options_.rows().size() || !options_.rows()[row].changed) return CDRF_DODEFAULT;
  draw.clrText = GetSysColor(COLOR_INFOTEXT);
  draw.clrTextBk = GetSysColor(COLOR_INFOBK);
  SelectObject(draw.nmcd.hdc, bold_);
  return CDRF_NEWFONT;
}

std::int16_t OptionsView::tabOfRow(int row) const {
  const auto& rows = options_.rows();
  return row >= 0 && static_cast<std::size_t>(row) < rows.size()
             ? rows[static_cast<std::size_t>(row)].tab
             : std::int16_t{0};
}

}  // namespace tillora::host::app
