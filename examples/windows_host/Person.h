// Plays the person at the windows of this program, from a thread of its own.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace person {

/// Gives up, with what was waited for, after half a minute.
void WaitUntil(const char* what, const std::function<bool()>& isThere);

/// A dialog of this program in front of `window`: a message box, a question for a file.
HWND WaitForDialog(HWND window);
void WaitForItsEnd(HWND dialog);

std::wstring TextOf(HWND window);
std::wstring TextOfBox(HWND box); ///< of all its labels
std::wstring StatusOf(HWND window);
std::wstring CellOf(HWND window, int row, int column); ///< of the list of tables

void Press(HWND dialog, int button); ///< returns at once

} // namespace person
