#pragma once

#include <concepts>
#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

#include "ui/form.h"
#include "ui/image_list.h"
#include "ui/win32/annotations.h"
#include "ui/win32/control_view.h"
#include "ui/win32/frame_class.h"
#include "ui/win32/metrics.h"

namespace tillora::ui::win32 {

class Screen;

/// The window of a form and, through their views, of its controls.
///
/// A control gets its window when it is first seen: with the form, or with the frame around it.
class FormWindow final : public FormView {
 public:
  /// Creates the hidden window with all that is visible of the form, centred on `owner` (or on the
  /// screen for none). The form and the screen outlive the window.
  FormWindow(Screen& screen, Form& form, HWND owner);
  ~FormWindow() override;

  // FormView.
  void changed(const Control& control, Property what) override;
  void focusMoved() override;
  int hitTest(const ListView& list, Point point) const override;

  HWND window() const { return window_; }
  Form& form() const { return form_; }
  const Metrics& metrics() const;

  /// Handles a message of the form's windows before Windows does: keys, typed characters and mouse
  /// buttons go to the form first. True if the message is used up; otherwise it is to be translated
  /// and dispatched, changed or not.
  bool preTranslate(MSG& message);

  /// The window of a control; null while it has none.
  HWND windowOf(const Control& control) const;
  ControlView* viewOf(const Control& control) const;
  /// The view whose own window it is; null for any other window.
  ControlView* viewAt(HWND window) const;
  /// The view of a window or of the nearest window around it (a list view for its header).
  ControlView* viewAround(HWND window) const;

  // For the views.

  Annotations& annotations() { return annotations_; }
  void enter(HWND window, ControlView& view) { windows_[window] = &view; }
  void leave(HWND window) { windows_.erase(window); }
  /// An identifier for a control's window, unique in the form.
  int newId() { return nextId_++; }
  void createChildren(const Container& container, HWND parent);
  /// A notification or colour request of a child window; nothing for other messages.
  std::optional<LRESULT> route(UINT message, WPARAM wParam, LPARAM lParam);
  /// What lies behind a child window: a brush that paints it, aligned in `dc`. Text drawn next is
  /// transparent.
  HBRUSH background(HWND child, HDC dc) const;
  /// False if texts in the present colours could not be read on what the theme paints.
  bool isThemeReadable() const;
  /// Has no effect before the mouse is first moved over a window that has one: then all are made.
  void setToolTip(HWND window, std::wstring text);
  /// Lets the tool tips know of a mouse message of a window that has one. With TTF_SUBCLASS
  /// they would see for themselves, at a cost for every message of the window.
  void relayToToolTips(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  /// The platform's image list for one of the form's, made when it is first asked for.
  HIMAGELIST imagesOf(const ui::ImageList& images);
  /// The platform put the focus into a control's window.
  void focusLanded(Control& control);
  /// User input reaches the form now: it is shown, on top, and not busy.
  bool takesInput() const;
  /// The message is user input for a window of the form, and the form takes no input now.
  bool holdsOff(UINT message) const;
  /// Shows the form with the screen's present fonts and colours, in the size that it needs now.
  void followSettings();
  /// Shows the hourglass; false for the standard pointer, which each window knows best.
  bool showPointer() const;
  /// Runs code that may fail where no exception may escape; a failure ends the form's modal run.
  template <std::invocable F>
  LRESULT walled(F&& code) noexcept {
    try {
      if constexpr (std::is_void_v<std::invoke_result_t<F>>) {
        code();
        return 0;
      } else {
        return code();
      }
    } catch (...) {
      fail(std::current_exception());
      return 0;
    }
  }

 private:
  static constexpr UINT kReconcileFocus = WM_APP + 1;

  static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam,
                                    LPARAM lParam) noexcept;
  std::optional<LRESULT> message(UINT message, WPARAM wParam, LPARAM lParam);
  void fail(std::exception_ptr failure) noexcept;
  void close();
  void destroy();
  /// What the window's borders and caption add to the form's area, pixels.
  SIZE frame() const;
  void place(HWND owner);
  void placeOver(const RECT& around, const RECT& work);
  /// The size that the window needs for the form's, pixels.
  SIZE wholeSize() const;
  /// Gives the window the form's size.
  void resize();
  /// Gives the form the window's size.
  void followWindow();
  void create(Control& control, HWND parent);
  void createLater(Control& control, HWND parent);
  void changedWithin(const Control& holder, Property what);
  void applyFocus();
  void reconcileFocus();
  void showDefaultButton();
  bool keyDown(const MSG& message);
  bool character(MSG& message);
  bool mouseDown(const MSG& message);
  void readBackActive();
  void makeToolTips();
  void showKeyboardCues(WPARAM key, bool alt);

  Screen& screen_;
  Form& form_;
  std::shared_ptr<FrameClass> frameClass_ = FrameClass::get();
  HWND window_ = nullptr;
  HWND toolTips_ = nullptr;  // owned by window_
  std::unordered_map<const Control*, std::unique_ptr<ControlView>> views_;
  std::unordered_map<HWND, ControlView*> windows_;
  std::unordered_map<const ui::ImageList*, ImageList> images_;
  Annotations annotations_;
  SIZE least_{};  // the user cannot make the window smaller
  bool followsWindow_ = false;
  mutable std::optional<bool> themeReadable_;  // unknown until it is asked for
  int nextId_ = 100;                           // above IDOK, IDCANCEL and their like
  const CommandButton* shownDefault_ = nullptr;
};

/// Throws std::system_error with GetLastError().
[[noreturn]] void throwLastError(const char* function);

}  // namespace tillora::ui::win32
