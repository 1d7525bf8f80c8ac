#include "platform/PathRules.h"

#include "platform/win32/FullPath.h"
#include "platform/win32/Recode.h"
#include "platform/win32/WinApi.h"

#include <algorithm>
#include <string_view>

namespace platform {

namespace {

// A prefix is ASCII and in capitals.
bool TakePrefix(std::wstring& path, std::wstring_view prefix)
{
    const bool isThere = path.size() >= prefix.size() &&
                         std::equal(prefix.begin(), prefix.end(), path.begin(), [](wchar_t wanted, wchar_t given) {
                             return wanted == (given >= L'a' && given <= L'z' ? given - L'a' + L'A' : given);
                         });
    if (isThere)
        path.erase(0, prefix.size());
    return isThere;
}

/// Empty when there is no such variable.
std::wstring Variable(const wchar_t* name)
{
    std::wstring value(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
    const DWORD length = GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size()));
    value.resize(length < value.size() ? length : 0); // changed meanwhile
    return value;
}

std::wstring FolderOfWindows()
{
    wchar_t path[MAX_PATH] = L"";
    return GetWindowsDirectoryW(path, MAX_PATH) < MAX_PATH ? path : L"";
}

} // namespace

PathRules SystemPathRules() noexcept
{
    return {'\\', true, true};
}

bool IsRootFolder(const std::string& nativePath)
{
    std::wstring path = FullPath(ToWide(nativePath));
    bool isShare = TakePrefix(path, L"\\\\");
    if (isShare && (TakePrefix(path, L"?\\") || TakePrefix(path, L".\\"))) {
        while (TakePrefix(path, L"GLOBAL\\"))
            continue;
        if (TakePrefix(path, L"GLOBALROOT"))
            return true;
        isShare = TakePrefix(path, L"UNC\\");
    }
    const size_t inner = path.find(L'\\'); // between the server and the share
    return path.find(L'\\', isShare && inner != std::wstring::npos ? inner + 1 : 0) == std::wstring::npos;
}

// As GetTempPathW does, which has no answer for a variable of more than 259 characters.
std::string TempDirectory()
{
    for (const wchar_t* const name : {L"TMP", L"TEMP", L"USERPROFILE"})
        if (const std::wstring folder = FullPath(Variable(name)); !folder.empty())
            return ToUtf8(folder + L'\\');
    const std::wstring folder = FolderOfWindows();
    return folder.empty() ? std::string() : ToUtf8(folder + L'\\');
}

} // namespace platform
