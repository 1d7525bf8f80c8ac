#include "files/FileSystemPath.h"
#include "files/NativePath.h"
#include "files/UtFile.h"
#include "platform/CopyFile.h"
#include "platform/Folder.h"
#include "platform/PathRules.h"
#include "text/TextSearch.h"

#include <algorithm>
#include <filesystem>
#include <vector>

namespace fs = std::filesystem;

namespace {

bool IsSameName(const fs::path& left, const fs::path& right)
{
    const bool ignoresCase = platform::SystemPathRules().ignoresCase;
    const std::string name = files::NativeText(left);
    const std::string other = files::NativeText(right);
    return text::PrefixSize({name, UT_ENCODING_UTF8}, {other, UT_ENCODING_UTF8},
                            ignoresCase ? text::LetterCase::Ignored : text::LetterCase::Exact) == name.size();
}

class TreeCopy
{
public:
    explicit TreeCopy(fs::path target) : m_target(std::move(target)) {}

    bool Run(const fs::path& source)
    {
        std::error_code error;
        if (!fs::is_directory(source, error) || IsInside(source))
            return false;
        fs::create_directories(m_target, error);
        return fs::is_directory(m_target, error) && CopyFolder(source, m_target);
    }

private:
    bool IsInside(const fs::path& source) const
    {
        const fs::path target = fs::weakly_canonical(fs::absolute(m_target));
        const fs::path folder = fs::canonical(source);
        return std::mismatch(folder.begin(), folder.end(), target.begin(), target.end(), IsSameName).first ==
               folder.end();
    }

    // A source folder that is the target or one of its own parents would be copied without end.
    bool IsBeingVisited(const fs::path& source) const
    {
        const auto isSame = [&source](const fs::path& other) {
            std::error_code error;
            return fs::equivalent(source, other, error);
        };
        return isSame(m_target) || std::any_of(m_openSources.begin(), m_openSources.end(), isSame);
    }

    bool CopyFolder(const fs::path& source, const fs::path& target)
    {
        if (IsBeingVisited(source))
            return false;
        m_openSources.push_back(source);
        std::vector<std::string> names;
        const bool isCopied =
            platform::ListFolder(files::NativeText(source), names) &&
            std::all_of(names.begin(), names.end(), [this, &source, &target](const std::string& name) {
                const fs::path entry = files::FileSystemPath(name);
                return CopyEntry(source / entry, target / entry);
            });
        m_openSources.pop_back();
        return isCopied;
    }

    bool CopyEntry(const fs::path& source, const fs::path& target)
    {
        std::error_code error;
        const fs::file_status status = fs::status(source, error);
        if (fs::is_regular_file(status))
            return CopyFile(source, target);
        if (!fs::is_directory(status))
            return !error && fs::exists(status);
        fs::create_directory(target, error);
        return fs::is_directory(target, error) && CopyFolder(source, target);
    }

    static bool CopyFile(const fs::path& source, const fs::path& target)
    {
        std::error_code error;
        const fs::file_status existing = fs::symlink_status(target, error);
        if (fs::exists(existing))
            return !fs::is_directory(existing);
        return platform::CopyToNewFile(files::NativeText(source), files::NativeText(target));
    }

    fs::path m_target;
    std::vector<fs::path> m_openSources;
};

bool CopyTree(const std::string& from, const std::string& to)
{
    return !from.empty() && !to.empty() && TreeCopy(files::FileSystemPath(to)).Run(files::FileSystemPath(from));
}

} // namespace

int UtCopyDirectory(const UtCString& from, const UtCString& to) noexcept
try {
    return CopyTree(files::NativePath(from), files::NativePath(to)) ? 0 : 1;
} catch (...) {
    return 1;
}
