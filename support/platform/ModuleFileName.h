#pragma once

#include <string>

namespace platform {

/// The path of the running program's executable file, in the system's own spelling and in UTF-8, cut after 260 bytes of
/// the system's encoding. Empty when the system does not tell.
std::string ModuleFileName();

} // namespace platform
