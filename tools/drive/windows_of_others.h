#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace tillora::testing {

/// All visible top-level windows that have a title, of all programs.
std::vector<HWND> topLevelWindows();
/// The visible top-level window with exactly this title; null for none.
HWND findWindow(const std::wstring& title);

/// The visible windows of a class inside a window, at any depth. Class names are case-insensitive.
std::vector<HWND> childrenOf(HWND window, const std::wstring& className);
/// The first of them with exactly this text; null for none.
HWND findChild(HWND window, const std::wstring& className, const std::wstring& text);

/// Every window of every program, hidden ones included.
std::vector<HWND> allWindows();

std::wstring classOf(HWND window);
/// Its title or the text in it, asked of the program that owns it.
std::wstring textOf(HWND window);

}  // namespace tillora::testing
