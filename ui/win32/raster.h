#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "ui/win32/handles.h"

namespace tillora::ui::win32 {

/// A bitmap whose pixels can be read and written: 0xAARRGGBB, row by row from the top. Call
/// GdiFlush() between drawing with GDI and reading.
class Raster {
 public:
  Raster(int width, int height) {
    BITMAPINFO format{};
    format.bmiHeader.biSize = sizeof format.bmiHeader;
    format.bmiHeader.biWidth = width;
    format.bmiHeader.biHeight = -height;
    format.bmiHeader.biPlanes = 1;
    format.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    bitmap_.reset(CreateDIBSection(nullptr, &format, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!bitmap_) return;
    pixels_ = {static_cast<std::uint32_t*>(bits),
               static_cast<std::size_t>(width) * static_cast<std::size_t>(height)};
  }

  /// Null when out of memory or without an area.
  HBITMAP bitmap() const { return bitmap_.get(); }
  std::span<std::uint32_t> pixels() const { return pixels_; }

 private:
  Bitmap bitmap_;
  std::span<std::uint32_t> pixels_;
};

}  // namespace tillora::ui::win32
