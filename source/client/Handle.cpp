#include "client/Handle.h"

#include "client/LocalFiles.h"

namespace client {

Handle NewHandle() noexcept
{
    Handle handle(mysql_init(nullptr));
    if (!handle)
        return handle;
    // The option and not the structure's member: the member's place differs between the client libraries.
    const my_bool reconnect = 1;
    mysql_options(handle.get(), MYSQL_OPT_RECONNECT, &reconnect);
    ReadLocalFiles(handle.get());
    return handle;
}

} // namespace client
