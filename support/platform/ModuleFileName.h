#pragma once

#include <string>

namespace platform {

/// The path of the running program's executable file, in the system's own spelling and encoding, cut after 260 bytes.
/// Empty when the system does not tell.
std::string ModuleFileName();

} // namespace platform
