#pragma once

#if defined(MYDB_WITH_MFC)
#include "framework/Mfc.h"
#else

#include "MyDbExport.h"
#include "framework/CObject.h"

#include <cstdint>

// <windows.h> has a macro that makes SendMessageA or SendMessageW of the name SendMessage. It is put aside here, and on
// Windows the members answer to these names too, so that a host may include <windows.h> before or behind this header.
#pragma push_macro("SendMessage")
#undef SendMessage

/// The framework's window, as far as this library meets it.
class MYDB_EXPORT CWnd : public CObject
{
    DECLARE_DYNAMIC(CWnd)
public:
    /// Has WindowProc handle a message and gives its result.
    intptr_t SendMessage(unsigned int message, uintptr_t wParam = 0, intptr_t lParam = 0);
#if defined(_WIN32)
    intptr_t SendMessageA(unsigned int message, uintptr_t wParam = 0, intptr_t lParam = 0)
    {
        return SendMessage(message, wParam, lParam);
    }
    intptr_t SendMessageW(unsigned int message, uintptr_t wParam = 0, intptr_t lParam = 0)
    {
        return SendMessage(message, wParam, lParam);
    }
#endif

protected:
    /// What a message does. This class knows none and gives 0.
    virtual intptr_t WindowProc(unsigned int message, uintptr_t wParam, intptr_t lParam);
};

#pragma pop_macro("SendMessage")

#ifndef PBM_DELTAPOS // a macro of <commctrl.h>
/// Moves a progress bar on by `wParam`; the result is the position that it had.
inline constexpr unsigned int PBM_DELTAPOS = 1027;
#endif

/// The framework's progress bar: a range and a position in it. This one shows nothing. A host derives from it to show
/// any bar, and overrides WindowProc to hear of each step.
class MYDB_EXPORT CProgressCtrl : public CWnd
{
    DECLARE_DYNAMIC(CProgressCtrl)
public:
    /// Sets the bounds, 0 and 100 at first. A position outside moves to the nearer one.
    void SetRange32(int lower, int upper) noexcept;
    void GetRange(int& lower, int& upper) const;
    int GetPos() const noexcept; ///< The position, 0 at first.

protected:
    /// PBM_DELTAPOS moves the position by `wParam`, up to the upper bound; 0 for every other message.
    intptr_t WindowProc(unsigned int message, uintptr_t wParam, intptr_t lParam) override;

private:
    int m_lower = 0;
    int m_upper = 100;
    int m_position = 0;
};

#endif
