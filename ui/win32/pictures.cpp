#include "ui/win32/pictures.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "ui/win32/raster.h"

namespace tillora::ui::win32 {
namespace {

struct Rgb {
  int red = 0;
  int green = 0;
  int blue = 0;
};

// A sample of a picture whose sides are 1 long; nothing where the ground shows.
struct Sample {
  bool painted = false;
  Rgb colour;
};

constexpr Rgb kWhite{255, 255, 255};
constexpr Rgb kGreen{46, 139, 87};
constexpr Rgb kGrey{140, 140, 140};
constexpr Rgb kGold{200, 150, 30};
constexpr Rgb kRed{200, 60, 60};
constexpr Rgb kOutline{90, 90, 90};

double distance(double x, double y, double toX, double toY) { return std::hypot(x - toX, y - toY); }

// From a point to the line between two others.
double distanceToLine(double x, double y, double x1, double y1, double x2, double y2) {
  const double dx = x2 - x1;
  const double dy = y2 - y1;
  const double along = std::clamp(((x - x1) * dx + (y - y1) * dy) / (dx * dx + dy * dy), 0.0, 1.0);
  return distance(x, y, x1 + along * dx, y1 + along * dy);
}

// A disc with a tick.
Sample active(double x, double y) {
  if (distance(x, y, 0.5, 0.5) > 0.45) return {};
  const double stroke = std::min(distanceToLine(x, y, 0.29, 0.52, 0.44, 0.67),
                                 distanceToLine(x, y, 0.44, 0.67, 0.71, 0.35));
  return {true, stroke < 0.07 ? kWhite : kGreen};
}

// A disc with a bar.
Sample inactive(double x, double y) {
  if (distance(x, y, 0.5, 0.5) > 0.45) return {};
  return {true, distanceToLine(x, y, 0.31, 0.5, 0.69, 0.5) < 0.07 ? kWhite : kGrey};
}

// A ring, a shaft and two teeth.
Sample key(double x, double y) {
  const double fromRing = std::abs(distance(x, y, 0.3, 0.3) - 0.17);
  const double part = std::min({fromRing, distanceToLine(x, y, 0.42, 0.42, 0.88, 0.88),
                                distanceToLine(x, y, 0.72, 0.72, 0.84, 0.6),
                                distanceToLine(x, y, 0.86, 0.86, 0.97, 0.75)});
  return {part < 0.065, kGold};
}

// A capsule of two halves.
Sample dispensing(double x, double y) {
  const double part = distanceToLine(x, y, 0.3, 0.7, 0.7, 0.3);
  if (part > 0.22) return {};
  if (part > 0.17) return {true, kOutline};
  return {true, x - y > 0.0 ? kRed : kWhite};
}

Sample sample(PictureId picture, double x, double y) {
  switch (picture) {
    case PictureId::active:
      return active(x, y);
    case PictureId::inactive:
      return inactive(x, y);
    case PictureId::key:
      return key(x, y);
    case PictureId::dispensing:
      return dispensing(x, y);
    case PictureId::none:
      break;
  }
  return {};
}

// A pixel is the mean of this many samples each way.
constexpr int kSamples = 4;

// Colour and, in the top byte, coverage.
std::uint32_t pixel(PictureId picture, int column, int row, int side) {
  Rgb sum;
  int painted = 0;
  for (int i = 0; i < kSamples * kSamples; ++i) {
    const int across = i % kSamples;
    const int down = i / kSamples;
    const Sample one = sample(picture, (column + (across + 0.5) / kSamples) / side,
                              (row + (down + 0.5) / kSamples) / side);
    if (!one.painted) continue;
    ++painted;
    sum.red += one.colour.red;
    sum.green += one.colour.green;
    sum.blue += one.colour.blue;
  }
  if (painted == 0) return 0;
  constexpr int kAll = kSamples * kSamples;
  const auto byte = [](int value) { return static_cast<std::uint32_t>(value); };
  return byte(painted * 255 / kAll) << 24 | byte(sum.red / painted) << 16 |
         byte(sum.green / painted) << 8 | byte(sum.blue / painted);
}

}  // namespace

Icon makeIcon(PictureId picture, int side) {
  side = std::max(side, 1);
  const Raster colours(side, side);
  if (!colours.bitmap()) return {};
  auto pixels = colours.pixels().begin();
  // The mask is for code without alpha channels: set where the ground shows.
  const std::size_t maskRow = (static_cast<std::size_t>(side) + 15) / 16 * 2;
  std::vector<std::uint8_t> mask(maskRow * static_cast<std::size_t>(side));
  for (int row = 0; row < side; ++row) {
    for (int column = 0; column < side; ++column) {
      const std::uint32_t value = pixel(picture, column, row, side);
      *pixels++ = value;
      if (value >> 24 < 128) {
        mask[static_cast<std::size_t>(row) * maskRow + static_cast<std::size_t>(column / 8)] |=
            static_cast<std::uint8_t>(0x80 >> column % 8);
      }
    }
  }
  const Bitmap maskBitmap(CreateBitmap(side, side, 1, 1, mask.data()));
  ICONINFO icon{TRUE, 0, 0, maskBitmap.get(), colours.bitmap()};
  return Icon(CreateIconIndirect(&icon));
}

ImageList makeImages(const ui::ImageList& images, int side) {
  const auto count = static_cast<int>(images.pictures().size());
  ImageList made(ImageList_Create(side, side, ILC_COLOR32 | ILC_MASK, count, 0));
  for (const PictureId picture : images.pictures()) {
    const Icon icon = makeIcon(picture, side);
    ImageList_ReplaceIcon(made.get(), -1, icon.get());
  }
  return made;
}

}  // namespace tillora::ui::win32
