#include "platform/file_dialogs.h"

#include "com/wide_text.h"

namespace tillora::win32 {

std::optional<Text> SystemFileDialogs::open(const FileRequest& request) {
  constexpr std::size_t kLongestPath = 32768;
  const Text caption(request.title);
  Text filters(request.filter);
  filters.append(1, u'\0').append(request.pattern).append(1, u'\0');
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
  if (request.keepsShortcuts) dialog.Flags |= OFN_NODEREFERENCELINKS;
  if (!show_(&dialog)) return std::nullopt;
  path.resize(path.find(u'\0'));
  return path;
}

}  // namespace tillora::win32
