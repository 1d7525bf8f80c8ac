#include "platform/PathRules.h"

#include "platform/win32/Recode.h"
#include "platform/win32/WinApi.h"

namespace platform {

PathRules SystemPathRules() noexcept
{
    return {'\\', true};
}

std::string TempDirectory()
{
    wchar_t path[MAX_PATH + 1];
    const DWORD length = GetTempPathW(MAX_PATH + 1, path);
    return length <= MAX_PATH ? ToUtf8({path, length}) : std::string();
}

} // namespace platform
