#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "base/text.h"
#include "ui/control.h"
#include "ui/geometry.h"

namespace tillora::ui {

class Form;
class ListView;
class TabStrip;

/// The mouse pointer of the whole screen.
enum class Pointer : std::uint8_t {
  standard = 0,
  hourglass = 11,
};

/// Shows one form. Notified of every change afterwards; reads the new state from the controls.
class FormView {
 public:
  virtual ~FormView() = default;
  /// `control` may be the form itself (caption, bounds).
  virtual void changed(const Control& control, Property what) = 0;
  /// Form::activeControl() has changed.
  virtual void focusMoved() = 0;
  /// The row at a point of the list's area (twips); -1 for none.
  virtual int hitTest(const ListView& list, Point point) const = 0;
};

/// Where forms are shown: the platform's desktop, or nothing at all in a test.
class Screen {
 public:
  virtual ~Screen() = default;

  /// Shows the form over all others of the thread, which take no input meanwhile, and returns when
  /// the form is no longer shown. An exception from a handler ends the run and is rethrown here.
  virtual void runModal(Form& form) = 0;
  /// False once the window of the form on top is gone: its handlers can show nothing more. A form
  /// that is run nevertheless ends at once.
  virtual bool canShow() const { return true; }

  virtual Pointer pointer() const = 0;
  virtual void setPointer(Pointer pointer) = 0;

  /// Width and height of one pixel, twips: 15 by 15 at 96 DPI.
  virtual Size twipsPerPixel() const = 0;
  /// Width of a single line in the font of forms, twips; ampersands count as characters.
  virtual int textWidth(TextView text) const = 0;
  /// Height of one line of text, twips.
  virtual int lineHeight() const = 0;
  /// Height of a caption that is broken into lines of this width, twips.
  virtual int wrappedHeight(TextView caption, int width) const = 0;
  /// Width of a vertical and height of a horizontal scroll bar, twips.
  virtual Size scrollBars() const = 0;
  /// Width of a strip that has these tabs in one row, twips.
  virtual int tabRowWidth(const std::vector<Text>& tabs) const = 0;
  /// What a strip of this width needs around its pages, twips.
  virtual Margins tabMargins(const std::vector<Text>& tabs, int width) const = 0;

  /// The positions of texts in the platform's order for lists, without regard to case; equal texts
  /// keep their order.
  virtual std::vector<std::size_t> listOrder(std::span<const TextView> texts) const = 0;
  /// A signal that a key was not accepted.
  virtual void beep() = 0;

 protected:
  friend class ScreenSession;
  virtual void beginSession() {}
  virtual void endSession() noexcept {}
};

/// During its lifetime forms are made and shown for the screen as it was at the start: its
/// resolution, fonts and sizes. One at a time.
class ScreenSession {
 public:
  explicit ScreenSession(Screen& screen) : screen_(screen) { screen_.beginSession(); }
  ScreenSession(const ScreenSession&) = delete;
  ScreenSession& operator=(const ScreenSession&) = delete;
  ~ScreenSession() { screen_.endSession(); }

 private:
  Screen& screen_;
};

}  // namespace tillora::ui
