#include "files/NativePath.h"

#include "files/FileSystemPath.h"
#include "platform/Folder.h"
#include "platform/PathRules.h"

#include <algorithm>
#include <filesystem>
#include <new>
#include <vector>

namespace files {
namespace {

namespace fs = std::filesystem;

bool Exists(const std::string& path)
{
    std::error_code error;
    return fs::symlink_status(FileSystemPath(path), error).type() != fs::file_type::not_found && !error;
}

// Throws rather than answer for a text that is empty because memory ran out.
UtCString Utf8(const std::string& name)
{
    UtCString text(name, UT_ENCODING_UTF8);
    if (text.GetByteLength() != name.size())
        throw std::bad_alloc();
    return text;
}

// Of several spellings the first in byte order is taken, so that the answer does not depend on the order of the folder.
// Empty when there is none.
std::string SpellingOnDisk(const std::string& folder, const std::string& name)
{
    if (name.empty() || Exists(folder + name))
        return name;
    const UtCString wanted = Utf8(name);
    std::vector<std::string> entries;
    platform::ListFolder(folder, entries);
    std::string found;
    for (std::string& candidate : entries)
        if (wanted.EqualNoCase(Utf8(candidate)) && (found.empty() || candidate < found))
            found = std::move(candidate);
    return found;
}

// `path` has only native separators. Below a component that is not found there is nothing to look for.
std::string WithSpellingOnDisk(const std::string& path, char separator)
{
    std::string result;
    for (size_t start = 0; start < path.size();) {
        const size_t end = std::min(path.find(separator, start), path.size());
        const std::string name = path.substr(start, end - start);
        const std::string found = SpellingOnDisk(result, name);
        if (found.empty() && !name.empty())
            return result + path.substr(start);
        result += found;
        if (end < path.size())
            result += separator;
        start = end + 1;
    }
    return result;
}

std::string Resolve(const UtCString& path)
{
    const platform::PathRules rules = platform::SystemPathRules();
    std::string native(UtCString(path, UT_ENCODING_UTF8).View());
    if (native.find('\0') != std::string::npos)
        return {};
    std::replace_if(
        native.begin(), native.end(), [](char c) { return c == '\\' || c == '/'; }, rules.separator);
    return rules.ignoresCase || Exists(native) ? native : WithSpellingOnDisk(native, rules.separator);
}

} // namespace

std::string NativePath(const UtCString& path) noexcept
try {
    return Resolve(path);
} catch (...) {
    return {};
}

} // namespace files
