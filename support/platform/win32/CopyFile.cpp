#include "platform/CopyFile.h"

#include "platform/win32/Recode.h"
#include "platform/win32/WinApi.h"

namespace platform {
namespace {

// So that what has to go after a failure is the copy's own, and no file that another program has made meanwhile.
bool Create(const wchar_t* path) noexcept
{
    const HANDLE file = CreateFileW(path, GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    return file != INVALID_HANDLE_VALUE && CloseHandle(file);
}

// Over a file that is there they need not travel by themselves.
bool CopyAttributes(const wchar_t* from, const wchar_t* to) noexcept
{
    constexpr DWORD copied =
        FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE;
    const DWORD attributes = GetFileAttributesW(from);
    return attributes != INVALID_FILE_ATTRIBUTES && SetFileAttributesW(to, attributes & copied);
}

void Remove(const wchar_t* path) noexcept
{
    SetFileAttributesW(path, FILE_ATTRIBUTE_NORMAL); // the copy of a protected file is protected
    DeleteFileW(path);
}

} // namespace

// Not the standard library's: mingw-w64's ends the program when memory runs out, and loses the attributes.
bool CopyToNewFile(const std::string& from, const std::string& to) noexcept
try {
    const std::wstring source = ToWide(from);
    const std::wstring target = ToWide(to);
    if (!Create(target.c_str()))
        return false;
    const bool isCopied =
        CopyFileW(source.c_str(), target.c_str(), FALSE) && CopyAttributes(source.c_str(), target.c_str());
    if (!isCopied)
        Remove(target.c_str());
    return isCopied;
} catch (...) {
    return false;
}

} // namespace platform
