#include "client/LocalFiles.h"

#include "platform/InputFile.h"

#include <errmsg.h>

#include <cerrno>
#include <cstdio>
#include <memory>
#include <string>

namespace client {
namespace {

/// A file on its way to the server, from the opening to the end; also when it could not be opened.
struct LocalFile
{
    std::string name; // a copy: the client's stands where it puts what it sends
    std::FILE* file;
    int error;
};

// The four functions below are called by the client, in this order, for one file at a time.

int Open(void** state, const char* name, void*) noexcept
try {
    *state = nullptr;
    auto local = std::make_unique<LocalFile>(LocalFile{name, nullptr, 0});
    local->file = platform::OpenInputFile(name);
    local->error = errno;
    const bool isOpen = local->file != nullptr;
    *state = local.release();
    return isOpen ? 0 : 1;
} catch (...) {
    return 1;
}

int Read(void* state, char* buffer, unsigned int size) noexcept
{
    auto* const local = static_cast<LocalFile*>(state);
    errno = 0;
    const size_t count = std::fread(buffer, 1, size, local->file);
    if (count > 0 || std::ferror(local->file) == 0)
        return static_cast<int>(count);
    local->error = errno != 0 ? errno : EIO;
    return -1;
}

int Error(void* state, char* text, unsigned int size) noexcept
{
    const auto* const local = static_cast<const LocalFile*>(state);
    if (local == nullptr) {
        std::snprintf(text, size, "Client run out of memory");
        return CR_OUT_OF_MEMORY;
    }
    std::snprintf(text, size,
                  local->file == nullptr ? "File '%s' not found (Errcode: %d)"
                                         : "Error reading file '%s' (Errcode: %d)",
                  local->name.c_str(), local->error);
    return local->error;
}

void Close(void* state) noexcept
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
