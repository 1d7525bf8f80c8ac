#pragma once

#include <string>

namespace platform {

/// How the system's file functions read a path.
struct PathRules
{
    char separator;   ///< between the components
    bool ignoresCase; ///< whether two spellings that differ in letter case name the same file
    bool limitsNames; ///< whether names have the limits of Windows: see files::IsPlainName and files::IsDeletable
};

PathRules SystemPathRules() noexcept;

/// Whether a path of the system names the root of its files, of a drive or of a share, however it is written. A link to
/// it is none. Where Windows does not show how deep a root lies, below "\\?\GLOBALROOT", every path counts as one.
/// Throws std::bad_alloc.
bool IsRootFolder(const std::string& nativePath);

/// The user's folder for temporary files as an absolute path of the system, in UTF-8. Empty when the system names none.
std::string TempDirectory();

} // namespace platform
