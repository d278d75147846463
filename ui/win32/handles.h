#pragma once

#include <windows.h>
// commctrl.h needs windows.h first.
#include <commctrl.h>
#include <uxtheme.h>

#include <memory>
#include <type_traits>

namespace tillora::ui::win32 {

/// The owner of a Windows handle, which `Close` releases.
template <class Handle, auto Close>
struct HandleCloser {
  using pointer = Handle;
  void operator()(Handle handle) const { Close(handle); }
};
template <class Handle, auto Close>
using Owned = std::unique_ptr<std::remove_pointer_t<Handle>, HandleCloser<Handle, Close>>;

inline void deleteFont(HFONT font) { DeleteObject(font); }
inline void deleteBrush(HBRUSH brush) { DeleteObject(brush); }
inline void deleteBitmap(HBITMAP bitmap) { DeleteObject(bitmap); }
inline void deleteDc(HDC dc) { DeleteDC(dc); }
inline void destroyIcon(HICON icon) { DestroyIcon(icon); }
inline void destroyImages(HIMAGELIST images) { ImageList_Destroy(images); }
inline void destroyWindow(HWND window) { DestroyWindow(window); }
inline void closeTheme(HTHEME theme) { CloseThemeData(theme); }

using Font = Owned<HFONT, deleteFont>;
using Brush = Owned<HBRUSH, deleteBrush>;
using Bitmap = Owned<HBITMAP, deleteBitmap>;
using MemoryDc = Owned<HDC, deleteDc>;
using Icon = Owned<HICON, destroyIcon>;
using ImageList = Owned<HIMAGELIST, destroyImages>;
using Window = Owned<HWND, destroyWindow>;
using Theme = Owned<HTHEME, closeTheme>;

/// Keeps a GDI object selected during its lifetime.
class Selection {
 public:
  Selection(HDC dc, HGDIOBJ object) : dc_(dc), former_(SelectObject(dc, object)) {}
  Selection(const Selection&) = delete;
  Selection& operator=(const Selection&) = delete;
  ~Selection() { SelectObject(dc_, former_); }

 private:
  HDC dc_;
  HGDIOBJ former_;
};

/// The client area's device context between BeginPaint and EndPaint.
class Painting {
 public:
  explicit Painting(HWND window) : window_(window), dc_(BeginPaint(window, &state_)) {}
  Painting(const Painting&) = delete;
  Painting& operator=(const Painting&) = delete;
  ~Painting() { EndPaint(window_, &state_); }
  HDC dc() const { return dc_; }

 private:
  HWND window_;
  PAINTSTRUCT state_{};
  HDC dc_;
};

/// The device context of a whole window, its borders included.
class WindowDc {
 public:
  explicit WindowDc(HWND window) : window_(window), dc_(GetWindowDC(window)) {}
  WindowDc(const WindowDc&) = delete;
  WindowDc& operator=(const WindowDc&) = delete;
  ~WindowDc() { ReleaseDC(window_, dc_); }
  HDC get() const { return dc_; }

 private:
  HWND window_;
  HDC dc_;
};

}  // namespace tillora::ui::win32
