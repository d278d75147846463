#pragma once

#include <utility>
#include <vector>

#include "ui/label.h"

namespace tillora::ui {

/// The small pictures that the lists of a dialog share.
class ImageList {
 public:
  explicit ImageList(std::vector<PictureId> pictures) : pictures_(std::move(pictures)) {}

  /// A picture's index is its place here, from 1.
  const std::vector<PictureId>& pictures() const { return pictures_; }
  /// 0 for a picture that is not here.
  int indexOf(PictureId picture) const;

 private:
  std::vector<PictureId> pictures_;
};

}  // namespace tillora::ui
