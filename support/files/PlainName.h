#pragma once

#include "text/UtCString.h"

namespace files {

/// Whether a name can stand for one file or folder within another, and for that one only: not empty, without "\", "/",
/// ":" and zero bytes, and without a dot or blank at its end, which some systems drop, so that "kalk." would be "kalk".
/// "." and ".." are none.
bool IsPlainName(const UtCString& name) noexcept;

} // namespace files
