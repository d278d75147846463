#include <string>

#include "tests/testing/every_dialog.h"

namespace tillora::testing {
namespace {

bool overlap(const ui::Rect& a, const ui::Rect& b) {
  return a.left < b.right() && b.left < a.right() && a.top < b.bottom() && b.top < a.bottom();
}

/// The controls touch or overlap though they should not. A page lies on its tab strip.
bool collide(const ui::Control& a, const ui::Control& b) {
  using ui::Kind;
  if (a.kind() == Kind::tabStrip && b.kind() == Kind::frame) return false;
  if (a.kind() == Kind::frame && b.kind() == Kind::tabStrip) return false;
  const bool apart = a.kind() == Kind::commandButton || b.kind() == Kind::commandButton;
  ui::Rect around = a.bounds();
  if (apart) around = {around.left - 1, around.top - 1, around.width + 2, around.height + 2};
  return overlap(around, b.bounds());
}

/// What the caption needs beside its text: a box to tick, or a button's border.
int besideCaption(const ui::Control& control) {
  switch (control.kind()) {
    case ui::Kind::checkBox:
    case ui::Kind::optionButton:
    case ui::Kind::commandButton:
      return control.form().screen().lineHeight();
    default:
      return 0;
  }
}

bool isSeen(const ui::Control& control) {
  const auto* label = dynamic_cast<const ui::Label*>(&control);
  return control.visible() && (label == nullptr || !label->decorative());
}

std::string nameOf(const ui::Control& control, std::size_t index) {
  return "control " + std::to_string(index) + " " + toUtf8(control.caption());
}

/// The visible controls of a container lie inside it, show their whole caption and hide no other.
void expectTidy(const ui::Container& holder) {
  const ui::Screen& screen = holder.form().screen();
  const auto& children = holder.children();
  for (std::size_t i = 0; i < children.size(); ++i) {
    const ui::Control& control = *children[i];
    if (!isSeen(control)) continue;
    const ui::Rect& place = control.bounds();
    SCOPED_TRACE(nameOf(control, i));
    EXPECT_GE(place.left, 0);
    EXPECT_GE(place.top, 0);
    EXPECT_GT(place.width, 0);
    EXPECT_LE(place.right(), holder.clientSize().width);
    EXPECT_LE(place.bottom(), holder.clientSize().height);

    const int lines = place.height / screen.lineHeight();
    EXPECT_GE(lines, 1);
    EXPECT_GE(lines * (place.width - besideCaption(control)),
              screen.textWidth(ui::withoutAccessKey(control.caption())));

    for (std::size_t j = 0; j < i; ++j) {
      EXPECT_FALSE(isSeen(*children[j]) && collide(control, *children[j]))
          << nameOf(*children[j], j);
    }
    if (const auto* inner = dynamic_cast<const ui::Container*>(&control)) expectTidy(*inner);
  }
}

using DialogLayout = EveryDialogTest;

TEST_F(DialogLayout, EveryPageShowsAllItsControlsInFullBesideEachOther) {
  visitEverything([](const std::string& name, ui::Form& form) {
    SCOPED_TRACE(name);
    expectTidy(form);
  });
}

}  // namespace
}  // namespace tillora::testing
