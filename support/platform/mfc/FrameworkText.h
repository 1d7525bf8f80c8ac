#pragma once

#include <afxwin.h>

#include <string_view>

namespace platform {

/// A UTF-8 text for the framework's functions. Throws what the framework throws without memory.
CString FrameworkText(std::string_view utf8);

} // namespace platform
