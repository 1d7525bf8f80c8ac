#include "platform/Folder.h"

#include "platform/win32/FullPath.h"
#include "platform/win32/Recode.h"
#include "platform/win32/ReparsePoint.h"
#include "platform/win32/WinApi.h"

#include <algorithm>
#include <string_view>

namespace platform {
namespace {

bool IsDots(std::wstring_view name)
{
    return name == L"." || name == L"..";
}

/// The names in a folder, one after the other, without "." and "..".
class FolderSearch
{
public:
    /// `pattern` ends with "*".
    explicit FolderSearch(const std::wstring& pattern) noexcept
        : m_search(FindFirstFileW(pattern.c_str(), &m_entry)), m_error(IsOpen() ? ERROR_SUCCESS : GetLastError())
    {
    }
    ~FolderSearch()
    {
        if (IsOpen())
            FindClose(m_search);
    }
    FolderSearch(const FolderSearch&) = delete;
    FolderSearch& operator=(const FolderSearch&) = delete;

    /// Null at the end of the folder, where `IsComplete` tells whether it was one.
    const wchar_t* Next() noexcept
    {
        while (IsOpen() && (m_isFirst || FindNextFileW(m_search, &m_entry))) {
            m_isFirst = false;
            if (!IsDots(m_entry.cFileName))
                return m_entry.cFileName;
        }
        if (IsOpen())
            m_error = GetLastError();
        return nullptr;
    }

    /// True when the last name has been seen. The root of an empty drive has not even dots.
    bool IsComplete() const noexcept { return m_error == (IsOpen() ? ERROR_NO_MORE_FILES : ERROR_FILE_NOT_FOUND); }

private:
    bool IsOpen() const noexcept { return m_search != INVALID_HANDLE_VALUE; }

    WIN32_FIND_DATAW m_entry;
    HANDLE m_search;
    DWORD m_error; ///< of the search that did not open or has ended
    bool m_isFirst = true;
};

/// A file, folder or link, held so that nobody can put something else into its place.
class HeldEntry
{
public:
    explicit HeldEntry(const std::wstring& path) noexcept
        : m_handle(CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                               FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr))
    {
        m_isHeld = m_handle != INVALID_HANDLE_VALUE &&
                   GetFileInformationByHandleEx(m_handle, FileBasicInfo, &m_information, sizeof m_information);
        if (!m_isHeld)
            return;
        // Wine tells by the path alone that it is a link.
        m_isLink = IsLink(m_information.FileAttributes | GetFileAttributesW(path.c_str()), ReparseTag(m_handle));
    }
    ~HeldEntry()
    {
        if (m_handle != INVALID_HANDLE_VALUE)
            CloseHandle(m_handle);
    }
    HeldEntry(const HeldEntry&) = delete;
    HeldEntry& operator=(const HeldEntry&) = delete;

    bool IsHeld() const noexcept { return m_isHeld; }

    /// The names in a folder; a file and a link have none. False when they cannot be read.
    bool ListFolder(std::vector<std::wstring>& names)
    {
        if (!Has(FILE_ATTRIBUTE_DIRECTORY) || m_isLink)
            return true;
        alignas(FILE_ID_BOTH_DIR_INFO) char buffer[4096];
        while (GetFileInformationByHandleEx(m_handle, FileIdBothDirectoryInfo, buffer, sizeof buffer))
            AddNames(buffer, names);
        return GetLastError() == ERROR_NO_MORE_FILES;
    }

    /// It goes with this object.
    bool Remove() noexcept
    {
        FILE_DISPOSITION_INFO disposition{TRUE};
        return (!Has(FILE_ATTRIBUTE_READONLY) || Unprotect()) &&
               SetFileInformationByHandle(m_handle, FileDispositionInfo, &disposition, sizeof disposition);
    }

private:
    static constexpr DWORD access =
        DELETE | SYNCHRONIZE | FILE_LIST_DIRECTORY | FILE_READ_ATTRIBUTES | FILE_WRITE_ATTRIBUTES;

    bool Has(DWORD attribute) const noexcept { return (m_information.FileAttributes & attribute) != 0; }

    static void AddNames(const char* entries, std::vector<std::wstring>& names)
    {
        DWORD step = 0;
        do {
            entries += step;
            const auto& entry = *reinterpret_cast<const FILE_ID_BOTH_DIR_INFO*>(entries);
            const std::wstring_view name(entry.FileName, entry.FileNameLength / sizeof(wchar_t));
            if (!IsDots(name))
                names.emplace_back(name);
            step = entry.NextEntryOffset;
        } while (step != 0);
    }

    bool Unprotect() noexcept
    {
        m_information.FileAttributes &= ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY);
        m_information.FileAttributes |= FILE_ATTRIBUTE_NORMAL;
        return SetFileInformationByHandle(m_handle, FileBasicInfo, &m_information, sizeof m_information) != 0;
    }

    HANDLE m_handle;
    FILE_BASIC_INFO m_information;
    bool m_isHeld;
    bool m_isLink = false;
};

// While the entry is held, its path leads to it and through no link that came in between.
bool RemoveTree(const std::wstring& path)
{
    HeldEntry entry(path);
    std::vector<std::wstring> names;
    return entry.IsHeld() && entry.ListFolder(names) &&
           std::all_of(names.begin(), names.end(),
                       [&path](const std::wstring& name) { return RemoveTree(path + L'\\' + name); }) &&
           entry.Remove();
}

/// The full path in the form that may have any length. Empty when there is none.
std::wstring LongPath(const std::wstring& path)
{
    const std::wstring full = FullPath(path);
    if (full.starts_with(L"\\\\"))
        return full[2] == L'?' || full[2] == L'.' ? full : L"\\\\?\\UNC\\" + full.substr(2);
    return full.empty() ? full : L"\\\\?\\" + full;
}

} // namespace

bool ListFolder(const std::string& folder, std::vector<std::string>& names)
{
    FolderSearch search(folder.empty() ? L"*" : ToWide(folder) + L"\\*");
    while (const wchar_t* const name = search.Next())
        names.push_back(ToUtf8(name));
    return search.IsComplete();
}

bool IsNothingAt(const std::string& path)
{
    const std::wstring full = LongPath(ToWide(path));
    if (full.empty() || GetFileAttributesW(full.c_str()) != INVALID_FILE_ATTRIBUTES)
        return false;
    constexpr DWORD errors[] = {ERROR_FILE_NOT_FOUND, ERROR_PATH_NOT_FOUND, ERROR_INVALID_NAME, ERROR_BAD_PATHNAME};
    return std::count(std::begin(errors), std::end(errors), GetLastError()) > 0;
}

bool IsFolder(const std::string& path)
{
    const DWORD attributes = GetFileAttributesW(LongPath(ToWide(path)).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool RemoveFolderTree(const std::string& folder) noexcept
try {
    return RemoveTree(LongPath(ToWide(folder)));
} catch (...) {
    return false;
}

} // namespace platform
