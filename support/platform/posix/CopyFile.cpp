#include "platform/CopyFile.h"

#include "platform/OutputFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {
namespace {

class OpenFile
{
public:
    explicit OpenFile(int descriptor) noexcept : m_descriptor(descriptor) {}
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() { Close(); }

    bool IsOpen() const noexcept { return m_descriptor >= 0; }
    int Descriptor() const noexcept { return m_descriptor; }

    /// False when the system reports only now that something could not be written.
    bool Close() noexcept
    {
        const int descriptor = m_descriptor;
        m_descriptor = -1;
        return descriptor < 0 || close(descriptor) == 0;
    }

private:
    int m_descriptor;
};

bool CopyBytes(int from, int to) noexcept
{
    char buffer[65536];
    for (;;) {
        const ssize_t count = read(from, buffer, sizeof buffer);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return count == 0;
        if (!WriteOutputFile(to, buffer, static_cast<size_t>(count)))
            return false;
    }
}

} // namespace

// Not the standard library's, which does not tell whether it was the one to create the file that has to go after a
// failure.
bool CopyToNewFile(const std::string& from, const std::string& to) noexcept
{
    const OpenFile source(open(from.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status
    {
    };
    if (!source.IsOpen() || fstat(source.Descriptor(), &status) != 0 || !S_ISREG(status.st_mode))
        return false;
    OpenFile target(open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (!target.IsOpen())
        return false;
    const bool isCopied = fchmod(target.Descriptor(), status.st_mode) == 0 &&
                          CopyBytes(source.Descriptor(), target.Descriptor()) && target.Close();
    if (!isCopied)
        unlink(to.c_str());
    return isCopied;
}

} // namespace platform
