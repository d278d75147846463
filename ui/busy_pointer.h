#pragma once

#include "ui/screen.h"

namespace tillora::ui {

/// Shows the hourglass during its lifetime, and the standard pointer afterwards.
class BusyPointer {
 public:
  explicit BusyPointer(Screen& screen) : screen_(screen) { screen_.setPointer(Pointer::hourglass); }
  ~BusyPointer() { screen_.setPointer(Pointer::standard); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;

 private:
  Screen& screen_;
};

}  // namespace tillora::ui
