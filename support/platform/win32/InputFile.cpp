#include "platform/InputFile.h"

#include "platform/win32/WinApi.h"

#include <cerrno>
#include <iterator>

namespace platform {

std::FILE* OpenInputFile(const char* nativePath) noexcept
{
    wchar_t path[MAX_PATH];
    if (MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, nativePath, -1, path, std::size(path)) != 0)
        return _wfopen(path, L"rb");
    return std::fopen(nativePath, "rb");
}

} // namespace platform
