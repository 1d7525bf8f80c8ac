#pragma once

#include "MyDbExport.h"
#include "framework/CObject.h"

#include <cstdint>

// <windows.h> has a macro SendMessage; there the framework's own classes are used.

/// The framework's window, as far as this library meets it.
class MYDB_EXPORT CWnd : public CObject
{
    DECLARE_DYNAMIC(CWnd)
public:
    /// Handles a message and gives its result. This class knows none and gives 0.
    virtual intptr_t SendMessage(unsigned int message, uintptr_t wParam = 0, intptr_t lParam = 0);
};

/// Moves a progress bar on by `wParam`; the result is the position that it had.
inline constexpr unsigned int PBM_DELTAPOS = 1027;

/// The framework's progress bar: a range and a position in it. This one shows nothing. A host derives from it to show
/// any bar, and overrides SendMessage to hear of each step.
class MYDB_EXPORT CProgressCtrl : public CWnd
{
    DECLARE_DYNAMIC(CProgressCtrl)
public:
    /// Sets the bounds, 0 and 100 at first. A position outside moves to the nearer one.
    void SetRange32(int lower, int upper) noexcept;
    virtual void GetRange(int& lower, int& upper) const;
    int GetPos() const noexcept; ///< The position, 0 at first.

    /// PBM_DELTAPOS moves the position by `wParam`, up to the upper bound; 0 for every other message.
    intptr_t SendMessage(unsigned int message, uintptr_t wParam = 0, intptr_t lParam = 0) override;

private:
    int m_lower = 0;
    int m_upper = 100;
    int m_position = 0;
};
