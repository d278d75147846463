#pragma once

namespace tillora::ui {

/// All lengths of forms and controls are twips (1440 to the inch); the view converts them with the
/// screen's twips per pixel (15 at 96 DPI).
struct Point {
  int x = 0;
  int y = 0;
  friend bool operator==(const Point&, const Point&) = default;
};

struct Size {
  int width = 0;
  int height = 0;
  friend bool operator==(const Size&, const Size&) = default;
};

struct Rect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  int right() const { return left + width; }
  int bottom() const { return top + height; }
  friend bool operator==(const Rect&, const Rect&) = default;
};

/// Distances from the edges of an area to what is in it.
struct Margins {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
};

}  // namespace tillora::ui
