#include "platform/Guid.h"

#include "platform/win32/WinApi.h"

#include <new>
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

std::string GuidToText(const _GUID& guid)
{
    GUID copy = guid; // some headers take it as no constant
    RPC_CSTR text = nullptr;
    if (UuidToStringA(&copy, &text) != RPC_S_OK)
        throw std::bad_alloc();
    const std::string result(reinterpret_cast<const char*>(text));
    RpcStringFreeA(&text);
    return result;
}

} // namespace platform
