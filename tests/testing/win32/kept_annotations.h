#pragma once

#include <windows.h>

#include <oleacc.h>

#include <map>
#include <memory>
#include <optional>
#include <string>

namespace tillora::testing {

/// What programs tell the platform's accessibility about their windows. During its lifetime it
/// stands in for the platform's own service, which under Wine keeps nothing; where the platform
/// does keep it, there is nothing to do, and every answer here is empty. Needs COM.
class KeptAnnotations {
 public:
  KeptAnnotations();
  KeptAnnotations(const KeptAnnotations&) = delete;
  KeptAnnotations& operator=(const KeptAnnotations&) = delete;
  ~KeptAnnotations();

  /// The platform keeps annotations by itself.
  bool areThePlatforms() const { return !factory_; }
  std::optional<std::wstring> name(HWND window) const;
  std::optional<LONG> role(HWND window) const;
  /// How many windows are annotated now.
  std::size_t count() const { return kept_.size(); }

 private:
  struct Kept {
    std::optional<std::wstring> name;
    std::optional<LONG> role;
  };
  class Service;
  class Factory;

  std::map<HWND, Kept> kept_;
  std::unique_ptr<Factory> factory_;
  DWORD registration_ = 0;
};

}  // namespace tillora::testing
