#include "base/error.h"

#include <utility>

namespace tillora {

Error::Error(std::int32_t number, Text source, Text description, Text helpFile,
             std::uint32_t helpContext)
    : number_(number),
      source_(std::move(source)),
      description_(std::move(description)),
      helpFile_(std::move(helpFile)),
      helpContext_(helpContext),
      what_(toUtf8(description_)) {}

}  // namespace tillora
