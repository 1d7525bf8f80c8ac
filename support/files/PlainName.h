#pragma once

#include "platform/PathRules.h"
#include "text/UtCString.h"

namespace files {

/// Whether a name can stand for one file or folder within another, and for that one only: not empty, without "\", "/",
/// ":" and zero bytes, and without a dot or blank at its end, which some systems drop, so that "kalk." would be "kalk".
/// "." and ".." are none.
///
/// On Windows also without `"*<>?|` and control characters, and none that is a device in every folder: "con", "prn",
/// "aux", "nul", "com1" and the like in any letter case, also with an ending ("nul.txt").
bool IsPlainName(const UtCString& name) noexcept;

/// The same by the rules of a system.
bool IsPlainName(const UtCString& name, const platform::PathRules& rules) noexcept;

} // namespace files
