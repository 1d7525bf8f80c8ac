#include "harness/OpenFile.h"

#include <cstdint>
#include <string>

#include <windows.h>

namespace {

std::wstring PathOf(HANDLE handle)
{
    std::wstring path(MAX_PATH, L'\0');
    if (::GetFileType(handle) != FILE_TYPE_DISK) {
        return {};
    }
    path.resize(::GetFinalPathNameByHandleW(handle, path.data(), MAX_PATH, FILE_NAME_NORMALIZED));
    return path;
}

} // namespace

bool harness::CloseDescriptorOf(const std::filesystem::path& file)
{
    constexpr std::intptr_t LARGEST = 4096;
    const std::wstring wanted = L"\\\\?\\" + std::filesystem::absolute(file).make_preferred().wstring();
    for (std::intptr_t number = 4; number < LARGEST; number += 4) {
        const auto handle = reinterpret_cast<HANDLE>(number);
        if (PathOf(handle) == wanted) {
            return ::CloseHandle(handle) != 0;
        }
    }
    return false;
}
