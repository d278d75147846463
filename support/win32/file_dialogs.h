#pragma once

#include <windows.h>

#include <functional>

#include "component/platform.h"

namespace tillora::win32 {

/// The system's file-open dialog.
class SystemFileDialogs final : public FileDialogs {
 public:
  /// `owner` gives the window that the dialog is modal over; null for none.
  explicit SystemFileDialogs(std::function<HWND()> owner) : owner_(std::move(owner)) {}
  /// The process's current folder stays what it was.
  std::optional<Text> open(TextView title, TextView filter, TextView pattern) override;

 private:
  std::function<HWND()> owner_;
};

}  // namespace tillora::win32
