#include "harness/win32/WineRun.h"

#include "harness/System.h"

#include <atomic>
#include <cstdlib>
#include <stdexcept>

#include <windows.h>

namespace harness {
namespace {

std::string Variable(const char* name)
{
    const char* const value = std::getenv(name);
    return value == nullptr ? "" : value;
}

/// Backslashes count only in front of a quote, where they are doubled.
std::string Quoted(const std::string& word)
{
    std::string quoted = "\"";
    size_t backslashes = 0;
    for (const char character : word) {
        if (character == '"') {
            quoted.append(backslashes + 1, '\\');
        }
        backslashes = character == '\\' ? backslashes + 1 : 0;
        quoted += character;
    }
    return quoted.append(backslashes, '\\') + '"';
}

} // namespace

std::filesystem::path RunFolder()
{
    return OwnPath(Variable("MYDB_TEST_RUN_FOLDER"));
}

std::filesystem::path NewName(const std::string& start)
{
    static std::atomic<int> number = 0;
    const std::filesystem::path run = RunFolder();
    return (run.empty() ? std::filesystem::temp_directory_path() : run) /
           (start + "_" + std::to_string(ProcessId()) + "_" + std::to_string(++number));
}

void StartUnixCommand(const std::vector<std::string>& words)
{
    std::vector<std::string> all = {"bash", Variable("MYDB_TEST_WINE_CHILD")};
    if (all.back().empty()) {
        throw std::runtime_error("a server needs a program that runs under scripts/wine.sh, or MYDB_TEST_SERVER");
    }
    all.insert(all.end(), words.begin(), words.end());
    std::string line = CommandLine(all);
    STARTUPINFOA start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    // The handles of a program of the Unix system tell nothing.
    if (!::CreateProcessA("Z:\\bin\\bash", line.data(), nullptr, nullptr, FALSE, 0, nullptr, "Z:\\", &start,
                          &process)) {
        throw std::runtime_error("bash did not start: error " + std::to_string(::GetLastError()));
    }
}

std::string CommandLine(const std::vector<std::string>& words)
{
    std::string line;
    for (const std::string& word : words) {
        line += (line.empty() ? "" : " ") + Quoted(word);
    }
    return line;
}

} // namespace harness
