#pragma once

#include <windows.h>

#include <commdlg.h>

#include <functional>

#include "component/contract/platform.h"

namespace tillora::win32 {

/// The system's file-open dialog, or a substitute for it.
class SystemFileDialogs final : public FileDialogs {
 public:
  /// `owner` gives the window that the dialog is modal over; null for none.
  using Show = std::function<BOOL(OPENFILENAMEW*)>;
  explicit SystemFileDialogs(std::function<HWND()> owner, Show show = &GetOpenFileNameW)
      : owner_(std::move(owner)), show_(std::move(show)) {}
  /// Leaves the process's current folder unchanged.
  std::optional<Text> open(const FileRequest& request) override;

 private:
  std::function<HWND()> owner_;
  Show show_;
};

}  // namespace tillora::win32
