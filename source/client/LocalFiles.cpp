#include "client/LocalFiles.h"

#include "platform/InputFile.h"

#include <errmsg.h>

#include <cerrno>
#include <cstdio>
#include <new>

namespace client {
namespace {

/// A file on its way to the server, from the opening to the end; also when it could not be opened.
struct LocalFile
{
    const char* name; ///< the client's, which outlives this
    std::FILE* file;
    int error;
};

// The four functions below are called by the client, in this order, for one file at a time.

int Open(void** state, const char* name, void*)
{
    auto* const local = new (std::nothrow) LocalFile{name, nullptr, 0};
    *state = local;
    if (local == nullptr)
        return 1;
    local->file = platform::OpenInputFile(name);
    local->error = local->file == nullptr ? errno : 0;
    return local->file == nullptr ? 1 : 0;
}

int Read(void* state, char* buffer, unsigned int size)
{
    auto* const local = static_cast<LocalFile*>(state);
    const size_t count = std::fread(buffer, 1, size, local->file);
    if (count > 0 || std::ferror(local->file) == 0)
        return static_cast<int>(count);
    local->error = errno;
    return -1;
}

int Error(void* state, char* text, unsigned int size)
{
    const auto* const local = static_cast<const LocalFile*>(state);
    if (local == nullptr) {
        std::snprintf(text, size, "Client run out of memory");
        return CR_OUT_OF_MEMORY;
    }
    std::snprintf(text, size,
                  local->file == nullptr ? "File '%s' not found (Errcode: %d)"
                                         : "Error reading file '%s' (Errcode: %d)",
                  local->name, local->error);
    return local->error;
}

void Close(void* state)
{
    auto* const local = static_cast<LocalFile*>(state);
    if (local != nullptr && local->file != nullptr)
        std::fclose(local->file);
    delete local;
}

} // namespace

void ReadLocalFiles(MYSQL* handle) noexcept
{
    mysql_set_local_infile_handler(handle, Open, Read, Close, Error, nullptr);
}

} // namespace client
