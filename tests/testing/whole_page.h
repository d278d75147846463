#pragma once

#include <vector>

#include "tests/testing/desk.h"

namespace tillora::testing {

/// The controls of a container that are visible now, those in its frames instead of the frames, in
/// tab order.
std::vector<ui::Control*> visibleControls(const ui::Container& container);

/// Goes once through everything that a container shows: types into each box, ticks, chooses, and
/// presses each button. Dialogs that a button opens are filled in the same way and accepted.
/// Returns how many dialogs were opened.
int useEverything(Desk& desk, const ui::Container& container);

}  // namespace tillora::testing
