#include "platform/WaitCursor.h"

#include "platform/win32/WinApi.h"

namespace platform {
namespace {

// The system keeps one pointer for each thread that has windows.
thread_local int openPairs = 0;
thread_local HCURSOR pointerBefore = nullptr;

} // namespace

void BeginWaitCursor() noexcept
{
    if (openPairs++ == 0)
        pointerBefore = SetCursor(LoadCursor(nullptr, IDC_WAIT));
}

void EndWaitCursor() noexcept
{
    if (openPairs > 0 && --openPairs == 0)
        SetCursor(pointerBefore);
}

} // namespace platform
