#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "base/text.h"
#include "ui/event.h"
#include "ui/geometry.h"
#include "ui/keys.h"

namespace tillora::ui {

class CommandButton;
class Container;
class Form;

enum class Kind : std::uint8_t {
  form,
  frame,
  label,
  textBox,
  checkBox,
  optionButton,
  commandButton,
  comboBox,
  checkListBox,
  listView,
  upDown,
  tabStrip,
  picture,
};

/// What a view has to update. The view reads the new state from the control.
enum class Property : std::uint8_t {
  text,         ///< caption of a control, text of a text box
  enabled,      ///< own enabled state; a container's applies to all that it holds
  visible,      ///< own visibility; a container's applies to all that it holds
  bounds,       ///< place and size
  scrolling,    ///< what a container shows of its content
  toolTip,      ///< tool tip text
  colours,      ///< text or background colour
  selection,    ///< selected text of a text box
  editing,      ///< maximum length or locking of a text box
  value,        ///< check box, option button, up-down value, list index, selected row or tab
  items,        ///< rows of a list box, combo box, list view or tabs
  checks,       ///< ticks of a check list box
  columns,      ///< headers or widths of a list view's columns
  defaultness,  ///< which command button is the default one
  stacking,     ///< drawn above its siblings
};

/// A colour: a system colour index with bit 31 set (0x80000014 is COLOR_3DHILIGHT), or 0x00BBGGRR.
using Colour = std::uint32_t;
inline constexpr Colour kButtonFace = 0x8000000F;        ///< COLOR_BTNFACE
inline constexpr Colour kWindowBackground = 0x80000005;  ///< COLOR_WINDOW
inline constexpr Colour kButtonText = 0x80000012;        ///< COLOR_BTNTEXT
inline constexpr Colour kWindowText = 0x80000008;        ///< COLOR_WINDOWTEXT
inline constexpr Colour kButtonHighlight = 0x80000014;   ///< COLOR_3DHILIGHT

enum class Alignment : std::uint8_t { left, right, centre };

/// A control of a form: its state and its events. A view makes it visible; without a view it
/// behaves the same.
///
/// Setting a property from code has the same effects as the user's action: a check box raises
/// click, a text box raises change. Setters can be chained, those of every control last. Before a
/// container has added the control, only its properties can be set.
class Control {
 public:
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  virtual Kind kind() const = 0;
  /// The form that the control is on; for a form, itself.
  Form& form() const { return *form_; }
  /// The form or frame that holds the control; null for a form.
  Container* parent() const { return parent_; }

  bool enabled() const { return enabled_; }
  /// A control that is disabled or hidden while it has the focus passes the focus on, never to the
  /// form's cancel button.
  Control& setEnabled(bool enabled);
  bool visible() const { return visible_; }
  Control& setVisible(bool visible);
  /// Enabled, like everything that holds it.
  bool effectivelyEnabled() const;
  /// Visible, like everything that holds it.
  bool effectivelyVisible() const;

  /// The size that its caption needs in the present font, twips.
  virtual Size naturalSize() const;
  /// Width of the caption in the present font, twips.
  int captionWidth() const;
  /// Height with this many lines of text, twips.
  virtual int heightFor(int lines) const;
  /// Width with this many digits, twips.
  virtual int widthFor(int characters) const;
  /// As high as its row; other controls keep their own height.
  virtual bool fillsRow() const { return false; }
  /// Twips, relative to the client area of parent().
  const Rect& bounds() const { return bounds_; }
  Control& setBounds(const Rect& bounds);
  /// Draws the control above its siblings.
  void bringToFront();
  /// Of two siblings the one with the higher number is drawn above; with equal ones, the later.
  int stacking() const { return stacking_; }

  const Text& toolTip() const { return toolTip_; }
  Control& setToolTip(Text toolTip);
  /// Name for screen readers where neither the caption nor a label before the control gives one, or
  /// where that would not tell it from others on its page. Empty for none.
  virtual Text accessibleName() const { return accessibleName_; }
  Control& setAccessibleName(Text name);
  /// What screen readers call it: accessibleName(), or else its caption, or that of the label
  /// before it.
  Text spokenName() const;
  Colour foreColour() const { return foreColour_; }
  Control& setForeColour(Colour colour);
  Colour backColour() const { return backColour_; }
  Control& setBackColour(Colour colour);

  /// Reached by the Tab key. A control that is not a tab stop can still get the focus by the mouse.
  bool tabStop() const { return tabStop_; }
  Control& setTabStop(bool tabStop);
  /// False for controls (Cancel) that get the focus without validating the one that had it.
  bool causesValidation() const { return causesValidation_; }
  Control& setCausesValidation(bool causes);

  /// Its kind takes the focus, and it is enabled and visible.
  bool canFocus() const;
  bool hasFocus() const;
  /// Moves the focus here as Form::setFocus does.
  bool setFocus();

  /// The access key of the caption, if it names one that the control answers to.
  virtual std::optional<char16_t> accessKey() const;
  /// Caption with its ampersands; empty for kinds without one.
  virtual const Text& caption() const;
  /// The controls that this one holds, in order of creation; none for most kinds.
  virtual const std::vector<Control*>& children() const;

  /// What a click, the access key and Space do: a command button is pressed, a check box ticked or
  /// unticked, an option button chosen. Nothing in other kinds.
  virtual void press() {}
  /// A key that Form::userKeyDown left to the control: Space presses, Up and Down choose in a list.
  /// Where the control has a window of the platform, the window does this by itself.
  virtual void userKey(Key key);

  Event<> gotFocus;
  Event<> lostFocus;
  /// Before the focus leaves for a control that causes validation. Set `cancel` to keep it.
  Event<bool&> validate;
  /// A key went down in this control. Set the key to Key::none to discard it.
  Event<Key&, Modifiers> keyDown;
  /// A character was typed into this control. Set it to 0 to discard it.
  Event<char16_t&> keyPress;

 protected:
  Control() = default;
  /// Notifies the form's view, if there is one.
  void notify(Property what) const;
  /// Notifies the form that the value was edited, by the user or by code; the form decides what
  /// that means (see Form::edited).
  void edited();
  virtual bool focusable() const { return false; }

  // What the form asks its controls while it moves the focus and processes keys.

  /// Tab stops at this control now. In a group of option buttons it stops at only one.
  virtual bool isTabStop() const;
  /// The control that gets the focus when this one can no longer have it; null for none.
  virtual Control* focusHeir() const;
  /// The control that the access key leads to: this one, or the next in the tab order if this kind
  /// (label, frame) takes no focus. Null if it leads nowhere.
  Control* accessTarget();
  /// The button that Enter presses while this control has the focus; null for none.
  virtual CommandButton* enterButton();
  /// The control uses Enter itself, and so it presses no button.
  virtual bool keepsEnter(Modifiers /*modifiers*/) const { return false; }
  /// Right or Down (forward), Left or Up was pressed in the control. True if the key moves the
  /// focus among the controls of a group, false if the control itself uses it.
  virtual bool moveByArrow(bool /*forward*/) { return false; }
  /// Up (+1) or Down (-1) was pressed in `box`. True if this control is the up-down beside it.
  virtual bool stepFor(const Control& /*box*/, int /*direction*/) { return false; }
  /// Goes to the next or the previous page. False for all but a tab strip that can have the focus.
  virtual bool switchPage(bool /*forward*/) { return false; }
  /// The mouse went down on the control, which is enabled: takes the focus if it can. False if
  /// validation refused; the control must not see the click then.
  virtual bool mouseDown();

 private:
  friend class Container;
  friend class Form;

  Form* form_ = nullptr;
  Container* parent_ = nullptr;
  Rect bounds_;
  Text toolTip_;
  Text accessibleName_;
  Colour foreColour_ = kButtonText;
  Colour backColour_ = kButtonFace;
  int stacking_ = 0;
  bool enabled_ = true;
  bool visible_ = true;
  bool tabStop_ = true;
  bool causesValidation_ = true;
};

/// Height of a box with this many lines of text, twips.
int fieldHeight(const Form& form, int lines = 1);

/// The access key that a caption names: the character after an ampersand, in lower case ("Na&me"
/// gives 'm'). An ampersand that is doubled or before a blank ("Profit & Loss") names none.
std::optional<char16_t> accessKeyOf(TextView caption);
/// The caption as it is shown: access-key ampersands dropped, doubled ones single.
Text withoutAccessKey(TextView caption);
/// The caption for a platform that treats every single ampersand as the mark of an access key.
Text withPlainAmpersandsDoubled(TextView caption);

}  // namespace tillora::ui
