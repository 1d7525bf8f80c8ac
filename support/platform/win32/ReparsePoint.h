#pragma once

#include "platform/win32/WinApi.h"

namespace platform {

/// The tag of what is open, 0 when it has none or the system does not tell. To be opened with
/// FILE_FLAG_OPEN_REPARSE_POINT.
DWORD ReparseTag(HANDLE file) noexcept;

/// Whether a file or folder with these attributes and this tag stands for another one: symbolic links and the places
/// where something is mounted. Others, such as files that are kept in a cloud, are what they seem to be. A reparse
/// point without a tag counts as a link.
bool IsLink(DWORD attributes, DWORD tag) noexcept;

} // namespace platform
