#include "ui/control.h"

#include <algorithm>
#include <iterator>

#include "base/letter_case.h"
#include "ui/container.h"
#include "ui/form.h"

namespace tillora::ui {
namespace {

// At 96 DPI, in twips.
constexpr int kBesideText = 30;
// Both sides together. A box is as high as a button.
constexpr int kAboveAndBelowText = 150;
constexpr int kLeastBoxHeight = 345;
constexpr int kBoxBorders = 105;

bool isBlank(TextView text, std::size_t place) {
  return place < text.size() && text[place] == u' ';
}

// The caption as it is shown, cut where an ampersand is dropped.
template <class Take>
void forEachShownPart(TextView caption, Take&& take) {
  std::size_t start = 0;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] != u'&' || isBlank(caption, i + 1)) continue;
    take(caption.substr(start, i - start));
    start = ++i;
  }
  take(caption.substr(start));
}

}  // namespace

Control& Control::setEnabled(bool enabled) {
  if (enabled_ == enabled) return *this;
  enabled_ = enabled;
  if (form_ != nullptr) form_->releaseFocus();
  notify(Property::enabled);
  return *this;
}

Control& Control::setVisible(bool visible) {
  if (visible_ == visible) return *this;
  visible_ = visible;
  if (form_ != nullptr) form_->releaseFocus();
  notify(Property::visible);
  return *this;
}

bool Control::effectivelyEnabled() const {
  return enabled_ && (parent_ == nullptr || parent_->effectivelyEnabled());
}

bool Control::effectivelyVisible() const {
  return visible_ && (parent_ == nullptr || parent_->effectivelyVisible());
}

Control& Control::setBounds(const Rect& bounds) {
  if (bounds_ == bounds) return *this;
  bounds_ = bounds;
  notify(Property::bounds);
  return *this;
}

void Control::bringToFront() {
  if (parent_ == nullptr) return;
  for (const auto& sibling : parent_->children()) {
    if (sibling != this) stacking_ = std::max(stacking_, sibling->stacking_ + 1);
  }
  notify(Property::stacking);
}

Control& Control::setToolTip(Text toolTip) {
  if (toolTip_ == toolTip) return *this;
  toolTip_ = std::move(toolTip);
  notify(Property::toolTip);
  return *this;
}

Control& Control::setAccessibleName(Text name) {
  accessibleName_ = std::move(name);
  return *this;
}

Text Control::spokenName() const {
  if (Text name = accessibleName(); !name.empty()) return name;
  if (!caption().empty() || parent_ == nullptr) return withoutAccessKey(caption());
  const auto& siblings = parent_->children();
  const auto here = std::ranges::find(siblings, this);
  const bool isLabelled = here != siblings.begin() && (*std::prev(here))->kind() == Kind::label;
  return isLabelled ? (*std::prev(here))->spokenName() : Text();
}

Control& Control::setForeColour(Colour colour) {
  foreColour_ = colour;
  notify(Property::colours);
  return *this;
}

Control& Control::setBackColour(Colour colour) {
  backColour_ = colour;
  notify(Property::colours);
  return *this;
}

Control& Control::setTabStop(bool tabStop) {
  tabStop_ = tabStop;
  return *this;
}

Control& Control::setCausesValidation(bool causes) {
  causesValidation_ = causes;
  return *this;
}

Size Control::naturalSize() const { return {captionWidth() + kBesideText, heightFor(1)}; }

// Where letters are smoothed or fitted to pixels, a long text can come out somewhat wider than it
// is measured.
int Control::captionWidth() const {
  constexpr int kSlack = 50;  // one in so many
  int measured = 0;
  // Part by part, without memory for the whole: a dialog that opens measures thousands.
  forEachShownPart(caption(), [&](TextView part) { measured += form_->screen().textWidth(part); });
  return measured + measured / kSlack;
}

int Control::heightFor(int lines) const { return fieldHeight(*form_, lines); }

int Control::widthFor(int characters) const {
  // One more, for the margins, which follow the font, and the caret.
  return form_->screen().textWidth(u"0") * (characters + 1) + kBoxBorders;
}

bool Control::canFocus() const {
  return focusable() && effectivelyEnabled() && effectivelyVisible();
}

bool Control::hasFocus() const { return form_->activeControl() == this; }

bool Control::setFocus() { return form_->setFocus(*this); }

std::optional<char16_t> Control::accessKey() const { return accessKeyOf(caption()); }

const Text& Control::caption() const {
  static const Text none;
  return none;
}

const std::vector<Control*>& Control::children() const {
  static const std::vector<Control*> none;
  return none;
}

void Control::userKey(Key key) {
  if (key == Key::space) press();
}

bool Control::isTabStop() const { return tabStop_ && canFocus(); }

Control* Control::focusHeir() const { return form_->nextInTabOrder(this); }

Control* Control::accessTarget() {
  Control* target = focusable() ? this : form_->nextInTabOrder(this);
  return target != nullptr && target->canFocus() ? target : nullptr;
}

CommandButton* Control::enterButton() { return form_->defaultButton(); }

bool Control::mouseDown() { return !canFocus() || setFocus(); }

void Control::notify(Property what) const {
  if (form_ == nullptr) return;
  if (FormView* view = form_->view()) view->changed(*this, what);
}

void Control::edited() {
  if (form_ != nullptr) form_->edited(*this);
}

int fieldHeight(const Form& form, int lines) {
  return std::max(form.screen().lineHeight() * lines + kAboveAndBelowText, kLeastBoxHeight);
}

std::optional<char16_t> accessKeyOf(TextView caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != u'&') continue;
    const char16_t next = caption[++i];
    if (next != u'&' && next != u' ') return lowerCase(next);
  }
  return std::nullopt;
}

Text withoutAccessKey(TextView caption) {
  Text shown;
  shown.reserve(caption.size());
  forEachShownPart(caption, [&](TextView part) { shown += part; });
  return shown;
}

Text withPlainAmpersandsDoubled(TextView caption) {
  Text doubled;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    doubled += caption[i];
    if (caption[i] != u'&' || i + 1 == caption.size()) continue;
    doubled += isBlank(caption, i + 1) ? u'&' : caption[++i];
  }
  return doubled;
}

}  // namespace tillora::ui
