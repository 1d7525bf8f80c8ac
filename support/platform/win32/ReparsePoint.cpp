#include "platform/win32/ReparsePoint.h"

namespace platform {

DWORD ReparseTag(HANDLE file) noexcept
{
    FILE_ATTRIBUTE_TAG_INFO information{};
    const bool isKnown =
        GetFileInformationByHandleEx(file, FileAttributeTagInfo, &information, sizeof information) != 0;
    return isKnown && (information.FileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) ? information.ReparseTag : 0;
}

bool IsLink(DWORD attributes, DWORD tag) noexcept
{
    return (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 && (tag == 0 || IsReparseTagNameSurrogate(tag));
}

} // namespace platform
