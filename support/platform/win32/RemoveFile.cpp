#include "platform/RemoveFile.h"

#include "platform/win32/Recode.h"
#include "platform/win32/ReparsePoint.h"
#include "platform/win32/WinApi.h"

namespace platform {
namespace {

DWORD TagAt(const wchar_t* path) noexcept
{
    constexpr DWORD everybody = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE file = CreateFileW(path, FILE_READ_ATTRIBUTES, everybody, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return 0;
    const DWORD tag = ReparseTag(file);
    CloseHandle(file);
    return tag;
}

// A link to a folder counts as a folder, and is removed as one.
bool IsLinkToFolder(const wchar_t* path) noexcept
{
    constexpr DWORD both = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
    const DWORD attributes = GetFileAttributesW(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & both) == both && IsLink(attributes, TagAt(path));
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
