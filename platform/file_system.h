#pragma once

#include "component/contract/platform.h"

namespace tillora::win32 {

/// The machine's files.
class FileSystem final : public Files {
 public:
  std::unique_ptr<FileListing> list(TextView pattern) override;
  /// Initialisation files are read in the system's ANSI code page; their own path may hold any
  /// character.
  Text profileValue(TextView file, TextView section, TextView key) override;
};

}  // namespace tillora::win32
