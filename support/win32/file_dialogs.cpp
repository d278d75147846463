#include "support/win32/file_dialogs.h"

#include <commdlg.h>

#include "support/win32/wide_text.h"

namespace tillora::win32 {

std::optional<Text> SystemFileDialogs::open(TextView title, TextView filter, TextView pattern) {
  constexpr std::size_t kLongestPath = 32768;
  const Text caption(title);
  Text filters(filter);
  filters.append(1, u'\0').append(pattern).append(1, u'\0');
  Text path(kLongestPath, u'\0');

  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = owner_ ? owner_() : nullptr;
  dialog.lpstrFilter = wide(filters);
  dialog.lpstrFile = reinterpret_cast<wchar_t*>(path.data());
  dialog.nMaxFile = static_cast<DWORD>(path.size());
  dialog.lpstrTitle = caption.empty() ? nullptr : wide(caption);
  dialog.Flags =
      OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
  if (!GetOpenFileNameW(&dialog)) return std::nullopt;
  path.resize(path.find(u'\0'));
  return path;
}

}  // namespace tillora::win32
