#include "platform/RemoveFile.h"

#include "platform/win32/Recode.h"
#include "platform/win32/WinApi.h"

namespace platform {
namespace {

// A link to a folder counts as a folder, and is removed as one.
bool IsLinkToFolder(const wchar_t* path)
{
    constexpr DWORD both = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
    const DWORD attributes = GetFileAttributesW(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & both) == both;
}

} // namespace

bool RemoveFile(const std::string& nativePath) noexcept
try {
    const std::wstring path = ToWide(nativePath);
    if (IsLinkToFolder(path.c_str()))
        return RemoveDirectoryW(path.c_str()) != 0;
    char ansi[ansiPathSize];
    return (ToAnsiPath(path.c_str(), ansi) ? DeleteFileA(ansi) : DeleteFileW(path.c_str())) != 0;
} catch (...) {
    return false;
}

} // namespace platform
