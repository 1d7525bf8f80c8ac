#include "DumpProgress.h"

#include <commctrl.h>

DumpProgress::DumpProgress(HWND owner, HWND bar, long rows) : m_owner(owner), m_bar(bar)
{
    SetRange32(0, static_cast<int>(rows));
    ::SendMessageW(m_bar, PBM_SETRANGE32, 0, rows);
    ::SendMessageW(m_bar, PBM_SETPOS, 0, 0);
}

intptr_t DumpProgress::WindowProc(unsigned int message, uintptr_t wParam, intptr_t lParam)
{
    const intptr_t result = CProgressCtrl::WindowProc(message, wParam, lParam);
    ::SendMessageW(m_bar, PBM_SETPOS, static_cast<WPARAM>(GetPos()), 0);
    AnswerWindows();
    return result;
}

// The dump works in the thread of the windows. Between two steps they are drawn and may be moved; whoever uses this
// class sees to it that nobody can use the connection meanwhile.
void DumpProgress::AnswerWindows() const
{
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            ::PostQuitMessage(static_cast<int>(message.wParam)); // for the loop that is waiting outside
            return;
        }
        if (!::IsDialogMessageW(m_owner, &message)) {
            ::TranslateMessage(&message);
            ::DispatchMessageW(&message);
        }
    }
}
