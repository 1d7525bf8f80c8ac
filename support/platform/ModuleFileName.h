#pragma once

#include <string>

namespace platform {

/// The path of the running program's executable file, in the system's own spelling and in UTF-8. Cut after 260 bytes of
/// the system's encoding; on Windows after 259 or 260 of the ANSI code page, whose nearest letter or "?" stands for a
/// character that it lacks. Empty when the system does not tell.
std::string ModuleFileName();

} // namespace platform
