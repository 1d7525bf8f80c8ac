#include "files/UtFile.h"

#include "files/FileSystemPath.h"
#include "files/NativePath.h"
#include "platform/PathRules.h"

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;

namespace {

// An empty native path must not reach the file functions: some read it as the working folder.
fs::file_status StatusOf(const std::string& native)
{
    std::error_code error;
    return native.empty() ? fs::file_status() : fs::status(files::FileSystemPath(native), error);
}

// Some systems overlook a separator behind the name of a file.
bool IsFile(const std::string& native)
{
    return !native.ends_with(platform::SystemPathRules().separator) && fs::is_regular_file(StatusOf(native));
}

UtCString TempDirectoryWithBackslashes()
{
    std::string path = platform::TempDirectory();
    if (path.empty()) // and no root because of that
        return UtCString();
    std::replace(path.begin(), path.end(), '/', '\\');
    if (!path.ends_with('\\'))
        path += '\\';
    const UtCString exact(path, UT_ENCODING_UTF8);
    UtCString result(exact, UT_ENCODING_DEFAULT);
    return result == exact ? result : exact;
}

} // namespace

int UtIsFile(const UtCString& path) noexcept
try {
    return IsFile(files::NativePath(path));
} catch (...) {
    return 0;
}

int UtIsDir(const UtCString& path) noexcept
try {
    return fs::is_directory(StatusOf(files::NativePath(path)));
} catch (...) {
    return 0;
}

UtCString UtGetTempDir() noexcept
try {
    return TempDirectoryWithBackslashes();
} catch (...) {
    return UtCString();
}
