#include "platform/win32/FullPath.h"

#include "platform/win32/WinApi.h"

std::wstring platform::FullPath(const std::wstring& path)
{
    std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    while (full.ends_with(L'\\'))
        full.pop_back();
    return full;
}
