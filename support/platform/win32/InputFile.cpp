#include "platform/InputFile.h"

#include "platform/win32/WinApi.h"

#include <cerrno>
#include <fcntl.h>
#include <io.h>
#include <share.h>

namespace platform {
namespace {

bool IsRecoded(const char* path, UINT codePage, DWORD flags, wchar_t (&wide)[MAX_PATH]) noexcept
{
    return MultiByteToWideChar(codePage, flags, path, -1, wide, MAX_PATH) != 0;
}

std::FILE* StreamOf(int descriptor) noexcept
{
    std::FILE* const file = _fdopen(descriptor, "rb");
    if (!file) {
        const int error = errno;
        _close(descriptor);
        errno = error;
    }
    return file;
}

} // namespace

std::FILE* OpenInputFile(const char* nativePath) noexcept
{
    wchar_t path[MAX_PATH];
    if (!IsRecoded(nativePath, CP_UTF8, MB_ERR_INVALID_CHARS, path) && !IsRecoded(nativePath, CP_ACP, 0, path)) {
        errno = ENAMETOOLONG;
        return nullptr;
    }
    int descriptor = -1;
    const errno_t error = _wsopen_s(&descriptor, path, _O_RDONLY | _O_BINARY | _O_NOINHERIT, _SH_DENYNO, 0);
    if (error != 0) {
        errno = error;
        return nullptr;
    }
    return StreamOf(descriptor);
}

} // namespace platform
