#include "platform/TickCount.h"

#include "platform/win32/WinApi.h"

uint32_t platform::TickCount() noexcept
{
    return GetTickCount();
}
