#pragma once

#include <afxwin.h>

#include <string_view>

namespace platform {

/// A UTF-8 text for people, in the character set of the framework's functions; a letter that is missing there becomes
/// the nearest one, so names of files do not come here. Throws what the framework throws without memory.
CString FrameworkText(std::string_view utf8);

} // namespace platform
