#pragma once

#include <windows.h>

#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/component/automation/registry_snapshot.h"

namespace tillora::testing {

enum class Scope { user, machine };

/// One bitness of the package and of Windows.
struct Bitness {
  std::string name;
  std::filesystem::path folder;
  /// Where the system's programs of this bitness are.
  std::filesystem::path system;
  REGSAM view;
};

constexpr std::array kServers = {L"TilloraOptions.dll", L"TilloraHost.dll"};

/// Both servers are registered, by regsvr32, while this object lives.
class Registration {
 public:
  Registration(const Bitness& bitness, Scope scope);
  ~Registration();
  Registration(const Registration&) = delete;
  Registration& operator=(const Registration&) = delete;

  bool succeeded() const { return succeeded_; }

  /// Removes what is registered in this scope.
  static void remove(const Bitness& bitness, Scope scope);

 private:
  const Bitness& bitness_;
  Scope scope_;
  bool succeeded_;
};

/// The library that is registered as the component or as the reference host; empty for none.
std::wstring registeredLibrary(const Bitness& bitness, Scope scope);

/// What the registry holds of the classes, as far as it concerns the two servers.
class RegisteredNow {
 public:
  /// Lines about what was added and removed since; empty if nothing was.
  std::string changesTo(const RegisteredNow& later, const Bitness& bitness) const;

 private:
  RegistrySnapshot machine_{HKEY_LOCAL_MACHINE};
  RegistrySnapshot user_{HKEY_CURRENT_USER};
};

}  // namespace tillora::testing
