#include "harness/System.h"
#include "harness/win32/WineRun.h"

#include <chrono>
#include <fstream>
#include <thread>

namespace harness {
namespace {

namespace fs = std::filesystem;

/// A drive letter for a folder. Wine's drives are links in its prefix, which a program of the Unix system makes.
class Drive
{
public:
    explicit Drive(const fs::path& folder)
    {
        const fs::path answer = NewName("drive");
        StartUnixCommand({"drive", ServerPath(folder), ServerPath(answer)});
        std::ifstream(Awaited(answer)) >> m_letter;
    }
    Drive(const Drive&) = delete;
    Drive& operator=(const Drive&) = delete;
    ~Drive()
    {
        const fs::path answer = NewName("drive");
        StartUnixCommand({"no-drive", m_letter, ServerPath(answer)});
        Awaited(answer);
    }

    fs::path Root() const { return m_letter + ":\\"; }

private:
    static const fs::path& Awaited(const fs::path& file)
    {
        for (int waited = 0; waited < 10'000 && !fs::exists(file); ++waited) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        return file;
    }

    std::string m_letter;
};

class CurrentPath
{
public:
    explicit CurrentPath(const fs::path& folder) { fs::current_path(folder); }
    CurrentPath(const CurrentPath&) = delete;
    CurrentPath& operator=(const CurrentPath&) = delete;
    ~CurrentPath() { fs::current_path(m_before); }

private:
    fs::path m_before = fs::current_path();
};

} // namespace

bool RunInRoot(const fs::path& folder, const std::function<bool()>& work)
{
    const Drive drive(folder);
    const CurrentPath root(drive.Root());
    return work();
}

} // namespace harness
