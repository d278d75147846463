#pragma once

#include <concepts>
#include <optional>
#include <vector>

#include "ui/buttons.h"
#include "ui/container.h"
#include "ui/screen.h"

namespace tillora::ui {

/// How a form came to be unloaded.
enum class UnloadMode : std::uint8_t {
  user = 0,    ///< the window's close box, Alt+F4 or its system menu
  code = 1,    ///< the form's own code
  system = 2,  ///< its window is gone with its owner, or the program or the session ends
};

/// A window with controls: which control has the focus and whether it may lose it, tab order,
/// default and cancel button, access keys, modal show, and its end.
///
/// A form is loaded once, shown modally, and unloaded by its own code or by its close box; showing
/// it again loads it again. When it is loaded it takes the size that its rows need.
///
/// User input enters through the `user...` functions, from real windows and tests alike; each
/// returns whether the form has handled it. Input is processed one at a time: while a handler runs,
/// be it a save or another form, further input is ignored, even if a host program lets messages
/// pass meanwhile.
class Form : public Container {
 public:
  Form(Screen& screen, Text caption);

  Kind kind() const override { return Kind::form; }
  Screen& screen() const { return screen_; }
  const Text& caption() const override { return caption_; }
  Form& setCaption(Text caption);
  /// Size of the area that holds the controls, twips.
  Size clientSize() const override { return clientSize_; }
  /// Works out how large a client area the rows need; loading does, and sets that size.
  Size measure();
  /// What measure() gave last.
  Size measured() const { return measured_; }
  Form& setClientSize(Size size);
  /// The user may give the window another size, from that of its rows on.
  bool resizable() const { return resizable_; }
  /// Topic of the host program's help that F1 opens.
  int helpContext() const { return helpContext_; }
  Form& setHelpContext(int context) {
    helpContext_ = context;
    return *this;
  }

  // Life.

  bool isLoaded() const { return loaded_; }
  bool isShown() const { return shown_; }
  /// Runs onLoad and lays the form out in its natural size, unless the form is loaded.
  void load();
  /// Loads the form if need be, shows it and returns when it is hidden or unloaded. Error `already
  /// shown` (400) while it is shown.
  void showModal();
  /// Ends the modal run; the form stays loaded.
  void hide();
  /// Asks onQueryUnload, then hides the form and runs onUnload. Nothing if the form is not loaded.
  void unload(UnloadMode mode = UnloadMode::code);
  /// Hides and unloads the form unconditionally. While a handler runs it is only hidden, and
  /// unloaded when the handler has returned.
  void end();

  // Focus.

  /// The control with the focus; null for none.
  Control* activeControl() const { return active_; }
  /// Moves the focus, after validation of the control that has it unless `control` causes none.
  /// False if validation refused or `control` cannot have the focus. Before the form is shown it
  /// only notes where the focus will be.
  bool setFocus(Control& control);
  /// Runs the validation that is pending for the control that has, or last had, the focus. False if
  /// it refused; the focus is then on that control.
  bool validatePending();
  /// The control that the Tab key would lead to; null for none.
  Control* nextInTabOrder(const Control* from, bool forward = true) const;
  /// Moves the focus there from the control that has it.
  void moveInTabOrder(bool forward);
  /// The control that gets the focus when the page behind the tabs is opened by keyboard.
  Control* firstOnPage(const TabStrip& tabs) const;

  CommandButton* defaultButton() const { return default_; }
  CommandButton* cancelButton() const { return cancel_; }
  /// The button that Enter presses now: the one with the focus, or else the default button.
  CommandButton* enterButton() override;
  Form& setDefaultButton(CommandButton* button);

  // The user.

  /// User input is being processed.
  bool isBusy() const { return busy_; }
  /// Runs what the user did with a control. False if the form is busy; it is then not run.
  template <std::invocable F>
  bool userDoes(F&& act) {
    if (busy_) return false;
    {
      const Busy busy(busy_);
      act();
    }
    closeIfAsked();
    return true;
  }
  /// Tab, Ctrl+Tab between pages, Enter, Esc, arrows within a group of buttons, then the control's
  /// keyDown.
  /// True if the key is used up and the control must not see it.
  bool userKeyDown(Key key, Modifiers modifiers);
  /// The keyPress of the control with the focus. The character to type, or 0 for none.
  char16_t userCharacter(char16_t character);
  /// The same for a control that had the focus when the key went down.
  char16_t userCharacter(Control* control, char16_t character);
  /// Alt and a character: moves through the controls that have it as access key. False for none.
  bool userAccessKey(char16_t character);
  /// The mouse went down on a control. False if validation refused; the control must not see it
  /// then.
  bool userMouseDown(Control& control);
  /// The close box. While the form is busy the close is postponed until the handler has returned.
  void userClose();
  /// F1 anywhere on the form.
  void userHelp();
  Event<> help;

  // The view.

  void attach(FormView* view) { view_ = view; }
  FormView* view() const { return view_; }
  /// The modal run has made the form visible: gives a control the focus, the one chosen before or
  /// firstFocus().
  void shown();
  /// The value of this control was edited, by user or code. A dialog that tracks unsaved changes
  /// overrides it.
  virtual void edited(Control& control);

 protected:
  /// showModal was called; onLoad may follow.
  virtual void onShowModal() {}
  virtual void onLoad() {}
  /// The control has just received the focus; its gotFocus follows.
  virtual void onFocus(Control& control);
  bool canScroll() const override { return true; }
  /// Fixed once the form is shown.
  void setResizable() { resizable_ = true; }
  /// The control that starts with the focus; by default the first in the tab order.
  Control* firstFocus() override { return nextInTabOrder(nullptr); }
  /// Set `cancel` to stay.
  virtual void onQueryUnload(bool& cancel, UnloadMode mode);
  virtual void onUnload() {}

 private:
  friend class Container;
  friend class Control;
  friend class CommandButton;

  class Busy {
   public:
    explicit Busy(bool& busy) : busy_(busy) { busy_ = true; }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;
    ~Busy() { busy_ = false; }

   private:
    bool& busy_;
  };
  void closeIfAsked();

  /// All controls, each container's after it, in order of creation.
  std::vector<Control*> inTabOrder() const;
  /// Moves the focus away from a control that can no longer have it.
  void releaseFocus();
  void moveFocus(Control* to);
  bool keyDown(Key key, Modifiers modifiers);
  bool pressOnEnter(Modifiers modifiers);
  bool stepUpDown(Key key);
  bool switchTab(bool forward);
  bool followAccessKey(char16_t character);

  Screen& screen_;
  FormView* view_ = nullptr;
  Text caption_;
  Size clientSize_;
  Size measured_;
  Control* active_ = nullptr;
  Control* unvalidated_ = nullptr;  // the last control with the focus that is still to be validated
  CommandButton* default_ = nullptr;
  CommandButton* cancel_ = nullptr;
  int helpContext_ = 0;
  std::optional<UnloadMode> closing_;  // remembered until the form is no longer busy
  bool resizable_ = false;
  bool busy_ = false;
  bool loaded_ = false;
  bool shown_ = false;
  bool validating_ = false;
};

}  // namespace tillora::ui
