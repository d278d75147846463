#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

#include "host/app/report_list.h"
#include "host/option_list.h"

namespace tillora::host::app {

/// The list of stored options: tab, name, value and, for options that the last save changed, the
/// former value. Their rows are bold, on the colour of a tool tip.
class OptionsView {
 public:
  OptionsView() = default;
  OptionsView(const OptionsView&) = delete;
  OptionsView& operator=(const OptionsView&) = delete;
  ~OptionsView();

  void create(HWND parent, int id, int dpi);
  HWND window() const { return list_.window(); }
  void setBounds(const RECT& bounds) { list_.setBounds(bounds); }
  void setFont(HFONT font);

  /// OptionList::update(), shown; the first changed row comes into view. Gives the number of
  /// changed rows.
  int update(const std::vector<Text>& values, bool afterSave);

  /// The answer to NM_CUSTOMDRAW.
  LRESULT customDraw(NMLVCUSTOMDRAW& draw) const;
  /// The tab of the options dialog that a row belongs to; 0 for no row.
  std::int16_t tabOfRow(int row) const;

 private:
  ReportList list_;
  OptionList options_;
  HFONT bold_ = nullptr;
};

}  // namespace tillora::host::app
