// The progress bar of a dump: the library speaks to the framework's bar, and this one passes it on to a window.
#pragma once

#include "framework/CWnd.h"

#include <windows.h>

class DumpProgress : public CProgressCtrl
{
public:
    /// `bar` is a progress bar in the dialog `owner`, both the caller's.
    DumpProgress(HWND owner, HWND bar, long rows);

protected:
    intptr_t WindowProc(unsigned int message, uintptr_t wParam, intptr_t lParam) override;

private:
    void AnswerWindows() const;

    HWND m_owner;
    HWND m_bar;
};
