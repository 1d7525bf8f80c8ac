#include "connection/ServerIniPassword.h"
#include "platform/IniFile.h"

#include <cstdint>
#include <cstdlib>
#include <string>

#include <sys/mman.h>
#include <unistd.h>

// Any file gives a value of at most 255 bytes, and the same one wherever the pieces end in which the file is read.

namespace {

/// A file without a name, in memory only.
class MemoryFile
{
public:
    explicit MemoryFile(const std::string& bytes) : m_descriptor(memfd_create("ini", MFD_CLOEXEC))
    {
        if (write(m_descriptor, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
            std::abort();
    }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    ~MemoryFile() { close(m_descriptor); }

    std::string Value(const char* key) const
    {
        const std::string path = "/proc/self/fd/" + std::to_string(m_descriptor);
        const platform::IniValue value = platform::ReadIniValue(path, "SQL-Server", key, "default");
        if (value.length > platform::IniValue::maximumLength || value.text[value.length] != '\0')
            std::abort();
        return std::string(value.text, value.length);
    }

private:
    int m_descriptor;
};

void CheckPassword(const std::string& stored)
{
    const UtCString password = connection::DecipherPassword(stored);
    if (password.GetByteLength() > stored.size() / 2 || (stored.size() % 16 != 0 && !password.IsEmpty()))
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const MemoryFile file(bytes);
    for (const char* key : {"Port", "Password"}) {
        const std::string value = file.Value(key);
        CheckPassword(value);
        // A comment in front moves the ends of the pieces; a mark counts only at the start.
        if (size < 3 || (bytes[0] != '\xFF' && bytes[0] != '\xEF'))
            if (MemoryFile(";" + std::string(16384 - size % 16384, ';') + "\n" + bytes).Value(key) != value)
                std::abort();
    }
    CheckPassword(bytes);
    return 0;
}
