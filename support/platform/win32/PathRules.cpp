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

std::string TempDirectory()
{
    wchar_t path[MAX_PATH + 1];
    const DWORD length = GetTempPathW(MAX_PATH + 1, path);
    return length <= MAX_PATH ? ToUtf8({path, length}) : std::string();
}

} // namespace platform
