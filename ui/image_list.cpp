#include "ui/image_list.h"

#include <algorithm>

namespace tillora::ui {

int ImageList::indexOf(PictureId picture) const {
  const auto place = std::ranges::find(pictures_, picture);
  return place == pictures_.end() ? 0 : static_cast<int>(place - pictures_.begin()) + 1;
}

}  // namespace tillora::ui
