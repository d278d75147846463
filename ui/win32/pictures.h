#pragma once

#include "ui/label.h"
#include "ui/win32/handles.h"

namespace tillora::ui::win32 {

/// The picture drawn as a square icon of this many pixels a side, with smooth edges on a
/// transparent ground.
Icon makeIcon(PictureId picture, int side);

/// The pictures of list rows; a picture's place in the list is its PictureId less one.
ImageList makeRowImages(int side);

}  // namespace tillora::ui::win32
