#include "framework/CWnd.h"

#include <algorithm>
#include <utility>

IMPLEMENT_DYNAMIC(CWnd, CObject)
IMPLEMENT_DYNAMIC(CProgressCtrl, CWnd)

namespace {

/// The position in the range; the lower bound where the range is upside down.
int Within(int64_t position, int lower, int upper) noexcept
{
    return static_cast<int>(std::max<int64_t>(lower, std::min<int64_t>(position, upper)));
}

} // namespace

intptr_t CWnd::SendMessage(unsigned int message, uintptr_t wParam, intptr_t lParam)
{
    return WindowProc(message, wParam, lParam);
}

intptr_t CWnd::WindowProc(unsigned int, uintptr_t, intptr_t)
{
    return 0;
}

void CProgressCtrl::SetRange32(int lower, int upper) noexcept
{
    m_lower = lower;
    m_upper = upper;
    m_position = Within(m_position, lower, upper);
}

void CProgressCtrl::GetRange(int& lower, int& upper) const
{
    lower = m_lower;
    upper = m_upper;
}

int CProgressCtrl::GetPos() const noexcept
{
    return m_position;
}

intptr_t CProgressCtrl::WindowProc(unsigned int message, uintptr_t wParam, intptr_t)
{
    if (message != PBM_DELTAPOS)
        return 0;
    const auto step = static_cast<int32_t>(static_cast<uint32_t>(wParam)); // negative steps come as unsigned ones
    return std::exchange(m_position, Within(int64_t{m_position} + step, m_lower, m_upper));
}
