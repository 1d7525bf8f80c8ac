#pragma once

#include "framework/Guid.h"
#include "text/UtCString.h"

namespace framework {

/// Reads a GUID as people and programs write it: letter case and blanks do not matter, braces around it and a leading
/// word "guid" or "uuid" are skipped; what remains must have the form of `platform::GuidFromText`.
/// The all-zero GUID for every other text, the empty one included. The text is read as encoding 256.
_GUID GuidFromLooseText(const UtCString& text) noexcept;

} // namespace framework
