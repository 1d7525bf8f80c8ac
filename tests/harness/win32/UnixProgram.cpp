#include "harness/win32/Programs.h"

#include "harness/System.h"
#include "harness/win32/WineRun.h"

#include <fstream>

namespace harness {
namespace {

/// A folder stands for the program: its exit code appears there, and scripts/wine.sh finds there what to end.
class UnixProgram final : public RunningProgram
{
public:
    UnixProgram(const std::string& program, const std::vector<std::string>& arguments,
                const std::filesystem::path& outputFile)
        : m_folder(NewName("program"))
    {
        std::filesystem::create_directory(m_folder);
        std::vector<std::string> words = {"start", ServerPath(m_folder), ServerPath(outputFile), program};
        words.insert(words.end(), arguments.begin(), arguments.end());
        StartUnixCommand(words);
    }

    std::optional<int> ExitCode() override
    {
        int code = 0;
        return std::ifstream(m_folder / "ended") >> code ? std::optional(code) : std::nullopt;
    }
    void AskToEnd() override { Signal("TERM"); }
    void Kill() override { Signal("KILL"); }

private:
    void Signal(const std::string& name) const { StartUnixCommand({"signal", ServerPath(m_folder), name}); }

    std::filesystem::path m_folder;
};

} // namespace

std::unique_ptr<RunningProgram> StartUnixProgram(const std::string& program, const std::vector<std::string>& arguments,
                                                 const std::filesystem::path& outputFile)
{
    return std::make_unique<UnixProgram>(program, arguments, outputFile);
}

} // namespace harness
