#pragma once

#include <string>

namespace platform {

/// How the system's file functions read a path.
struct PathRules
{
    char separator;   ///< between the components
    bool ignoresCase; ///< whether two spellings that differ in letter case name the same file
};

PathRules SystemPathRules() noexcept;

/// The user's folder for temporary files as an absolute path of the system, in UTF-8.
std::string TempDirectory();

} // namespace platform
