#include "platform/Folder.h"

#include "platform/win32/Recode.h"
#include "platform/win32/WinApi.h"

#include <string_view>

namespace platform {
namespace {

class Search
{
public:
    explicit Search(const std::wstring& folder)
        : m_handle(FindFirstFileW((folder.empty() ? L"*" : folder + L"\\*").c_str(), &m_entry))
    {
    }
    ~Search()
    {
        if (IsOpen())
            FindClose(m_handle);
    }
    Search(const Search&) = delete;
    Search& operator=(const Search&) = delete;

    bool IsOpen() const { return m_handle != INVALID_HANDLE_VALUE; }
    bool Next() { return FindNextFileW(m_handle, &m_entry) != 0; }
    const WIN32_FIND_DATAW& Entry() const { return m_entry; }

private:
    WIN32_FIND_DATAW m_entry;
    HANDLE m_handle;
};

bool IsDots(std::wstring_view name)
{
    return name == L"." || name == L"..";
}

bool RemoveEntry(const std::wstring& path, DWORD attributes);

bool RemoveContent(const std::wstring& path)
{
    Search search(path);
    if (!search.IsOpen())
        return false;
    do {
        const WIN32_FIND_DATAW& entry = search.Entry();
        if (!IsDots(entry.cFileName) && !RemoveEntry(path + L'\\' + entry.cFileName, entry.dwFileAttributes))
            return false;
    } while (search.Next());
    return GetLastError() == ERROR_NO_MORE_FILES;
}

bool RemoveEntry(const std::wstring& path, DWORD attributes)
{
    if (attributes & FILE_ATTRIBUTE_READONLY)
        SetFileAttributesW(path.c_str(), attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY));
    if (!(attributes & FILE_ATTRIBUTE_DIRECTORY))
        return DeleteFileW(path.c_str()) != 0;
    const bool isEmpty = (attributes & FILE_ATTRIBUTE_REPARSE_POINT) || RemoveContent(path);
    return isEmpty && RemoveDirectoryW(path.c_str());
}

} // namespace

bool ListFolder(const std::string& folder, std::vector<std::string>& names)
{
    Search search(ToWide(folder, CP_UTF8));
    if (!search.IsOpen())
        return false;
    do {
        if (!IsDots(search.Entry().cFileName))
            names.push_back(ToUtf8(search.Entry().cFileName));
    } while (search.Next());
    return GetLastError() == ERROR_NO_MORE_FILES;
}

bool RemoveFolderTree(const std::string& folder) noexcept
try {
    const std::wstring path = ToWide(folder, CP_UTF8);
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && RemoveEntry(path, attributes);
} catch (...) {
    return false;
}

} // namespace platform
