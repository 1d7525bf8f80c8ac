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
    return ToUtf8({path, GetTempPathW(MAX_PATH + 1, path)});
}

} // namespace platform
