// Any arguments of the Administrator: understood or refused. Line breaks part them.
#include "host/command_line.h"

#include "base/error.h"
#include "tests/fuzz/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tillora;
  fuzz::Input input(data, size);
  std::vector<Text> arguments(1);
  for (const char c : input.bytes()) {
    if (c == '\n') {
      arguments.emplace_back();
    } else {
      arguments.back() += static_cast<unsigned char>(c);
    }
  }
  try {
    const host::CommandLine line = host::parseCommandLine(arguments);
    fuzz::require(!line.optionsTab || *line.optionsTab >= 0, "a tab has a number");
    fuzz::require(!line.items || *line.items >= 0, "a count is not negative");
  } catch (const Error& refused) {
    fuzz::require(!refused.description().empty(), "a refusal says why");
  }
  return 0;
}
