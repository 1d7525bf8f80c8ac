#include "platform/Guid.h"

#include "platform/win32/WinApi.h"

#include <rpc.h>

namespace platform {

bool GuidFromText(std::string_view text, _GUID& guid) noexcept
{
    unsigned char terminated[37] = {};
    if (text.size() != sizeof terminated - 1)
        return false;
    text.copy(reinterpret_cast<char*>(terminated), text.size());
    UUID read;
    if (UuidFromStringA(terminated, &read) != RPC_S_OK)
        return false;
    guid = read;
    return true;
}

} // namespace platform
