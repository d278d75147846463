#pragma once

#include "ui/image_list.h"
#include "ui/win32/handles.h"

namespace tillora::ui::win32 {

/// The picture drawn as a square icon of this many pixels a side, with smooth edges on a
/// transparent ground.
Icon makeIcon(PictureId picture, int side);

/// The platform's list of the same pictures, in their order.
ImageList makeImages(const ui::ImageList& images, int side);

}  // namespace tillora::ui::win32
