#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>

#include "host/shop.h"
#include "host/text_encoding.h"
#include "tests/testing/function_ref.h"

namespace tillora::host {

/// A folder of its own for each test, and shops in it.
class ShopFixture : public ::testing::Test {
 protected:
  ShopFixture() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tillora-XXXXXX").string();
    folder_ = mkdtemp(pattern.data());
  }
  ~ShopFixture() override { std::filesystem::remove_all(folder_); }

  std::filesystem::path file(const std::string& name = "shop.db") const { return folder_ / name; }

  Shop open(const ShopContents& contents = {}, const std::string& name = "shop.db") const {
    return Shop::open(fromUtf8(file(name).string()), contents, kPatience);
  }

  /// Opens the shop as it would be found if the machine stopped now.
  Shop openAsAfterPowerCut() const {
    for (const char* part : {"", "-wal"}) {
      const auto source = file(std::string("shop.db") + part);
      if (std::filesystem::exists(source)) {
        std::filesystem::copy_file(source, file(std::string("copy.db") + part),
                                   std::filesystem::copy_options::overwrite_existing);
      }
    }
    return open({}, "copy.db");
  }

  /// The Error that the action raises; a test failure if it raises none.
  static Error errorOf(const testing::FunctionRef<void()>& action) {
    try {
      action();
    } catch (const Error& error) {
      return error;
    }
    ADD_FAILURE() << "no Error was raised";
    return Error(0, u"", u"");
  }

  /// Long enough for a test to notice waiting, short enough to run often.
  static constexpr std::chrono::milliseconds kPatience{50};

 private:
  std::filesystem::path folder_;
};

}  // namespace tillora::host
