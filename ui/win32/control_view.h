#pragma once

#include <concepts>
#include <optional>

#include "ui/form.h"
#include "ui/win32/handles.h"

namespace tillora::ui::win32 {

class FormWindow;

/// The window of one control. It shows the control's state and passes the user's input to the
/// control; the form has already handled the focus and keys of its own.
///
/// The window is destroyed with its parent window; the view outlives it.
class ControlView {
 public:
  ControlView(FormWindow& formWindow, Control& control)
      : formWindow_(formWindow), control_(control) {}
  ControlView(const ControlView&) = delete;
  ControlView& operator=(const ControlView&) = delete;
  virtual ~ControlView() = default;

  FormWindow& formWindow() const { return formWindow_; }
  Control& control() const { return control_; }
  HWND window() const { return window_; }

  /// Makes the window with the control's whole state. Called once.
  virtual void create(HWND parent) = 0;
  /// Updates a property in the window.
  virtual void show(Property what);
  /// Gives the window the present font of forms.
  virtual void showFont();

  /// WM_COMMAND of this window.
  virtual void command(WORD /*code*/) {}
  /// WM_NOTIFY of this window.
  virtual LRESULT notify(NMHDR& /*header*/) { return 0; }
  /// WM_CTLCOLOR... of this window.
  virtual HBRUSH colours(HDC dc);
  /// Paints an item of a control that leaves that to its owner.
  virtual void draw(const DRAWITEMSTRUCT& /*item*/) {}
  /// Updates the control with what the user may have moved without a notification.
  virtual void readBack() {}
  /// A key that the window needs for itself just now, before the form's Enter and Esc (an open
  /// drop-down list).
  virtual bool wantsKey(WPARAM /*key*/) const { return false; }
  /// The click that gives the window the focus does nothing else in it.
  virtual bool clickOnlyFocuses() const { return false; }
  /// The row at a point of the window, pixels; -1 for none and for kinds without rows.
  virtual int rowAt(POINT /*point*/) const { return -1; }
  /// What paints the background of the window and of its children; null for that of the surrounding
  /// window.
  virtual HBRUSH ownBackground() const { return nullptr; }
  /// A typed character that the control is to get; true if the view has handled it.
  virtual bool typed(char16_t /*character*/) { return false; }
  /// What the window is to screen readers (ROLE_SYSTEM_*); 0 if its class says so by itself.
  virtual LONG role() const { return 0; }

 protected:
  struct Style {
    const wchar_t* className;
    DWORD style = 0;
    DWORD extended = 0;
    bool hidden = false;  ///< shown by the view itself
  };
  /// Creates the window at the control's place, with font, initial text, enabled state and tool
  /// tip. In a window that is seen it stays hidden, so that it appears with all that is in it: each
  /// window would otherwise be painted on its own.
  void createWindow(HWND parent, const Style& style);
  virtual RECT pixelBounds() const;
  /// The text of a new window: the caption, or what kinds without one show.
  virtual Text windowText() const { return withPlainAmpersandsDoubled(control_.caption()); }
  /// Any message of the window, before the window's own procedure.
  virtual LRESULT message(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(window_, message, wParam, lParam);
  }
  template <class T>
  LRESULT send(UINT message, WPARAM wParam, T* data) const {
    return SendMessageW(window_, message, wParam, reinterpret_cast<LPARAM>(data));
  }

  /// During its lifetime, notifications are echoes of the program's own changes.
  class Echo {
   public:
    explicit Echo(ControlView& view) : view_(view) { ++view_.echoes_; }
    Echo(const Echo&) = delete;
    Echo& operator=(const Echo&) = delete;
    ~Echo() { --view_.echoes_; }

   private:
    ControlView& view_;
  };
  bool isEcho() const { return echoes_ > 0; }
  /// Runs what the user did with the window, unless it is an echo. If the form takes no input now,
  /// the change is taken back.
  template <std::invocable F>
  void userDoes(F&& act) {
    if (isEcho()) return;
    if (takesInput()) {
      form().userDoes(act);
    } else {
      takeBack();
    }
  }
  /// Shows the control's value again in place of the window's.
  virtual void takeBack() {}

 private:
  Form& form() const;
  bool takesInput() const;
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam,
                                    LPARAM lParam) noexcept;

  FormWindow& formWindow_;
  Control& control_;
  HWND window_ = nullptr;
  WNDPROC former_ = nullptr;  // the class's own
  int echoes_ = 0;
};

/// A view of a control of type T.
template <class T>
class ViewOf : public ControlView {
 public:
  ViewOf(FormWindow& formWindow, T& control) : ControlView(formWindow, control) {}

 protected:
  T& control() const { return static_cast<T&>(ControlView::control()); }
};

/// A colour of the model as Windows paints it.
COLORREF toColorRef(Colour colour);

}  // namespace tillora::ui::win32
